#include "screens/ways.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <ostream>

#include "database/schema.h"
#include "editing/editing_form.h"
#include "entry/form_catalog.h"
#include "forms/text_box.h"
#include "practice/demo.h"
#include "screens/trying.h"

namespace screens_test {
namespace {

using session::Opening;
using session::RecordKind;

constexpr auto kLastList = session::lulCapPlans;
constexpr auto kLastPickList = session::PickList::BillingTitle;

// What is asked of a practice of its own office.
struct Asked {
  const char* value;
  const char* table;
  const char* condition = "1=1";

  std::string Of(Desk& desk) const {
    return desk.Value("SELECT Min(" + std::string(value) + ") FROM " + table + " WHERE " + condition +
                      " AND OfficeID=" + std::to_string(desk.Session().CurrentOfficeID()));
  }
};

// A kind of record by name, and one of its records by ID.
struct KnownKind {
  const char* name = nullptr;
  Asked id;
};
constexpr std::array kKinds = {KnownKind{"Patient", {"pID", "PATable", "pTypPat='1'"}},
                               KnownKind{"FamilyMember", {"pID", "PATable", "pTypPat='1'"}},
                               KnownKind{"Provider", {"pID", "PATable", "pTypDoc='1'"}},
                               KnownKind{"Physician1", {"pID", "PATable", "pTypPhy='1'"}},
                               KnownKind{"Physician2", {"pID", "PATable", "pTypPhy='1'"}},
                               KnownKind{"ReferInOut", {"pID", "PATable", "pTypRef='1'"}},
                               KnownKind{"Referral", {"pID", "PATable", "pTypRef='1'"}},
                               KnownKind{"Employee", {"pID", "PATable", "pTypEmp='1'"}},
                               KnownKind{"Employer", {"EmpInd", "EmpTable"}},
                               KnownKind{"Carrier", {"InsCoInd", "InsCoTable"}},
                               KnownKind{"Pharmacy", {"PhaID", "PhaTable"}},
                               KnownKind{"GroupPlan", {"GroPlaInd", "GroPlaTable"}},
                               KnownKind{"RecallMaster", {"RCRecNum", "RSTable", "RCRecNum<>0"}}};
static_assert(kKinds.size() == static_cast<std::size_t>(RecordKind::RecallMaster) + 1);

// What a form that is opened by its name alone is given.
const std::map<std::string, std::map<std::string, Asked>>& FormProperties() {
  static const std::map<std::string, std::map<std::string, Asked>> properties = {
      {"frmContacts", {{"pID", {"pID", "PATable", "pTypPat='1'"}}}},
      {"frmSelectCoverage", {{"EmployerID", {"elEmpID", "ELTable", "elInsID<>0 AND elFla=0"}}}},
      {"frmPatientLocation", {{"PatientID", {"pID", "PATable", "pTypPat='1'"}}}},
      {"eRmdrPersonalSetup", {{"PatientID", {"rPid", "RecTable", "rRCRecNum IN (SELECT RCRecNum FROM RSTable)"}}}},
      {"frmEditCoverage", {{"PatientID", {"CovPatID", "CovTable", "CovFla=0"}}}},
      {"InsPln_Frm", {{"GroupID", {"GroPlaInd", "GroPlaTable"}}}},
      {"frmCreditCard", {{"pID", {"pID", "PATable", "pTypPat='1'"}}}},
      {"frmEreminderContact", {{"PatientID", {"pID", "PATable", "pTypPat='1'"}}}},
      {"frmCopyPlanOpts",
       {{"TargetCarrierID", {"GroPlaInsID", "GroPlaTable"}}, {"TargetGroupID", {"GroPlaInd", "GroPlaTable"}}}},
      {"frmDatabaseSearch", {{"SearchText", {"pLASNAM", "PATable", "pTypPat='1'"}}}},
  };
  return properties;
}

// Only looks which form it is shown.
struct Onlooker : test_support::FakeUser {
  std::string form;
  void Show(forms::Form& shown) override { form = shown.Name(); }
};

// The form that edits such records; empty while there is none.
std::string FormOf(RecordKind kind) {
  test_support::FakeHost host;
  Onlooker user;
  entry::EditRecord({host.session, user, host.screens}, Opening::New(kind));
  return user.form;
}

std::vector<Way> WaysToEdit(RecordKind kind) {
  const KnownKind& known = kKinds.at(static_cast<std::size_t>(kind));
  const std::string form = FormOf(kind);
  if (form.empty()) {
    return {};
  }
  const auto edit = [](const Opening& opening) {
    return [opening](Desk& desk) { return entry::EditRecord(desk.Context(), opening); };
  };
  const auto add = [kind](Desk& desk) {
    Opening opening = Opening::New(kind);
    if (kind == RecordKind::GroupPlan) {  // his whose plan it is comes with it
      opening.carrier = session::ToId(session::Value(Asked{"InsCoInd", "InsCoTable"}.Of(desk)));
    }
    return entry::EditRecord(desk.Context(), opening);
  };
  std::vector<Way> ways = {{form, "New" + std::string(known.name), add, kind, true},
                           {form, "Existing" + std::string(known.name),
                            [kind, &known](Desk& desk) {
                              const auto id = session::ToId(session::Value(known.id.Of(desk)));
                              EXPECT_NE(id, 0) << "no " << known.name << " in the demo practice";
                              return entry::EditRecord(desk.Context(), Opening::Existing(kind, id));
                            },
                            kind, true}};
  if (kind == RecordKind::Patient) {
    ways.push_back({form, "EmergencyPatient", edit({.kind = kind, .mode = Opening::Mode::Emergency}), kind, true});
  }
  return ways;
}

session::Outcome OpenByName(const std::string& name, Desk& desk) {
  const auto form = entry::MakeForm(name, desk.Context());
  if (const auto known = FormProperties().find(name); known != FormProperties().end()) {
    for (const auto& [property, asked] : known->second) {
      form->Properties[property].set(asked.Of(desk));
    }
  }
  desk.User().Show(*form);
  const auto* editing = dynamic_cast<const editing::EditingForm*>(form.get());
  return {.end =
              editing != nullptr && editing->Saved ? session::Outcome::End::Saved : session::Outcome::End::Cancelled};
}

Way ByName(const std::string& name) {
  test_support::FakeHost host;
  const auto form = entry::MakeForm(name, host.Context());
  const bool edits = dynamic_cast<const editing::EditingForm*>(form.get()) != nullptr;
  const bool typed = std::ranges::any_of(form->Controls(), [](const forms::Control* control) {
    return dynamic_cast<const forms::TextBox*>(control) != nullptr;
  });
  return {.form = name,
          .how = "ByName",
          .open = [name](Desk& desk) { return OpenByName(name, desk); },
          .saves = edits && typed,
          .holds = edits && name != "frmEDMsg"};  // which edits files
}

std::vector<Way> MakeWays() {
  std::vector<Way> ways;
  for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
    for (Way& way : WaysToEdit(static_cast<RecordKind>(kind))) {
      way.first = std::ranges::none_of(
          ways, [&](const Way& other) { return other.form == way.form && other.OnExisting() == way.OnExisting(); });
      ways.push_back(std::move(way));
    }
  }
  for (int list = 0; list <= kLastList; ++list) {
    ways.push_back({"frmTGList", "List" + std::to_string(list), [list](Desk& desk) {
                      desk.Context().screens.ShowList(static_cast<session::LookUpListTypes>(list), {});
                      return session::Outcome();
                    }});
  }
  for (int list = 0; list <= static_cast<int>(kLastPickList); ++list) {
    ways.push_back({"frmTGList", "PickList" + std::to_string(list), [list](Desk& desk) {
                      desk.Context().screens.ShowPickList(static_cast<session::PickList>(list), {});
                      return session::Outcome();
                    }});
  }
  for (const std::string& name : entry::FormNames()) {
    if (std::ranges::find(ways, name, &Way::form) == ways.end()) {
      ways.push_back(ByName(name));
    }
  }
  return ways;
}

}  // namespace

