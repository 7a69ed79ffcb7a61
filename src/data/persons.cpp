#include "data/persons.h"

#include "data/literal.h"
#include "forms/text.h"

namespace data {
namespace {

std::string NameWhere(const Statements& statements, std::int32_t person, const Sql& condition) {
  if (person == 0) {
    return {};
  }
  const auto row = statements.Select("SELECT pLASNAM, pFIRNAM FROM PATable WHERE pID=" + Literal(person) + condition +
                                     statements.Office());
  return row->Eof() ? std::string() : LastFirst(row->Get(0), row->Get(1));
}

}  // namespace

std::string LastFirst(const session::Value& last, const session::Value& first) {
  const std::string last_name = session::ToText(last);
  const std::string first_name = session::ToText(first);
  return last_name + (last_name.empty() || first_name.empty() ? "" : ", ") + first_name;
}

std::string FirstLast(const session::Value& first, const session::Value& last) {
  const std::string first_name = session::ToText(first);
  const std::string last_name = session::ToText(last);
  return first_name + (first_name.empty() || last_name.empty() ? "" : " ") + last_name;
}

std::string MaskedSsn(const session::Value& ssn) {
  constexpr std::size_t kShown = 4;
  std::string digits = session::ToText(ssn);
  std::erase_if(digits, [](char c) { return !forms::IsDigit(c); });
  return digits.size() <= kShown ? std::string() : "***-**-" + digits.substr(digits.size() - kShown);
}

std::string NameOfPerson(const Statements& statements, std::int32_t person) {
  return NameWhere(statements, person, {});
}

std::string ToldPerson(const Statements& statements, std::int32_t person) {
  const std::string name = NameOfPerson(statements, person);
  return name.empty() ? PersonByNumber(person) : name;
}

std::string PersonByNumber(std::int32_t person) {
  return "Person " + std::to_string(person);
}

std::string NameOfReferral(const Statements& statements, std::int32_t person) {
  return NameWhere(statements, person, Words(" AND (pTypRef='1' OR pTypRef='2')"));
}

Sql PersonsOfType(const Statements& statements, Words type, const Sql& named) {
  return Sql("SELECT pID AS ID, pLASNAM, pFIRNAM FROM PATable WHERE (") + type + "='1' OR " + type + "='2')" +
         (named.Empty() ? Sql() : " AND (" + named + ")") + statements.Office() + " ORDER BY pLASNAM, pFIRNAM";
}

}  // namespace data
