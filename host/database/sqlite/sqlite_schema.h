#pragma once

#include "database/schema_writer.h"

namespace host {

// The schema in SQLite. It uses nothing that an ordinary SQLite tool does not have.
class SqliteSchema final : public SchemaWriter {
 public:
  std::string Tables() const override;
  // `IdentityTable`, from which triggers hand out the keys.
  std::vector<std::string> Ground() const override;
  std::vector<std::string> CreateTable(const Table& table, const CreationOptions& options, int version) const override;
  std::vector<std::string> AddColumn(const Table& table, const Column& column) const override;
  std::vector<std::string> CreateIndex(const Table& table, const Index& index) const override;
  std::vector<std::string> DropTable(std::string_view table) const override;
  std::string LastKey(const Table& table) const override;
  std::vector<std::string> RaiseKeys(const Table& table, std::int32_t last) const override;
};

}  // namespace host
