#include "views/people/family_views.h"

#include <wx/gbsizer.h>
#include <wx/statbox.h>

#include "views/button_binders.h"
#include "views/grid_binder.h"
#include "views/text_binders.h"

namespace views {
namespace {

constexpr int kEmployerWidth = 38;  // digits
constexpr int kPlanWidth = 26;
constexpr int kGridWidth = 50;  // characters

}  // namespace

wxSizer* MakeEmployerSlots(FormDialog& dialog, people::EmployerSlots& slots) {
  auto* group = new wxStaticBoxSizer(wxVERTICAL, &dialog, "Employers and Insurance Plans");
  wxWindow* box = group->GetStaticBox();
  box->SetName("group Employers and Insurance Plans");
  auto* table = new wxGridBagSizer(dialog.FromDIP(2), dialog.FromDIP(4));
  table->SetEmptyCellSize(wxSize(0, 0));
  for (std::size_t i = 0; i < people::EmployerSlots::kCount; ++i) {
    const int row = 2 * static_cast<int>(i);
    int column = 0;
    const auto add = [&](wxWindow* widget, int grow = 0) {
      table->Add(widget, wxGBPosition(row, column++), wxDefaultSpan, wxALIGN_CENTER_VERTICAL | grow);
    };
    add(MakeCaption(box, slots.lblEmployer.at(i)));
    add(MakeTextBox(box, slots.EmpLabel1.at(i), kEmployerWidth), wxEXPAND);
    add(MakePickButton(box, slots.imaLinkEmp.at(i)));
    add(MakeButton(box, slots.imaUnLinkEmp.at(i)));
    add(MakeButton(box, slots.ImaEditEmp.at(i)));
    add(MakeLabel(box, slots.lblPlan.at(i)));
    add(MakeTextBox(box, slots.PlanLabel1.at(i), kPlanWidth), wxEXPAND);
    add(MakePickButton(box, slots.imaLinkPlan.at(i)));
    add(MakeButton(box, slots.ImaEditPlan.at(i)));
    table->Add(MakeLabel(box, slots.EmpLabel2.at(i)), wxGBPosition(row + 1, 1), wxGBSpan(1, 4));
    table->Add(MakeLabel(box, slots.PlanLabel2.at(i)), wxGBPosition(row + 1, 6), wxGBSpan(1, 3));
  }
  table->AddGrowableCol(1, 3);
  table->AddGrowableCol(6, 2);
  group->Add(table, wxSizerFlags(1).Expand().Border(wxALL, dialog.FromDIP(6)));
  return group;
}

wxSizer* MakeFamilyMembers(wxWindow* parent, people::FamilyMembers& members) {
  auto* commands = new wxBoxSizer(wxHORIZONTAL);
  for (forms::Button* command : {&members.cmdAddMember, &members.cmdDetachMember, &members.cmdMakeHead}) {
    commands->Add(MakeButton(parent, *command), wxSizerFlags().Border(wxRIGHT, parent->FromDIP(6)));
  }
  auto* column = new wxBoxSizer(wxVERTICAL);
  wxGrid* grid = MakeGrid(parent, members.FamilyGrid, 4);
  grid->SetMinSize(wxSize(kGridWidth * grid->GetCharWidth(), grid->GetMinSize().y));
  column->Add(grid, wxSizerFlags(1).Expand());
  column->Add(commands, wxSizerFlags().Border(wxTOP, parent->FromDIP(6)));
  return column;
}

}  // namespace views
