#include "views/people/payroll_status_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/field_group.h"
#include "views/grid_binder.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {
namespace {

using people::PayrollStatus;

wxSizer* InARow(wxWindow* parent, std::initializer_list<wxWindow*> widgets) {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  for (wxWindow* widget : widgets) {
    row->Add(widget, wxSizerFlags().CenterVertical().Border(wxRIGHT, parent->FromDIP(10)));
  }
  return row;
}

wxPanel* MakeOptions(wxWindow* parent, forms::Panel& panel, std::array<forms::OptionButton, 2>& options) {
  wxPanel* on = MakePanel(parent, panel);
  wxWindow* first = MakeOption(on, options[0], true);
  on->SetSizer(InARow(on, {first, MakeOption(on, options[1], false)}));
  on->Fit();  // until its page is laid out
  return on;
}

wxSizer* StatusGroup(wxWindow* page, PayrollStatus& payroll) {
  FieldGroup group(page, "Payroll Status");
  group.Row({{payroll.Ben_Txt[payroll.kEffective], 12}}, &payroll.Ben_CMD[payroll.kPickEffective]);
  group.Row(nullptr, {MakeOptions(group.Box(), payroll.BenPic[0], payroll.Ben_Opt)});
  group.Row({{payroll.Ben_Txt[payroll.kDepartment], 24}});
  group.Row(nullptr, {MakeOptions(group.Box(), payroll.PayBy_Pic, payroll.PayBy_Opt)});
  group.Row({{payroll.Ben_Txt[payroll.kAmount], 14}});
  group.Row({{payroll.Ben_Txt[payroll.kRenewal], 12}}, &payroll.Ben_CMD[payroll.kPickRenewal]);
  group.Row({{payroll.Ben_Txt[payroll.kReason], 30}});
  return group.Sizer();
}

wxSizer* HoursGroup(wxWindow* page, PayrollStatus& payroll) {
  FieldGroup group(page, "Hours a Year");
  group.Row({{payroll.Ben_Txt[payroll.kVacation], 8}});
  group.Row({{payroll.Ben_Txt[payroll.kSick], 8}});
  group.Row({{payroll.Ben_Txt[payroll.kPersonal], 8}});
  return group.Sizer();
}

wxSizer* ScheduleGroup(wxWindow* page, PayrollStatus& payroll) {
  constexpr int kColumns = 4;
  constexpr int kTime = 10;  // characters
  auto* box = new wxStaticBoxSizer(wxVERTICAL, page, "Schedule at the Office Location");
  box->GetStaticBox()->SetName("group Schedule");
  wxPanel* panel = MakePanel(box->GetStaticBox(), payroll.BenPic[1]);
  auto* days = new wxFlexGridSizer(kColumns, panel->FromDIP(wxSize(10, 4)));
  for (forms::CheckBox& day : payroll.Ben_Chk) {
    days->Add(MakeCheckBox(panel, day));
  }
  auto* inside = new wxBoxSizer(wxVERTICAL);
  inside->Add(days, wxSizerFlags().Expand());
  inside->Add(MakeLabel(panel, payroll.Ben_LBL[payroll.kOtherDays]), wxSizerFlags().Expand());
  wxWindow* from = MakeCaption(panel, payroll.Ben_LBL[payroll.kStart]);
  wxWindow* start = MakeComboBox(panel, payroll.cboStart, kTime);
  wxWindow* to = MakeCaption(panel, payroll.Ben_LBL[payroll.kEnd]);
  inside->Add(InARow(panel, {from, start, to, MakeComboBox(panel, payroll.cboEnd, kTime)}),
              wxSizerFlags().Border(wxTOP, panel->FromDIP(8)));
  panel->SetSizer(inside);
  box->Add(panel, wxSizerFlags(1).Expand().Border(wxALL, panel->FromDIP(8)));
  return box;
}

}  // namespace

wxSizer* MakeLocationChoice(wxWindow* parent, people::EmployeeLocations& locations) {
  wxWindow* caption = MakeCaption(parent, locations.lblLocation);
  wxSizer* row = InARow(parent, {caption, MakeComboBox(parent, locations.cboLocation, 30)});
  for (wxSizerItem* item : row->GetChildren()) {
    item->SetFlag(item->GetFlag() | wxRESERVE_SPACE_EVEN_IF_HIDDEN);  // the tabs below stay in their place
  }
  return row;
}

wxSizer* MakePayrollStatus(wxWindow* page, PayrollStatus& payroll) {
  constexpr int kLines = 3;
  const auto gap = wxSizerFlags().Expand().Border(wxALL, page->FromDIP(6));
  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(MakeLabel(page, payroll.Ben_LBL[payroll.kLockedBecause]), gap);
  auto* history = new wxBoxSizer(wxHORIZONTAL);
  history->Add(MakeGrid(page, payroll.Ben_TDBG, kLines), wxSizerFlags(1).Expand());
  auto* commands = new wxBoxSizer(wxVERTICAL);
  for (const PayrollStatus::Command command : {payroll.kNew, payroll.kRemove}) {
    commands->Add(MakeButton(page, payroll.Ben_CMD.at(command)), wxSizerFlags(gap).Border(wxLEFT | wxBOTTOM));
  }
  history->Add(commands);
  content->Add(history, wxSizerFlags(gap).Proportion(1));
  auto* right = new wxBoxSizer(wxVERTICAL);
  auto* groups = new wxBoxSizer(wxHORIZONTAL);
  groups->Add(StatusGroup(page, payroll), wxSizerFlags(gap).Proportion(1));
  right->Add(HoursGroup(page, payroll), gap);
  right->Add(ScheduleGroup(page, payroll), gap);
  groups->Add(right, wxSizerFlags(1).Expand());
  content->Add(groups, wxSizerFlags().Expand());
  content->Add(MakeLabel(page, payroll.Ben_LBL[payroll.kStamps]), gap);
  return content;
}

wxSizer* MakeLoginRights(wxWindow* page, people::LoginRights& rights) {
  constexpr int kLines = 10;
  auto* box = new wxStaticBoxSizer(wxVERTICAL, page, "Rights at the Office Location");
  wxWindow* group = box->GetStaticBox();
  group->SetName("group Rights");
  const auto gap = wxSizerFlags().Expand().Border(wxALL, page->FromDIP(6));
  wxWindow* same = MakeCheckBox(group, rights.chkSameRights);
  auto* head = new wxBoxSizer(wxHORIZONTAL);
  head->Add(same, wxSizerFlags().CenterVertical());
  head->AddStretchSpacer();
  head->Add(MakeButton(group, rights.cmdLocation), wxSizerFlags().CenterVertical());
  box->Add(head, gap);
  box->Add(MakeGrid(group, rights.FGrd, kLines), wxSizerFlags(gap).Proportion(1));
  return box;
}

}  // namespace views
