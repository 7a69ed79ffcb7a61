#include "database/postgres/postgres_office_group.h"

#include <set>

#include "database/migration.h"
#include "database/postgres/office_move.h"
#include "database/postgres/postgres_engine.h"
#include "session/session.h"

namespace host {
namespace {

[[noreturn]] void Refuse(const std::string& why) {
  throw session::DatabaseError(why, {}, 0);
}

void CheckName(const std::string& name) {
  if (name.empty() || name.size() > 30 ||
      name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789_") != std::string::npos) {
    Refuse("A server is called by at most 30 lower-case letters, digits and underscores.");
  }
}

OfficeServer Opened(const std::string& name, const PostgresUrl& url) {
  return {name, url, PostgresEngine().OpenNew(UrlText(url), {})};
}

OfficeServer Founded(const std::string& name, const PostgresUrl& url, const CreationOptions& options) {
  CheckName(name);
  CheckNoReplica(url);
  if (!PostgresEngine().IsVacant(UrlText(url))) {
    Refuse("The database " + url.Shown() + " is in use already; a server of a group starts with an empty one.");
  }
  OfficeServer server(name, url, PostgresEngine().OpenNew(UrlText(url), options));
  server.Found(options);
  return server;
}

void CheckVersion(const OfficeServer& server, bool may_be_older) {
  const int version = server.Version();
  if (version > kSchemaVersion) {
    Refuse("The group was made by a newer version of the program. Please update the program.");
  }
  if (version < kSchemaVersion && !may_be_older) {
    Refuse(
        "The group was made by an older version of the program. Please run \"practice_console offices migrate\" "
        "first.");
  }
}

}  // namespace

void PostgresOfficeGroup::Create(const GroupServer& first, const CreationOptions& options) {
  const PostgresUrl url = ParsePostgresUrl(first.url);
  CreationOptions group = options;
  group.kind = session::kOfficeScoped;
  group.offices = 0;
  OfficeDirectory directory;
  directory.version = 1;
  directory.here = first.name;
  directory.servers[first.name] = WithoutSecrets(url);
  std::map<std::string, OfficeServer> servers;
  servers.emplace(first.name, Founded(first.name, url, group));
  servers.at(first.name).Settle(directory, servers);
}

PostgresOfficeGroup::PostgresOfficeGroup(const std::string& url) : entrance_(ParsePostgresUrl(url)) {
  const PracticeDatabase database = PostgresEngine().OpenNew(url, {});
  const auto directory = ReadOfficeDirectory(*database.connection);
  if (!directory) {
    Refuse("The database " + entrance_.Shown() + " belongs to no group of practices.");
  }
  directory_ = *directory;
  CheckNoReplica(entrance_);
  options_ = ReadOptions(*database.connection);
}

std::vector<GroupServer> PostgresOfficeGroup::Servers() const {
  std::vector<GroupServer> servers;
  for (const auto& [name, url] : directory_.servers) {
    servers.push_back({name, url});
  }
  return servers;
}

std::vector<GroupOffice> PostgresOfficeGroup::Offices() const {
  std::vector<GroupOffice> offices;
  for (const auto& [office, server] : directory_.homes) {
    offices.push_back({office, server});
  }
  return offices;
}

// One that missed the last change is brought up to date.
void PostgresOfficeGroup::ConnectAll(Tables tables) {
  if (!servers_.empty()) {
    return;
  }
  std::map<std::string, std::int32_t> versions;
  std::map<std::string, OfficeServer> servers;
  const std::map<std::string, std::string> known = directory_.servers;
  for (const auto& [name, url] : known) {
    const OfficeServer& server = servers.emplace(name, Opened(name, WithLoginOf(url, entrance_))).first->second;
    server.Reserve();
    const auto directory = ReadOfficeDirectory(server.Connection());
    versions[name] = directory ? directory->version : 0;
    if (directory && directory->version > directory_.version) {
      directory_ = *directory;
    }
  }
  for (const auto& [name, url] : directory_.servers) {
    if (!servers.contains(name)) {
      // Added by somebody else just now.
      servers.emplace(name, Opened(name, WithLoginOf(url, entrance_))).first->second.Reserve();
    }
  }
  for (const auto& [name, server] : servers) {
    CheckVersion(server, tables == Tables::OrOlder);
  }
  servers_ = std::move(servers);
  for (const auto& [name, server] : servers_) {
    if (versions[name] != directory_.version) {
      server.Settle(directory_, servers_);
    }
  }
}

const OfficeServer& PostgresOfficeGroup::Server(const std::string& name) {
  ConnectAll();
  const auto server = servers_.find(name);
  if (server == servers_.end()) {
    Refuse("The group has no server \"" + name + "\".");
  }
  return server->second;
}

void PostgresOfficeGroup::Publish(const std::string& first) {
  servers_.at(first).Settle(directory_, servers_);
  for (const auto& [name, server] : servers_) {
    if (name != first) {
      server.Settle(directory_, servers_);
    }
  }
}

void PostgresOfficeGroup::AddServer(const GroupServer& server) {
  ConnectAll();
  if (servers_.contains(server.name)) {
    Refuse("The group has a server \"" + server.name + "\" already.");
  }
  const PostgresUrl url = ParsePostgresUrl(server.url);
  servers_.emplace(server.name, Founded(server.name, url, options_));
  servers_.at(server.name).Reserve();
  servers_.at(server.name).TakeDesksOf(servers_.at(directory_.here));
  directory_.servers[server.name] = WithoutSecrets(url);
  ++directory_.version;
  Publish(server.name);
}

CreationOptions PostgresOfficeGroup::OptionsOf(std::int32_t office) const {
  CreationOptions options = options_;
  options.office = office;
  return options;
}

std::string PostgresOfficeGroup::PlaceFor(std::int32_t office, const std::string& server) {
  const OfficeServer& home = Server(server);
  if (office < 1 || directory_.homes.contains(office)) {
    Refuse(office < 1 ? std::string("An office has a number from 1 on.")
                      : "There is an office " + std::to_string(office) + " already.");
  }
  const std::string schema = OfficeSchema(office);
  home.Run("SET client_min_messages = warning; DROP SCHEMA IF EXISTS " + schema + " CASCADE; CREATE SCHEMA " + schema);
  return UrlText(home.Url(), schema);
}

void PostgresOfficeGroup::AddOffice(std::int32_t office, const std::string& server) {
  Server(server);
  directory_.homes[office] = server;
  ++directory_.version;
  Publish(server);
}

void PostgresOfficeGroup::Move(std::int32_t office, const std::string& server) {
  const OfficeServer& to = Server(server);
  const std::string home = directory_.HomeOf(office);
  if (home.empty()) {
    Refuse("There is no office " + std::to_string(office) + " in the group.");
  }
  if (home == server) {
    return;
  }
  for (const std::string& login : Server(home).DesksMissingAt(to, office)) {
    Refuse("The server " + server + " knows no login \"" + login + "\", which works in office " +
           std::to_string(office) + ". It has to be made there first.");
  }
  OfficeDirectory moved = directory_;
  moved.homes[office] = server;
  ++moved.version;
  MoveOffice(office, Server(home), to, moved);
  directory_ = moved;
  Publish(server);
}

void PostgresOfficeGroup::AdmitDesk(const std::string& login, const std::vector<std::int32_t>& offices) {
  if (offices.empty()) {
    Refuse("The group has several offices. Please name those that the login may enter.");
  }
  ConnectAll();
  for (const std::int32_t office : offices) {
    if (!directory_.homes.contains(office)) {
      Refuse("There is no office " + std::to_string(office) + " in the group.");
    }
  }
  for (const auto& [name, server] : servers_) {
    try {
      server.Admit({login, offices}, directory_);
    } catch (const session::DatabaseError& error) {
      throw session::DatabaseError("At the server " + name + ": " + error.what(), error.Statement(), error.Code());
    }
  }
}

// What a removal that broke off has left is taken away, too.
std::vector<std::string> PostgresOfficeGroup::RemoveDesk(const std::string& login) {
  ConnectAll();
  bool known = false;
  std::set<std::string> through;
  for (const auto& [name, server] : servers_) {
    if (server.Knows(login)) {
      known = true;
      for (const std::string& group : host::RemoveDesk(server.Connection(), login)) {
        through.insert(group);
      }
    }
  }
  if (!known) {
    Refuse("\"" + login + "\" is no login of the group's desks.");
  }
  return {through.begin(), through.end()};
}

void PostgresOfficeGroup::Migrate() {
  ConnectAll(Tables::OrOlder);
  for (const auto& [name, server] : servers_) {
    if (server.Version() < kSchemaVersion) {
      server.Migrate(directory_, servers_);
    }
  }
}

}  // namespace host