const std::filesystem::path& MadePractice(std::int32_t kind) {
  static const Folder folder;
  static std::map<std::int32_t, std::filesystem::path> made;
  std::filesystem::path& file = made[kind];
  if (file.empty()) {
    file = folder.Path() / std::to_string(kind);
    const std::int32_t office = kind == session::kOfficeScoped ? 2 : 1;
    const auto practice =
        host::MakeDemo("sqlite:" + file.string(), {.patients = 12,
                                                   .practice = {.kind = kind, .office = office, .offices = office},
                                                   .password_cost = host::HashCost::Least});
    practice.Database().connection->Execute("DELETE FROM ZipCodTable WHERE ZipCodID % 500 <> 0");
    practice.Database().connection->Execute("VACUUM");
  }
  return file;
}

Folder::Folder() {
  static int last = 0;
  path_ = testing::TempDir() + "screens_" + std::to_string(getpid()) + "_" + std::to_string(++last);
  std::filesystem::create_directory(path_);
}

std::string Difference(const Rows& before, const Rows& after) {
  std::string text;
  for (const auto& [table, rows] : after) {
    std::vector<std::string> gone;
    std::vector<std::string> come;
    std::ranges::set_difference(before.at(table), rows, std::back_inserter(gone));
    std::ranges::set_difference(rows, before.at(table), std::back_inserter(come));
    if (!gone.empty() || !come.empty()) {
      text += table + " -" + std::to_string(gone.size()) + " +" + std::to_string(come.size()) + ", ";
    }
  }
  return text;
}

