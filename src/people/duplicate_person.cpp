#include "people/duplicate_person.h"

#include "data/literal.h"
#include "data/persons.h"
#include "forms/text.h"

namespace people {

using data::Literal;
using forms::Answer;

bool DuplicatePerson::MayAdd(forms::Form& screen, const Person& person) {
  if (forms::EqualsIgnoringCase(context_.session.OfficeSetting("DEFAULT_OFFICE_SETUP", "DUP_PERSON_CHECK"), "FALSE")) {
    return true;
  }
  const auto row = statements_.Select(
      "SELECT pID, pLASNAM, pFIRNAM, pBIRDAT FROM PATable WHERE (pLASNAM=" + Literal(person.last) +
      ") AND (pFIRNAM=" + Literal(person.first) + ")" +
      (person.birth ? " AND ((pBIRDAT IS NULL) OR (pBIRDAT=" + Literal(*person.birth) + "))" : data::Sql()) +
      statements_.Office() + " ORDER BY pID");
  if (row->Eof()) {
    return true;
  }
  const auto birth = session::ToDateTime(row->Get(3));
  const Answer answer = context_.user.Ask(
      {.text = data::LastFirst(row->Get(1), row->Get(2)) +
               (birth ? ", born " + forms::FormatDashed(forms::DateOf(*birth)) : std::string()) + ", already exists.",
       .title = "Possible Duplicate",
       .buttons = {Answer::Open, Answer::AddAnyway, Answer::GoBack},
       .icon = forms::Icon::Exclamation,
       .default_answer = Answer::GoBack});
  if (answer == Answer::Open) {
    instead_ = session::ToId(row->Get(0));
    screen.Close();
  }
  return answer == Answer::AddAnyway;
}

}  // namespace people
