#include "views/text_binders.h"

#include <wx/clipbrd.h>

#include <algorithm>

#include "forms/text.h"
#include "views/form_window.h"

#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#endif

namespace views {
namespace {

// A widget's line break is one character, the system's are two.
wxString WithLineFeeds(const std::string& text) {
  wxString lines = ToWx(text);
  lines.Replace("\r\n", "\n");
  lines.Replace("\r", "\n");
  return lines;
}

wxString WithBothBreaks(wxString text) {
  text.Replace("\n", "\r\n");
  return text;
}

class TextBinding : public Binding {
 public:
  TextBinding(forms::TextBox& control, wxTextCtrl& widget) : Binding(control, widget), box_(control), text_(widget) {
    text_.Bind(wxEVT_CHAR, &TextBinding::OnCharacter, this);
    text_.Bind(wxEVT_TEXT_PASTE, &TextBinding::OnPaste, this);
    text_.Bind(wxEVT_TEXT, [this](wxCommandEvent&) { OnChanged(); });
  }

  bool Uses(forms::Key key) const override { return key == forms::Key::Enter && text_.IsMultiLine(); }

 protected:
  void Refresh(forms::Aspect aspect) override {
    if (aspect == forms::Aspect::State) {
      ShowPassword();
    }
    const wxString wanted = WithLineFeeds(box_.Text);
    if (aspect == forms::Aspect::Value && text_.GetValue() != wanted) {
      const long caret = text_.GetInsertionPoint();
      text_.ChangeValue(wanted);
      text_.SetInsertionPoint(std::min(caret, text_.GetLastPosition()));
    }
  }

 private:
  void OnCharacter(wxKeyEvent& event) {
    const wxChar character = event.GetUnicodeKey();
    if (character < WXK_SPACE || character == WXK_DELETE || event.ControlDown() != event.AltDown()) {
      event.Skip();
      return;
    }
    Dialog().SyncFocus();
    // A rule of entering passed the focus on, and with it what was typed ahead.
    if (auto* next = dynamic_cast<wxTextCtrl*>(wxWindow::FindFocus()); next != nullptr && next != &text_) {
      next->WriteText(wxString(character));
      return;
    }
    long from = 0;
    long to = 0;
    text_.GetSelection(&from, &to);
    // A widget may have taken the selected characters away already.
    const wxString before = WithLineFeeds(box_.Text);
    if (const std::size_t shown = text_.GetValue().length(); shown < before.length()) {
      to = from + static_cast<long>(before.length() - shown);
      text_.ChangeValue(before);
    }
    Put(from, to, wxString(character));
  }

  void OnPaste(wxCommandEvent& /*event*/) {
    wxTextDataObject data;
    const wxClipboardLocker clipboard;
    if (!clipboard || !wxTheClipboard->GetData(data)) {
      return;
    }
    wxString pasted = WithLineFeeds(FromWx(data.GetText()));
    if (!text_.IsMultiLine()) {
      pasted.Replace("\n", " ");
    }
    long from = 0;
    long to = 0;
    text_.GetSelection(&from, &to);
    Put(from, to, pasted);
  }

  // A rule may hide the text, and show it again.
  void ShowPassword() {
    const bool hides = box_.PasswordChar != '\0';
    if (text_.HasFlag(wxTE_PASSWORD) == hides) {
      return;
    }
    text_.ToggleWindowStyle(wxTE_PASSWORD);
#ifdef __WXMSW__
    SendMessageW(text_.GetHandle(), EM_SETPASSWORDCHAR, hides ? L'\u25CF' : 0, 0);
    text_.Refresh();
#endif
  }

  // What came past the keyboard and the clipboard: characters taken away, or put in by a drop or an input method. A
  // widget that could not be edited would not tell the rules of a key either.
  void OnChanged() {
    const wxString before = WithLineFeeds(box_.Text);
    const wxString after = text_.GetValue();
    if (box_.ReadOnly) {
      text_.ChangeValue(before);
      return;
    }
    const std::size_t shorter = std::min(before.length(), after.length());
    std::size_t head = 0;
    while (head < shorter && before[head] == after[head]) {
      ++head;
    }
    std::size_t tail = 0;
    while (tail < shorter - head && before[before.length() - 1 - tail] == after[after.length() - 1 - tail]) {
      ++tail;
    }
    const wxString put_in = after.Mid(head, after.length() - tail - head);
    if (put_in.empty()) {
      box_.DoEdit(FromWx(WithBothBreaks(after)));
      return;
    }
    text_.ChangeValue(before);
    Put(static_cast<long>(head), static_cast<long>(before.length() - tail), put_in);
  }

