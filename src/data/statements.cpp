#include "data/statements.h"

#include "data/literal.h"
#include "forms/text.h"

namespace data {
namespace {

// The columns or the literals.
template <typename Part>
Sql Joined(const Assignments& values, Part Assignment::*part) {
  Sql text;
  for (const Assignment& value : values) {
    text += (text.Empty() ? Sql() : Sql(", ")) + value.*part;
  }
  return text;
}

}  // namespace

std::unique_ptr<session::Recordset> Statements::Select(const Sql& sql) const {
  const std::string prepared = Prepared(sql);
  std::unique_ptr<session::Recordset> rows;
  session::Connection& connection = database_.Connection();
  session::Insist(connection, [&] { rows = connection.Execute(prepared); });
  return rows;
}

std::string Statements::Prepared(const Sql& sql) const {
  using session::DatabaseError;
  std::string prepared;
  try {
    prepared = database_.PrepareSQL(sql.Text(), 1);
  } catch (const DatabaseError& error) {
    throw DatabaseError(error.what(), sql.Text(), error.Code(), DatabaseError::Origin::Translation);
  }
  if (forms::Trim(prepared).empty()) {
    throw DatabaseError("It gave no statement.", sql.Text(), 0, DatabaseError::Origin::Translation);
  }
  return prepared;
}

void Statements::Execute(const Sql& sql) const {
  Select(sql);
}

session::Value Statements::SelectValue(const Sql& sql) const {
  const auto rows = Select(sql);
  return rows->Eof() ? session::Value() : rows->Get(0);
}

std::int32_t Statements::Insert(Words table, Assignments values) const {
  if (OfficeScoped()) {
    values.push_back({"OfficeID", Literal(database_.CurrentOfficeID())});
  }
  const bool keeps_guid = database_.KeepsRowGuids(table.Text());
  if (keeps_guid) {
    values.push_back({"UniqueID", "@UniqueID"});
  }
  const Sql into = Sql("INSERT INTO ") + table + " (" + Joined(values, &Assignment::column) + ") ";
  const Sql row = Sql("VALUES (") + Joined(values, &Assignment::value) + ")";
  if (!keeps_guid) {
    return session::ToId(SelectValue(into + row + "; SELECT @@IDENTITY"));
  }
  const auto inserted = Select(Sql("SET NOCOUNT ON; declare @UniqueID uniqueidentifier; set @UniqueID = newid(); ") +
                               into + "OUTPUT inserted.UniqueID " + row + "; SELECT @UniqueID, @@IDENTITY");
  return session::ToId(inserted->Get(1));
}

void Statements::Update(Words table, const Assignments& values, Words key, std::int32_t id) const {
  if (values.empty()) {
    return;
  }
  Sql set;
  for (const auto& [column, literal] : values) {
    set += (set.Empty() ? Sql() : Sql(", ")) + column + "=" + literal;
  }
  Execute(Sql("UPDATE ") + table + " SET " + set + " WHERE " + key + "=" + Literal(id) + Office());
}

Sql Statements::Office(Words before, Words after) const {
  return OfficeScoped() ? before + Literal(database_.CurrentOfficeID()) + after : Sql();
}

}  // namespace data
