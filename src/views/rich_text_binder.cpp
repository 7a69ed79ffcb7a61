#include "views/rich_text_binder.h"

#include <wx/choice.h>
#include <wx/clipbrd.h>
#include <wx/colordlg.h>
#include <wx/richtext/richtextctrl.h>
#include <wx/sizer.h>
#include <wx/tglbtn.h>

#include "views/form_window.h"
#include "views/framed.h"
#include "views/rich_text_buffer.h"
#include "views/text_binders.h"

namespace views {
namespace {

constexpr std::array kSizes = {8, 9, 10, 11, 12, 14, 18, 24, 36};
constexpr int kCharacters =
    wxRICHTEXT_SETSTYLE_WITH_UNDO | wxRICHTEXT_SETSTYLE_OPTIMIZE | wxRICHTEXT_SETSTYLE_CHARACTERS_ONLY;
constexpr int kParagraphs = wxRICHTEXT_SETSTYLE_WITH_UNDO | wxRICHTEXT_SETSTYLE_PARAGRAPHS_ONLY;

// From elsewhere it takes the text alone: neither pictures nor formats that a text may not have.
class FormattedText : public wxRichTextCtrl {
 public:
  explicit FormattedText(wxWindow* parent)
      : wxRichTextCtrl(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxRE_MULTILINE) {
    SetFont(parent->GetFont());
    SetDropTarget(nullptr);
  }

  // Parts of the text, as positions of the widget.
  void ShowMarks(std::vector<wxRichTextRange> marks) {
    marks_ = std::move(marks);
    Refresh();
  }

  void Paste() override {
    bool own = false;
    wxTextDataObject text;
    {
      const wxClipboardLocker clipboard;
      own = !clipboard ||
            wxTheClipboard->IsSupported(wxDataFormat(wxRichTextBufferDataObject::GetRichTextBufferFormatId())) ||
            !wxTheClipboard->GetData(text);
    }
    if (own) {
      wxRichTextCtrl::Paste();
    } else if (IsEditable()) {
      DeleteSelection();
      WriteText(text.GetText());
    }
  }

 protected:
  // A wave under each marked part: no format of the text, and seen without colours too.
  void PaintAboveContent(wxDC& dc) override {
    dc.SetPen(wxPen(wxColour(200, 0, 0), FromDIP(1)));
    for (const wxRichTextRange& mark : marks_) {
      for (long at = mark.GetStart(); at < std::min(mark.GetEnd(), GetLastPosition()); ++at) {
        DrawWave(dc, at);
      }
    }
  }

 private:
  void DrawWave(wxDC& dc, long at) {
    wxRect left;
    wxRect right;
    if (!GetCaretPositionForIndex(at - 1, left) || !GetCaretPositionForIndex(at, right)) {
      return;
    }
    const int wave = FromDIP(2);
    const int from = left.y == right.y ? left.x : 0;  // the first of a line
    const int base = right.y + right.height - 1;
    const auto height = [wave, base](int x) { return base - std::abs(x % (2 * wave) - wave); };
    for (int x = from; x < right.x; ++x) {
      dc.DrawLine(x, height(x), x + 1, height(x + 1));
    }
  }

  std::vector<wxRichTextRange> marks_;
};

struct FormatBar {
  bool offered;
  wxPanel* panel;
  wxToggleButton* bold;
  wxToggleButton* italic;
  wxToggleButton* underline;
  wxToggleButton* list;
  wxChoice* size;
  wxButton* color;
};

class RichTextBinding : public Binding {
 public:
  RichTextBinding(forms::RichTextBox& control, wxPanel& widget, FormattedText& text, const FormatBar& bar)
      : Binding(control, widget), box_(control), text_(text), bar_(bar) {
    text_.SetName(widget.GetName() + ".text");
    text_.GetParent()->SetName(widget.GetName() + ".frame");
    for (const auto& changed :
         {wxEVT_RICHTEXT_CONTENT_INSERTED, wxEVT_RICHTEXT_CONTENT_DELETED, wxEVT_RICHTEXT_STYLE_CHANGED}) {
      text_.Bind(changed, [this](wxRichTextEvent& event) {
        event.Skip();
        TellControl();
      });
    }
    text_.Bind(wxEVT_CHAR_HOOK, &RichTextBinding::OnHook, this);
    box_.InsertAtCaret = [this](std::string_view inserted) {
      if (text_.HasSelection()) {
        text_.DeleteSelection();
      }
      text_.WriteText(ToWx(inserted));
    };
    BindBar();
    widget.Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
      event.Skip();
      ShowFormats();
    });
  }

  RichTextBinding(const RichTextBinding&) = delete;
  RichTextBinding& operator=(const RichTextBinding&) = delete;
  ~RichTextBinding() override { box_.InsertAtCaret = nullptr; }

