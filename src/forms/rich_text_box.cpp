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

void RichTextBox::DoEdit(const RichText& text) {
  const std::string html = WriteHtml(text);
  if (ReadOnly || Html == html) {
    return;
  }
  Html = html;
  if (Change) {
    Change();
  }
}

void RichTextBox::Changed(Aspect aspect) {
  if (aspect == Aspect::Value) {
    DataChanged = true;
    if (std::string canonical = WriteHtml(Content()); canonical != Html.get()) {
      Html = std::move(canonical);
      return;
    }
  }
  Control::Changed(aspect);
}

}  // namespace forms
