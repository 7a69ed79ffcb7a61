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

}  // namespace

char32_t TextBox::FilterKey(char32_t character, std::size_t position) const {
  if (KeyPress) {
    character = KeyPress(character);
  }
  if (character == 0 || ReadOnly) {
    return 0;
  }
  const std::string& mask = Mask;
  if (mask.empty()) {
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
    if (character == 0 || (limit != 0 && text.size() + behind.size() >= limit)) {
      continue;
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
