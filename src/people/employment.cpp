#include "people/employment.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

#include "data/literal.h"
#include "data/person_removal.h"
#include "people/login_name.h"

namespace people {

using data::Literal;
using data::Sql;
using forms::Date;

std::optional<Date> Employment::AskTermination(const Employee& employee) const {
  if (!employee.employed) {
    context_.user.Tell(
        "This employee does not have an employment date. Please enter the date that employment began before attempting "
        "to terminate this employee.",
        "Invalid employment date", forms::Icon::Exclamation);
    return std::nullopt;
  }
  if (employee.provider) {
    context_.user.Tell(
        employee.name +
            " is a service provider and cannot have his or her employment terminated at this time. This is because all "
            "service providers are considered employees in TAVO Windows.\r\nIf you want to continue, please remove " +
            employee.name + " from the provider list in TAVO Windows first.\r\nOtherwise, you can hide " +
            employee.name + " from ZEP by editing the provider record in TAVO Windows.",
        "Terminate Provider", forms::Icon::Exclamation);
    return std::nullopt;
  }
  const std::string question =
      employee.terminated
          ? "Employment for this person has already been terminated. Do you want to change the termination date?\r\nA "
            "calendar will open after you click on [Yes] so that you can change the Termination Date if needed."
          : "Are you sure you want to terminate employment for this person?\r\nSelecting 'Yes' will save all changes, "
            "exit this screen, and perform the following actions for this employee:\r\n1. Prompt for and enter a "
            "Termination Date (default: " +
                forms::FormatDashed(context_.session.Today()) +
                ")\r\n2. Remove from the employee list\r\n3. Remove employee initials\r\n4. Remove employee login "
                "name, Password, and login rights\r\n5. Remove all absent records after the Termination Date\r\nAre "
                "you sure you want to continue?";
  return Confirm(question, "Terminate Employment") ? PickDay(employee) : std::nullopt;
}

std::optional<Date> Employment::PickDay(const Employee& employee) const {
  const auto day = context_.user.PickDate("Termination Date", employee.terminated.value_or(context_.session.Today()));
  if (day && *day < *employee.employed) {
    context_.user.Tell("Employment cannot end before it began on " + forms::FormatDashed(*employee.employed) + ".",
                       "Terminate Employment", forms::Icon::Exclamation);
    return std::nullopt;
  }
  return day;
}

void Employment::Terminate(std::int32_t person, Date day) const {
  session::Transaction transaction(context_.session.Connection());
  statements_.Execute("UPDATE PATable SET pDatRel=" + Literal(day) +
                      ", pTypEmp='0', pDocIni='' WHERE pID=" + Literal(person) + statements_.Office());
  RemoveLogins(person);
  RemoveAbsencesAfter(person, day);
  transaction.Commit();
}

// Rows of `TimTable` are absences by the row of `AbsTable` that names them.
void Employment::RemoveAbsencesAfter(std::int32_t person, Date day) const {
  const Date next = std::chrono::sys_days(day) + std::chrono::days(1);
  std::vector<std::int32_t> absences;
  for (const auto rows = statements_.Select(
           Sql("SELECT TimTable.TimID FROM TimTable INNER JOIN AbsTable ON (TimTable.TimID = AbsTable.AbsTimID)") +
           statements_.OfficeJoin(" and (TimTable.OfficeID = AbsTable.OfficeID)") +
           " WHERE (TimTable.TimPid=" + Literal(person) + ") AND (TimTable.TimInDat>=" + Literal(next) + ")" +
           statements_.Office(" and (TimTable.OfficeID = ", ")"));
       !rows->Eof(); rows->MoveNext()) {
    absences.push_back(session::ToId(rows->Get(0)));
  }
  for (const std::int32_t absence : absences) {
    statements_.Execute("DELETE * FROM AbsTable WHERE AbsTimID=" + Literal(absence) + statements_.Office());
    statements_.Execute("DELETE * FROM TimTable WHERE TimID=" + Literal(absence) + statements_.Office());
  }
}

void Employment::RemoveLogins(std::int32_t person) const {
  std::vector<std::pair<std::int32_t, std::string>> logins;
  for (const auto rows = statements_.Select("SELECT PWMID, PWMUseNam FROM PWMTable WHERE PWMpID=" + Literal(person) +
                                            statements_.Office());
       !rows->Eof(); rows->MoveNext()) {
    logins.emplace_back(session::ToId(rows->Get(0)), session::ToText(rows->Get(1)));
  }
  for (const auto& [login, name] : logins) {
    statements_.Execute("delete * from PWATable where " + RightsOf(statements_, login, name));
    statements_.Execute("DELETE * FROM ealTable WHERE ealPWMID=" + Literal(login) + statements_.Office());
    statements_.Execute("DELETE * FROM PWMTable WHERE PWMID=" + Literal(login) + statements_.Office());
  }
}

bool Employment::AgreesToReactivate() const {
  return Confirm("Do you want to remove the termination date and re-activate this person as an employee?",
                 "Remove Termination");
}

void Employment::Reactivate(std::int32_t person) const {
  statements_.Execute("update paTable set pTypEmp='1', pDocIni='', pDatRel = Null where pID=" + Literal(person) +
                      statements_.Office());
}

bool Employment::MayDelete(std::int32_t person) const {
  constexpr std::string_view kTitle = "Delete Employee";
  if (!session::IsNull(statements_.SelectValue("SELECT TOP 1 TimID FROM TimTable WHERE TimPid=" + Literal(person) +
                                               statements_.Office()))) {
    context_.user.Tell(
        "This employee cannot be deleted because he or she has clock-in/out activity.\r\nIf this employee record was "
        "entered accidently or for testing purposes, please remove the corresponding clock-in/out history  before "
        "deleting this employee.\r\nOtherwise, you may terminate this person's employment by clicking 'Terminate' "
        "instead.",
        std::string(kTitle), forms::Icon::Exclamation);
    return false;
  }
  return Confirm("Are you sure you want to delete this employee record?", kTitle);
}

void Employment::Delete(std::int32_t person) const {
  session::Transaction transaction(context_.session.Connection());
  RemoveLogins(person);
  RemovePayroll(person);
  if (IsSomethingElse(person)) {
    statements_.Execute("UPDATE PATable SET pTypEmp=Null WHERE pID=" + Literal(person) + statements_.Office());
  } else {
    data::RemovePerson(context_.session, person);
  }
  transaction.Commit();
}

void Employment::RemovePayroll(std::int32_t person) const {
  statements_.Execute("DELETE * FROM ESTable WHERE EBID IN (SELECT EBID FROM EBTable WHERE EBPid=" + Literal(person) +
                      statements_.Office() + ")" + statements_.Office());
  statements_.Execute("DELETE * FROM EBTable WHERE EBPid=" + Literal(person) + statements_.Office());
}

// A person of another kind, or one whom others name.
bool Employment::IsSomethingElse(std::int32_t person) const {
  const Sql id = Literal(person);
  return !session::IsNull(statements_.SelectValue(
      "SELECT TOP 1 pID FROM PATable WHERE (((pID=" + id +
      ") AND ((pTypPat>='1') OR (pTypDoc>='1') OR (pTypRef>='1') OR (pTypPhy>='1'))) OR ((pID<>" + id +
      ") AND ((pFAMHEAIND=" + id + ") OR (pPROIND=" + id + ") OR (pREFIND=" + id + ") OR (pPHY1=" + id +
      ") OR (pPHY2=" + id + "))))" + statements_.Office()));
}

}  // namespace people
