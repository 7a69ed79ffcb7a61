#pragma once

#include <wx/checkbox.h>
#include <wx/combobox.h>
#include <wx/listctrl.h>
#include <wx/panel.h>
#include <wx/radiobut.h>
#include <wx/slider.h>

#include <vector>

#include "forms/check_box.h"
#include "forms/list_box.h"
#include "forms/list_chooser.h"
#include "forms/panels.h"

namespace views {

wxCheckBox* MakeCheckBox(wxWindow* parent, forms::CheckBox& control);
// The first of its group starts one.
wxRadioButton* MakeOption(wxWindow* parent, forms::OptionButton& control, bool first);
wxComboBox* MakeComboBox(wxWindow* parent, forms::ComboBox& control, int characters);
// A list of `lines` rows, with a check each for a `CheckListBox`, whose columns, parted by tabs in the entries, are so
// many characters wide.
wxListCtrl* MakeListBox(wxWindow* parent, forms::ListBox& control, const std::vector<int>& columns, int lines);
// The box and, always open below it, the list of a combo: the list follows what is typed.
wxPanel* MakeSearchList(wxWindow* parent, forms::ComboBox& control, int characters, int lines);
// Two lists `characters` wide with the buttons between and behind them.
wxPanel* MakeListChooser(wxWindow* parent, forms::ListChooser& control, int characters, int lines);
wxSlider* MakeSlider(wxWindow* parent, forms::Slider& control);

}  // namespace views
