#include "data/statements.h"

#include "data/literal.h"

namespace data {
namespace {

std::string Joined(const Assignments& values, std::string std::pair<std::string, std::string>::*part) {
  std::string text;
  for (const auto& value : values) {
    text += (text.empty() ? "" : ", ") + value.*part;
  }
  return text;
}

}  // namespace

std::unique_ptr<session::Recordset> Statements::Select(const std::string& sql) const {
  return database_.Connection().Execute(database_.PrepareSQL(sql, 1));
}

void Statements::Execute(const std::string& sql) const {
  Select(sql);
}

session::Value Statements::SelectValue(const std::string& sql) const {
  const auto rows = Select(sql);
  return rows->Eof() ? session::Value() : rows->Get(0);
}

std::int32_t Statements::Insert(std::string_view table, Assignments values) const {
  using Part = std::pair<std::string, std::string>;
  if (OfficeScoped()) {
    values.emplace_back("OfficeID", Literal(database_.CurrentOfficeID()));
  }
  const bool keeps_guid = database_.KeepsRowGuids(table);
  if (keeps_guid) {
    values.emplace_back("UniqueID", "@UniqueID");
  }
  const std::string into = "INSERT INTO " + std::string(table) + " (" + Joined(values, &Part::first) + ") ";
  const std::string row = "VALUES (" + Joined(values, &Part::second) + ")";
  if (!keeps_guid) {
    return session::ToId(SelectValue(into + row + "; SELECT @@IDENTITY"));
  }
  const auto inserted = Select("SET NOCOUNT ON; declare @UniqueID uniqueidentifier; set @UniqueID = newid(); " + into +
                               "OUTPUT inserted.UniqueID " + row + "; SELECT @UniqueID, @@IDENTITY");
  return session::ToId(inserted->Get(1));
}

void Statements::Update(std::string_view table, const Assignments& values, std::string_view key,
                        std::int32_t id) const {
  if (values.empty()) {
    return;
  }
  std::string set;
  for (const auto& [column, literal] : values) {
    set += (set.empty() ? "" : ", ") + column + "=" + literal;
  }
  Execute("UPDATE " + std::string(table) + " SET " + set + " WHERE " + std::string(key) + "=" + Literal(id) + Office());
}

std::string Statements::Office(std::string_view before, std::string_view after) const {
  return OfficeScoped() ? std::string(before) + Literal(database_.CurrentOfficeID()) + std::string(after) : "";
}

}  // namespace data
