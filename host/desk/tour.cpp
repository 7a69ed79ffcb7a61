#include "desk/tour.h"

#include "desk/change_list.h"

#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/evtloop.h>
#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/grid.h>
#include <wx/menu.h>
#include <wx/settings.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>
#include <wx/toplevel.h>
#include <wx/uiaction.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "desk/developer_console.h"
#include "desk/main_frame.h"
#include "entry/form_catalog.h"
#include "forms/text_box.h"
#include "forms/tool_bar.h"
#include "gallery/frmGallery.h"
#include "home/recent_patients.h"
#include "lookup/list_catalogue.h"
#include "people/EmployeeFrm.h"
#include "recall/RecallSetupScreen.h"
#include "recall/eRmdrPersonalSetup.h"
#include "reminders/reminder_settings.h"

namespace host {
namespace {

// Where all of a window's parts are.
std::vector<wxRect> PlacesIn(const wxWindow& window) {
  std::vector<wxRect> places{window.GetScreenRect()};
  for (const wxWindow* child : window.GetChildren()) {
    if (child->IsShown() && !child->IsTopLevel()) {
      std::ranges::copy(PlacesIn(*child), std::back_inserter(places));
    }
  }
  return places;
}

// Lets the events run until one painting of the window is like the one before: what waited for a painting may change
// it, and the toolkit gives new sizes from page to page within, a painting each.
void Settle(wxWindow& window) {
  constexpr long kPatience = 5000;  // milliseconds
  constexpr int kAlike = 3;
  bool painted = false;
  const auto on_paint = [&painted](wxPaintEvent& event) {
    painted = true;
    event.Skip();
  };
  window.Bind(wxEVT_PAINT, on_paint);
  const wxStopWatch watch;
  std::vector<wxRect> before;
  for (int alike = 0; alike < kAlike && watch.Time() < kPatience;) {
    painted = false;
    window.Refresh();
    while (!painted && watch.Time() < kPatience) {
      wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_ALL);
      wxMilliSleep(5);
    }
    wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_ALL);
    std::vector<wxRect> now = PlacesIn(window);
    alike = now == before ? alike + 1 : 1;
    before = std::move(now);
  }
  window.Unbind(wxEVT_PAINT, on_paint);
}

struct Stop {
  std::string name;
  std::function<void()> open;
  // Brings the form into the state that is worth seeing.
  std::function<void(forms::Form&)> prepare = {};
};

void Type(forms::Form& form, const char* control, const char* text) {
  auto& box = dynamic_cast<forms::TextBox&>(*form.Find(control));
  form.DoFocus(box);
  box.DoType(text);
}

std::int32_t FirstOf(Desk& desk, const std::string& persons) {
  const auto rows = desk.Session().Office().Connection().Execute(
      desk.Session().PrepareSQL("SELECT TOP 1 pID FROM PATable WHERE " + persons + " ORDER BY pID", 1));
  return rows->Eof() ? 0 : session::ToId(rows->Get(0));
}

// The window's name: what comes behind a "-" tells its states apart.
std::string Window(const Stop& stop) {
  return stop.name.substr(0, stop.name.find('-'));
}

// A list that goes to the printer as soon as it is open.
void PrintPersons(Desk& desk, const std::string& more_columns) {
  const auto list = entry::MakeForm("frmTGList", desk.Context());
  list->Properties.at("SQL").set(
      "SELECT pID AS [ID], pLASNAM AS [Last Name], pFIRNAM AS [First Name], pBIRDAT AS [Birth Date]" + more_columns +
      " FROM PATable");
  list->Properties.at("SortBy").set("[Last Name]");
  list->Properties.at("ListTitle").set("Patients");
  list->Load();
  dynamic_cast<forms::ToolBar&>(*list->Find("ToolStrip"))["Print"].DoClick();
}

