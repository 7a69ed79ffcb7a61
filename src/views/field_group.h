#pragma once

#include <wx/gbsizer.h>
#include <wx/statbox.h>

#include <initializer_list>

namespace views {

// A titled group of rows: a caption, its fields side by side, and what stands behind them.
class FieldGroup {
 public:
  FieldGroup(wxWindow* parent, const wxString& title);

  // The parent of the widgets in the group.
  wxWindow* Box() const { return box_->GetStaticBox(); }
  wxSizer* Sizer() const { return box_; }

  // The last of the fields takes the width that is left; nullptr for no caption, nothing behind.
  void Row(wxWindow* caption, std::initializer_list<wxWindow*> fields, wxWindow* behind = nullptr);
  // Under the fields, no wider than it wants to be.
  void Below(wxWindow* widget);
  // Behind the fields of the two rows made last.
  void BehindBoth(wxWindow* widget);

 private:
  wxStaticBoxSizer* box_;
  wxGridBagSizer* rows_;
  int next_ = 0;
};

}  // namespace views
