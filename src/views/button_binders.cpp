#include "views/button_binders.h"

#include <wx/sizer.h>
#include <wx/statline.h>

#include "views/form_window.h"
#include "views/pictures.h"

namespace views {
namespace {

// The picture of a button that shows one, above its caption.
class ButtonPicture {
 public:
  void Show(const Pictures& pictures, const forms::Button& control, wxAnyButton& widget) {
    if (control.Picture == shown_) {
      return;
    }
    shown_ = control.Picture;
    if (const wxBitmapBundle picture = pictures.Find(shown_); picture.IsOk()) {
      widget.SetBitmap(picture, widget.GetLabel().empty() ? wxLEFT : wxTOP);
    }
  }

 private:
  std::string shown_;
};

class ButtonBinding : public Binding {
 public:
  // A caption of the view's own stays; without one the form's is shown.
  ButtonBinding(forms::Button& control, wxButton& widget)
      : Binding(control, widget), button_(control), widget_(widget), own_caption_(!widget.GetLabel().empty()) {
    widget_.Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
      if (Dialog().SyncFocus()) {
        button_.DoClick();
      }
    });
  }

  bool Uses(forms::Key key) const override { return key == forms::Key::Enter; }

 protected:
  void Refresh(forms::Aspect aspect) override {
    if (aspect != forms::Aspect::State) {
      return;
    }
    if (!own_caption_ && widget_.GetLabel() != ToWx(button_.Caption.get())) {
      widget_.SetLabel(ToWx(button_.Caption.get()));
      Dialog().LayOutSoon();
    }
    picture_.Show(Dialog().Pictures(), button_, widget_);
  }

 private:
  forms::Button& button_;
  wxButton& widget_;
  ButtonPicture picture_;
  bool own_caption_;
};

class LinkBinding : public Binding {
 public:
  LinkBinding(forms::Button& control, wxHyperlinkCtrl& widget)
      : Binding(control, widget), link_(control), widget_(widget) {
    widget_.Bind(wxEVT_HYPERLINK, [this](wxHyperlinkEvent&) {
      if (Dialog().SyncFocus()) {
        link_.DoClick();
      }
    });
  }

  bool Uses(forms::Key key) const override { return key == forms::Key::Enter; }

 protected:
  void Refresh(forms::Aspect aspect) override {
    const wxString caption = ToWx(link_.Caption.get());
    if (aspect == forms::Aspect::State && !caption.empty() && widget_.GetLabel() != caption) {
      widget_.SetLabel(caption);
      widget_.SetVisited(false);
      Dialog().LayOutSoon();
    }
  }

 private:
  forms::Button& link_;
  wxHyperlinkCtrl& widget_;
};

// A picture with the caption as its tip, or with the letter that presses it; the first group of a bar, the commands
// used most, has the caption below.
class ToolBinding : public Binding {
 public:
  ToolBinding(forms::Button& control, wxButton& widget) : Binding(control, widget), button_(control), widget_(widget) {
    KeepOutOfTabOrder(widget_);
    widget_.Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
      if (Dialog().SyncFocus()) {
        button_.DoClick();
      }
    });
  }

  bool HoldsFocus() const override { return false; }

 protected:
  void Refresh(forms::Aspect aspect) override {
    if (aspect != forms::Aspect::State) {
      return;
    }
    const wxString caption = ToWx(button_.Caption.get());
    if (widget_.GetLabel() != caption) {
      widget_.SetLabel(caption);
    }
    wxString tip = button_.ToolTip->empty() ? wxControl::RemoveMnemonics(caption) : ToWx(button_.ToolTip.get());
    if (const char letter = button_.Mnemonic(); letter != '\0') {
      tip.Trim() << " (Alt+" << static_cast<char>(std::toupper(letter)) << ')';
    }
    widget_.SetToolTip(tip);
    picture_.Show(Dialog().Pictures(), button_, widget_);
  }

 private:
  forms::Button& button_;
  wxButton& widget_;
  ButtonPicture picture_;
};

}  // namespace

wxButton* MakeButton(wxWindow* parent, forms::Button& control) {
  auto* button = new wxButton(parent, wxID_ANY, {});
  FormWindow::Of(*parent).Attach<ButtonBinding>(control, *button);
  return button;
}