std::vector<Stop> Stops(Desk& desk) {
  views::WxUser& user = desk.User();
  const std::string patient = std::to_string(FirstOf(desk, "pTypPat >= '1'"));
  const std::string head = std::to_string(
      FirstOf(desk,
              "pFAMHEAIND = pID AND pID IN (SELECT PatEmpPatID FROM PatEmpTable WHERE PatEmpFla = 0) AND pID IN "
              "(SELECT pFAMHEAIND FROM PATable GROUP BY pFAMHEAIND HAVING Count(*) IN (3, 4))"));
  const std::string member = std::to_string(FirstOf(desk, "pFAMHEAIND = " + head + " AND pID <> " + head));
  const std::string reminded = std::to_string(
      FirstOf(desk,
              "pID IN (SELECT rPid FROM RecTable) AND pID NOT IN (SELECT ebcpID FROM eBusContactSequence) AND pHomCell "
              "<> '' AND pHomEma <> '' AND pID IN (SELECT pFAMHEAIND FROM "
              "PATable GROUP BY pFAMHEAIND HAVING Count(*) IN (3, 4))"));
  const std::string covered = std::to_string(FirstOf(
      desk,
      "pID IN (SELECT CovPatID FROM CovTable WHERE CovFla = 0 AND CovOrd IN (SELECT Max(CovOrd) FROM CovTable WHERE "
      "CovFla = 0))"));
  const auto open_form = [&desk](const std::string& name, std::vector<std::pair<std::string, std::string>> properties) {
    return [&desk, name, properties = std::move(properties)] {
      const auto form = entry::MakeForm(name, desk.Context());
      for (const auto& [property, value] : properties) {
        form->Properties.at(property).set(value);
      }
      desk.User().Show(*form);
    };
  };
  const auto edit = [&desk](session::RecordKind kind, const std::string& type) {
    return [&desk, kind, type] {
      desk.Context().screens.Edit(session::Opening::Existing(kind, FirstOf(desk, type + " >= '1'")));
    };
  };
  const auto open_list = [&desk](int type, std::vector<std::pair<std::string, std::string>> options = {}) {
    return [&desk, type, options = std::move(options)] {
      const entry::Dispatch list = desk.Classes().LookUpList();
      const session::ListOptions usual;
      session::VisitOptions(
          usual, [&](const char* option, const auto& value) { list.properties.at(option).set(entry::TextOf(value)); });
      list.properties.at("ListType").set(std::to_string(type));
      for (const auto& [option, value] : options) {
        list.properties.at(option).set(value);
      }
      entry::Arguments none;
      list.Find("ShowList")->invoke(none);
    };
  };
  const auto gallery = [&user] { user.Show(*MakeGallery("frmGallery", user)); };
  const auto page = [](int index) {
    return [index](forms::Form& form) { dynamic_cast<frmGallery&>(form).Tabs.DoTab(index); };
  };
  const auto filter = [](forms::Form& form, const char* text) {
    while (form.DoIdle()) {
    }
    auto& grid = dynamic_cast<forms::Grid&>(*form.Find("DotNetGrid"));
    grid.DoFilter(grid.ColumnIndex("Last Name"), text);
  };
  std::vector<Stop> stops = {
      {"frmLogin",
       [&desk] {
         frmLogin login = LoginOf(desk.OfPractice());
         desk.User().Show(login);
       }},
      {"frmReminderOptions",
       [&desk] {
         using session::ReminderMessage;
         HostSession& session = desk.Session();
         ReminderSender into_outbox(session);
         into_outbox.Send({ReminderMessage::Method::Email, "sara.lopez@patients.example", "Your recall",
                               "<p>Sara Lopez, it's time for Prophylaxis with Dr. Miles.</p>"});
         into_outbox.Send({ReminderMessage::Method::TextMessage, "5125550142", "",
                               "Sara Lopez has an appointment scheduled with Dr. Miles on 11-23-2026 at 9:00 am."});
         session.SendReminder({ReminderMessage::Method::Email, "nobody", "", ""});
         session.ShowReminderOptions();
       }},
      {"frmReminderOptions-set",
       [&desk] {
         WriteReminderSettings(desk.Session(), {.server = "mail.baydental.example",
                                                .user = "reminders",
                                                .password = "not shown",
                                                .sender = "reminders@baydental.example",
                                                .sender_name = "Bay Dental",
                                                .hook = "https://texts.example/send",
                                                .token = "not shown",
                                                .confirmation_address = "https://confirm.baydental.example",
                                                .text_instructions = "Reply C to confirm.",
                                                .office_name = "Bay Dental"});
         desk.Session().ShowReminderOptions();
         WriteReminderSettings(desk.Session(), {});
       }},
      {"patScreen_SM", open_form("patScreen_SM", {{"pID", patient}})},
      {"patScreen_SM-new",
       open_form("patScreen_SM", {{"Mode", "NEW"}, {"TypedName", "Smith, John"}, {"ShowSaveNBookAppt", "True"}})},
      {"patScreen_SM-places", open_form("patScreen_SM", {{"Mode", "NEW"}}),
       [](forms::Form& form) { Type(form, "Text1(11)", "Spr"); }},
      {"patScreen_SM-names", open_form("patScreen_SM", {{"Mode", "NEW"}}),
       [](forms::Form& form) { form.DoFocus(*form.Find("Text1(5)")); }},
      {"patScreen_SM-help", open_form("patScreen_SM", {{"pID", patient}}),
       [](forms::Form& form) {
         form.DoFocus(*form.Find("Text1(5)"));
         dynamic_cast<forms::Button&>(*form.Find("DialogButtons1.Help")).DoClick();
       }},
      {"frmContacts", open_form("frmContacts", {{"pID", patient}})},
      {"FamScreen",
       [&desk, head, open = open_form("FamScreen", {{"Mode", head}})] {
         const session::ScreenContext context = desk.Context();
         context.session.Connection().Execute(context.session.PrepareSQL(
             "UPDATE PATable SET pEmpID2=(SELECT MAX(elID) FROM ELTable WHERE elInsID<>0), pCRECARTYP='Visa', "
             "pCRECARNUM='4111111111111111' WHERE pID=" +
                 head,
             1));
         open();
       }},
      {"FamScreen-member", open_form("FamScreen", {{"Mode", member}})},
      {"frmCreditCard", open_form("frmCreditCard", {{"pID", head}})},
      {"frmEreminderContact-edit",
       open_form("frmEreminderContact", {{"PatientID", patient}, {"EditOnly", "True"}})},
      {"frmEreminderContact", open_form("frmEreminderContact", {{"PatientID", patient}, {"SendMethod", "16"}})},
      {"FamScreen-new", open_form("FamScreen", {{"Mode", "NEW"}})},
      {"frmDatabaseSearch", open_form("frmDatabaseSearch", {{"SearchText", "S"}})},
      {"docScreen", edit(session::RecordKind::Provider, "pTypDoc")},
      {"docScreen-referral",
       [&desk, edit] {
         const session::ScreenContext context = desk.Context();
         context.session.Connection().Execute(context.session.PrepareSQL(
             "UPDATE PATable SET pEmpID1=(SELECT MIN(elID) FROM ELTable WHERE elInsID=0) WHERE pTypRef >= '1'", 1));
         edit(session::RecordKind::Referral, "pTypRef")();
       }},
      {"EmployeeFrm", edit(session::RecordKind::Employee, "pTypEmp='1' AND pTypEmp")},
      {"EmployeeFrm-payroll", edit(session::RecordKind::Employee, "pTypEmp='1' AND pTypEmp"),
       [](forms::Form& form) {
         dynamic_cast<people::EmployeeFrm&>(form).TabEBInfo.DoTab(people::EmployeeFrm::kPayrollStatus);
       }},
      {"EmployeeFrm-login", edit(session::RecordKind::Employee, "pTypEmp='1' AND pTypEmp"),
       [](forms::Form& form) {
         dynamic_cast<people::EmployeeFrm&>(form).TabEBInfo.DoTab(people::EmployeeFrm::kLogin);
       }},
      {"frmEmployer", open_form("frmEmployer", {{"Mode", "1"}})},
      {"frmPPOAdjust", open_form("frmPPOAdjust", {{"EmployerID", "1"},
                                                  {"CarrierID", "1"},
                                                  {"GroupID", "1"},
                                                  {"TreatmentCode", "D2701"},
                                                  {"AllowedFee", "1120"},
                                                  {"PlanCalculationFee", "1000"},
                                                  {"CoveragePercent", "62.5"}})},
      {"insScreen", open_form("insScreen", {{"Mode", "2"}})},
      {"insScreen-new", open_form("insScreen", {{"Mode", "NEW"}})},
      {"insScreen-pharmacy", open_form("insScreen", {{"TableName", "PHATABLE"}, {"Mode", "1"}})},
      {"frmSelectCoverage", open_form("frmSelectCoverage", {{"EmployerID", "1"}, {"ShowNone", "True"}})},
      {"frmCopyPlanOpts",
       open_form("frmCopyPlanOpts", {{"TargetText", "Riverbend School District / Bluestem Mutual Dental / BL4711"},
                                     {"SourceText", "Hill Country Builders / Bluestem Mutual Dental / BL2040"}})},
      {"GrpPlaScreen", open_form("GrpPlaScreen", {{"Mode", "1"}})},
      {"frmEditCoverage", open_form("frmEditCoverage", {{"PatientID", covered}})},
      {"frmEditCoverage-link", open_form("frmEditCoverage", {{"PatientID", covered}}),
       [](forms::Form& form) { dynamic_cast<forms::ToolBar&>(*form.Find("ucEditCoverage1.TB"))["LINK"].DoClick(); }},
      {"InsPln_Frm", open_form("InsPln_Frm", {{"EmployerID", "1"}, {"GroupID", "1"}})},
      {"InsPln_Frm-help", open_form("InsPln_Frm", {{"GroupID", "1"}}),
       [](forms::Form& form) { dynamic_cast<forms::Button&>(*form.Find("ucPlanDetails1.TB.HELP")).DoClick(); }},
      {"InsPln_Frm-global", open_form("InsPln_Frm", {})},
      {"RecallSetupScreen", open_form("RecallSetupScreen", {{"RecallID", "1"}})},
      {"RecallSetupScreen-past-due", open_form("RecallSetupScreen", {{"RecallID", "1"}}),
       [](forms::Form& form) {
         auto& screen = dynamic_cast<recall::RecallSetupScreen&>(form);
         screen.C1Tab1.DoTab(2);
         screen.stPastDueSetup.DoTab(1);
         screen.txtLate[1].DoType("6");
         screen.cmbLate[1].DoPick(0);
       }},
      {"RecallSetupScreen-notices", open_form("RecallSetupScreen", {{"RecallID", "1"}}),
       [](forms::Form& form) { dynamic_cast<recall::RecallSetupScreen&>(form).C1Tab1.DoTab(4); }},
      {"RecallSetupScreen-e-mail", open_form("RecallSetupScreen", {{"RecallID", "1"}}),
       [](forms::Form& form) {
         auto& screen = dynamic_cast<recall::RecallSetupScreen&>(form);
         screen.C1Tab1.DoTab(4);
         screen.picSend.picSendMethod.DoPick(3);
         form.DoIdle();
       }},
      {"frmOfficeLocation", open_form("frmOfficeLocation", {})},
      {"frmOfficeLocation-colors",
       [&desk, open = open_form("frmOfficeLocation", {})] {
         const session::ScreenContext context = desk.Context();
         context.session.Connection().Execute(context.session.PrepareSQL(
             "UPDATE OffLocTable SET OffLocBacClr=8421376, OffLocForClr=12632256, OffLocBanAccNum='0123456789' WHERE "
             "OffLocNam='North Side'",
             1));
         open();
       },
       [](forms::Form& form) { dynamic_cast<forms::Grid&>(*form.Find("TDBG")).DoRow(1); }},
      {"frmPatientLocation", open_form("frmPatientLocation", {{"PatientID", patient}})},
      {"frmPatientLocation-login", open_form("frmPatientLocation", {{"PasswordID", "1"}})},
      {"eRmdrPersonalSetup", open_form("eRmdrPersonalSetup", {{"PatientID", reminded}}),
       [](forms::Form& form) {
         auto& setup = dynamic_cast<recall::eRmdrPersonalSetup&>(form);
         setup.ecRecall.ExcludeVoice.DoCheck(forms::CheckState::On);
         for (const int method : {1, 0, 2}) {
           setup.ecRecall.Contacts.Available.DoPick(method);
           setup.ecRecall.Contacts.Add.DoClick();
         }
         setup.csStage.Available.DoPick(0);
         setup.csStage.Add.DoClick();
         setup.qe.DoType("Works at night: never call before noon.");
       }},
      {"frmSearchWindow", open_form("frmSearchWindow", {})},
      {"frmSearchWindow-found", open_form("frmSearchWindow", {{"TypedName", "B"}})},
      {"frmTGList", open_list(session::lulEmployee)},
      {"frmTGList-patients",
       open_list(session::lulFamilyHead,
                 {{"ShowPatientButtons", "True"}, {"ShowFacilityOptions", "True"}, {"Include_Ins", "True"}})},
      {"frmTGList-filtered", open_list(session::lulFamilyHead), [filter](forms::Form& form) { filter(form, "S"); }},
      {"frmTGList-nothing", open_list(session::lulFamilyHead), [filter](forms::Form& form) { filter(form, "Zzz"); }},
      {"frmTGList-several", open_list(session::lulInsuranceCo, {{"MultiSel", "True"}}),
       [](forms::Form& form) {
         auto& grid = dynamic_cast<forms::Grid&>(*form.Find("DotNetGrid"));
         for (const int row : {2, 3, 5}) {
           grid.DoToggleRow(row);
         }
       }},
      {"frmTGList-payers",
       [&desk] {
         entry::MakeScreens(desk.Context().session, desk.User())->ShowPayers({.title = "Link Electronic Payer"});
       }},
      {"frmTGList-changes",
       [&desk] {
         const session::ScreenContext context = desk.Context();
         context.session.Connection().Execute(context.session.PrepareSQL(
             "UPDATE PATable SET pADD1='14 Elm Street', pZIP='02134' WHERE pID=" + std::to_string(1), 1));
         ShowChangeList(context);
       }},
      {"frmExport", open_form("frmExport", {{"ListTitle", "Employee List"}})},
      {"print_preview", [&desk] { PrintPersons(desk, {}); }},
      {"print_preview-across",
       [&desk] { PrintPersons(desk, ", pADD1 AS [Home Address], pCIT AS [City], pSTA AS [State], pZIP AS [Zip]"); }},
      {"frmQuickEditor",
       open_form("frmQuickEditor",
                 {{"Title", "6 Month Recall Due E-Mail"},
                  {"EditorType", "2"},
                  {"emsRecordType", "1"},
                  {"AutoApplyReturnMessageVisible", "True"},
                  {"AutoApplyReturnMessageValue", "True"},
                  {"Text", "<p>Dear <b>{Patient First Name}</b>,</p><p>it is time for your {Recall Titel} with "
                           "{Provider Title} {Provider Last Name}.</p><ul><li>Please call {Office Phone}.</li></ul>"}})},
      {"frmQuickEditor-text",
       open_form("frmQuickEditor", {{"EditorType", "1"},
                                    {"emsRecordType", "2"},
                                    {"WpHelpText", "This message is sent two days before the appointment."},
                                    {"Text", "{Patient Full Name}: {Appointment Date}, {Appointment Time}, {Ofice "
                                             "Name}. {Appointment Confirmation Link}"}})},
      {"frmQuickEditor-preview", open_form("frmQuickEditor", {{"EditorType", "8"},
                                                              {"PreviewOnly", "True"},
                                                              {"Text", "<p>Dear {Patient First Name}</p>"}})},
      {"frmGallery", gallery},
      {"frmGallery-lists", gallery, page(1)},
      {"frmGallery-grid", gallery, page(2)},
      {"frmGallery-notes", gallery, page(3)},
      {"message",
       [&user] {
         user.Ask({.text = "Are you sure that you want to exit without saving the changes?",
                   .buttons = forms::kYesNoCancel,
                   .icon = forms::Icon::Question,
                   .default_answer = forms::Answer::No});
       }},
      {"input", [&user] { user.Input({.prompt = "Enter name or ID number below.\rExample:\r      John Smith"}); }},
      {"calendar", [&user] { user.PickDate("Calendar", std::chrono::year(1980) / std::chrono::January / 2); }},
  };
  for (int type = 0; type < lookup::kListKinds; ++type) {
    stops.push_back({"frmTGList-" + std::to_string(type), open_list(type)});
  }
  // A form without a stop of its own is seen as it opens.
  for (const std::string& form : entry::FormNames()) {
    if (std::ranges::none_of(stops, [&](const Stop& stop) { return Window(stop) == form; })) {
      stops.push_back({form, open_form(form, {})});
    }
  }
  return stops;
}

