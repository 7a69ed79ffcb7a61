#pragma once

#include "database/schema_writer.h"

namespace host {

// A practice that somebody has set up on a server of another kind: its tables are as they are.
class ServerSchema final : public SchemaWriter {
 public:
  std::string Hindrance() const override { return "SELECT 'this program changes no tables of such a server.'"; }
  std::string Tables() const override { return "SELECT TABLE_NAME AS name FROM INFORMATION_SCHEMA.TABLES"; }
  std::vector<std::string> Ground() const override { return {}; }
  std::vector<std::string> CreateTable(const Table& /*table*/, const CreationOptions& /*options*/,
                                       int /*version*/) const override {
    return {};
  }
  std::vector<std::string> AddColumn(const Table& /*table*/, const Column& /*column*/) const override { return {}; }
  std::vector<std::string> CreateIndex(const Table& /*table*/, const Index& /*index*/) const override { return {}; }
  std::vector<std::string> DropTable(std::string_view /*table*/) const override { return {}; }
};

}  // namespace host
