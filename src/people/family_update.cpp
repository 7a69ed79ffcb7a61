#include "people/family_update.h"

#include <utility>

#include "data/literal.h"
#include "data/persons.h"
#include "editing/Contacts.h"

namespace people {

using data::Literal;
using session::ToText;

FamilyUpdate::Plan FamilyUpdate::Offer(std::int32_t head, const std::vector<Shared>& changes) const {
  Plan plan;
  if (changes.empty()) {
    return plan;
  }
  std::vector<Member> members = Differing(head, changes);
  if (members.empty() || !Confirm("Do you want to update members of this family with the new information?\r\nThis "
                                  "change is going to affect " +
                                  std::to_string(members.size()) + " members.")) {
    return plan;
  }
  for (const Member& member : members) {
    if (const auto& holder = plan.holds.emplace_back(context_.session, "PATABLE", member.id).Holder()) {
      throw editing::Refusal(member.name + ": " + editing::HeldText(*holder) +
                             " Nothing was saved. Answer 'No' to leave the members as they are.");
    }
  }
  plan.members = std::move(members);
  return plan;
}

void FamilyUpdate::Write(const Plan& plan) const {
  for (const Member& member : plan.members) {
    statements_.Update("PATable", member.values, "pID", member.id);
  }
}

void FamilyUpdate::HandOff(const Plan& plan) const {
  for (const Member& member : plan.members) {
    context_.session.RecordHandOff("pID", "PaTable", member.id);
  }
}

std::vector<FamilyUpdate::Member> FamilyUpdate::Differing(std::int32_t head, const std::vector<Shared>& changes) const {
  const editing::SideColumns& home = editing::ColumnsOf(editing::Side::Home);
  const data::Words phone = home.contacts.front();
  const auto rows = statements_.Select("SELECT * FROM PATable WHERE (pFAMHEAIND=" + Literal(head) + ") AND (pID<>" +
                                       Literal(head) + ")" + statements_.Office() + " ORDER BY pID");
  std::vector<Member> members;
  for (; !rows->Eof(); rows->MoveNext()) {
    Member member{.id = session::ToId((*rows)["pID"]),
                  .name = data::LastFirst((*rows)["pLASNAM"], (*rows)["pFIRNAM"]),
                  .values = {}};
    const auto take = [&](data::Words column, const std::string& value) {
      if (ToText((*rows)[column.Text()]) != value) {
        member.values.emplace_back(column, Literal(value));
      }
    };
    for (const Shared& change : changes) {
      take(change.column, change.value);
      if (change.column.Text() == phone.Text() && editing::ContactOf(ToText((*rows)[home.selected.Text()])) == 0) {
        take(home.visible, change.value);
      }
    }
    if (!member.values.empty()) {
      members.push_back(std::move(member));
    }
  }
  return members;
}

}  // namespace people
