#include "home/desk_commands.h"

#include <algorithm>
#include <array>

#include "entry/form_catalog.h"
#include "forms/text.h"
#include "home/frmHome.h"
#include "practice/logins.h"

namespace host {
namespace {

using session::Opening;

constexpr std::string_view kPatient = "P&atient";
constexpr std::string_view kInsurance = "&Insurance";
constexpr std::string_view kLists = "&Lists";
constexpr std::string_view kSetup = "&Setup";
constexpr std::string_view kView = "&View";

template <session::LookUpListTypes kType>
void ShowList(frmHome& home) {
  home.ShowList(kType);
}

constexpr std::array kCommands = {
    DeskCommand{.menu = kPatient,
                .caption = "&Find Patient",
                .key = "Ctrl+F",
                .run = [](frmHome& home) { home.FindPatient(); }},
    DeskCommand{.menu = kPatient,
                .caption = "&New Patient...",
                .key = "Ctrl+N",
                .screen = "patScreen_SM",
                .run = [](frmHome& home) { home.NewPatient(Opening::Mode::New); }},
    DeskCommand{.menu = kPatient,
                .caption = "&Emergency Patient...",
                .key = "Ctrl+E",
                .screen = "patScreen_SM",
                .run = [](frmHome& home) { home.NewPatient(Opening::Mode::Emergency); }},
    DeskCommand{.menu = kPatient,
                .caption = "&Open Patient...",
                .key = "Ctrl+O",
                .screen = "patScreen_SM",
                .of_patient = true,
                .on_card = true,
                .apart = true,
                .run = [](frmHome& home) { home.OpenPatient(home.Chosen()); }},
    DeskCommand{.menu = kPatient,
                .caption = "Fa&mily...",
                .screen = "FamScreen",
                .of_patient = true,
                .on_card = true,
                .run = [](frmHome& home) { home.OpenFamily(); }},
    DeskCommand{.menu = kPatient,
                .caption = "&Reminders...",
                .screen = "eRmdrPersonalSetup",
                .of_patient = true,
                .on_card = true,
                .run = [](frmHome& home) { home.Call("eReminder_PersonalSetup"); }},
    DeskCommand{.menu = kPatient,
                .caption = "&Locations...",
                .screen = "frmPatientLocation",
                .of_patient = true,
                .on_card = true,
                .run = [](frmHome& home) { home.Call("PatientLocation_Setup"); }},
    DeskCommand{.menu = kPatient, .caption = "&Appointment...", .of_patient = true, .on_card = true, .apart = true},
    DeskCommand{.menu = kInsurance,
                .caption = "&Coverage...",
                .screen = "frmEditCoverage",
                .of_patient = true,
                .on_card = true,
                .run = [](frmHome& home) { home.Call("Edit_Patient_Coverage"); }},
    DeskCommand{.menu = kInsurance,
                .caption = "&Insurance Companies...",
                .apart = true,
                .run = ShowList<session::lulInsuranceCo>},
    DeskCommand{.menu = kInsurance, .caption = "&Employers...", .run = ShowList<session::lulEmployer>},
    DeskCommand{.menu = kInsurance, .caption = "&Group Plans...", .run = ShowList<session::lulGroupPlan>},
    DeskCommand{.menu = kInsurance, .caption = "Insurance G&roups...", .run = ShowList<session::lulInsGroup>},
    DeskCommand{.menu = kInsurance, .caption = "&Managed-Care Plans...", .run = ShowList<session::lulCapPlans>},
    DeskCommand{.menu = kInsurance,
                .caption = "G&lobal Insurance Plan...",
                .screen = "InsPln_Frm",
                .run = [](frmHome& home) { home.ShowGlobalPlan(); }},
    DeskCommand{.menu = kInsurance,
                .caption = "&Fee Adjustment...",
                .screen = "frmPPOAdjust",
                .right = "Change-Ins-Plan-Detail",
                .apart = true,
                .run = [](frmHome& home) { home.Call("Edit_PPO_Adjustment"); }},
    DeskCommand{.menu = kLists, .caption = "&Providers...", .run = ShowList<session::lulProvider>},
    DeskCommand{.menu = kLists, .caption = "P&hysicians...", .run = ShowList<session::lulPhysician1>},
    DeskCommand{.menu = kLists, .caption = "&Second Physicians...", .run = ShowList<session::lulPhysician2>},
    DeskCommand{.menu = kLists, .caption = "&Referrals...", .run = ShowList<session::lulReferral>},
    DeskCommand{.menu = kLists, .caption = "Referrals &In and Out...", .run = ShowList<session::lulReferInOut>},
    DeskCommand{.menu = kLists, .caption = "&Family Heads...", .run = ShowList<session::lulFamilyHead>},
    DeskCommand{.menu = kLists, .caption = "Ph&armacies...", .run = ShowList<session::lulPharmacy>},
    DeskCommand{
        .menu = kSetup, .caption = "&Employees...", .right = kSupervisorRight, .run = ShowList<session::lulEmployee>},
    DeskCommand{.menu = kSetup, .caption = "&Recalls...", .run = ShowList<session::lulRecallMaster>},
    DeskCommand{.menu = kSetup,
                .caption = "Reminder &Templates...",
                .screen = "frmEDMsg",
                .run = [](frmHome& home) { home.Call("eReminder_TemplateSetup"); }},
    DeskCommand{.menu = kSetup,
                .caption = "Office &Locations...",
                .screen = "frmOfficeLocation",
                .right = kSupervisorRight,
                .run = [](frmHome& home) { home.Call("Location_Edit_Screen"); }},
    DeskCommand{.menu = kSetup,
                .caption = "Reminder &Sending...",
                .right = kSupervisorRight,
                .run = [](frmHome& home) { home.ShowReminderOptions(); }},
    DeskCommand{.menu = kView, .caption = "&Refresh", .key = "F5", .run = [](frmHome& home) { home.Refresh(); }},
    DeskCommand{.menu = kView,
                .caption = "Patients Opened &Last",
                .key = "Ctrl+L",
                .run = [](frmHome& home) { home.ShowOpenedLast(); }},
};

}  // namespace

std::string DeskCommand::Name() const {
  const std::string words = forms::WithoutMnemonic(caption);
  return words.substr(0, words.find('.'));
}

bool DeskCommand::IsBuilt() const {
  const auto built = entry::FormNames();
  return run != nullptr && (screen.empty() || std::ranges::find(built, screen) != built.end());
}

std::span<const DeskCommand> DeskCommands() {
  return kCommands;
}

}  // namespace host