Desk::Place Desk::CopyOfPractice(std::int32_t kind) {
  auto folder = std::make_unique<Folder>();
  std::filesystem::path file = folder->Path() / "practice.db";
  std::filesystem::copy_file(MadePractice(kind), file);
  return {std::move(folder), std::move(file)};
}

Desk::Desk(std::int32_t kind) : Desk(CopyOfPractice(kind)) {
  host_.session.Connection().Execute("PRAGMA synchronous=OFF");
}

Desk::Desk(const std::filesystem::path& file) : Desk(Place{nullptr, file}) {}

Desk::Desk(Place place)
    : folder_(std::move(place.folder)),
      host_(Opened(place.file)),
      screens_(entry::MakeScreens(host_.session, host_.user)),
      other_user_(host_.session.Office(), "Bob"),
      locks_(place.file.string() + "-locks", host::OpenMode::Existing) {}

host::Practice Desk::Opened(const std::filesystem::path& file) {
  host::PracticeDatabase database = host::OpenDatabase("sqlite:" + file.string());
  auto line = std::make_unique<test_support::LosingConnection>(std::move(database.connection));
  line_ = line.get();
  database.connection = std::move(line);
  return host::Practice(std::move(database));
}

std::string Desk::Value(const std::string& sql) {
  return session::ToText(line_->Whole().Execute(sql)->Get(0));
}

Rows Desk::AllRows(const std::string& condition) {
  Rows all;
  for (const host::Table& table : host::PracticeTables()) {
    if (table.name == host::kChangeLog) {
      continue;
    }
    auto& rows = all[std::string(table.name)];
    for (const auto row = line_->Whole().Execute("SELECT * FROM " + std::string(table.name) + condition); !row->Eof();
         row->MoveNext()) {
      std::string text;
      for (std::size_t i = 0; i < row->Fields().size(); ++i) {
        text += session::ToText(row->Get(i)) + "\x1f";
      }
      rows.insert(std::move(text));
    }
  }
  return all;
}

std::vector<std::pair<std::string, std::int32_t>> Desk::Locks() {
  std::vector<std::pair<std::string, std::int32_t>> locks;
  for (const auto row = locks_.Execute("SELECT LocTable, LocRecID FROM LockTable"); !row->Eof(); row->MoveNext()) {
    locks.emplace_back(session::ToText(row->Get(0)), session::ToId(row->Get(1)));
  }
  return locks;
}

void Desk::HoldElsewhere(const std::string& table, std::int32_t id) {
  ASSERT_FALSE(other_user_.Hold(table, id));
}

bool Offers(const forms::Message& message, forms::Answer answer) {
  return std::ranges::find(message.buttons, answer) != message.buttons.end();
}

forms::Answer Agree(const forms::Message& message) {
  return Offers(message, forms::Answer::Yes) ? forms::Answer::Yes : message.Default();
}

session::Outcome Open(Desk& desk, const std::function<session::Outcome(Desk&)>& open,
                      const std::function<void(forms::Form&)>& act) {
  int depth = 0;
  int windows = 0;
  desk.User().answers = Agree;
  desk.User().inputs = [](const forms::InputBox& box) {
    return std::optional<std::string>(box.prompt.find("type [Yes]") != std::string::npos ? "Yes" : "Reed, Ann");
  };
  desk.User().acts = [&](forms::Form& form) {
    if (++depth == 1) {
      act(form);
    } else if (depth <= 3) {
      Accept(form, windows++);
    }
    --depth;
  };
  session::Outcome outcome;
  EXPECT_NO_THROW(outcome = open(desk));
  EXPECT_TRUE(desk.User().waits.empty() || desk.User().waits.back().empty()) << "the wait text stays";
  return outcome;
}

void PrintTo(const Way& way, std::ostream* out) {
  *out << way.form << " " << way.how;
}

const std::vector<Way>& AllWays() {
  static const std::vector<Way> ways = MakeWays();
  return ways;
}

std::vector<Way> WaysThat(const std::function<bool(const Way&)>& suit) {
  std::vector<Way> ways;
  std::ranges::copy_if(AllWays(), std::back_inserter(ways), suit);
  return ways;
}

void Way::OpenAgain(Desk& desk, const session::Outcome& saved) const {
  if (kind) {
    entry::EditRecord(desk.Context(), Opening::Existing(*kind, saved.id));
  } else {
    open(desk);
  }
}

}  // namespace screens_test