void OpenForTourist(Desk& desk) {
  LoginResult tourist;
  tourist.rights = LoginRights("tour", true);
  desk.Open(tourist, desk.OfPractice().Office());
}

// Chooses a patient of whom there is something to see, with an alert and a family, among those of his name.
void ChoosePatientToSee(Desk& desk, frmHome& home) {
  const auto rows = desk.Session().Office().Connection().Execute(
      desk.Session().PrepareSQL("SELECT TOP 1 pID, pLASNAM FROM PATable WHERE pTypPat >= '1' AND pMEDALE <> '' AND "
                                "pID <> pFAMHEAIND ORDER BY pID",
                                1));
  if (rows->Eof()) {
    return;
  }
  home.txtSearch.DoType(session::ToText(rows->Get(1)));
  home.DoIdle();
  for (int row = 0; row < home.grdPatients.RowCount() && home.Chosen() != session::ToId(rows->Get(0)); ++row) {
    home.txtSearch.DoKey(forms::Key::Down);
  }
}

// The home as it opens, and as it comes to be while a receptionist works.
void VisitHome(Desk& desk, const VisitWindow& visit) {
  auto* frame = new MainFrame(desk, [] {});
  desk.SetMainWindow(frame);
  frame->Show();
  const auto see = [&](const std::string& state) {
    while (frame->Home().DoIdle()) {
    }
    Settle(*frame);
    visit("practice_desk" + state, *frame);
  };
  const auto type = [&](const std::string& text, const std::string& state) {
    frame->Home().txtSearch.DoType(text);
    see(state);
  };
  see("");
  const auto patients = desk.Session().Office().Connection().Execute(
      desk.Session().PrepareSQL("SELECT TOP 7 pID FROM PATable WHERE pTypPat >= '1' ORDER BY pBIRDAT", 1));
  for (; !patients->Eof(); patients->MoveNext()) {
    RememberPatient(desk.Session(), session::ToId(patients->Get(0)));
  }
  frame->Home().Refresh();
  see("-recent");
  type("s", "-found");
  ChoosePatientToSee(desk, frame->Home());
  see("-alert");
  type("Zebra, Zoe", "-nobody");
  desk.SetMainWindow(nullptr);
  delete frame;
}

