#include "reach_faults.h"

#include <wx/wx.h>

#include <wx/bookctrl.h>
#include <wx/radiobut.h>
#include <wx/statbox.h>

#include <algorithm>
#include <map>

#include "assistive.h"
#include "forms/label.h"
#include "forms/text.h"
#include "views/accessible_name.h"
#include "views/form_window.h"

namespace {

template <typename... Kinds>
bool IsA(const wxWindow& window) {
  return (... || (dynamic_cast<const Kinds*>(&window) != nullptr));
}

std::string Called(const wxWindow& window) {
  return '"' + window.GetName().utf8_string() + '"';
}

std::vector<const wxWindow*> ShownIn(const wxWindow& parent) {
  const auto* book = dynamic_cast<const wxBookCtrlBase*>(&parent);
  std::vector<const wxWindow*> shown;
  for (const wxWindow* child : parent.GetChildren()) {
    if (child->IsShown() && !child->IsTopLevel() && (book == nullptr || child == book->GetCurrentPage())) {
      shown.push_back(child);
    }
  }
  return shown;
}

// A book's stop is its row of tabs, above the page.
wxRect PlaceOf(const wxWindow& stop) {
  wxRect place = stop.GetScreenRect();
  const auto* book = dynamic_cast<const wxBookCtrlBase*>(&stop);
  if (book != nullptr && book->GetCurrentPage() != nullptr) {
    place.SetBottom(book->GetCurrentPage()->GetScreenRect().GetTop() - 1);
  }
  return place;
}

// The titled groups that a widget lies in, the innermost first.
std::vector<const wxStaticBox*> GroupsOf(const wxWindow& widget) {
  std::vector<const wxStaticBox*> groups;
  for (const wxWindow* at = widget.GetParent(); at != nullptr; at = at->GetParent()) {
    if (const auto* group = dynamic_cast<const wxStaticBox*>(at); group != nullptr && !group->GetLabel().empty()) {
      groups.push_back(group);
    }
  }
  return groups;
}

class Check {
 public:
  explicit Check(const wxTopLevelWindow& window)
      : window_(window), form_window_(dynamic_cast<const views::FormWindow*>(&window)) {}

  std::vector<std::string> Faults() {
    if (form_window_ != nullptr) {
      FormStops();
      Headings();
    } else {
      WidgetStops(window_);
    }
    ReadingOrder();
    Groups();
    Mnemonics(window_);
    return std::move(faults_);
  }

 private:
  void Add(const wxWindow& window, const std::string& fault) { faults_.push_back(Called(window) + ' ' + fault); }

  // Where the Tab key goes, from the first stop once round.
  void FormStops() {
    const forms::Form& form = form_window_->Form();
    forms::Control* stop = form.NextStop(nullptr);
    for (std::size_t i = 0; stop != nullptr && i < form.Controls().size(); ++i) {
      const views::Binding* binding = form_window_->Find(*stop);
      if (binding == nullptr) {
        faults_.push_back('"' + stop->Name() + "\" is a stop that the window does not show");
      } else {
        if (!binding->FocusWidget().CanAcceptFocus()) {
          Add(binding->Widget(), "is a stop that takes no focus");
        }
        const std::string heard = views::AccessibleName(binding->FocusWidget());
        if (heard.empty() || heard != stop->SpokenName()) {
          Add(binding->Widget(), "is called '" + heard + "' in place of '" + stop->SpokenName() + "'");
        }
        stops_.push_back(&binding->Widget());
      }
      stop = form.NextStop(stop);
      if (stop == form.NextStop(nullptr)) {
        break;
      }
    }
  }

  // Where there is no form, the toolkit goes from widget to widget as they were made.
  void WidgetStops(const wxWindow& parent) {
    for (const wxWindow* child : ShownIn(parent)) {
      if (IsA<wxPanel, wxBookCtrlBase, wxStaticBox>(*child)) {
        WidgetStops(*child);
      } else if (child->AcceptsFocus() && child->AcceptsFocusFromKeyboard()) {
        if (views::AccessibleName(*child).empty()) {
          Add(*child, "is called nothing");
        }
        stops_.push_back(child);
      }
    }
  }

  // A later stop lies below an earlier one or to its right, where it may begin another column.
  void ReadingOrder() {
    for (std::size_t i = 0; i < stops_.size(); ++i) {
      const wxRect before = PlaceOf(*stops_[i]);
      for (std::size_t j = i + 1; j < stops_.size(); ++j) {
        const wxRect after = PlaceOf(*stops_[j]);
        if (after.GetLeft() <= before.GetRight() && after.GetTop() <= before.GetBottom()) {
          Add(*stops_[i], "comes before " + Called(*stops_[j]) + ", which lies above it or to its left");
          break;
        }
      }
    }
  }

  void Groups() {
    std::vector<const wxStaticBox*> left;
    std::vector<const wxStaticBox*> around;
    for (const wxWindow* stop : stops_) {
      const auto groups = GroupsOf(*stop);
      for (const wxStaticBox* group : around) {
        if (std::ranges::find(groups, group) == groups.end()) {
          left.push_back(group);
        }
      }
      for (const wxStaticBox* group : groups) {
        if (std::ranges::find(left, group) != left.end()) {
          Add(*stop, "comes back to " + Called(*group));
        }
      }
      std::vector<std::string> titles;
      titles.reserve(groups.size());
      for (const wxStaticBox* group : groups) {
        titles.push_back(group->GetLabelText().utf8_string());
      }
      // Pages of a book and the like come further out.
      auto heard = AccessibleGroups(*stop);
      heard.resize(titles.size());
      if (heard != titles) {
        Add(*stop, "is not heard in its group");
      }
      around = groups;
    }
  }

  // The letter of a heading leads to what it heads.
  void Headings() {
    for (const forms::Control* control : form_window_->Form().ReadingOrder()) {
      const views::Binding* binding = form_window_->Find(*control);
      const views::Binding* heading = control->Heading == nullptr ? nullptr : form_window_->Find(*control->Heading);
      if (binding != nullptr && heading != nullptr && control->Heading->Mnemonic() != '\0' &&
          !LeadsTo(dynamic_cast<const wxStaticText&>(heading->Widget()), binding->FocusWidget())) {
        Add(heading->Widget(), "leads elsewhere than to " + Called(binding->Widget()));
      }
    }
  }

  void Mnemonics(const wxWindow& parent) {
    for (const wxWindow* child : ShownIn(parent)) {
      const bool captioned = IsA<wxAnyButton, wxStaticText, wxCheckBox, wxRadioButton, wxStaticBox>(*child);
      const char letter = captioned ? forms::MnemonicOf(child->GetLabel().utf8_string()) : '\0';
      if (const wxWindow*& first = by_letter_[letter]; letter != '\0' && first != nullptr) {
        Add(*child, "shares Alt+" + std::string(1, letter) + " with " + Called(*first));
      } else {
        first = child;
      }
      Mnemonics(*child);
    }
  }

  const wxTopLevelWindow& window_;
  const views::FormWindow* form_window_;
  std::vector<const wxWindow*> stops_;
  std::map<char, const wxWindow*> by_letter_;
  std::vector<std::string> faults_;
};

}  // namespace

std::vector<std::string> ReachFaults(const wxTopLevelWindow& window) {
  return Check(window).Faults();
}
