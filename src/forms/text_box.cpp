#include "forms/text_box.h"

#include <algorithm>

#include "forms/text.h"

namespace forms {
namespace {

bool IsPlace(char mask) {
  return mask == '#' || mask == 'A' || mask == '&';
}

bool Fits(char mask, char32_t character) {
  switch (mask) {
    case '#':
      return character >= U'0' && character <= U'9';
    case 'A':
      return (character >= U'A' && character <= U'Z') || (character >= U'a' && character <= U'z');
    default:
      return true;
  }
}

// How many places of digits are left free when the character, which is the mask's own behind them, ends a number that
// was begun; 0 when it ends none.
std::size_t FreeDigits(const std::string& mask, std::size_t position, char32_t character) {
  if (position == 0 || position >= mask.size() || mask[position - 1] != '#' || mask[position] != '#') {
    return 0;
  }
  const std::size_t end = std::min(mask.find_first_not_of('#', position), mask.size());
  return end < mask.size() && !IsPlace(mask[end]) && static_cast<char32_t>(mask[end]) == character ? end - position : 0;
}

}  // namespace

char32_t TextBox::FilterKey(char32_t character, std::size_t position) const {
  if (KeyPress) {
    character = KeyPress(character);
  }
  if (character == 0 || ReadOnly) {
    return 0;
  }
  const std::string& mask = Mask;
  if (mask.empty() || FreeDigits(mask, position, character) > 0) {
    return character;
  }
  while (position < mask.size() && !IsPlace(mask[position]) && static_cast<char32_t>(mask[position]) != character) {
    ++position;
  }
  return position < mask.size() && (!IsPlace(mask[position]) || Fits(mask[position], character)) ? character : 0;
}

void TextBox::DoType(std::string_view text) {
  if (!DoFocus()) {
    return;
  }
  if (text.empty() && !ReadOnly) {
    DoEdit({});
  }
  TypeKeys(0, text);
}

void TextBox::DoAppend(std::string_view text) {
  if (DoFocus()) {
    TypeKeys(CharacterCount(Text.get()), text);
  }
}

std::optional<std::size_t> TextBox::DoTypeOver(std::size_t from, std::size_t to, std::string_view typed) {
  std::u32string text = ToUtf32(Text.get());
  to = std::min(to, text.size());
  from = std::min(from, to);
  const std::u32string behind = text.substr(to);
  text.resize(from);
  const auto limit = static_cast<std::size_t>(MaxLength.get());
  const std::string& mask = Mask;
  bool taken = false;
  for (const char32_t wanted : ToUtf32(typed)) {
    const char32_t character = FilterKey(wanted, text.size());
    const std::size_t free = FreeDigits(mask, text.size(), character);
    if (character == 0 || (free > 0 && !behind.empty()) || (limit != 0 && text.size() + behind.size() >= limit)) {
      continue;
    }
    if (free > 0) {
      text.insert(mask.find_last_not_of('#', text.size()) + 1, free, U'0');  // in front of all where nothing is found
    }
    while (behind.empty() && text.size() < mask.size() && !IsPlace(mask[text.size()]) &&
           static_cast<char32_t>(mask[text.size()]) != character) {
      text.push_back(static_cast<char32_t>(mask[text.size()]));
    }
    text.push_back(character);
    taken = true;
  }
  if (!taken) {
    return std::nullopt;
  }
  DoEdit(ToUtf8(text + behind));
  return text.size();
}

void TextBox::DoEdit(std::string text) {
  if (Text == text) {
    return;
  }
  Text = std::move(text);
  Fire(Change);
}

// Key by key: the first character that passes the filter replaces what stood there from `from` on.
void TextBox::TypeKeys(std::size_t from, std::string_view text) {
  std::size_t to = CharacterCount(Text.get());
  for (const char32_t character : ToUtf32(text)) {
    if (ReadOnly) {
      FilterKey(character, from);  // its rule may have something to say, once
      return;
    }
    if (const auto caret = DoTypeOver(from, to, ToUtf8({&character, 1}))) {
      from = to = *caret;
    }
  }
}

}  // namespace forms
