#include "desk/main_frame.h"

#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/notebook.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/statusbr.h>
#include <wx/toolbar.h>

#include <algorithm>
#include <array>

#include "people/name_entry.h"
#include "views/accessible_name.h"
#include "views/placing.h"
#include "views/text_binders.h"

namespace host {
namespace {

using views::ToWx;

constexpr std::array kListKinds = {"Providers",  "Physicians",        "Physicians (second)", "Referrals in and out",
                                   "Referrals",  "Family heads",      "Employees",           "Insurance companies",
                                   "Employers",  "Group plans",       "Insurance groups",    "Recall masters",
                                   "Pharmacies", "Managed-care plans"};

enum StatusField { kUser, kOffice, kKind, kOutcome, kStatusFields };

wxString KindText(std::int32_t kind) {
  const wxString number = wxString::Format("Database kind %d", kind);
  return kind == session::kOfficeScoped ? number + " (by office)" : number;
}

}  // namespace

MainFrame::MainFrame(Desk& desk) : wxFrame(nullptr, wxID_ANY, "Practice Desk"), desk_(desk) {
  SetName("practice_desk");
#ifdef __WXMSW__
  SetIcons(wxIconBundle("a_practice_desk", nullptr));
#endif
  MakeCommands();
  auto* page = new wxPanel(this);
  page->SetName("page");
  auto* methods = new wxNotebook(page, wxID_ANY);
  methods->SetName("methods");
  call_page_ = new CallPage(page, [this](const std::string& outcome) { Tell(outcome); });
  desk_.Classes().OnEvent = [this](const std::string& event, const std::string& arguments) {
    call_page_->ShowEvent(event, arguments);
  };
  methods->AddPage(MakeMethods(methods), "Editing screens");
  methods->AddPage(MakeLists(methods), "Look-up lists");
  methods->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this, methods](wxBookCtrlEvent& event) {
    event.Skip();
    auto& list = dynamic_cast<wxListBox&>(*methods->GetCurrentPage());
    list.SetSelection(std::max(0, list.GetSelection()));
    if (event.GetSelection() == 0) {
      ChooseMethod(views::FromWx(list.GetStringSelection()));
    } else {
      ChooseList(list.GetSelection());
    }
  });

  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  methods->SetMinSize(wxSize(40 * GetCharWidth(), -1));
  columns->Add(methods, wxSizerFlags().Expand().Border(wxALL, FromDIP(8)));
  columns->Add(call_page_, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(8)));
  page->SetSizer(columns);
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(page, wxSizerFlags(1).Expand());
  SetSizer(whole);

  CreateStatusBar(kStatusFields)->SetName("status");
  const std::array widths = {-2, -1, -2, -6};
  GetStatusBar()->SetStatusWidths(kStatusFields, widths.data());
  ChooseMethod("Load_PatInfo_Small");
  ShowWho();
  const wxSize least = wxSize(110 * GetCharWidth(), 36 * GetCharHeight());
  SetMinClientSize(least);
  SetClientSize(least);
  views::PlaceInMiddle(*this);
}

void MainFrame::MakeCommands() {
  auto* practice = new wxMenu;
  auto* patient = new wxMenu;
  auto* bar = CreateToolBar(wxTB_HORIZONTAL | wxTB_TEXT);
  bar->SetName("commands");
  std::vector<wxAcceleratorEntry> keys;  // before the lists, which have a use of their own for some
  const auto add = [&](wxMenu* menu, const wxString& text, const wxString& tip, const char* picture, auto action) {
    const int id = menu->Append(wxID_ANY, text, tip)->GetId();
    if (wxAcceleratorEntry key; text.Contains("\t") && key.FromString(text)) {
      key.Set(key.GetFlags(), key.GetKeyCode(), id);
      keys.push_back(key);
    }
    Bind(
        wxEVT_MENU, [action](wxCommandEvent&) { action(); }, id);
    if (const wxBitmapBundle bundle = desk_.User().Pictures().Find(picture); bundle.IsOk()) {
      bar->AddTool(id, wxMenuItem::GetLabelText(text.BeforeFirst('\t')), bundle, tip);
    }
  };
  add(patient, "&Find Patient...\tCtrl+F", "Finds or adds a patient by name or ID", "Find_32.png",
      [this] { FindPatient(); });
  add(patient, "&New Patient\tCtrl+N", "Adds a patient", "New_32.png",
      [this] { NewPatient(session::Opening::Mode::New); });
  add(patient, "&Emergency Patient\tCtrl+E", "Adds an emergency patient", "Pat_Info_32.png",
      [this] { NewPatient(session::Opening::Mode::Emergency); });
  // A mnemonic is found only in the part of the window that has the focus.
  const int call = wxWindow::NewControlId();
  keys.emplace_back(wxACCEL_ALT, 'C', call);
  Bind(
      wxEVT_MENU, [this](wxCommandEvent&) { call_page_->Call(); }, call);
  add(practice, "&Switch User...", "Logs in as somebody else", "Fam_Table_32.png", [this] { SwitchUser(); });
  Bind(
      wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, practice->Append(wxID_EXIT)->GetId());
  SetAcceleratorTable(wxAcceleratorTable(static_cast<int>(keys.size()), keys.data()));
  bar->Realize();
  auto* menus = new wxMenuBar;
  menus->Append(practice, "&Practice");
  menus->Append(patient, "P&atient");
  SetMenuBar(menus);
}

