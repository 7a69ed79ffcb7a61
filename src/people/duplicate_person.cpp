#include "people/duplicate_person.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>

#include "data/literal.h"
#include "data/persons.h"
#include "forms/sounds_alike.h"
#include "forms/text.h"

namespace people {
namespace {

using data::Literal;
using data::Sql;
using forms::Answer;

struct Type {
  const char* column;
  const char* value;
  const char* word;
};
constexpr std::array kTypes = {Type{"pTypPat", "1", "patient"},
                               Type{"pTypPat", "2", "former patient"},
                               Type{"pTypPat", "3", "responsible person"},
                               Type{"pTypDoc", "1", "provider"},
                               Type{"pTypDoc", "2", "provider"},
                               Type{"pTypRef", "1", "referral source"},
                               Type{"pTypRef", "2", "referral source"},
                               Type{"pTypPhy", "1", "physician"},
                               Type{"pTypPhy", "2", "physician"},
                               Type{"pTypEmp", "1", "employee"},
                               Type{"pTypEmp", "2", "employee"}};

std::string DetailsOf(const session::Recordset& row) {
  std::string details = "ID " + session::ToText(row["pID"]);
  for (const Type& type : kTypes) {
    if (session::ToText(row[type.column]) == type.value) {
      details += std::string(", ") + type.word;
    }
  }
  const auto birth = session::ToDateTime(row["pBIRDAT"]);
  return details + (birth ? ", born " + forms::FormatDashed(forms::DateOf(*birth)) : ", birth date unknown");
}

// The names in the column that may sound like this one, by their beginnings.
Sql BeginsAlike(data::Words column, std::string_view name) {
  Sql any;
  for (const std::string& beginning : forms::BeginningsAlike(name)) {
    any += (any.Empty() ? Sql() : Sql(" OR ")) + column + " Like " + data::LikeBeginning(beginning);
  }
  return any.Empty() ? "(" + Sql(column) + " IS NULL OR " + column + "='')" : "(" + any + ")";
}

// Nothing for names that do not sound alike.
std::optional<int> NameDistance(std::string_view name, std::string_view other) {
  if (forms::EqualsIgnoringCase(forms::Trim(name), forms::Trim(other))) {
    return 0;
  }
  return forms::SoundAlike(name, other) ? std::optional(1) : std::nullopt;
}

}  // namespace

bool DuplicatePerson::MayAdd(const Person& person) {
  if (forms::EqualsIgnoringCase(context_.session.OfficeSetting("DEFAULT_OFFICE_SETUP", "DUP_PERSON_CHECK"), "FALSE")) {
    return true;
  }
  const std::vector<Found> found = Find(person);
  const Answer answer = found.empty() ? Answer::AddAnyway : Ask(found);
  instead_ = answer == Answer::Open ? found.front().id : 0;
  return answer == Answer::AddAnyway;
}

bool DuplicatePerson::MayAdd(forms::Form& screen, const Person& person) {
  const bool may = MayAdd(person);
  if (instead_ != 0) {
    screen.Close();
  }
  return may;
}

// By the birth date, and by the names of those who have none. Each statement has an index.
std::vector<DuplicatePerson::Found> DuplicatePerson::Find(const Person& person) const {
  std::map<std::int32_t, Found> found;
  const auto look = [&](const Sql& where) {
    const auto rows = statements_.Select(
        "SELECT pID, pLASNAM, pFIRNAM, pNICNAM, pBIRDAT, pTypPat, pTypDoc, pTypRef, pTypPhy, pTypEmp FROM PATable "
        "WHERE " +
        where + statements_.Office());
    for (; !rows->Eof(); rows->MoveNext()) {
      if (const auto alike = Alike(*rows, person)) {
        found.emplace(alike->id, *alike);
      }
    }
  };
  if (person.birth) {
    look("(pBIRDAT=" + Literal(*person.birth) + ")");
  }
  const Sql undated = person.birth ? Sql(" AND (pBIRDAT IS NULL)") : Sql();
  look(BeginsAlike("pLASNAM", person.last) + " AND " + BeginsAlike("pFIRNAM", person.first) + undated);
  if (!person.first.empty()) {
    look("(pLASNAM=" + Literal(person.last) + ") AND " + BeginsAlike("pNICNAM", person.first) + undated);
  }
  std::vector<Found> closest;
  std::ranges::transform(found, std::back_inserter(closest), [](const auto& one) { return one.second; });
  std::ranges::stable_sort(closest, {}, &Found::distance);
  return closest;
}

std::optional<DuplicatePerson::Found> DuplicatePerson::Alike(const session::Recordset& row, const Person& person) {
  const auto last = NameDistance(session::ToText(row["pLASNAM"]), person.last);
  auto first = NameDistance(session::ToText(row["pFIRNAM"]), person.first);
  if (const std::string nickname = session::ToText(row["pNICNAM"]); !first && !nickname.empty()) {
    first = NameDistance(nickname, person.first) ? std::optional(1) : std::nullopt;
  }
  if (!last || !first) {
    return std::nullopt;
  }
  const bool dated = person.birth && !session::IsNull(row["pBIRDAT"]);
  return Found{.id = session::ToId(row["pID"]),
               .name = data::LastFirst(row["pLASNAM"], row["pFIRNAM"]),
               .details = DetailsOf(row),
               .distance = 2 * (*last + *first) + (dated ? 0 : 1)};
}

Answer DuplicatePerson::Ask(const std::vector<Found>& found) const {
  constexpr std::size_t kMostTold = 4;
  const auto told = [](const Found& one) { return one.name + " (" + one.details + ")"; };
  std::string text = told(found.front()) + " already exists.";
  for (std::size_t i = 1; i < std::min(found.size(), kMostTold); ++i) {
    text += (i == 1 ? "\r\n\r\nAlike as well:\r\n" : "\r\n") + told(found[i]);
  }
  if (found.size() > kMostTold) {
    text += "\r\nand " + forms::WithThousands(static_cast<int>(found.size() - kMostTold)) + " more";
  }
  text += "\r\n\r\nClick 'Open' to open " + ToldBack(found.front().name) +
          " in the new one's place.\r\n"
          "Click 'Add Anyway' to save the new one.\r\n"
          "Click 'Go Back' to go back to the screen.";
  return context_.user.Ask({.text = std::move(text),
                            .title = "Possible Duplicate",
                            .buttons = {Answer::Open, Answer::AddAnyway, Answer::GoBack},
                            .icon = forms::Icon::Exclamation,
                            .default_answer = Answer::GoBack});
}

}  // namespace people
