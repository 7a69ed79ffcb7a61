#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "forms/field.h"

namespace forms {

// A field of text, UTF-8.
class TextBox : public Field {
 public:
  Property<std::string> Text{*this, {}, Aspect::Value};
  // In characters; 0 is unlimited. It bounds what is typed, never what the rules assign.
  Property<int> MaxLength{*this, 0};
  Property<bool> ReadOnly{*this, false};
  // Shown in place of every character when not 0.
  Property<char> PasswordChar{*this, '\0'};
  Property<bool> MultiLine{*this, false};
  // An entry mask: '#' a digit, 'A' a letter, '&' any character, everything else stands for itself and is put in
  // as the person types past it; typed behind too few digits it puts zeros before them.
  Property<std::string> Mask{*this};

  // A person changed the text.
  std::function<void()> Change;
  // A character about to be typed; the one to take in its place, or 0 to drop it.
  std::function<char32_t(char32_t)> KeyPress;

  // The character that the read-only state, the key filter and the mask's next place let through, or 0.
  char32_t FilterKey(char32_t character, std::size_t position) const;

  bool TakesEnter() const override { return true; }

  void DoType(std::string_view text);
  void DoAppend(std::string_view text);
  // Types over the characters from `from` up to `to`, as one edit. Where the caret stands then; nothing when no
  // character was let through.
  std::optional<std::size_t> DoTypeOver(std::size_t from, std::size_t to, std::string_view typed);
  // The text as a widget holds it after the person edited it there with keys that passed the filter.
  void DoEdit(std::string text);

  std::string FieldText() const override { return Text.get(); }
  void SetFieldText(std::string text) override { Text = std::move(text); }
  void SetRoom(int characters) override { MaxLength = characters; }

 private:
  void TypeKeys(std::size_t from, std::string_view text);
};

}  // namespace forms
