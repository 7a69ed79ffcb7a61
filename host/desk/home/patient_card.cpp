#include "home/patient_card.h"

#include "data/literal.h"
#include "data/persons.h"
#include "forms/phone.h"
#include "forms/text.h"

namespace host {
namespace {

using data::Literal;
using data::Sql;
using data::Statements;
using session::Recordset;

std::string Text(const Recordset& row, std::string_view column) {
  return std::string(forms::Trim(session::ToText(row[column])));
}

// Puts a part behind what is there; an empty one leaves it as it is.
void Append(std::string& text, std::string_view between, const std::string& part) {
  if (!part.empty()) {
    text += (text.empty() ? "" : std::string(between)) + part;
  }
}

std::optional<forms::Date> BirthOf(const Recordset& person) {
  const auto birth = session::ToDateTime(person["pBIRDAT"]);
  return birth ? std::optional(forms::DateOf(*birth)) : std::nullopt;
}

std::string Facts(const Recordset& person, forms::Date today) {
  std::string facts = Text(person, "pTTL");
  const std::string sex = Text(person, "pSEX");
  Append(facts, ", ", sex == "F" ? "female" : sex == "M" ? "male" : "");
  const auto birth = BirthOf(person);
  if (birth) {
    const auto age = forms::AgeAt(*birth, today);
    Append(facts, ", ", age ? forms::FormatAge(*age) : "");
    Append(facts, "\n", "Born " + forms::FormatDashed(*birth));
  }
  Append(facts, birth ? ", " : "\n", "ID " + Text(person, "pID"));
  return facts;
}

std::string Phones(const Recordset& person) {
  std::string phones;
  const auto add = [&phones](std::string_view what, const std::string& number) {
    if (!number.empty() && phones.find(number) == std::string::npos) {
      Append(phones, "\n", std::string(what) + "  " + forms::FormatPhone(number));
    }
  };
  add("Home", Text(person, "pHOMPHO"));
  add("Cell", Text(person, "pHomCell"));
  add("Work", Text(person, "pBUSPHO"));
  add("Work cell", Text(person, "pBusCell"));
  add("E-mail", Text(person, "pHomEma"));
  return phones;
}

std::string Address(const Recordset& person) {
  std::string address = Text(person, "pADD1");
  Append(address, ", ", Text(person, "pADD2"));
  std::string place = Text(person, "pCIT");
  Append(place, ", ", Text(person, "pSTA"));
  Append(place, " ", Text(person, "pZIP"));
  Append(address, "\n", place);
  return address;
}

// A head has his own ID there, 0 or nothing.
std::string Family(const Statements& statements, const Recordset& person, forms::Date today) {
  constexpr int kMost = 6;
  const std::int32_t id = session::ToId(person["pID"]);
  const std::int32_t kept = session::ToId(person["pFAMHEAIND"]);
  const std::int32_t head = kept == 0 ? id : kept;
  const auto members = statements.Select(
      "SELECT pID, pLASNAM, pFIRNAM, pBIRDAT FROM PATABLE WHERE (pFAMHEAIND = " + Literal(head) +
      " OR pID = " + Literal(head) + ") AND pID <> " + Literal(id) + statements.Office() + " ORDER BY pBIRDAT");
  std::string family;
  int count = 0;
  for (; !members->Eof(); members->MoveNext()) {
    if (++count > kMost) {
      Append(family, "; ", "and more");
      break;
    }
    std::string member = data::LastFirst(members->Get(1), members->Get(2));
    const auto birth = BirthOf(*members);
    const auto age = birth ? forms::AgeAt(*birth, today) : std::nullopt;
    Append(member, " ", age ? std::to_string(age->years) : "");
    Append(member, " ", session::ToId(members->Get(0)) == head ? "(head)" : "");
    Append(family, "; ", member);
  }
  return family;
}

std::string OrderText(std::int32_t order) {
  switch (order) {
    case 1:
      return "Primary: ";
    case 2:
      return "Secondary: ";
    default:
      return "Further: ";
  }
}

std::string Coverage(const Statements& statements, std::int32_t patient) {
  const auto rows = statements.Select(
      Sql("SELECT CovTable.CovOrd, InsCoTable.InsCoNam, GroPlaTable.GroPlaNam, GroPlaTable.GroPlaGroNum, "
          "PatEmpTable.PatEmpPatID, Subscriber.pLASNAM, Subscriber.pFIRNAM "
          "FROM ((((CovTable INNER JOIN PatEmpTable ON (CovTable.CovSubPatEmpID = PatEmpTable.PatEmpID)") +
      statements.OfficeJoin(" and (CovTable.OfficeID = PatEmpTable.OfficeID)") +
      ") INNER JOIN ELTable ON (PatEmpTable.PatEmpElID = ELTable.elID)" +
      statements.OfficeJoin(" and (PatEmpTable.OfficeID = ELTable.OfficeID)") +
      ") LEFT JOIN InsCoTable ON (ELTable.elInsID = InsCoTable.InsCoInd)" +
      statements.OfficeJoin(" and (ELTable.OfficeID = InsCoTable.OfficeID)") +
      ") LEFT JOIN GroPlaTable ON (ELTable.elGroID = GroPlaTable.GroPlaInd)" +
      statements.OfficeJoin(" and (ELTable.OfficeID = GroPlaTable.OfficeID)") +
      ") LEFT JOIN PATABLE AS Subscriber ON (PatEmpTable.PatEmpPatID = Subscriber.pID)" +
      statements.OfficeJoin(" and (PatEmpTable.OfficeID = Subscriber.OfficeID)") +
      " WHERE (CovTable.CovPatID = " + Literal(patient) + ") AND (CovTable.CovFla = 0)" +
      statements.Office(" AND (CovTable.OfficeID = ", ")") + " ORDER BY CovTable.CovOrd");
  std::string coverage;
  for (; !rows->Eof(); rows->MoveNext()) {
    std::string line = Text(*rows, "InsCoNam");
    Append(line, ", ", Text(*rows, "GroPlaNam"));
    const std::string number = Text(*rows, "GroPlaGroNum");
    line += number.empty() ? "" : " (" + number + ")";
    if (session::ToId(rows->Get(4)) != patient) {
      Append(line, ", ", "through " + data::LastFirst(rows->Get(5), rows->Get(6)));
    }
    Append(coverage, "\n", OrderText(session::ToId(rows->Get(0))) + (line.empty() ? "no carrier" : line));
  }
  return coverage;
}

}  // namespace

std::optional<PatientCard> ReadPatientCard(const Statements& statements, std::int32_t patient, forms::Date today) {
  const auto person = statements.Select("SELECT * FROM PATABLE WHERE pID=" + Literal(patient) + statements.Office());
  if (person->Eof()) {
    return std::nullopt;
  }
  const auto or_words = [](const std::string& text, const char* none) { return text.empty() ? none : text; };
  return PatientCard{.name = data::LastFirst((*person)["pLASNAM"], (*person)["pFIRNAM"]),
                     .facts = Facts(*person, today),
                     .alert = Text(*person, "pMEDALE"),
                     .phones = or_words(Phones(*person), "No phone number"),
                     .address = or_words(Address(*person), "No address"),
                     .family = or_words(Family(statements, *person, today), "No other members"),
                     .coverage = or_words(Coverage(statements, patient), "No insurance coverage")};
}

}  // namespace host
