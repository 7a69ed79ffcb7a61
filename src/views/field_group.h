#pragma once

#include <wx/gbsizer.h>
#include <wx/statbox.h>

#include <initializer_list>
#include <vector>

#include "forms/button.h"
#include "forms/text_box.h"

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
  // A field behind its heading, and so many digits wide.
  struct Field {
    forms::TextBox& box;
    int characters;
  };
  // Fields in one row, with the button behind them that opens their list.
  void Row(std::initializer_list<Field> fields, forms::Button* list = nullptr);
  // Under the fields, no wider than it wants to be.
  void Below(wxWindow* widget);
  // Behind the fields of the two rows made last.
  void BehindBoth(wxWindow* widget);

 private:
  void Add(wxWindow* caption, const std::vector<wxWindow*>& fields, wxWindow* behind);

  wxStaticBoxSizer* box_;
  wxGridBagSizer* rows_;
  int next_ = 0;
};

}  // namespace views