  wxWindow& FocusWidget() const override { return text_; }
  bool Uses(forms::Key key) const override { return key == forms::Key::Enter; }

 protected:
  void Refresh(forms::Aspect aspect) override {
    if (aspect == forms::Aspect::State) {
      text_.SetEditable(!box_.ReadOnly);
      for (wxWindow* part :
           std::initializer_list<wxWindow*>{bar_.bold, bar_.italic, bar_.underline, bar_.list, bar_.size, bar_.color}) {
        part->Enable(!box_.ReadOnly);
      }
      ShowBar();
    }
    if (aspect == forms::Aspect::Items) {
      ShowMarks();
    }
    if (telling_ || forms::WriteHtml(ReadBuffer(text_.GetBuffer())) == box_.Html.get()) {
      return;
    }
    const long caret = text_.GetCaretPosition();
    FillBuffer(text_.GetBuffer(), box_.Content());
    text_.SelectNone();
    text_.SetCaretPosition(std::min(caret, text_.GetLastPosition() - 1));
    text_.LayoutContent();
    text_.Refresh();
  }

 private:
  // The widget is in the midst of its change: what the rules make of it is shown after that.
  void TellControl() {
    if (telling_) {
      return;
    }
    telling_ = true;
    if (Dialog().SyncFocus()) {
      box_.DoEdit(ReadBuffer(text_.GetBuffer()));
    }
    telling_ = false;
    Dialog().CallAfter([this] { Refresh(forms::Aspect::Value); });
  }

  // Text without formats has no buttons for them.
  void ShowBar() {
    const bool shown = bar_.offered && !box_.Plain;
    if (bar_.panel->IsShown() != shown) {
      bar_.panel->Show(shown);
      Dialog().LayOutSoon();
    }
  }

  // The control counts bytes and ends its lines in CR LF; to the widget an end of a line is one position.
  void ShowMarks() {
    std::vector<wxRichTextRange> ranges;
    const std::string text = box_.Text();
    const auto position = [&text](std::size_t byte) {
      wxString before = ToWx(std::string_view(text).substr(0, byte));
      before.Replace("\r\n", "\n");
      return static_cast<long>(before.length());
    };
    for (const forms::RichTextBox::Mark& mark : box_.Marks.get()) {
      ranges.emplace_back(position(mark.begin), position(mark.begin + mark.size));
    }
    text_.ShowMarks(std::move(ranges));
  }

  void BindBar() {
    const auto on = [this](wxToggleButton* button, void (RichTextBinding::*act)()) {
      button->Bind(wxEVT_TOGGLEBUTTON, [this, act](wxCommandEvent&) { Act(act); });
    };
    on(bar_.bold, &RichTextBinding::ToggleBold);
    on(bar_.italic, &RichTextBinding::ToggleItalic);
    on(bar_.underline, &RichTextBinding::ToggleUnderline);
    on(bar_.list, &RichTextBinding::ToggleList);
    bar_.size->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { Act(&RichTextBinding::ChangeSize); });
    bar_.color->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Act(&RichTextBinding::ChangeColor); });
  }

  void Act(void (RichTextBinding::*act)()) {
    text_.SetFocus();
    if (Dialog().SyncFocus() && !box_.ReadOnly) {
      (this->*act)();
    }
    ShowFormats();
  }

  void ToggleBold() { text_.ApplyBoldToSelection(); }
  void ToggleItalic() { text_.ApplyItalicToSelection(); }
  void ToggleUnderline() { text_.ApplyUnderlineToSelection(); }

  void ToggleList() {
    const long at = text_.GetAdjustedCaretPosition(text_.GetCaretPosition());
    const wxRichTextRange range = text_.HasSelection() ? text_.GetSelectionRange() : wxRichTextRange(at, at + 1);
    text_.SetStyleEx(range, ListLook(!InList()), kParagraphs);
  }

  void ChangeSize() {
    wxRichTextAttr look;
    look.SetFontPointSize(kSizes[static_cast<std::size_t>(std::max(0, bar_.size->GetSelection()))]);
    Give(look);
  }

  void ChangeColor() {
    const wxColour color = wxGetColourFromUser(&Dialog().Window(), Look().GetTextColour());
    if (color.IsOk()) {
      wxRichTextAttr look;
      look.SetTextColour(color);
      Give(look);
    }
  }

  // To what is selected, or to what is typed next.
  void Give(const wxRichTextAttr& look) {
    if (text_.HasSelection()) {
      text_.SetStyleEx(text_.GetSelectionRange(), look, kCharacters);
    } else {
      wxRichTextAttr next = text_.GetDefaultStyleEx();
      next.Apply(look);
      text_.SetAndShowDefaultStyle(next);
    }
  }

  wxRichTextAttr Look() const {
    wxRichTextAttr look;
    const long at = text_.HasSelection() ? text_.GetSelectionRange().GetStart()
                                         : text_.GetAdjustedCaretPosition(text_.GetCaretPosition());
    text_.GetStyle(at, look);
    if (!text_.HasSelection() && text_.IsDefaultStyleShowing()) {
      look.Apply(text_.GetDefaultStyleEx());
    }
    return look;
  }

  bool InList() const { return IsListLook(Look()); }

  void ShowFormats() {
    const auto show = [](wxToggleButton& button, bool on) {
      if (button.GetValue() != on) {
        button.SetValue(on);
      }
    };
    show(*bar_.bold, text_.IsSelectionBold());
    show(*bar_.italic, text_.IsSelectionItalics());
    show(*bar_.underline, text_.IsSelectionUnderlined());
    show(*bar_.list, InList());
    const auto size = std::ranges::find(kSizes, Look().GetFontSize());
    const int place = size == kSizes.end() ? wxNOT_FOUND : static_cast<int>(size - kSizes.begin());
    if (bar_.size->GetSelection() != place) {
      bar_.size->SetSelection(place);
    }
  }

  void OnHook(wxKeyEvent& event) {
    const int key = event.GetModifiers() == wxMOD_CONTROL && !box_.Plain ? event.GetKeyCode() : 0;
    if (key == 'B') {
      Act(&RichTextBinding::ToggleBold);
    } else if (key == 'I') {
      Act(&RichTextBinding::ToggleItalic);
    } else if (key == 'U') {
      Act(&RichTextBinding::ToggleUnderline);
    } else {
      event.Skip();
    }
  }

  forms::RichTextBox& box_;
  FormattedText& text_;
  FormatBar bar_;
  bool telling_ = false;
};