wxButton* MakePickButton(wxWindow* parent, forms::Button& control) {
  auto* button =
      new wxButton(parent, wxID_ANY, wxString::FromUTF8("\u2026"), wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
  if (!control.TabStop) {
    button->DisableFocusFromKeyboard();
  }
  FormWindow::Of(*parent).Attach<ButtonBinding>(control, *button);
  return button;
}

wxButton* MakeArrow(wxWindow* parent, forms::Button& control) {
  auto* button = new wxButton(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
  FormWindow::Of(*parent).Attach<ButtonBinding>(control, *button);
  return button;
}

wxHyperlinkCtrl* MakeLink(wxWindow* parent, forms::Button& control) {
  // The toolkit asks for an address; none is shown or opened.
  auto* link = new wxHyperlinkCtrl(parent, wxID_ANY, "-", "-");
  FormWindow::Of(*parent).Attach<LinkBinding>(control, *link);
  return link;
}

wxButton* MakePicture(wxWindow* parent, forms::PictureBox& control) {
  auto* picture =
      new wxButton(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxBU_EXACTFIT | wxBU_NOTEXT);
  FormWindow::Of(*parent).Attach<ToolBinding>(control, *picture);
  return picture;
}

wxPanel* MakeToolBar(wxWindow* parent, forms::ToolBar& control) {
  auto* bar = new wxPanel(parent);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  bar->SetSizer(row);
  auto& dialog = FormWindow::Of(*parent);
  constexpr int kCaptionedGroups = 3;
  int group = 0;
  for (forms::ToolBar::Item& item : control.Items()) {
    if (item.separator) {
      auto* line = new wxStaticLine(bar, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLI_VERTICAL);
      dialog.Attach<Binding>(item.button, *line);
      line->SetName(ToWx(control.Name() + "." + item.key));
      row->Add(line, wxSizerFlags().Expand().Border(wxALL, bar->FromDIP(4)));
      ++group;
    } else {
      // A caption that is not shown is still read out.
      const bool captioned = group < kCaptionedGroups || !dialog.Pictures().Find(item.button.Picture).IsOk();
      auto* button = new wxButton(bar, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                                  wxBORDER_NONE | wxBU_EXACTFIT | (captioned ? 0 : wxBU_NOTEXT));
      dialog.Attach<ToolBinding>(item.button, *button);
      button->SetMinSize(button->GetBestSize() + bar->FromDIP(wxSize(10, 6)));
      row->Add(button, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, bar->FromDIP(3)));
    }
  }
  dialog.Attach<Binding>(control, *bar);
  return bar;
}

void OpenMenu(wxWindow& window, const std::vector<forms::Button*>& commands, wxPoint at, const AddToMenu& add) {
  wxMenu menu;
  std::map<int, forms::Button*> by_id;
  for (forms::Button* command : commands) {
    if (command->Visible) {
      wxMenuItem* item = menu.Append(wxID_ANY, ToWx(command->Caption.get()));
      item->Enable(command->Usable());
      by_id[item->GetId()] = command;
    }
  }
  if (add) {
    add(menu);
  }
  const int chosen = window.GetPopupMenuSelectionFromUser(menu, at);
  if (const auto command = by_id.find(chosen); command != by_id.end()) {
    command->second->DoClick();
  }
}

wxButton* MakeMenuButton(wxWindow* parent, const wxString& caption, std::vector<forms::Button*> commands,
                         AddToMenu add) {
  auto* button = new wxButton(parent, wxID_ANY, caption + ToWx(" \u25BE"));
  button->SetName("menu " + wxControl::RemoveMnemonics(caption));
  KeepOutOfTabOrder(*button);
  button->Bind(wxEVT_BUTTON, [button, commands = std::move(commands), add = std::move(add)](wxCommandEvent&) {
    if (FormWindow::Of(*button).SyncFocus()) {
      OpenMenu(*button, commands, wxPoint(0, button->GetSize().y), add);
    }
  });
  return button;
}

wxPanel* MakeDialogButtons(wxWindow* parent, forms::DialogButtons& control) {
  auto* bar = new wxPanel(parent);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  bar->SetSizer(row);
  row->AddStretchSpacer();
  auto& dialog = FormWindow::Of(*parent);
  for (forms::Button* button : {&control.OK, &control.Extra, &control.Cancel, &control.Delete, &control.Help}) {
    row->Add(MakeButton(bar, *button), wxSizerFlags().Border(wxLEFT, bar->FromDIP(6)));
  }
  dialog.Attach<Binding>(control, *bar);
  return bar;
}

}  // namespace views
