#include "views/choice_binders.h"

#include "views/form_window.h"
#include "views/text_binders.h"

namespace views {
namespace {

class CheckBinding : public Binding {
 public:
  CheckBinding(forms::CheckBox& control, wxCheckBox& widget)
      : Binding(control, widget), box_(control), widget_(widget) {
    widget_.Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) {
      const wxCheckBoxState wanted = widget_.Get3StateValue();
      Refresh(forms::Aspect::Value);
      if (Dialog().SyncFocus()) {
        box_.DoCheck(static_cast<forms::CheckState>(wanted));
      }
    });
  }

 protected:
  void Refresh(forms::Aspect aspect) override {
    static_assert(static_cast<int>(forms::CheckState::Mixed) == wxCHK_UNDETERMINED);
    if (aspect == forms::Aspect::Value) {
      widget_.Set3StateValue(static_cast<wxCheckBoxState>(box_.Value.get()));
    } else {
      widget_.SetLabel(ToWx(box_.Caption.get()));
    }
  }

 private:
  forms::CheckBox& box_;
  wxCheckBox& widget_;
};

class OptionBinding : public Binding {
 public:
  OptionBinding(forms::OptionButton& control, wxRadioButton& widget)
      : Binding(control, widget), option_(control), widget_(widget) {
    widget_.Bind(wxEVT_RADIOBUTTON, [this](wxCommandEvent&) {
      if (Dialog().SyncFocus()) {
        option_.DoChoose();
      }
    });
  }

 protected:
  void Refresh(forms::Aspect aspect) override {
    if (aspect == forms::Aspect::Value) {
      if (option_.Value) {
        widget_.SetValue(true);
      }
    } else {
      widget_.SetLabel(ToWx(option_.Caption.get()));
    }
  }

 private:
  forms::OptionButton& option_;
  wxRadioButton& widget_;
};

class ComboBinding : public Binding {
 public:
  ComboBinding(forms::ComboBox& control, wxComboBox& widget)
      : Binding(control, widget), combo_(control), widget_(widget) {
    widget_.Bind(wxEVT_COMBOBOX, [this](wxCommandEvent& event) {
      if (Dialog().SyncFocus()) {
        combo_.DoPick(event.GetSelection());
      }
    });
    widget_.Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
      if (combo_.Editable && widget_.FindString(widget_.GetValue(), true) != widget_.GetSelection()) {
        combo_.DoEdit(FromWx(widget_.GetValue()));
      }
    });
  }

  bool Uses(forms::Key key) const override { return key == forms::Key::Up || key == forms::Key::Down; }

 protected:
  void Refresh(forms::Aspect aspect) override {
    if (aspect == forms::Aspect::Items) {
      wxArrayString texts;
      for (const forms::ListItem& item : combo_.Items.get()) {
        texts.push_back(ToWx(item.text));
      }
      widget_.Set(texts);
    }
    if (aspect == forms::Aspect::State) {
      return;
    }
    if (combo_.ListIndex != widget_.GetSelection()) {
      widget_.SetSelection(combo_.ListIndex);
    }
    if (combo_.Editable && widget_.GetValue() != ToWx(combo_.Text.get())) {
      widget_.ChangeValue(ToWx(combo_.Text.get()));
    }
  }

 private:
  forms::ComboBox& combo_;
  wxComboBox& widget_;
};

class SliderBinding : public Binding {
 public:
  SliderBinding(forms::Slider& control, wxSlider& widget)
      : Binding(control, widget), slider_(control), widget_(widget) {
    widget_.Bind(wxEVT_SLIDER, [this](wxCommandEvent&) {
      if (!Dialog().SyncFocus() || !slider_.DoSlide(widget_.GetValue())) {
        Refresh(forms::Aspect::Value);
      }
    });
  }

 protected:
  void Refresh(forms::Aspect /*aspect*/) override {
    widget_.SetRange(slider_.Min, slider_.Max);
    widget_.SetValue(slider_.Value);
  }

 private:
  forms::Slider& slider_;
  wxSlider& widget_;
};

}  // namespace

wxCheckBox* MakeCheckBox(wxWindow* parent, forms::CheckBox& control) {
  const long style = control.ThreeState ? wxCHK_3STATE | wxCHK_ALLOW_3RD_STATE_FOR_USER : wxCHK_3STATE;
  auto* box = new wxCheckBox(parent, wxID_ANY, ToWx(control.Caption.get()), wxDefaultPosition, wxDefaultSize, style);
  FormWindow::Of(*parent).Attach<CheckBinding>(control, *box);
  return box;
}

wxRadioButton* MakeOption(wxWindow* parent, forms::OptionButton& control, bool first) {
  auto* button = new wxRadioButton(parent, wxID_ANY, ToWx(control.Caption.get()), wxDefaultPosition, wxDefaultSize,
                                   first ? wxRB_GROUP : 0);
  FormWindow::Of(*parent).Attach<OptionBinding>(control, *button);
  return button;
}

wxComboBox* MakeComboBox(wxWindow* parent, forms::ComboBox& control, int characters) {
  auto* combo = new wxComboBox(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                               control.Editable ? wxCB_DROPDOWN : wxCB_READONLY);
  wxSize size = combo->GetSizeFromTextSize(FieldWidth(*combo, characters));
#ifndef __WXMSW__  // GTK's own height does not follow the size of the text
  size.y = std::max(combo->GetBestSize().y, combo->GetCharHeight() + combo->FromDIP(10));
#endif
  combo->SetInitialSize(size);
  FormWindow::Of(*parent).Attach<ComboBinding>(control, *combo);
  return combo;
}

wxSlider* MakeSlider(wxWindow* parent, forms::Slider& control) {
  auto* slider = new wxSlider(parent, wxID_ANY, control.Value, control.Min, control.Max, wxDefaultPosition,
                              wxDefaultSize, wxSL_HORIZONTAL | wxSL_LABELS);
  FormWindow::Of(*parent).Attach<SliderBinding>(control, *slider);
  return slider;
}

}  // namespace views
