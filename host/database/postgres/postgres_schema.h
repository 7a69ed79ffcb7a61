#pragma once

#include "database/schema_writer.h"

namespace host {

// The schema of a database that holds a practice's tables, and what they need of functions and operators.
inline constexpr std::string_view kPracticeSchema = "practice";

// Where every connection looks for tables, functions and operators: the practice's own come before those of citext,
// which stands in `public`.
inline constexpr std::string_view kSearchPath = "practice, public";

// The schema in PostgreSQL 14 and later. Its statements are for a connection with `kSearchPath`. Names are in lower
// case.
//
// Triggers and policies read what the connection sets of these variables; unset and empty are the same:
//   practice.author    whose the changes are, for the change log; nobody's changes are not logged
//   practice.moment    the author's time, "2026-03-01 14:05:00"
//   practice.office    the office that the session works in
// and set this one:
//   practice.identity  the key of the row that the session inserted last, for practice_identity()
class PostgresSchema : public SchemaWriter {
 public:
  std::string Lock() const override;
  std::string Hindrance() const override;
  std::string MayOpen() const override;
  std::string MayWrite() const override;
  std::string OpenOffices() const override;
  std::string Tables() const override;
  // Text that compares without regard to case, and what hands out keys.
  std::vector<std::string> Ground() const override;
  std::vector<std::string> CreateTable(const Table& table, const CreationOptions& options, int version) const override;
  std::vector<std::string> AddColumn(const Table& table, const Column& column) const override;
  std::vector<std::string> CreateIndex(const Table& table, const Index& index) const override;
  std::vector<std::string> DropTable(std::string_view table) const override;
  std::string LastKey(const Table& table) const override;
  std::vector<std::string> RaiseKeys(const Table& table, std::int32_t last) const override;
  std::vector<std::string> LogChanges(const Table& table, int version) const override;
  std::vector<std::string> Finish() const override;
};

}  // namespace host
