#pragma once

#include <map>
#include <string>
#include <vector>

#include "database/office_group.h"
#include "database/postgres/office_directory.h"
#include "database/postgres/office_server.h"

namespace host {

// A group on PostgreSQL servers. Who changes it comes with a role of the same name at each server, which owns the
// tables, and its password too.
class PostgresOfficeGroup final : public OfficeGroup {
 public:
  // Makes a database without tables the first server of a group. Throws session::DatabaseError.
  static void Create(const GroupServer& first, const CreationOptions& options);

  explicit PostgresOfficeGroup(const std::string& url);

  std::vector<GroupServer> Servers() const override;
  std::vector<GroupOffice> Offices() const override;
  void AddServer(const GroupServer& server) override;
  CreationOptions OptionsOf(std::int32_t office) const override;
  std::string PlaceFor(std::int32_t office, const std::string& server) override;
  void AddOffice(std::int32_t office, const std::string& server) override;
  void Move(std::int32_t office, const std::string& server) override;
  void AdmitDesk(const std::string& login, const std::vector<std::int32_t>& offices) override;
  std::vector<std::string> RemoveDesk(const std::string& login) override;
  void Migrate() override;

 private:
  enum class Tables { OfThisVersion, OrOlder };
  void ConnectAll(Tables tables = Tables::OfThisVersion);
  const OfficeServer& Server(const std::string& name);
  // The directory as it is now, at all servers, the one first that it matters most for.
  void Publish(const std::string& first);

  PostgresUrl entrance_;
  OfficeDirectory directory_;
  CreationOptions options_;
  std::map<std::string, OfficeServer> servers_;  // empty until something is changed
};

}  // namespace host
