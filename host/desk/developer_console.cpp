#include "desk/developer_console.h"

#include <wx/notebook.h>
#include <wx/sizer.h>
#include <wx/statusbr.h>

#include <algorithm>
#include <array>

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

enum StatusField : std::uint8_t { kWhere, kOutcome, kStatusFields };

}  // namespace

DeveloperConsole::DeveloperConsole(wxWindow* parent, Desk& desk)
    : wxFrame(parent, wxID_ANY, "Developer Console"), desk_(desk) {
  SetName("developer_console");
  auto* page = new wxPanel(this);
  page->SetName("page");
  auto* methods = new wxNotebook(page, wxID_ANY);
  methods->SetName("methods");
  call_page_ = new CallPage(page, [this](const std::string& outcome) { SetStatusText(ToWx(outcome), kOutcome); });
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

  // A mnemonic is found only in the part of the window that has the focus.
  const int call = wxWindow::NewControlId();
  const int close = wxWindow::NewControlId();
  const std::array keys = {wxAcceleratorEntry(wxACCEL_ALT, 'C', call), wxAcceleratorEntry(0, WXK_ESCAPE, close),
                           wxAcceleratorEntry(0, WXK_F12, close)};
  SetAcceleratorTable(wxAcceleratorTable(static_cast<int>(keys.size()), keys.data()));
  Bind(
      wxEVT_MENU, [this](wxCommandEvent&) { call_page_->Call(); }, call);
  Bind(
      wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, close);
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
    event.Skip();
    desk_.SetMainWindow(GetParent());
  });
  // What is called from here stands before it.
  Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
    event.Skip();
    if (event.GetActive()) {
      desk_.SetMainWindow(this);
    }
  });

  CreateStatusBar(kStatusFields)->SetName("status");
  const std::array widths = {-1, -3};
  GetStatusBar()->SetStatusWidths(kStatusFields, widths.data());
  const HostSession& session = desk_.Session();
  SetStatusText(wxString::Format("Database kind %d, office %d", session.DatabaseKind(), session.CurrentOfficeID()),
                kWhere);
  ChooseMethod("Load_PatInfo_Small");
  const wxSize least = wxSize(110 * GetCharWidth(), 30 * GetCharHeight());
  SetMinClientSize(least);
  SetClientSize(least);
  views::PlaceInMiddle(*this);
}

DeveloperConsole::~DeveloperConsole() {
  desk_.Classes().OnEvent = nullptr;
}

wxListBox* DeveloperConsole::MakeMethods(wxWindow* parent) {
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

wxListBox* DeveloperConsole::MakeLists(wxWindow* parent) {
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

void DeveloperConsole::ChooseMethod(const std::string& name) {
  call_page_->Choose("EditingScreen." + ToWx(name), desk_.Classes().EditingScreen(), name, {});
}

void DeveloperConsole::ChooseList(int kind) {
  call_page_->Choose(wxString("LookUpList.ShowList: ") + kListKinds.at(static_cast<std::size_t>(kind)),
                     desk_.Classes().LookUpList(), "ShowList", {{"ListType", std::to_string(kind)}});
}

}  // namespace host