void VisitEmptyHome(Desk& desk, const VisitWindow& visit) {
  const std::unique_ptr<Desk> empty = desk.On(CreatePractice("sqlite::memory:"));
  OpenForTourist(*empty);
  auto* frame = new MainFrame(*empty, [] {});
  frame->Show();
  Settle(*frame);
  visit("practice_desk-empty", *frame);
  delete frame;
}

// A menu is a window of its own, before the one that it belongs to.
wxBitmap PictureOnScreen(wxTopLevelWindow& window, double scale) {
  const wxSize size = window.GetClientSize();
  wxBitmap picture;
  picture.CreateWithDIPSize(size, scale);
  wxMemoryDC to(picture);
  wxScreenDC screen;
  to.Blit(wxPoint(), size, &screen, window.ClientToScreen(wxPoint()));
  return picture;
}

// The list with the menu of a heading.
void VisitHeadMenu(Desk& desk, const VisitWindow& visit) {
  constexpr int kPatience = 500;  // milliseconds for the menu to come up
  desk.User().OnShown = [&](wxDialog& dialog) {
    Settle(dialog);
    wxTimer up;
    up.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
      visit("frmTGList-columns", dialog);
      wxUIActionSimulator().Char(WXK_ESCAPE);
    });
    up.StartOnce(kPatience);
    wxWindow& grid = *wxWindow::FindWindowByName("DotNetGrid", &dialog);
    wxGridEvent right(grid.GetId(), wxEVT_GRID_LABEL_RIGHT_CLICK, &grid, -1, 1);
    grid.ProcessWindowEvent(right);
    dynamic_cast<views::FormDialog&>(dialog).Form().Close();
  };
  desk.Context().screens.ShowList(session::lulRecallMaster, {});
  desk.User().OnShown = nullptr;
}

