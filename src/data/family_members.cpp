#include "data/family_members.h"

#include <algorithm>

#include "data/literal.h"

namespace data {
namespace {

struct Membership {
  std::int32_t member = 0;
  std::int32_t responsible = 0;
};

std::vector<Membership> Memberships(const Statements& statements, Words from, std::int32_t id) {
  std::vector<Membership> rows;
  for (const auto found = statements.Select(Sql("SELECT ") + from + "=" + Literal(id) + statements.Office());
       !found->Eof(); found->MoveNext()) {
    rows.push_back({session::ToId(found->Get(0)), session::ToId(found->Get(1))});
  }
  return rows;
}

// A head has his own number there, 0 or null.
bool HeadsFamily(const Statements& statements, std::int32_t patient) {
  const std::int32_t head = session::ToId(
      statements.SelectValue("SELECT pFAMHEAIND FROM PATable WHERE pID=" + Literal(patient) + statements.Office()));
  return head == 0 || head == patient;
}

}  // namespace

std::vector<std::int32_t> FamilyMembers(const Statements& statements, std::int32_t patient) {
  std::vector<std::int32_t> heads = {patient};
  if (!HeadsFamily(statements, patient)) {
    heads.clear();
    for (const Membership& row : Memberships(statements, "fMEMID, fRSPID FROM FamTable WHERE fMEMID", patient)) {
      heads.push_back(row.responsible);
    }
  }
  std::vector<std::int32_t> members = heads;
  for (const std::int32_t head : heads) {
    for (const Membership& row : Memberships(statements, "fMEMID, fRSPID FROM FamTable WHERE fRSPID", head)) {
      members.push_back(row.member);
    }
  }
  members.push_back(patient);
  std::ranges::sort(members);
  members.erase(std::unique(members.begin(), members.end()), members.end());
  std::erase(members, 0);
  return members;
}

std::vector<std::int32_t> OneMember(const Statements& statements, std::int32_t patient) {
  std::vector<std::int32_t> one;
  for (const Membership& row :
       Memberships(statements, "pID as fMEMID, pID as fRSPID FROM PATable WHERE pID", patient)) {
    one.push_back(row.member);
  }
  return one;
}

}  // namespace data
