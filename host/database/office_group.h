#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "database/schema_writer.h"

namespace host {

// A server of a group of practices.
struct GroupServer {
  std::string name;  // lower-case letters, digits and underscores
  std::string url;   // of its database
};

struct GroupOffice {
  std::int32_t office = 0;
  std::string server;  // its home's name
};

// A practice of kind 7 whose offices are spread over databases on several servers, as who administers it sees it. An
// office has tables of its own at its home, where its sessions work; every server has tables that show the rows of all
// offices, for reports. All throw session::DatabaseError. What changes the group needs all its servers; what broke off
// is completed or undone by the next change.
class OfficeGroup {
 public:
  virtual ~OfficeGroup() = default;

  // As the server knows them that the group was opened at.
  virtual std::vector<GroupServer> Servers() const = 0;
  virtual std::vector<GroupOffice> Offices() const = 0;

  // Takes in a database without tables.
  virtual void AddServer(const GroupServer& server) = 0;
  // What a practice is made with that is an office of the group.
  virtual CreationOptions OptionsOf(std::int32_t office) const = 0;
  // The URL at which to make that practice; it is part of the group when it was added.
  virtual std::string PlaceFor(std::int32_t office, const std::string& server) = 0;
  virtual void AddOffice(std::int32_t office, const std::string& server) = 0;
  // Moves an office to another server while others work in it: they write there until the last moment and follow by
  // themselves.
  virtual void Move(std::int32_t office, const std::string& server) = 0;
  // Has a login of the group's servers work in these offices from now on, and in no others, as a desk does.
  virtual void AdmitDesk(const std::string& login, const std::vector<std::int32_t>& offices) = 0;
  // Takes that back; the groups of logins that it may go on working through.
  virtual std::vector<std::string> RemoveDesk(const std::string& login) = 0;
  // Brings the tables of a group up to date that an older program has made; nothing else can be done with it before.
  virtual void Migrate() = 0;
};

// Makes a database without tables the first server of a group, which has no office yet.
void CreateOfficeGroup(const GroupServer& first, const CreationOptions& options = {});
// The group of any of its servers.
std::unique_ptr<OfficeGroup> OpenOfficeGroup(const std::string& url);

}  // namespace host
