#include "session/connection.h"

#include "forms/text.h"

namespace session {

Value Recordset::operator[](std::string_view name) const {
  const int index = FieldIndex(name);
  if (index < 0) {
    throw DatabaseError("no column " + std::string(name), {}, 0);
  }
  return Get(static_cast<std::size_t>(index));
}

int Recordset::FieldIndex(std::string_view name) const {
  const auto& fields = Fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (forms::EqualsIgnoringCase(fields[i].name, name)) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

std::vector<std::vector<Value>> Recordset::GetRows(std::size_t count) {
  std::vector<std::vector<Value>> rows;
  for (; rows.size() < count && !Eof(); MoveNext()) {
    std::vector<Value>& row = rows.emplace_back();
    row.reserve(Fields().size());
    for (std::size_t i = 0; i < Fields().size(); ++i) {
      row.push_back(Get(i));
    }
  }
  return rows;
}

Transaction::Transaction(Connection& connection) : connection_(connection) {
  connection_.BeginTrans();
}

Transaction::~Transaction() {
  if (open_) {
    try {
      connection_.RollbackTrans();
    } catch (const DatabaseError&) {  // the engine has rolled back by itself
      open_ = false;
    }
  }
}

void Transaction::Commit() {
  connection_.CommitTrans();
  open_ = false;
}

}  // namespace session
