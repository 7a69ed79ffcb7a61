#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "forms/control.h"
#include "forms/rich_text.h"

namespace forms {

// A field of text with formats, which rules and rows know as HTML.
class RichTextBox : public Control {
 public:
  // As `WriteHtml` writes it, whatever HTML is assigned.
  Property<std::string> Html{*this, {}, Aspect::Value};
  Property<bool> ReadOnly{*this, false};

  // Set whenever `Html` becomes different, by whomever; cleared by a record binding.
  bool DataChanged = false;

  // A person changed the text or its formats.
  std::function<void()> Change;

  RichText Content() const { return ReadHtml(Html.get()); }
  // Without its formats.
  std::string Text() const { return PlainText(Content()); }
  void SetText(std::string_view text);

  bool TakesEnter() const override { return true; }

  // Types over what is there, or behind it in the format that it ends in.
  void DoType(std::string_view text);
  void DoAppend(std::string_view text);
  // The text as a widget holds it after the person edited it there.
  void DoEdit(const RichText& text);

  void Changed(Aspect aspect) override;
};

}  // namespace forms