// A sign in the format that it gives.
template <typename Button>
Button* MakeFormat(wxPanel* panel, const forms::Control& control, const char* key, const char* sign,
                   const wxString& tip, const wxFont& font) {
  auto* button = new Button(panel, wxID_ANY, ToWx(sign), wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
  button->SetFont(font);
  button->SetMinSize(wxSize(std::max(button->GetBestSize().x, panel->FromDIP(36)), button->GetBestSize().y));
  button->SetName(ToWx(control.Name() + "." + key));
  button->SetToolTip(tip);
  KeepOutOfTabOrder(*button);
  return button;
}

}  // namespace

wxPanel* MakeRichTextBox(wxWindow* parent, forms::RichTextBox& control, int characters, int lines, bool formats) {
  auto* panel = new wxPanel(parent);
  const wxFont font = panel->GetFont();
  auto* buttons = new wxPanel(panel);
  buttons->SetName(ToWx(control.Name() + ".formats"));
  FormatBar bar{};
  bar.offered = formats;
  bar.panel = buttons;
  bar.bold = MakeFormat<wxToggleButton>(buttons, control, "bold", "B", "Bold (Ctrl+B)", font.Bold());
  bar.italic = MakeFormat<wxToggleButton>(buttons, control, "italic", "I", "Italic (Ctrl+I)", font.Italic());
  bar.underline = MakeFormat<wxToggleButton>(buttons, control, "underline", "U\u0332", "Underline (Ctrl+U)", font);
  bar.size = new wxChoice(buttons, wxID_ANY);
  bar.size->SetName(ToWx(control.Name() + ".size"));
  bar.size->SetToolTip("Size of the letters, in points");
  KeepOutOfTabOrder(*bar.size);
  for (const int size : kSizes) {
    bar.size->Append(std::to_string(size));
  }
  bar.color = MakeFormat<wxButton>(buttons, control, "color", "A\u2026", "Colour of the letters", font);
  bar.list = MakeFormat<wxToggleButton>(buttons, control, "list", "\u2022 \u2014", "List", font);

  auto* row = new wxBoxSizer(wxHORIZONTAL);
  for (wxWindow* part :
       std::initializer_list<wxWindow*>{bar.bold, bar.italic, bar.underline, bar.size, bar.color, bar.list}) {
    row->Add(part, wxSizerFlags().Expand().Border(wxRIGHT, panel->FromDIP(3)));
  }
  buttons->SetSizer(row);
  FormattedText* text = nullptr;
  wxWindow* framed = Framed(panel, [&text](wxWindow* frame) { return text = new FormattedText(frame); });
  text->SetMinSize(wxSize(FieldWidth(*panel, characters), (panel->GetCharHeight() + panel->FromDIP(6)) * lines));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(buttons, wxSizerFlags().Border(wxBOTTOM, panel->FromDIP(3)));
  column->Add(framed, wxSizerFlags(1).Expand());
  panel->SetSizer(column);
  FormWindow::Of(*parent).Attach<RichTextBinding>(control, *panel, *text, bar);
  return panel;
}

}  // namespace views
