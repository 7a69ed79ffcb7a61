#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/user.h"
#include "session/list_options.h"
#include "session/session.h"

namespace session {

enum LookUpListTypes : std::int32_t {
  lulProvider,
  lulPhysician1,
  lulPhysician2,
  lulReferInOut,
  lulReferral,
  lulFamilyHead,
  lulEmployee,
  lulInsuranceCo,
  lulEmployer,
  lulGroupPlan,
  lulInsGroup,
  lulRecallMaster,
  lulPharmacy,
  lulCapPlans,
};

enum EmployerStartTab : std::int32_t { estEmployer, estInsurancePlan, estCoverage };

// What an editing screen edits: a person of a kind, or a record.
enum class RecordKind {
  Patient,       // in the quick screen
  FamilyMember,  // or a family's head
  Provider,
  Physician1,
  Physician2,
  ReferInOut,
  Referral,
  Employee,
  Employer,
  Carrier,
  Pharmacy,
  GroupPlan,
  RecallMaster,
};

// What an editing screen is opened on.
struct Opening {
  enum class Mode { Existing, New, Emergency };

  RecordKind kind = {};
  Mode mode = Mode::New;
  std::int32_t id = 0;                  // of the existing record
  std::string typed_name = {};          // for a new patient, employer or carrier: what was typed before it opened
  std::int32_t carrier = 0;             // for a new group plan: whose it is
  std::int32_t new_employee_login = 0;  // for a new employee: the login that he is entered for, 0 for none
  bool may_book = false;                // offers to save and book an appointment
  std::shared_ptr<void> owner = {};     // the host's object that the screen belongs to, which is only kept
  bool joins = false;                   // the existing person becomes one of the kind with the next save

  static Opening New(RecordKind kind) { return {.kind = kind}; }
  static Opening Existing(RecordKind kind, std::int32_t id) { return {.kind = kind, .mode = Mode::Existing, .id = id}; }
  bool IsNew() const { return mode != Mode::Existing; }
};

// How an editing screen was left.
struct Outcome {
  enum class End {
    Saved,
    Cancelled,
    Accepted,     // left with OK, of a record that could only be looked at
    AlreadyOpen,  // nothing was opened: the screen is open already
    NotBuilt,     // nothing was opened: the screen is not part of this version
    Deleted,      // the record is there no more
    Instead,      // nothing was written: the person who is there already is to be opened in the new one's place
  };

  End end = End::Cancelled;
  std::int32_t id = 0;         // of the saved record, or of the one to open
  bool save_and_book = false;  // an appointment is to be booked

  bool Saved() const { return end == End::Saved; }
  bool Deleted() const { return end == End::Deleted; }
};

// How a list was left.
struct ListOutcome {
  enum class End { Chosen, New, Cancelled };  // New: a new record is wanted

  End end = End::Cancelled;
  std::int32_t id = 0;                 // of the chosen record
  std::string text = {};               // its name column
  std::vector<std::int32_t> ids = {};  // of every chosen record, in the order of the rows

  bool Chosen() const { return end == End::Chosen; }
};

// A kind of short list that the office keeps for its fields.
enum class PickList { SexTitle, FeeSchedule, MedicalAlert, Specialty, ProfessionalTitle, BillingTitle };
struct PickedText {
  std::string code;
  std::string text;
};

// What a field looks for by a name that a person types.
enum class SearchList { Employers, Carriers };
struct SearchRequest {
  SearchList list = {};
  std::string typed = {};  // a name to begin with: the window is shown only where it matches anything
  // What is asked about a name that matches nothing; "NAME. Add to the list?" without it.
  std::function<std::string(const std::string& typed)> offer = {};
};

// How a search was left.
struct SearchOutcome {
  enum class End {
    Chosen,
    New,        // a new record of the typed name is wanted
    Cancelled,  // the person gave it up
    Nothing,    // no name, or one that nothing matches and that is not to be added
  };

  End end = End::Cancelled;
  std::int32_t id = 0;    // of the chosen record
  std::string name = {};  // its name, or the typed one

  bool Chosen() const { return end == End::Chosen; }
};

// Which of the plans that an employer offers is wanted.
struct CoverageChoice {
  std::int32_t employer = 0;
  std::int32_t current = 0;     // the link to start on: the subscriber's own
  std::int32_t hidden = 0;      // a link that is not offered
  bool must_select = false;     // nobody leaves without a choice
  bool offers_none = false;     // the link for no insurance coverage is offered
  std::int32_t subscriber = 0;  // whose plan it is, where that is known
  std::int32_t patient = 0;     // for whom it is looked at: the subscriber, or one of his family
};

// A plan whose coverage details are wanted.
struct PlanDetailsRequest {
  std::int32_t employer = 0;  // 0 where no employer's link led to it
  std::int32_t carrier = 0;
  std::int32_t plan = 0;
  std::string title = {};  // of the window; empty for its own
  std::int32_t help = 0;   // the host's number for the help on it
};

// How screens open one another.
class Screens {
 public:
  virtual ~Screens() = default;

  virtual Outcome Edit(const Opening& opening) = 0;
  virtual ListOutcome ShowList(LookUpListTypes type, const ListOptions& options) = 0;
  // The electronic payers that carriers are linked to.
  virtual ListOutcome ShowPayers(const ListOptions& options) = 0;
  virtual SearchOutcome Search(const SearchRequest& request) = 0;
  // One of the links that stand for the employer's plans; 0 when none was chosen.
  virtual std::int32_t SelectCoverage(const CoverageChoice& choice) = 0;
  virtual void ShowPlanDetails(const PlanDetailsRequest& request) = 0;
  // Of the services that the login's location charges; none when cancelled.
  virtual std::vector<std::string> ChooseServiceCodes() = 0;
  // Nothing when cancelled.
  virtual std::optional<PickedText> ShowPickList(PickList list, std::string_view title) = 0;
  // The locations at which a login may be used. True when something was saved.
  virtual bool EditLoginLocations(std::int32_t login) = 0;
};

// The ports through which a screen speaks.
struct ScreenContext {
  Session& session;
  forms::User& user;
  Screens& screens;
};

}  // namespace session
