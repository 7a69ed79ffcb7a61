#include "views/field_group.h"

#include <vector>

#include "forms/label.h"
#include "views/button_binders.h"
#include "views/text_binders.h"

namespace views {

FieldGroup::FieldGroup(wxWindow* parent, const wxString& title)
    : box_(new wxStaticBoxSizer(wxVERTICAL, parent, title)),
      rows_(new wxGridBagSizer(parent->FromDIP(6), parent->FromDIP(8))) {
  rows_->SetEmptyCellSize(wxSize(0, 0));  // a hidden row leaves no band
  Box()->SetName("group " + title);
  box_->Add(rows_, wxSizerFlags(1).Expand().Border(wxALL, parent->FromDIP(8)));
}

void FieldGroup::Row(std::initializer_list<Field> fields, forms::Button* list) {
  wxWindow* first = nullptr;
  std::vector<wxWindow*> widgets;
  for (const Field& field : fields) {
    // A caption leads by its mnemonic to the widget that is made next.
    wxWindow* caption = MakeCaption(Box(), *field.box.Heading);
    if (first == nullptr) {
      first = caption;
    } else {
      widgets.push_back(caption);
    }
    widgets.push_back(MakeTextBox(Box(), field.box, field.characters));
  }
  Add(first, widgets, list == nullptr ? nullptr : MakePickButton(Box(), *list));
}

void FieldGroup::Row(wxWindow* caption, std::initializer_list<wxWindow*> fields, wxWindow* behind) {
  Add(caption, fields, behind);
}

void FieldGroup::Add(wxWindow* caption, const std::vector<wxWindow*>& fields, wxWindow* behind) {
  if (caption != nullptr) {
    rows_->Add(caption, wxGBPosition(next_, 0), wxDefaultSpan, wxALIGN_CENTER_VERTICAL);
  }
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  const int gap = Box()->FromDIP(8);
  std::size_t i = 0;
  for (wxWindow* field : fields) {
    const bool last = ++i == fields.size();
    row->Add(field, wxSizerFlags(last ? 1 : 0).CenterVertical().Border(wxRIGHT, last ? 0 : gap));
  }
  rows_->Add(row, wxGBPosition(next_, 1), wxDefaultSpan, wxEXPAND);
  if (behind != nullptr) {
    rows_->Add(behind, wxGBPosition(next_, 2), wxDefaultSpan, wxALIGN_CENTER_VERTICAL);
  }
  if (++next_ == 1) {
    rows_->AddGrowableCol(1);
  }
}

void FieldGroup::Below(wxWindow* widget) {
  rows_->Add(widget, wxGBPosition(next_++, 1), wxDefaultSpan, wxALIGN_LEFT);
}

void FieldGroup::BehindBoth(wxWindow* widget) {
  rows_->Add(widget, wxGBPosition(next_ - 2, 2), wxGBSpan(2, 1), wxALIGN_CENTER);
}

}  // namespace views
