#include "forms/text_box.h"

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

char32_t TextBox::FilterKey(char32_t character, std::size_t position) {
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
  TypeInto({}, text);
}

void TextBox::DoAppend(std::string_view text) {
  TypeInto(ToUtf32(Text.get()), text);
}

void TextBox::DoEdit(std::string text) {
  if (Text == text) {
    return;
  }
  Text = std::move(text);
  Fire(Change);
}

void TextBox::Changed(Aspect aspect) {
  if (aspect == Aspect::Value) {
    DataChanged = true;
  }
  Control::Changed(aspect);
}

// The first character that passes the filter replaces what was there, as typing over a selection does.
void TextBox::TypeInto(std::u32string text, std::string_view typed) {
  if (typed.empty() && text.empty() && !ReadOnly) {
    DoEdit({});
    return;
  }
  const std::string& mask = Mask;
  for (const char32_t wanted : ToUtf32(typed)) {
    const char32_t character = FilterKey(wanted, text.size());
    const auto limit = static_cast<std::size_t>(MaxLength.get());
    if (character == 0 || (limit != 0 && text.size() >= limit)) {
      continue;
    }
    while (text.size() < mask.size() && !IsPlace(mask[text.size()]) &&
           static_cast<char32_t>(mask[text.size()]) != character) {
      text.push_back(static_cast<char32_t>(mask[text.size()]));
    }
    text.push_back(character);
    DoEdit(ToUtf8(text));
  }
}

}  // namespace forms
