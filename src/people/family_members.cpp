#include "people/family_members.h"

#include <algorithm>
#include <deque>
#include <memory>

#include "data/literal.h"
#include "data/persons.h"
#include "editing/editing_form.h"
#include "people/name_entry.h"

namespace people {
namespace {

using editing::Refusal;
using session::ToText;

std::string BirthDay(const session::Value& birth) {
  const auto* day = std::get_if<forms::DateTime>(&birth);
  return day == nullptr ? std::string() : forms::FormatDashed(forms::DateOf(*day));
}

std::string AgeOf(const session::Value& birth, forms::Date today) {
  const auto* day = std::get_if<forms::DateTime>(&birth);
  const auto age = day == nullptr ? std::nullopt : forms::AgeAt(forms::DateOf(*day), today);
  return age ? std::to_string(age->years) : std::string();
}

std::string PatientText(const std::string& type) {
  return type == "1" ? "Yes" : type == "2" ? "Former" : "No";
}

}  // namespace

FamilyMembers::FamilyMembers(const session::ScreenContext& context, data::RecordBinding& person, forms::Label& head)
    : Rules(context), person_(person), head_(head) {
  Add("FamilyGrid", FamilyGrid);
  Add("cmdAddMember", cmdAddMember);
  Add("cmdDetachMember", cmdDetachMember);
  Add("cmdMakeHead", cmdMakeHead);
  FamilyGrid.AccessibleName = "Members of the family";
  FamilyGrid.EmptyText = "A new family is there when it has been saved.";
  FamilyGrid.Columns = {
      {.key = "Name", .caption = "Name", .width = 120},
      {.key = "Birth", .caption = "Birth Date", .width = 78},
      {.key = "Age", .caption = "Age", .width = 34, .align = forms::GridColumn::Align::Right},
      {.key = "Role", .caption = "Role", .width = 56},
      {.key = "Patient", .caption = "Patient", .width = 56},
  };
  cmdAddMember.Caption = "Add...";
  cmdAddMember.AccessibleName = "Add a member to the family";
  cmdAddMember.ToolTip = "Add a person to this family";
  cmdDetachMember.Caption = "Detach";
  cmdDetachMember.AccessibleName = "Detach the member from the family";
  cmdDetachMember.ToolTip = "The selected member leaves this family";
  cmdMakeHead.Caption = "Make Head";
  cmdMakeHead.ToolTip = "The selected member becomes the head of this family";
  FamilyGrid.RowColChange = [this] { ShowCommands(); };
  cmdAddMember.Click = [this] { AddMember(); };
  cmdDetachMember.Click = [this] {
    if (Current() != nullptr && Ready()) {
      Detach(*Current());
    }
  };
  cmdMakeHead.Click = [this] {
    if (Current() != nullptr && Ready()) {
      MakeHead(*Current());
    }
  };
}

void FamilyMembers::OnLoad() {
  layout_.Restore("FamilyMembers");
}

// The head first, then the eldest.
void FamilyMembers::Show() {
  const std::int32_t selected = Current() == nullptr ? person_.Id() : Current()->id;
  const auto table = std::make_shared<forms::TableRows>();
  members_.clear();
  if (person_.Id() != 0) {
    for (const auto row =
             statements_.Select("SELECT pID, pLASNAM, pFIRNAM, pBIRDAT, pTypPat FROM PATable WHERE " +
                                data::Families::Belongs(HeadId()) + statements_.Office() + " ORDER BY pBIRDAT, pID");
         !row->Eof(); row->MoveNext()) {
      AddRow(*table, *row);
    }
  }
  const auto found = std::ranges::find(members_, selected, &Member::id);
  FamilyGrid.Rows = table;
  FamilyGrid.Row = found == members_.end() ? -1 : static_cast<int>(found - members_.begin());
  ShowCommands();
}

void FamilyMembers::AddRow(forms::TableRows& table, const session::Recordset& row) {
  const Member member = {.id = session::ToId(row.Get(0)), .name = data::LastFirst(row.Get(1), row.Get(2))};
  const bool heads = member.id == HeadId();
  forms::TableRows::Row cells;
  cells.cells = {member.name, BirthDay(row.Get(3)), AgeOf(row.Get(3), context_.session.Today()),
                 heads ? "Head" : "Member", PatientText(ToText(row.Get(4)))};
  members_.insert(heads ? members_.begin() : members_.end(), member);
  table.rows.insert(heads ? table.rows.begin() : table.rows.end(), cells);
}

const FamilyMembers::Member* FamilyMembers::Current() const {
  const int row = FamilyGrid.Row;
  return row < 0 || row >= static_cast<int>(members_.size()) ? nullptr : &members_[static_cast<std::size_t>(row)];
}

std::int32_t FamilyMembers::HeadId() const {
  const std::int32_t head = session::ToId(session::Value(head_.Caption.get()));
  return head == 0 ? person_.Id() : head;
}

std::string FamilyMembers::HeadName() const {
  return data::ToldPerson(statements_, HeadId());
}

// The head neither leaves his family nor becomes what he is.
void FamilyMembers::ShowCommands() {
  const bool member = Current() != nullptr && Current()->id != HeadId();
  cmdDetachMember.Enabled = member;
  cmdMakeHead.Enabled = member;
}

bool FamilyMembers::Ready() {
  if (!editing::EditingForm::MayModify(*this)) {
    return false;
  }
  if (person_.Id() != 0 && !Unsaved()) {
    return true;
  }
  return Confirm(std::string(person_.Id() == 0 ? "This new entry" : "All changes") +
                 " must be saved before the family is changed.\r\nDo you want to save now?") &&
         Save();
}

void FamilyMembers::AddMember() {
  if (!Ready()) {
    return;
  }
  if (const std::int32_t chosen = ChooseMember(); chosen != 0) {
    Attempt([&] { Join(chosen); });
  }
}

std::int32_t FamilyMembers::ChooseMember() {
  const NamedPatient named = AskForPatient(context_);
  if (named.end != NamedPatient::End::New) {
    return named.id;
  }
  return context_.screens.Edit({.kind = session::RecordKind::Patient, .typed_name = named.typed}).id;
}

void FamilyMembers::Join(std::int32_t person) {
  const data::Families families(context_.session);
  const std::string name = data::ToldPerson(statements_, person);
  const std::int32_t head = families.HeadOf(person);
  if (head == HeadId()) {
    Tell(name + " is in this family already.", forms::Icon::Information);
    return;
  }
  if (families.HeadsOthers(person)) {
    Tell(name +
             " is a Family Head and cannot be added to another family until all members are detached from this family "
             "or another member is assigned as Family Head.",
         forms::Icon::Exclamation);
    return;
  }
  const std::string family = HeadName() + "'s family";
  const std::string question = head == person ? "Add " + name + " to " + family + "?"
                                              : name + " is a member of " + data::ToldPerson(statements_, head) +
                                                    "'s family.\r\nMove " + name + " to " + family + "?";
  if (Confirm(question, "Add Member")) {
    Change(person, head, [&](const data::Families& all) {
      if (all.HeadsOthers(person)) {
        throw Refusal(name + " has become a Family Head meanwhile. Nothing was changed.");
      }
      return all.Adding(person, HeadId());
    });
  }
}

void FamilyMembers::Detach(const Member& member) {
  const Member leaves = member;
  Attempt([&] {
    if (Confirm("Detach " + leaves.name + " from " + HeadName() + "'s family?\r\n" + leaves.name +
                    " will head a family alone. Insurance coverage stays as it is.",
                "Detach Member")) {
      Change(leaves.id, HeadId(), [&](const data::Families&) { return data::Families::HeadingHimself(leaves.id); });
    }
  });
}

void FamilyMembers::MakeHead(const Member& member) {
  const Member heads = member;
  Attempt([&] {
    if (Confirm("Make " + heads.name + " the head of " + HeadName() + "'s family?\r\n" + HeadName() +
                    " will be a member of it.",
                "Family Head")) {
      Change(heads.id, HeadId(), [&](const data::Families& families) { return families.MakingHead(heads.id); });
    }
  });
}

void FamilyMembers::Change(std::int32_t member, std::int32_t seen_head, const Plan& plan) {
  try {
    Write(member, seen_head, plan);
  } catch (const Refusal&) {  // what the person has seen may not be so any more
    Reread();
    FamilyChanged(false);
    throw;
  }
  Reread();
  FamilyChanged(true);
}

// The family may change until its records are held.
void FamilyMembers::Write(std::int32_t member, std::int32_t seen_head, const Plan& plan) const {
  const data::Families families(context_.session);
  RequireFamily(member, seen_head);
  const auto planned = plan(families);
  std::deque<editing::RecordHold> holds;
  for (const std::int32_t person : planned.persons) {
    RequireRow(person);
    if (person == person_.Id()) {
      continue;
    }
    if (const auto& holder = holds.emplace_back(context_.session, "PATABLE", person).Holder()) {
      throw Refusal(data::ToldPerson(statements_, person) + ": " + editing::HeldText(*holder) +
                    " Nothing was changed.");
    }
  }
  RequireHold();
  RequireFamily(member, seen_head);
  if (plan(families).persons != planned.persons) {
    throw Refusal("Another user has changed this family. Nothing was changed.");
  }
  families.Make(planned);
  for (const std::int32_t person : planned.persons) {
    context_.session.RecordHandOff("pID", "PaTable", person);
  }
}

void FamilyMembers::RequireRow(std::int32_t person) const {
  if (session::IsNull(statements_.SelectValue("SELECT pID FROM PATable WHERE pID=" + data::Literal(person) +
                                              statements_.Office()))) {
    throw Refusal(data::PersonByNumber(person) + " was not found in the database. Nothing was changed.");
  }
}

void FamilyMembers::RequireFamily(std::int32_t member, std::int32_t seen_head) const {
  const data::Families families(context_.session);
  const auto require_head = [&](std::int32_t person, std::int32_t head) {
    RequireRow(person);
    if (families.HeadOf(person) != head) {
      throw Refusal(data::ToldPerson(statements_, person) +
                    (head == HeadId() ? " is no longer in this family." : " is in another family by now.") +
                    " Nothing was changed.");
    }
  };
  require_head(person_.Id(), HeadId());
  require_head(member, seen_head);
}

void FamilyMembers::Reread() {
  person_.Refresh({&head_});
  Show();
}

}  // namespace people
