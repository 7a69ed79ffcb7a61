#include "editing/person_deletion.h"

#include "data/families.h"
#include "data/literal.h"
#include "data/person_removal.h"
#include "data/persons.h"

namespace editing {
namespace {

using data::Literal;
using session::ToText;

std::string InUse(const session::Suite& suite, std::int32_t person) {
  if (suite.HeldByAnother("PATABLE", person)) {
    return "Another user is accessing this patient's information, cannot delete.";
  }
  if (suite.HeldByAnother("DTTABLE", person)) {
    return "Another user is accessing this patient's transactions, cannot delete.";
  }
  return {};
}

std::string Unsettled(const session::AccountFigures& account) {
  using forms::FormatCurrency;
  if (account.plan == session::BudgetPlan::Family) {
    return "This patient is part of a family budget plan and cannot be deleted.";
  }
  if (account.plan == session::BudgetPlan::Own) {
    return "This patient has an outstanding budget plan. This budget plan must be cleared and the remaining balance "
           "must be paid or adjusted off before deleting this patient.";
  }
  if (!account.plan_balance.IsZero()) {
    return "This patient has an outstanding balance of " + FormatCurrency(account.plan_balance) +
           " listed on another family member's budget plan. The budget plan must be cleared and the remaining balance "
           "must be paid or adjusted off before deleting this patient.";
  }
  if (account.balance.TenThousandths() > 0) {
    return "This patient has an outstanding balance of " + FormatCurrency(account.balance) +
           ". This balance must be paid or adjusted off before deleting this patient.";
  }
  if (account.balance.TenThousandths() < 0) {
    return "This patient has a credit balance of " + FormatCurrency(-account.balance) +
           ". This credit must be reimbursed or adjusted off before deleting this patient.";
  }
  return {};
}

// Providers leave patients and appointments to somebody else first, employees their login.
std::string StillAtWork(const DeletedPerson& person) {
  if (!person.provider && !person.employee) {
    return {};
  }
  const std::string list = person.provider ? "provider" : "employee";
  return person.name + " is " + (person.provider ? "a " : "an ") + list +
         " and cannot be deleted with this patient entry. Please remove " + person.name + " from the " + list +
         " list first.";
}

}  // namespace

DeletedPerson DeletedPerson::Read(const data::Statements& statements, std::int32_t id) {
  const auto row = statements.Select(
      "SELECT pLASNAM, pFIRNAM, pFAMHEAIND, pTypPat, pTypDoc, pTypEmp FROM PATable WHERE pID=" + Literal(id) +
      statements.Office());
  if (row->Eof()) {
    throw Refusal(data::PersonByNumber(id) + " was not found in the database. Nothing was changed.");
  }
  const auto is_set = [&row](std::size_t flag) { return ToText(row->Get(flag)) >= "1"; };
  DeletedPerson person{.id = id,
                       .name = data::LastFirst(row->Get(0), row->Get(1)),
                       .family_head = session::ToId(row->Get(2)),
                       .patient = is_set(3),
                       .provider = is_set(4),
                       .employee = is_set(5)};
  if (person.name.empty()) {
    person.name = data::PersonByNumber(id);
  }
  return person;
}

bool PersonDeletion::MayDelete(const DeletedPerson& person) const {
  if (const std::string obstacle = Obstacle(person); !obstacle.empty()) {
    Tell(obstacle, forms::Icon::Exclamation);
    return false;
  }
  if (!AcceptsLostTransactions(person) || !AcceptsLostCoverage(person)) {
    return false;
  }
  if (const std::string obstacle = FamilyObstacle(person); !obstacle.empty()) {
    Tell(obstacle, forms::Icon::Exclamation);
    return false;
  }
  return true;
}

std::string PersonDeletion::Obstacle(const DeletedPerson& person) const {
  if (std::string obstacle = InUse(context_.session, person.id); !obstacle.empty()) {
    return obstacle;
  }
  if (std::string obstacle = Unsettled(context_.session.AccountOf(person.id)); !obstacle.empty()) {
    return obstacle;
  }
  if (std::string obstacle = StillAtWork(person); !obstacle.empty()) {
    return obstacle;
  }
  const data::Sql id = Literal(person.id);
  const std::string naming = ToText(statements_.SelectValue(
      "SELECT COUNT(pID) FROM PATable WHERE ((pPROIND=" + id + ") OR (pREFIND=" + id + ") OR (pPHY1=" + id +
      ") OR (pPHY2=" + id + ")) AND (pID<>" + id + ")" + statements_.Office()));
  return naming == "0" ? ""
                       : person.name + " is the provider, physician or referral source of " + naming +
                             " other person(s) and cannot be deleted until they are given another.";
}

bool PersonDeletion::AcceptsLostTransactions(const DeletedPerson& person) const {
  return !person.patient ||
         session::IsNull(statements_.SelectValue("Select top 1 traID from DTTable where TrapID=" + Literal(person.id) +
                                                 " and ((traTyp=1) or (traTyp=2))" + statements_.Office() + ";")) ||
         Warn(person.name +
                  " has transactions. Deleting this person may affect your production and collection totals.\r\nTAVO "
                  "strongly recommends you purge this person instead.",
              "Patient Deletion");
}

bool PersonDeletion::AcceptsLostCoverage(const DeletedPerson& person) const {
  if (person.IsHead()) {
    return true;
  }
  return Confirm(person.name + " is a member of " + data::ToldPerson(statements_, person.family_head) +
                 "'s family. Deleting this patient could affect insurance coverage for other members of this family."
                 "\r\nAre you sure you want to delete " +
                 person.name + "?");
}

std::string PersonDeletion::FamilyObstacle(const DeletedPerson& person) const {
  return data::Families(context_.session).HeadsOthers(person.id)
             ? person.name +
                   " is a Family Head and cannot be deleted until all members are detached from this family or "
                   "another member is assigned as Family Head."
             : "";
}

void PersonDeletion::Delete(const DeletedPerson& person) const {
  session::Transaction transaction(context_.session.Connection());
  data::RemovePerson(context_.session, person.id);
  transaction.Commit();
}

}  // namespace editing
