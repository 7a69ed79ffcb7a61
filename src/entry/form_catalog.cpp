#include "entry/form_catalog.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <stdexcept>

#include "editing/rules.h"
#include "entry/component_screens.h"
#include "entry/open_screens.h"
#include "entry/record_id.h"
#include "forms/text.h"
#include "insurance/GrpPlaScreen.h"
#include "insurance/InsPln_Frm.h"
#include "insurance/frmCopyPlanOpts.h"
#include "insurance/frmEditCoverage.h"
#include "insurance/frmEmployer.h"
#include "insurance/frmPPOAdjust.h"
#include "insurance/frmSelectCoverage.h"
#include "insurance/insScreen.h"
#include "locations/frmOfficeLocation.h"
#include "locations/frmPatientLocation.h"
#include "lookup/frmExport.h"
#include "lookup/frmSearchWindow.h"
#include "lookup/frmTGList.h"
#include "people/EmployeeFrm.h"
#include "people/FamScreen.h"
#include "people/docScreen.h"
#include "people/frmContacts.h"
#include "people/frmCreditCard.h"
#include "people/frmDatabaseSearch.h"
#include "people/patScreen_SM.h"
#include "recall/RecallSetupScreen.h"
#include "recall/eRmdrPersonalSetup.h"
#include "recall/frmEDMsg.h"
#include "recall/frmEreminderContact.h"
#include "recall/frmQuickEditor.h"

namespace entry {
namespace {

using session::Opening;
using session::Outcome;
using session::RecordKind;
using session::ScreenContext;

// A screen of the suite, and what it edits.
struct Screen {
  std::string_view name;
  std::vector<RecordKind> edits;
  std::unique_ptr<forms::Form> (*make)(const ScreenContext&) = nullptr;
  // Null for one that edits no records.
  Outcome (*edit)(const ScreenContext&, const Opening&) = nullptr;
};

// A form that others open, or that is opened by its name alone.
template <typename T>
Screen Opens(std::string_view name) {
  return {.name = name, .edits = {}, .make = [](const ScreenContext& context) -> std::unique_ptr<forms::Form> {
            return std::make_unique<T>(context);
          }};
}

// A screen of which one is open at a time: a second one says so, and closes.
template <typename T>
class OnlyOne : public T {
 public:
  using T::T;

 protected:
  void OnLoad() override {
    if (const forms::Form* open = OpenScreen::Find(this->Name())) {
      TellAlreadyOpen(this->context_.user, *open);
      this->Close();
      return;
    }
    open_.emplace(*this);
    T::OnLoad();
  }
  void OnClose() override {
    open_.reset();
    T::OnClose();
  }

