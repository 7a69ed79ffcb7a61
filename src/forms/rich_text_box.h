#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/rich_text.h"

namespace forms {

// A field of text with formats, which rules and rows know as HTML.
class RichTextBox : public Control {
 public:
  // A part of `Text`, in bytes.
  struct Mark {
    std::size_t begin = 0;
    std::size_t size = 0;

    friend bool operator==(const Mark&, const Mark&) = default;
  };

  // As `WriteHtml` writes it, whatever HTML is assigned.
  Property<std::string> Html{*this, {}, Aspect::Value};
  Property<bool> ReadOnly{*this, false};
  // Holds text without formats, and offers none.
  Property<bool> Plain{*this, false};
  // Drawn so that they stand out; no format of the text. The rules follow with them what is typed.
  Property<std::vector<Mark>> Marks{*this, {}, Aspect::Items};

  // Set whenever `Html` becomes different, by whomever; cleared by a record binding.
  bool DataChanged = false;

  // A person changed the text or its formats.
  std::function<void()> Change;

  // Set by the widget, which knows where the caret is: puts a text there, in the place of what is selected.
  std::function<void(std::string_view)> InsertAtCaret;

  RichText Content() const { return ReadHtml(Html.get()); }
  // Without its formats.
  std::string Text() const { return PlainText(Content()); }
  void SetText(std::string_view text);

  bool TakesEnter() const override { return true; }

  // Types over what is there, or behind it in the format that it ends in.
  void DoType(std::string_view text);
  void DoAppend(std::string_view text);
  // Where the caret is; without a widget that is the end.
  void DoInsert(std::string_view text);
  // The text as a widget holds it after the person edited it there.
  void DoEdit(const RichText& text);

  void Changed(Aspect aspect) override;

 private:
  std::string Canonical(const RichText& text) const;
};

}  // namespace forms
