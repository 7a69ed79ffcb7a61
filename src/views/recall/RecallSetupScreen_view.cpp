#include "views/recall/RecallSetupScreen_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/editing/editing_views.h"
#include "views/field_group.h"
#include "views/ladder_picture.h"
#include "views/panel_binders.h"
#include "views/recall/RecallNotices_view.h"
#include "views/tab_binders.h"
#include "views/text_binders.h"

namespace views {
namespace {

using recall::RecallSetupScreen;

constexpr int kNumber = 6;  // characters
constexpr int kUnit = 10;

void PeriodRow(FieldGroup& group, forms::Label& caption, forms::TextBox& number, forms::ComboBox& unit) {
  wxWindow* heading = MakeCaption(group.Box(), caption);
  wxWindow* field = MakeTextBox(group.Box(), number, kNumber);
  wxWindow* units = MakeComboBox(group.Box(), unit, kUnit);
  auto* rest = new wxStaticText(group.Box(), wxID_ANY, {});  // takes the width that is left
  rest->SetName("rest of the row");
  group.Row(heading, {field, units, rest});
}

// A label of two lines, whatever stands there when it is made, and of four in large letters.
wxWindow* MakeText(wxWindow* parent, forms::Label& label) {
  constexpr int kWidth = 340;
  wxStaticText* text = MakeWrapped(parent, label, parent->FromDIP(kWidth));
  text->SetMinSize({parent->FromDIP(kWidth), 4 * parent->GetCharHeight()});
  return text;
}

wxSizer* StageGroup(wxWindow* parent, const wxString& title, forms::Label& caption, forms::TextBox& number,
                    forms::ComboBox& unit, forms::Label& text, forms::Button* remove = nullptr) {
  FieldGroup group(parent, title);
  PeriodRow(group, caption, number, unit);
  group.Row(nullptr, {MakeText(group.Box(), text)});
  if (remove != nullptr) {
    group.Below(MakeButton(group.Box(), *remove));
  }
  return group.Sizer();
}

wxSizer* Slid(wxWindow* page, forms::Label& caption, forms::Slider& slider) {
  constexpr int kWidth = 160;
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(MakeCaption(page, caption), wxSizerFlags().CenterVertical().Border(wxRIGHT, page->FromDIP(8)));
  wxSlider* widget = MakeSlider(page, slider);
  widget->SetMinSize({page->FromDIP(kWidth), -1});
  row->Add(widget, wxSizerFlags().CenterVertical());
  return row;
}

void LayOutGeneral(wxPanel* page, RecallSetupScreen& form) {
  constexpr int kCodes = 48;
  const auto flags = wxSizerFlags().Expand().Border(wxALL, page->FromDIP(6));
  FieldGroup services(page, "When a visit is due");
  PeriodRow(services, form.lblPeriod, form.txtPeriod, form.cmbPeriod);
  wxWindow* caption = MakeCaption(services.Box(), form.lblServices);
  wxWindow* codes = MakeTextBox(services.Box(), form.txtServices, kCodes);
  services.Row(caption, {codes}, MakeButton(services.Box(), form.codeCmd));
  FieldGroup options(page, "Options");
  options.Below(MakeCheckBox(options.Box(), form.chkSameDay));
  options.Below(MakeCheckBox(options.Box(), form.chkShowOnTodo));
  auto* print = new wxPanel(options.Box());
  print->SetName("panel print");
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  const auto beside = wxSizerFlags().CenterVertical().Border(wxRIGHT, page->FromDIP(6));
  row->Add(MakeCheckBox(print, form.chkDontPrintDays), beside);
  wxWindow* unit = MakeCaption(print, form.lblDontPrintDays);  // its letter leads to what is made next
  row->Add(MakeTextBox(print, form.txtDontPrintDays, kNumber), beside);
  row->Add(unit, beside);
  print->SetSizer(row);
  options.Below(print);
  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(services.Sizer(), flags);
  content->Add(options.Sizer(), flags);
  page->SetSizer(content);
}

void LayOutDue(wxPanel* page, RecallSetupScreen& form) {
  const auto flags = wxSizerFlags().Expand().Border(wxALL, page->FromDIP(6));
  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(Slid(page, form.lblSliderDue, form.SliderDue), flags);
  wxPanel* stage = MakePanel(page, form.picDueStage);
  stage->SetSizer(StageGroup(stage, "Before the date", form.lblDue, form.txtDue, form.cmbDue, form.lblDueText));
  content->Add(stage, flags);
  page->SetSizer(content);
}

void LayOutPastDue(wxPanel* page, RecallSetupScreen& form) {
  const auto flags = wxSizerFlags().Expand().Border(wxALL, page->FromDIP(6));
  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(Slid(page, form.lblSliderLate, form.SliderLate), flags);
  wxNotebook* book = MakeTabs(page, form.stPastDueSetup);
  for (std::size_t i = 0; i < form.picLate.size(); ++i) {
    wxPanel* late = PageOf(book, form.picLate.at(i));
    auto* inside = new wxBoxSizer(wxVERTICAL);
    inside->Add(StageGroup(late, "Past the date", form.lblLate.at(i), form.txtLate.at(i), form.cmbLate.at(i),
                           form.lblLateText.at(i), &form.cmdRemove.at(i)),
                flags);
    late->SetSizer(inside);
  }
  content->Add(book, wxSizerFlags(1).Expand().Border(wxALL, page->FromDIP(6)));
  page->SetSizer(content);
}

void LayOutStopTracking(wxPanel* page, RecallSetupScreen& form) {
  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(StageGroup(page, "After the last visit", form.lblStopTracking, form.txtStopTracking,
                          form.cmbStopTracking, form.lblStopTrackingText),
               wxSizerFlags().Expand().Border(wxALL, page->FromDIP(6)));
  page->SetSizer(content);
}

void LayOutSend(wxPanel* page, RecallSetupScreen& form) {
  constexpr int kStage = 20;
  const int gap = page->FromDIP(8);
  auto* stage = new wxBoxSizer(wxHORIZONTAL);
  stage->Add(MakeCaption(page, form.lblStage), wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
  stage->Add(MakeComboBox(page, form.cboStage, kStage), wxSizerFlags().CenterVertical());
  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(stage, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  content->Add(MakeRecallNotices(page, form.picSend), wxSizerFlags(1).Expand());
  page->SetSizer(content);
}

}  // namespace

void LayOut_RecallSetupScreen(FormDialog& dialog, RecallSetupScreen& form) {
  constexpr int kTitle = 50;
  const int gap = dialog.FromDIP(10);
  auto* title = new wxBoxSizer(wxHORIZONTAL);
  title->Add(MakeCaption(&dialog, form.lblName), wxSizerFlags().CenterVertical().Border(wxRIGHT, dialog.FromDIP(8)));
  title->Add(MakeTextBox(&dialog, form.txtName, kTitle), wxSizerFlags(1).CenterVertical());

  wxNotebook* book = MakeTabs(&dialog, form.C1Tab1);
  LayOutGeneral(PageOf(book, form.picGeneral), form);
  LayOutDue(PageOf(book, form.picDue), form);
  LayOutPastDue(PageOf(book, form.picPastDue), form);
  LayOutStopTracking(PageOf(book, form.picStopTracking), form);
  LayOutSend(PageOf(book, form.picSend), form);
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(book, wxSizerFlags(1).Expand().Border(wxRIGHT, gap));
  columns->Add(MakeLadder(&dialog, form.picLadder, recall::RecallStages::kStop + 1), wxSizerFlags().Expand());

  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(title, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  content->Add(columns, wxSizerFlags(1).Expand().Border(wxALL, gap));
  content->Add(MakeDialogButtons(&dialog, form.db), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  LayOut(dialog, form.PictureBox1);
  dialog.SetSizer(content);
}

}  // namespace views