 private:
  std::optional<OpenScreen> open_;
};

// An editing screen: it takes its `Opened` before it is shown, and tells by `Ended` how it was left.
template <typename T>
Screen Edits(std::string_view name, std::initializer_list<RecordKind> kinds) {
  return {.name = name,
          .edits = kinds,
          .make = [](const ScreenContext& context) -> std::unique_ptr<forms::Form> {
            auto screen = std::make_unique<OnlyOne<T>>(context);
            screen->Properties["Mode"] = {nullptr, [&opened = screen->Opened](const std::string& id) {
                                            if (!ReadId(id, opened)) {
                                              throw std::invalid_argument("\"" + id + "\" is no record ID");
                                            }
                                          }};
            return screen;
          },
          .edit =
              [](const ScreenContext& context, const Opening& opening) {
                OnlyOne<T> screen(context);
                screen.Opened = opening;
                context.user.Show(screen);
                return screen.Ended();
              }};
}

// Every screen stands here once; every kind of record is edited by one of them.
const std::vector<Screen>& AllScreens() {
  static const std::vector<Screen> screens = {
      Edits<people::patScreen_SM>("patScreen_SM", {RecordKind::Patient}),
      Edits<people::EmployeeFrm>("EmployeeFrm", {RecordKind::Employee}),
      Edits<people::FamScreen>("FamScreen", {RecordKind::FamilyMember}),
      Edits<insurance::frmEmployer>("frmEmployer", {RecordKind::Employer}),
      Edits<insurance::insScreen>("insScreen", {RecordKind::Carrier, RecordKind::Pharmacy}),
      Edits<insurance::GrpPlaScreen>("GrpPlaScreen", {RecordKind::GroupPlan}),
      Opens<insurance::InsPln_Frm>("InsPln_Frm"),
      Edits<people::docScreen>("docScreen", {RecordKind::Provider, RecordKind::Physician1, RecordKind::Physician2,
                                             RecordKind::ReferInOut, RecordKind::Referral}),
      Opens<insurance::frmSelectCoverage>("frmSelectCoverage"),
      Opens<insurance::frmCopyPlanOpts>("frmCopyPlanOpts"),
      Opens<insurance::frmEditCoverage>("frmEditCoverage"),
      Opens<locations::frmOfficeLocation>("frmOfficeLocation"),
      Opens<locations::frmPatientLocation>("frmPatientLocation"),
      Opens<insurance::frmPPOAdjust>("frmPPOAdjust"),
      Opens<people::frmContacts>("frmContacts"),
      Opens<people::frmCreditCard>("frmCreditCard"),
      Opens<recall::frmEreminderContact>("frmEreminderContact"),
      Opens<people::frmDatabaseSearch>("frmDatabaseSearch"),
      Opens<recall::eRmdrPersonalSetup>("eRmdrPersonalSetup"),
      Opens<lookup::frmSearchWindow>("frmSearchWindow"),
      Opens<lookup::frmTGList>("frmTGList"),
      Opens<lookup::frmExport>("frmExport"),
      Opens<recall::frmQuickEditor>("frmQuickEditor"),
      Opens<recall::frmEDMsg>("frmEDMsg"),
      Edits<recall::RecallSetupScreen>("RecallSetupScreen", {RecordKind::RecallMaster}),
  };
  return screens;
}

const Screen& ScreenOf(RecordKind kind) {
  for (const Screen& screen : AllScreens()) {
    if (std::ranges::find(screen.edits, kind) != screen.edits.end()) {
      return screen;
    }
  }
  throw std::logic_error("no screen edits records of this kind");
}

template <typename T>
bool Shows(RecordKind kind, std::int32_t person) {
  const auto* screen = dynamic_cast<const T*>(OpenScreenOf(kind));
  return screen != nullptr && screen->pID == person;
}

// A patient is not edited in his own screen and in the family's at a time.
bool IsBeingEdited(const Opening& opening) {
  if (opening.IsNew() || opening.id == 0) {
    return false;
  }
  return (opening.kind == RecordKind::FamilyMember && Shows<people::patScreen_SM>(RecordKind::Patient, opening.id)) ||
         (opening.kind == RecordKind::Patient && Shows<people::FamScreen>(RecordKind::FamilyMember, opening.id));
}

}  // namespace

std::vector<std::string> FormNames() {
  std::vector<std::string> names;
  for (const Screen& screen : AllScreens()) {
    names.emplace_back(screen.name);
  }
  return names;
}

std::unique_ptr<forms::Form> MakeForm(std::string_view name, const ScreenContext& context) {
  for (const Screen& screen : AllScreens()) {
    if (forms::EqualsIgnoringCase(screen.name, name)) {
      return screen.make(context);
    }
  }
  return nullptr;
}

const forms::Form* OpenScreenOf(RecordKind kind) {
  return OpenScreen::Find(ScreenOf(kind).name);
}

Outcome EditRecord(const ScreenContext& context, const Opening& opening) {
  const Screen& screen = ScreenOf(opening.kind);
  if (OpenScreenOf(opening.kind) != nullptr) {
    return {.end = Outcome::End::AlreadyOpen};
  }
  if (IsBeingEdited(opening)) {
    editing::Rules(context).TellIsBeingEdited();
    return {};
  }
  Outcome outcome = screen.edit(context, opening);
  if (outcome.end == Outcome::End::Instead) {
    Opening joining = opening;
    joining.mode = Opening::Mode::Existing;
    joining.id = outcome.id;
    joining.joins = true;
    outcome = EditRecord(context, joining);
  }
  return outcome;
}

void TellAlreadyOpen(forms::User& user, const forms::Form& open) {
  user.Tell(editing::Rules::ToldBack(open.Caption.get()) +
                " is open already. Please save or close it first. Nothing was changed.",
            std::string(forms::kSuiteTitle), forms::Icon::Information);
}

std::unique_ptr<session::Screens> MakeScreens(session::Session& session, forms::User& user) {
  return std::make_unique<ComponentScreens>(session, user);
}

}  // namespace entry
