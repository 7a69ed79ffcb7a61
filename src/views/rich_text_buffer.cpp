#include "views/rich_text_buffer.h"

#include <algorithm>
#include <array>

#include "views/binding.h"

namespace views {
namespace {

using Align = forms::RichText::Align;

constexpr std::array kAlignments = {wxTEXT_ALIGNMENT_LEFT, wxTEXT_ALIGNMENT_CENTRE, wxTEXT_ALIGNMENT_RIGHT,
                                    wxTEXT_ALIGNMENT_JUSTIFIED};

// A link looks like one; that is no format of its own.
wxColour LinkColor() {
  return wxSystemSettings::GetColour(wxSYS_COLOUR_HOTLIGHT);
}

forms::RichText::Style StyleOf(const wxRichTextAttr& look) {
  forms::RichText::Style style;
  style.bold = look.HasFontWeight() && look.GetFontWeight() == wxFONTWEIGHT_BOLD;
  style.italic = look.HasFontItalic() && look.GetFontStyle() == wxFONTSTYLE_ITALIC;
  style.underline = look.HasFontUnderlined() && look.GetFontUnderlined();
  style.size = look.HasFontPointSize() ? look.GetFontSize() : 0;
  if (look.HasTextColour()) {
    style.color = forms::Color{look.GetTextColour().Red(), look.GetTextColour().Green(), look.GetTextColour().Blue()};
  }
  if (look.HasURL() && !look.GetURL().empty()) {
    style.link = FromWx(look.GetURL());
    style.underline = false;
    style.color = look.GetTextColour() == LinkColor() ? std::nullopt : style.color;
  }
  return style;
}

wxRichTextAttr LookOf(const forms::RichText::Style& style) {
  wxRichTextAttr look;
  if (style.bold) {
    look.SetFontWeight(wxFONTWEIGHT_BOLD);
  }
  if (style.italic) {
    look.SetFontStyle(wxFONTSTYLE_ITALIC);
  }
  if (style.underline || !style.link.empty()) {
    look.SetFontUnderlined(true);
  }
  if (style.size > 0) {
    look.SetFontPointSize(style.size);
  }
  if (style.color) {
    look.SetTextColour(wxColour(style.color->red, style.color->green, style.color->blue));
  }
  if (!style.link.empty()) {
    look.SetURL(ToWx(style.link));
    look.SetTextColour(style.color ? look.GetTextColour() : LinkColor());
  }
  return look;
}

forms::RichText::Paragraph ParagraphOf(const wxRichTextParagraph& shown) {
  const wxRichTextAttr& look = shown.GetAttributes();
  forms::RichText::Paragraph paragraph{.runs = {}, .align = Align::Left, .bullet = IsListLook(look)};
  if (const auto align = std::ranges::find(kAlignments, look.GetAlignment());
      look.HasAlignment() && align != kAlignments.end()) {
    paragraph.align = static_cast<Align>(align - kAlignments.begin());
  }
  for (const wxRichTextObject* child : shown.GetChildren()) {
    if (const auto* text = dynamic_cast<const wxRichTextPlainText*>(child); text != nullptr) {
      wxString characters = text->GetText();
      characters.Replace(wxString(wxRichTextLineBreakChar), "\n");
      wxRichTextAttr run = look;
      run.Apply(text->GetAttributes());
      paragraph.runs.push_back({.text = FromWx(characters), .style = StyleOf(run)});
    }
  }
  return paragraph;
}

}  // namespace

wxRichTextAttr ListLook(bool bullet) {
  constexpr int kIndent = 50;  // tenths of a millimetre
  wxRichTextAttr look;
  look.SetBulletStyle(bullet ? wxTEXT_ATTR_BULLET_STYLE_STANDARD : wxTEXT_ATTR_BULLET_STYLE_NONE);
  look.SetBulletName(bullet ? "standard/circle" : "");
  look.SetLeftIndent(0, bullet ? kIndent : 0);
  return look;
}

bool IsListLook(const wxRichTextAttr& look) {
  return look.HasBulletStyle() && look.GetBulletStyle() != wxTEXT_ATTR_BULLET_STYLE_NONE;
}

forms::RichText ReadBuffer(const wxRichTextBuffer& buffer) {
  forms::RichText text;
  for (const wxRichTextObject* child : buffer.GetChildren()) {
    if (const auto* paragraph = dynamic_cast<const wxRichTextParagraph*>(child); paragraph != nullptr) {
      text.paragraphs.push_back(ParagraphOf(*paragraph));
    }
  }
  return text;
}

void FillBuffer(wxRichTextBuffer& buffer, const forms::RichText& text) {
  buffer.DeleteChildren();
  const auto add = [&buffer](const forms::RichText::Paragraph& paragraph) {
    wxRichTextAttr look = paragraph.bullet ? ListLook(true) : wxRichTextAttr();
    if (paragraph.align != Align::Left) {
      look.SetAlignment(kAlignments[static_cast<std::size_t>(paragraph.align)]);
    }
    auto* shown = new wxRichTextParagraph(&buffer, &look);
    for (const forms::RichText::Run& run : paragraph.runs) {
      wxString characters = ToWx(run.text);
      characters.Replace("\n", wxString(wxRichTextLineBreakChar));
      wxRichTextAttr run_look = LookOf(run.style);
      shown->AppendChild(new wxRichTextPlainText(characters, shown, &run_look));
    }
    if (paragraph.runs.empty()) {
      shown->AppendChild(new wxRichTextPlainText({}, shown));
    }
    buffer.AppendChild(shown);
  };
  std::ranges::for_each(text.paragraphs, add);
  if (text.paragraphs.empty()) {
    add({});
  }
  buffer.GetCommandProcessor()->ClearCommands();
  buffer.UpdateRanges();
  buffer.Invalidate(wxRICHTEXT_ALL);
}

}  // namespace views
