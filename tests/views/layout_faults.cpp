#include "layout_faults.h"

#include <wx/wx.h>

#include <wx/bmpcbox.h>
#include <wx/calctrl.h>
#include <wx/grid.h>
#include <wx/listctrl.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/statline.h>
#include <wx/toolbar.h>

#include <set>

#include "contrast.h"

namespace {

template <typename... Kinds>
bool IsA(const wxWindow& window) {
  return (... || (dynamic_cast<const Kinds*>(&window) != nullptr));
}

// Made of parts that the toolkit lays out and names.
bool IsWhole(const wxWindow& window) {
  return IsA<wxGrid, wxListCtrl, wxCalendarCtrl, wxToolBar, wxStatusBar, wxTextCtrl, wxComboBox>(window);
}

// What the toolkit calls a widget that was given no name.
bool IsNamed(const wxWindow& window) {
  static const std::set<wxString> kToolkitNames = {"",
                                                   "text",
                                                   "button",
                                                   "panel",
                                                   "staticText",
                                                   "staticLine",
                                                   "staticBitmap",
                                                   "check",
                                                   "listBox",
                                                   "listCtrl",
                                                   "comboBox",
                                                   "radioButton",
                                                   "grid",
                                                   "notebook",
                                                   "groupBox",
                                                   "scrolledWindow",
                                                   "gauge",
                                                   "slider",
                                                   "choice",
                                                   "calendar",
                                                   "CalendarCtrl",
                                                   "GtkCalendarCtrl"};
  return !kToolkitNames.contains(window.GetName());
}

wxString Called(const wxWindow& window) {
  return wxString(window.GetClassInfo()->GetClassName()) + " \"" + window.GetName() + "\"";
}

// A part that drops over others is in no sizer.
bool Floats(const wxWindow& window) {
  return window.GetContainingSizer() == nullptr && window.GetParent()->GetSizer() != nullptr;
}

class Check {
 public:
  std::vector<std::string> faults;

  void Children(const wxWindow& parent) {
    std::vector<const wxWindow*> shown;
    for (const wxWindow* child : parent.GetChildren()) {
      if (child->IsShown() && !child->IsTopLevel()) {
        shown.push_back(child);
      }
    }
    for (std::size_t i = 0; i < shown.size(); ++i) {
      One(*shown[i], parent);
      for (std::size_t j = i + 1; j < shown.size(); ++j) {
        Pair(*shown[i], *shown[j]);
      }
    }
  }

 private:
  void Add(const wxWindow& window, const wxString& fault) { faults.push_back((Called(window) + fault).utf8_string()); }

  void One(const wxWindow& window, const wxWindow& parent) {
    if (!IsNamed(window)) {
      Add(window, " has no name");
    }
    const bool shows_text = IsA<wxButton, wxStaticText, wxCheckBox, wxRadioButton>(window);
    wxSize least = shows_text ? window.GetBestSize() : window.GetMinSize();
    if (IsA<wxTextCtrl, wxComboBox>(window)) {
      constexpr int kBorders = 4;
      least.y = std::max(least.y, window.GetCharHeight() + kBorders);
    }
    if (window.GetSize().x < least.x || window.GetSize().y < least.y) {
      Add(window, wxString::Format(" is clipped: %d x %d of %d x %d", window.GetSize().x, window.GetSize().y, least.x,
                                   least.y));
    }
    if (const auto* button = dynamic_cast<const wxAnyButton*>(&window); button != nullptr && !Stands(*button)) {
      Add(window, " has a picture that its ground swallows");
    }
    // What scrolls may be longer than its window, and a book places its pages itself.
    if (!IsA<wxScrolledWindow, wxNotebook>(parent) && !wxRect(parent.GetClientSize()).Contains(window.GetRect()) &&
        !IsA<wxToolBar, wxStatusBar>(window)) {
      Add(window, " lies outside its parent " + Called(parent));
    }
    if (!IsWhole(window)) {
      Children(window);
    }
  }

  // A fifth of its picture can be told from what is behind.
  static bool Stands(const wxAnyButton& button) {
    const wxBitmap bitmap = button.GetBitmap();
    if (!bitmap.IsOk()) {
      return true;
    }
    const wxImage picture = bitmap.ConvertToImage();
    const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    int drawn = 0;
    int seen = 0;
    for (int y = 0; y < picture.GetHeight(); ++y) {
      for (int x = 0; x < picture.GetWidth(); ++x) {
        if (!picture.HasAlpha() || picture.GetAlpha(x, y) > 127) {
          ++drawn;
          seen += Contrast({picture.GetRed(x, y), picture.GetGreen(x, y), picture.GetBlue(x, y)}, ground) >= 3 ? 1 : 0;
        }
      }
    }
    return seen * 5 >= drawn;
  }

  void Pair(const wxWindow& first, const wxWindow& second) {
    if (!Floats(first) && !Floats(second) && first.GetRect().Intersects(second.GetRect()) &&
        !IsA<wxNotebook>(*first.GetParent())) {
      Add(first, " overlaps " + Called(second));
    }
  }
};

}  // namespace

std::vector<std::string> LayoutFaults(const wxTopLevelWindow& window) {
  Check check;
  check.Children(window);
  return check.faults;
}