// A frame has its menu bar outside the area that it draws.
wxBitmap PictureOf(wxTopLevelWindow& window, double scale) {
  const auto* frame = dynamic_cast<wxFrame*>(&window);
  wxMenuBar* menus = frame == nullptr ? nullptr : frame->GetMenuBar();
  const wxSize size = window.GetClientSize();
  const int above = menus == nullptr ? 0 : menus->GetSize().y;
  wxBitmap picture;
  picture.CreateWithDIPSize(size + wxSize(0, above), scale);
  wxMemoryDC to(picture);
  wxClientDC page(&window);
  to.Blit(wxPoint(0, above), size, &page, wxPoint());
  if (menus != nullptr) {
    wxClientDC bar(menus);
    to.Blit(wxPoint(), wxSize(size.x, above), &bar, wxPoint());
  }
  return picture;
}

}  // namespace

void VisitWindows(Desk& desk, const VisitWindow& visit) {
  VisitEmptyHome(desk, visit);
  OpenForTourist(desk);
  VisitHome(desk, visit);
  auto* console = new DeveloperConsole(nullptr, desk);
  console->Show();
  Settle(*console);
  visit("developer_console", *console);
  console->Close(true);
  for (const Stop& stop : Stops(desk)) {
    desk.User().OnShown = [&](wxDialog& dialog) {
      auto* screen = dynamic_cast<views::FormDialog*>(&dialog);
      if (screen != nullptr && stop.prepare) {
        stop.prepare(screen->Form());
      }
      Settle(dialog);
      visit(stop.name, dialog);
      if (screen != nullptr) {
        screen->Form().Close();
      } else {
        dialog.EndModal(wxID_CANCEL);
      }
    };
    stop.open();
  }
  desk.User().OnShown = nullptr;
}

bool TakePictures(Desk& desk, const std::string& folder) {
  bool whole = wxFileName::Mkdir(views::ToWx(folder), wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
  const auto picturing = [&](wxBitmap (*picture_of)(wxTopLevelWindow&, double)) {
    return [&whole, &folder, picture_of](const std::string& name, wxTopLevelWindow& window) {
      const double scale = window.GetContentScaleFactor();
      const wxString look = wxSystemSettings::GetAppearance().IsDark() ? "-dark" : "";
      const wxString file = views::ToWx(folder) + "/" + views::ToWx(name) + look + (scale > 1 ? "@2x" : "") + ".png";
      whole = picture_of(window, scale).ConvertToImage().SaveFile(file, wxBITMAP_TYPE_PNG) && whole;
    };
  };
  VisitWindows(desk, picturing(PictureOf));
  VisitHeadMenu(desk, picturing(PictureOnScreen));
  return whole;
}

}  // namespace host
