#include "data/families.h"

#include "data/literal.h"

namespace data {

std::int32_t Families::HeadOf(std::int32_t person) const {
  const std::int32_t head = session::ToId(
      statements_.SelectValue("SELECT pFAMHEAIND FROM PATable WHERE pID=" + Literal(person) + statements_.Office()));
  return head == 0 ? person : head;
}

Sql Families::Belongs(std::int32_t head) {
  return "((pFAMHEAIND=" + Literal(head) + ") OR ((pID=" + Literal(head) +
         ") AND ((pFAMHEAIND Is Null) OR (pFAMHEAIND=0))))";
}

std::vector<std::int32_t> Families::Of(std::int32_t head) const {
  return Ids("SELECT pID FROM PATable WHERE " + Belongs(head) + statements_.Office() + " ORDER BY pID");
}

bool Families::HeadsOthers(std::int32_t person) const {
  return !session::IsNull(statements_.SelectValue("SELECT TOP 1 pID FROM PATable WHERE (pFAMHEAIND=" + Literal(person) +
                                                  ") AND (pID<>" + Literal(person) + ")" + statements_.Office()));
}

Families::Change Families::Adding(std::int32_t person, std::int32_t to) const {
  const std::int32_t head = HeadOf(to);
  return {{head, person}, head};
}

Families::Change Families::MakingHead(std::int32_t person) const {
  return {Of(HeadOf(person)), person};
}

void Families::Make(const Change& change) const {
  session::Transaction transaction(database_.Connection());
  Put(change);
  transaction.Commit();
}

void Families::Remove(std::int32_t person) const {
  const Sql id = Literal(person);
  for (const std::int32_t left :
       Ids("SELECT pID FROM PATable WHERE (pFAMHEAIND=" + id + ") AND (pID<>" + id + ")" + statements_.Office())) {
    Put(HeadingHimself(left));
  }
  for (const std::int32_t other :
       Ids("SELECT fMEMID FROM FamTable WHERE (fRSPID=" + id + ") AND (fMEMID<>" + id + ")" + statements_.Office())) {
    Repeat(other, HeadOf(other));
  }
  statements_.Execute("DELETE * FROM FamTable WHERE fMEMID=" + id + statements_.Office());
}

void Families::Put(const Change& change) const {
  Sql ids;
  for (const std::int32_t person : change.persons) {
    Repeat(person, change.head);
    ids += (ids.Empty() ? Sql() : Sql(", ")) + Literal(person);
  }
  if (!ids.Empty()) {
    statements_.Execute("UPDATE PATable SET pFAMHEAIND=" + Literal(change.head) + " WHERE (pID IN (" + ids + "))" +
                        statements_.Office());
  }
}

void Families::Repeat(std::int32_t person, std::int32_t head) const {
  const Sql his = " WHERE (fMEMID=" + Literal(person) + ")" + statements_.Office();
  const auto rows = Ids("SELECT fRSPID FROM FamTable" + his);
  if (rows.size() == 1) {
    if (rows.front() != head) {
      statements_.Execute("UPDATE FamTable SET fRSPID=" + Literal(head) + his);
    }
    return;
  }
  if (!rows.empty()) {
    statements_.Execute("DELETE * FROM FamTable" + his);
  }
  statements_.Insert("FamTable", {{"fMEMID", Literal(person)}, {"fRSPID", Literal(head)}});
}

std::vector<std::int32_t> Families::Ids(const Sql& select) const {
  std::vector<std::int32_t> ids;
  for (const auto row = statements_.Select(select); !row->Eof(); row->MoveNext()) {
    ids.push_back(session::ToId(row->Get(0)));
  }
  return ids;
}

}  // namespace data
