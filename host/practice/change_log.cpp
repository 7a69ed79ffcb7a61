#include "practice/change_log.h"

#include "data/literal.h"
#include "data/statements.h"

namespace host {

using data::Literal;

void LogTry(session::Database& database, const LoginTry& tried) {
  if (database.Connection().ReadOnly()) {
    return;
  }
  data::Statements(database).Insert("ChangeTable", {{"ChaDat", Literal(tried.when)},
                                                    {"ChaWho", Literal(tried.who)},
                                                    {"ChaWhat", Literal(tried.login != 0 ? kLoggedIn : kRefused)},
                                                    {"ChaTab", "'PWMTable'"},
                                                    {"ChaRecID", Literal(tried.login)}});
}

Refusals RefusalsOf(session::Database& database, std::string_view who) {
  const data::Statements statements(database);
  const auto by_name = [&](std::string_view what) {
    return " FROM ChangeTable WHERE (ChaWho=" + Literal(who) + ") AND (ChaWhat=" + Literal(what) + ")" +
           statements.Office();
  };
  const std::int32_t last_login = session::ToId(statements.SelectValue("SELECT MAX(ChaID)" + by_name(kLoggedIn)));
  const auto row =
      statements.Select("SELECT COUNT(*), MAX(ChaID)" + by_name(kRefused) + " AND (ChaID>" + Literal(last_login) + ")");
  const session::Value last = statements.SelectValue(
      "SELECT ChaDat FROM ChangeTable WHERE (ChaID=" + Literal(session::ToId(row->Get(1))) + ")" + statements.Office());
  return {session::ToId(row->Get(0)), session::ToDateTime(last).value_or(forms::DateTime())};
}

ChangeReader::ChangeReader(session::Database& database, const ChangeFilter& filter) {
  const data::Statements statements(database);
  data::Sql conditions = "(ChaID>0)" + statements.Office();
  if (!filter.who.empty()) {
    conditions += " AND (ChaWho=" + Literal(filter.who) + ")";
  }
  if (!filter.table.empty()) {
    conditions += " AND (ChaTab=" + Literal(filter.table) + ")";
  }
  if (filter.record) {
    conditions += " AND (ChaRecID=" + Literal(*filter.record) + ")";
  }
  rows_ = statements.Select(
      "SELECT ChaDat, ChaWho, ChaWhat, ChaTab, ChaRecID, ChaCol, ChaOld, ChaNew FROM ChangeTable WHERE " + conditions +
      " ORDER BY ChaID");
}

std::optional<Change> ChangeReader::Next() {
  if (rows_->Eof()) {
    return std::nullopt;
  }
  const auto text = [this](std::size_t field) { return session::ToText(rows_->Get(field)); };
  Change change{session::ToDateTime(rows_->Get(0)).value_or(forms::DateTime()),
                text(1),
                text(2),
                text(3),
                session::ToId(rows_->Get(4)),
                text(5),
                text(6),
                text(7)};
  rows_->MoveNext();
  return change;
}

}  // namespace host