wxListBox* MainFrame::MakeMethods(wxWindow* parent) {
  auto* list = new wxListBox(parent, wxID_ANY);
  list->SetName("EditingScreen");
  views::SetAccessibleName(*list, "Editing screens");
  for (const entry::Method& method : desk_.Classes().EditingScreen().methods) {
    list->Append(ToWx(method.name));
  }
  list->SetStringSelection("Load_PatInfo_Small");
  list->Bind(wxEVT_LISTBOX, [this](wxCommandEvent& event) { ChooseMethod(views::FromWx(event.GetString())); });
  list->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { call_page_->Call(); });
  return list;
}

wxListBox* MainFrame::MakeLists(wxWindow* parent) {
  auto* list = new wxListBox(parent, wxID_ANY);
  list->SetName("LookUpList");
  views::SetAccessibleName(*list, "Look-up lists");
  for (const char* kind : kListKinds) {
    list->Append(kind);
  }
  list->Bind(wxEVT_LISTBOX, [this](wxCommandEvent& event) { ChooseList(event.GetInt()); });
  list->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { call_page_->Call(); });
  return list;
}

void MainFrame::ChooseMethod(const std::string& name) {
  call_page_->Choose("EditingScreen." + ToWx(name), desk_.Classes().EditingScreen(), name, {});
}

void MainFrame::ChooseList(int kind) {
  call_page_->Choose(wxString("LookUpList.ShowList: ") + kListKinds.at(static_cast<std::size_t>(kind)),
                     desk_.Classes().LookUpList(), "ShowList", {{"ListType", std::to_string(kind)}});
}

void MainFrame::NewPatient(session::Opening::Mode mode) {
  const session::Outcome outcome =
      desk_.Context().screens.Edit({.kind = session::RecordKind::Patient, .mode = mode, .may_book = true});
  Tell(outcome.Saved()
           ? "Patient " + std::to_string(outcome.id) + " was added" + (outcome.save_and_book ? ", to be booked" : "")
           : "No patient was added");
}

void MainFrame::FindPatient() {
  const people::NameEntry entered = people::EnterPatient(desk_.Context());
  const std::string who = "Patient " + std::to_string(entered.patient);
  switch (entered.outcome) {
    case people::EntryOutcome::None:
      Tell("No patient was opened");
      break;
    case people::EntryOutcome::Edited:
      Tell(who + " was opened");
      break;
    case people::EntryOutcome::Added:
      Tell(who + " was added" + (entered.save_and_book ? ", to be booked" : ""));
      break;
  }
}

void MainFrame::SwitchUser() {
  if (desk_.LogIn()) {
    ShowWho();
  }
}

void MainFrame::ShowWho() {
  const HostSession& session = desk_.Session();
  SetStatusText("User " + ToWx(session.UserName()), kUser);
  SetStatusText(wxString::Format("Office %d", session.CurrentOfficeID()), kOffice);
  SetStatusText(KindText(session.DatabaseKind()), kKind);
}

void MainFrame::Tell(const std::string& outcome) {
  SetStatusText(ToWx(outcome), kOutcome);
}

}  // namespace host
