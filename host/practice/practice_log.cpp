#include "practice/practice_log.h"

#include "data/literal.h"
#include "data/statements.h"
#include "forms/text.h"

namespace host {
namespace {

using data::Literal;

// A log as "LogKind" keeps it.
std::string_view NameOf(session::LogKind kind) {
  switch (kind) {
    case session::LogKind::Change:
      return "CHANGE";
    case session::LogKind::Insurance:
      return "INS_LOG";
    case session::LogKind::Comment:
      break;
  }
  return "CM";
}

session::LogKind KindOf(std::string_view name) {
  return name == "CHANGE"    ? session::LogKind::Change
         : name == "INS_LOG" ? session::LogKind::Insurance
                             : session::LogKind::Comment;
}

}  // namespace

bool LoggedEntry::IsOf(std::string_view category) const {
  return forms::EqualsIgnoringCase(category, entry.category) || forms::EqualsIgnoringCase(category, NameOf(entry.kind));
}

void AppendToLog(session::Database& database, const LoggedEntry& logged) {
  data::Statements(database).Insert("LogTable", {{"LogKind", Literal(NameOf(logged.entry.kind))},
                                                 {"LogCat", Literal(logged.entry.category)},
                                                 {"LogPid", Literal(logged.entry.person)},
                                                 {"LogText", Literal(logged.entry.text)},
                                                 {"LogWho", Literal(logged.user)},
                                                 {"LogDat", Literal(logged.when)}});
}

std::vector<LoggedEntry> ReadLog(session::Database& database) {
  const data::Statements statements(database);
  std::vector<LoggedEntry> log;
  for (const auto rows =
           statements.Select("SELECT LogKind, LogCat, LogPid, LogText, LogWho, LogDat FROM LogTable WHERE (LogID>0)" +
                             statements.Office() + " ORDER BY LogID");
       !rows->Eof(); rows->MoveNext()) {
    log.push_back({{KindOf(session::ToText(rows->Get(0))), session::ToText(rows->Get(1)), session::ToId(rows->Get(2)),
                    session::ToText(rows->Get(3))},
                   session::ToText(rows->Get(4)),
                   session::ToDateTime(rows->Get(5)).value_or(forms::DateTime())});
  }
  return log;
}

}  // namespace host