  // Types over the widget's characters from `from` up to `to`.
  void Put(long from, long to, const wxString& typed) {
    const wxString shown = text_.GetValue();
    const auto in_text = [&](long position) {
      const auto place = static_cast<std::size_t>(position);
      return text_.IsMultiLine() ? place + static_cast<std::size_t>(shown.Left(place).Freq('\n')) : place;
    };
    const auto caret = box_.DoTypeOver(in_text(from), in_text(to), FromWx(WithBothBreaks(typed)));
    if (caret) {
      const std::u32string before = forms::ToUtf32(box_.Text.get()).substr(0, *caret);
      const auto breaks = text_.IsMultiLine() ? std::ranges::count(before, U'\r') : 0;
      text_.SetInsertionPoint(static_cast<long>(before.size()) - breaks);
    } else if (text_.GetValue() == shown) {
      text_.SetSelection(from, to);
      Dialog().CallAfter([this, from, to, shown] {  // a widget may still be at work on the key
        if (text_.GetValue() == shown) {
          text_.SetSelection(from, to);
        }
      });
    }
  }

  forms::TextBox& box_;
  wxTextCtrl& text_;
};

class LabelBinding : public Binding {
 public:
  // A text that is wrapped at a width that is not 0.
  LabelBinding(forms::Label& control, wxStaticText& widget, bool mnemonics, int width = 0)
      : Binding(control, widget), label_(control), text_(widget), mnemonics_(mnemonics), width_(width) {
    text_.Bind(wxEVT_LEFT_UP, [this](wxMouseEvent&) { label_.DoClick(); });
  }

 protected:
  void Refresh(forms::Aspect aspect) override {
    if (aspect != forms::Aspect::Value) {
      return;
    }
    const wxString wanted = WithLineFeeds(label_.Caption);
    const wxString shown = mnemonics_ ? wanted : wxControl::EscapeMnemonics(wanted);
    if (shown_ != shown) {
      shown_ = shown;
      text_.SetLabel(shown);
      if (width_ > 0) {
        text_.Wrap(width_);
      }
      Dialog().LayOutSoon();
    }
  }

 private:
  forms::Label& label_;
  wxStaticText& text_;
  bool mnemonics_;
  int width_;
  wxString shown_;  // before it is wrapped
};

}  // namespace

int FieldWidth(const wxWindow& window, int characters) {
  return window.GetTextExtent(wxString('0', static_cast<std::size_t>(characters))).x;
}

// GTK's own height does not follow the size of the text.
void SizeField(wxTextCtrl& field, int characters) {
  wxSize size = field.GetSizeFromTextSize(FieldWidth(field, characters));
#ifndef __WXMSW__  // there the text stays at the upper edge of a field that is higher than it has to be
  size.y = field.GetCharHeight() + field.FromDIP(10);
#endif
  field.SetInitialSize(size);
}

wxTextCtrl* MakeTextBox(wxWindow* parent, forms::TextBox& control, int characters, int lines) {
  long style = control.MultiLine ? wxTE_MULTILINE : wxTE_PROCESS_ENTER;
  if (control.PasswordChar != '\0') {
    style |= wxTE_PASSWORD;
  }
  auto* text = new wxTextCtrl(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, style);
  SizeField(*text, characters);
  if (control.MultiLine) {
    text->SetMinSize(wxSize(text->GetMinSize().x, text->GetCharHeight() * (lines + 1)));
  }
  FormWindow::Of(*parent).Attach<TextBinding>(control, *text);
  return text;
}

wxStaticText* MakeLabel(wxWindow* parent, forms::Label& control) {
  auto* text = new wxStaticText(parent, wxID_ANY, {});
  FormWindow::Of(*parent).Attach<LabelBinding>(control, *text, false);
  return text;
}

wxStaticText* MakeWrapped(wxWindow* parent, forms::Label& control, int width) {
  auto* text = new wxStaticText(parent, wxID_ANY, {});
  FormWindow::Of(*parent).Attach<LabelBinding>(control, *text, false, width);
  return text;
}

wxStaticText* MakeCaption(wxWindow* parent, forms::Label& control) {
  auto* text = new wxStaticText(parent, wxID_ANY, {});
  FormWindow::Of(*parent).Attach<LabelBinding>(control, *text, true);
  return text;
}

}  // namespace views
