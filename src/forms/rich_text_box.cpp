#include "forms/rich_text_box.h"

namespace forms {

void RichTextBox::SetText(std::string_view text) {
  Html = WriteHtml(FromPlainText(text));
}

void RichTextBox::DoType(std::string_view text) {
  if (DoFocus()) {
    DoEdit(FromPlainText(text));
  }
}

void RichTextBox::DoAppend(std::string_view text) {
  if (!DoFocus() || text.empty()) {
    return;
  }
  RichText whole = Content();
  if (whole.paragraphs.empty()) {
    whole.paragraphs.emplace_back();
  }
  const RichText::Paragraph last = whole.paragraphs.back();
  const RichText::Style style = last.runs.empty() ? RichText::Style() : last.runs.back().style;
  const RichText typed = FromPlainText(text);
  for (const RichText::Paragraph& paragraph : typed.paragraphs) {
    if (&paragraph != &typed.paragraphs.front()) {
      whole.paragraphs.push_back({.runs = {}, .align = last.align, .bullet = last.bullet});
    }
    for (const RichText::Run& run : paragraph.runs) {
      whole.paragraphs.back().runs.push_back({.text = run.text, .style = style});
    }
  }
  DoEdit(whole);
}

void RichTextBox::DoInsert(std::string_view text) {
  if (!DoFocus() || ReadOnly) {
    return;
  }
  if (InsertAtCaret) {
    InsertAtCaret(text);
  } else {
    DoAppend(text);
  }
}

void RichTextBox::DoEdit(const RichText& text) {
  const std::string html = Canonical(text);
  if (ReadOnly || Html == html) {
    return;
  }
  Html = html;
  if (Change) {
    Change();
  }
}

void RichTextBox::Changed(Aspect aspect) {
  if (aspect == Aspect::State) {  // may be without formats from now on
    Control::Changed(aspect);
  }
  const std::string canonical = Canonical(Content());
  const bool differs = canonical != Html.get();
  DataChanged = DataChanged || aspect == Aspect::Value || differs;
  if (differs) {
    Html = canonical;
  } else if (aspect != Aspect::State) {
    Control::Changed(aspect);
  }
}

std::string RichTextBox::Canonical(const RichText& text) const {
  return WriteHtml(Plain ? FromPlainText(PlainText(text)) : text);
}

}  // namespace forms
