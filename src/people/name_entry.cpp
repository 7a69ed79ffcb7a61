#include "people/name_entry.h"

#include <charconv>
#include <optional>

#include "data/literal.h"
#include "data/statements.h"
#include "editing/Contacts.h"
#include "editing/rules.h"
#include "forms/text.h"
#include "people/frmDatabaseSearch.h"

namespace people {
namespace {

using data::Sql;
using editing::NamePromptText;

// The file database's statements put text into double quotes.
Sql Beginning(const session::Database& database, std::string_view name) {
  return database.DatabaseKind() == session::kFileDatabase ? data::LikeBeginningInDoubleQuotes(name)
                                                           : data::LikeBeginning(name);
}

// Persons without a first name are found by their last name alone, and the other way round.
Sql NameCondition(const session::Database& database, const TypedName& name) {
  const Sql last = "pLASNAM Like " + Beginning(database, name.last);
  const Sql first = "pFIRNAM Like " + Beginning(database, name.first);
  return name.first.empty() ? last : name.last.empty() ? first : last + " and " + first;
}

// What a text without a comma may mean, the likeliest first. Each is a condition of the statement: a text of very many
// words is parted before its last ones alone.
std::vector<TypedName> Readings(const std::string& text) {
  constexpr std::size_t kMostParted = 8;
  std::vector<TypedName> readings;
  std::vector<TypedName> reversed;
  for (std::size_t blank = text.rfind(' '); blank != std::string::npos && readings.size() < kMostParted;
       blank = text.rfind(' ', blank - 1)) {
    if (text[blank - 1] == ' ') {
      continue;
    }
    const std::string before(forms::Trim(text.substr(0, blank)));
    const std::string behind(forms::Trim(text.substr(blank)));
    readings.push_back({.last = behind, .first = before});
    reversed.push_back({.last = before, .first = behind});
  }
  readings.push_back({.last = text, .first = {}});
  readings.insert(readings.end(), reversed.begin(), reversed.end());
  readings.push_back({.last = {}, .first = text});
  return readings;
}

// Whether the office has a person of that ID; says so when it has not.
bool IsThere(const session::ScreenContext& context, std::int32_t id, std::string_view typed) {
  const editing::Rules rules(context);
  const data::Statements statements(context.session);
  bool found = false;
  if (!rules.Attempt([&] {
        found = !session::IsNull(
            statements.SelectValue("SELECT pID FROM PATable WHERE pID=" + data::Literal(id) + statements.Office()));
      })) {
    return false;
  }
  if (!found) {
    rules.Tell(NoSuchPatient(typed), forms::Icon::Information);
  }
  return found;
}

NameEntry Edit(const session::ScreenContext& context, std::int32_t id) {
  auto opening = session::Opening::Existing(session::RecordKind::Patient, id);
  opening.may_book = true;
  const session::Outcome outcome = context.screens.Edit(opening);
  return {EntryOutcome::Edited, id, outcome.save_and_book};
}

}  // namespace

TypedName ParseName(std::string_view text) {
  text = forms::Trim(text);
  if (const std::size_t comma = text.find(','); comma != std::string_view::npos) {
    return {std::string(forms::Trim(text.substr(0, comma))), std::string(forms::Trim(text.substr(comma + 1)))};
  }
  const std::size_t blank = text.rfind(' ');
  if (blank == std::string_view::npos) {
    return {std::string(text), {}};
  }
  return {std::string(text.substr(blank + 1)), std::string(forms::Trim(text.substr(0, blank)))};
}

std::variant<std::int32_t, TypedName> ParseNameOrId(std::string_view text) {
  text = forms::Trim(text);
  std::int32_t id = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, id);
  if (!text.empty() && error != std::errc::invalid_argument && stop == end) {
    return id;
  }
  return ParseName(text);
}

std::vector<Sql> NameConditions(const session::Database& database, std::string_view typed) {
  const std::string text(forms::Trim(typed));
  const bool ordered = text.empty() || text.find(',') != std::string::npos;
  std::vector<Sql> conditions;
  for (const TypedName& name : ordered ? std::vector{ParseName(text)} : Readings(text)) {
    conditions.push_back(NameCondition(database, name));
  }
  return conditions;
}

Sql NameSearch(session::Database& database, std::string_view text, bool family_heads, const Sql& sort) {
  Sql limits = family_heads
                   ? Sql(" and ((pFAMHEAIND = pID or pFAMHEAIND is Null or pFAMHEAIND = 0) and pTypPat >= '1')")
                   : Sql();
  limits += data::Statements(database).Office();
  Sql found;
  for (const Sql& named : NameConditions(database, text)) {
    found += (found.Empty() ? Sql() : Sql(" or ")) + named + limits;
  }
  return "Select * from Patable where " + found + " order by " + sort;
}

std::string NoSuchPatient(std::string_view id) {
  return "Patient " + std::string(id) + " was not found in the database.";
}

NamedPatient AskForPatient(const session::ScreenContext& context, const NamePrompt& prompt) {
  using End = NamedPatient::End;
  const auto typed = context.user.Input({.prompt = NamePromptText(prompt.ids)});
  if (!typed || forms::Trim(*typed).empty()) {
    return {};
  }
  const std::string text(forms::Trim(*typed));
  const auto entered = ParseNameOrId(text);
  if (const auto* id = std::get_if<std::int32_t>(&entered); id != nullptr && prompt.ids) {
    if (!IsThere(context, *id, text)) {
      return {};
    }
    return {End::Found, *id, text};
  }
  const editing::Rules rules(context);
  frmDatabaseSearch search(context);
  search.SearchText = text;
  search.FamilyHeads = prompt.family_heads;
  int found = 0;
  if (!rules.Attempt([&] { found = search.Search(); })) {
    return {};
  }
  bool added = found == 0 && rules.Confirm("[ " + text + " ]  was not found in the database. Add as new?");
  if (found > 0) {
    context.user.Show(search);
    added = search.SelectedID == 0 && search.NewWanted;
  }
  return {search.SelectedID != 0 ? End::Found : added ? End::New : End::None, search.SelectedID, text};
}

NameEntry EnterPatient(const session::ScreenContext& context, const NamePrompt& prompt) {
  const NamedPatient named = AskForPatient(context, prompt);
  if (named.end == NamedPatient::End::Found) {
    return Edit(context, named.id);
  }
  if (named.end == NamedPatient::End::None) {
    return {};
  }
  const session::Outcome added =
      context.screens.Edit({.kind = session::RecordKind::Patient, .typed_name = named.typed, .may_book = true});
  if (!added.Saved()) {
    return {};
  }
  return {EntryOutcome::Added, added.id, added.save_and_book};
}

}  // namespace people
