#include "database/postgres/postgres_url.h"

#include <libpq-fe.h>

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

#include "database/postgres/postgres_error.h"
#include "database/postgres/postgres_session.h"
#include "database/shown_url.h"

namespace host {
namespace {

struct FreeOptions {
  void operator()(PQconninfoOption* options) const { PQconninfoFree(options); }
};

struct Finish {
  void operator()(PGconn* connection) const { PQfinish(connection); }
};

// Takes "name=value" out of the query of a URL.
std::string TakeParameter(std::string& url, std::string_view name) {
  const std::size_t query = url.find('?');
  for (std::size_t at = query; at != std::string::npos; at = url.find('&', at + 1)) {
    if (url.compare(at + 1, name.size(), name) != 0 || url[at + 1 + name.size()] != '=') {
      continue;
    }
    const std::size_t end = std::min(url.find('&', at + 1), url.size());
    const std::size_t value = at + name.size() + 2;
    std::string taken = url.substr(value, end - value);
    // What follows moves up behind the "?".
    url.erase(at + 1, std::min(end + 1, url.size()) - at - 1);
    if (url.ends_with('&') || url.ends_with('?')) {
      url.pop_back();
    }
    return taken;
  }
  return {};
}

bool AllHere(const std::string& hosts) {
  for (std::size_t from = 0; from <= hosts.size();) {
    const std::size_t end = std::min(hosts.find(',', from), hosts.size());
    if (!IsThisMachine(std::string_view(hosts).substr(from, end - from))) {
      return false;
    }
    from = end + 1;
  }
  return true;
}

using Options = std::map<std::string, std::string>;

// What libpq connects with, out of a service and the environment too, but for what it would do by itself. It alone
// knows where services stand, and tells it of a connection that it refuses before it looks for any server.
Options Effective(const Options& options) {
  constexpr const char* kUsed = "gssencmode";
  std::vector<const char*> names;
  std::vector<const char*> values;
  for (const auto& [name, value] : options) {
    if (name != kUsed) {
      names.push_back(name.c_str());
      values.push_back(value.c_str());
    }
  }
  names.insert(names.end(), {kUsed, nullptr});
  values.insert(values.end(), {"?", nullptr});
  const std::unique_ptr<PGconn, Finish> refused(PQconnectStartParams(names.data(), values.data(), 0));
  const std::unique_ptr<PQconninfoOption, FreeOptions> known(PQconninfo(refused.get()));
  Options effective = options;
  for (const PQconninfoOption* option = known.get(); option != nullptr && option->keyword != nullptr; ++option) {
    const bool said = option->val != nullptr && *option->val != '\0' &&
                      (option->compiled == nullptr || std::string_view(option->val) != option->compiled);
    if (said && std::string_view(option->keyword) != kUsed) {
      effective[option->keyword] = option->val;
    }
  }
  return effective;
}

std::string Of(const Options& options, const char* name) {
  const auto found = options.find(name);
  return found == options.end() ? std::string() : found->second;
}

// The server's name, or its address.
std::string ServerOf(const Options& effective) {
  std::string server = Of(effective, "host");
  return server.empty() ? Of(effective, "hostaddr") : server;
}

void AddDefaults(PostgresUrl& url) {
  url.options["client_encoding"] = "UTF8";
  const Options said = Effective(url.options);
  const auto add = [&](const char* option, const char* value) {
    if (!said.contains(option)) {
      url.options[option] = value;
    }
  };
  add("application_name", "practice");
  add("connect_timeout", "10");
  if (!AllHere(Of(said, "host")) || !AllHere(Of(said, "hostaddr"))) {
    add("sslmode", "require");
  }
  // A server that was unplugged is noticed within a minute.
  add("keepalives_idle", "30");
  add("keepalives_interval", "10");
  add("keepalives_count", "3");
  add("tcp_user_timeout", "60000");
}

// An "@" or "/" of a password, written as it is, would make libpq take the password's end for the server.
bool IsAmbiguous(const std::string& url) {
  const std::size_t start = std::min(url.find("://") + 3, url.size());
  const std::size_t user = url.find('@', start);
  const std::size_t behind = user < url.find('/', start) ? user + 1 : start;
  const std::size_t next = url.find_first_of("@?", behind);
  return next != std::string::npos && url[next] == '@';
}

}  // namespace

std::string PostgresUrl::Shown() const {
  const Options effective = Effective(options);
  std::string database = Of(effective, "dbname");
  if (database.empty()) {
    database = Of(effective, "user");
  }
  std::string server = ServerOf(effective);
  if (const std::string service = Of(effective, "service"); server.empty() && !service.empty()) {
    server = "the service " + service;
  }
  const std::string port = Of(effective, "port");
  return "\"" + database + "\" on " +
         (server.empty() ? std::string("this machine") : server + (port.empty() ? port : ":" + port));
}

std::string PostgresUrl::Place() const {
  const Options effective = Effective(options);
  const std::string port = Of(effective, "port");
  return ServerOf(effective) + "/" + (port == "5432" ? "" : port) + "/" + Of(effective, "dbname");
}

PostgresUrl ParsePostgresUrl(const std::string& url) {
  if (IsAmbiguous(url)) {
    throw session::DatabaseError(
        "The URL of the database cannot be read: in a name or password, \"@\" is written as %40 and \"/\" as %2F.", {},
        0);
  }
  std::string rest = url;
  PostgresUrl parsed;
  parsed.replica = TakeParameter(rest, "replica");
  parsed.schema = TakeParameter(rest, "schema");
  if (parsed.schema.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789_") != std::string::npos) {
    throw session::DatabaseError("A schema is called by lower-case letters, digits and underscores.", {}, 0);
  }
  char* why = nullptr;
  const std::unique_ptr<PQconninfoOption, FreeOptions> options(PQconninfoParse(rest.c_str(), &why));
  if (options == nullptr) {
    const std::string shown = ShownUrl(url);
    // libpq's reason may repeat the URL, with its password.
    const std::string reason = why != nullptr && shown == url ? " " + Plain(why) : "";
    PQfreemem(why);
    throw session::DatabaseError("\"" + shown + "\" is no URL that PostgreSQL reads: " +
                                     "postgresql://USER@HOST:PORT/DATABASE?OPTION=VALUE is expected." + reason,
                                 {}, 0);
  }
  for (const PQconninfoOption* option = options.get(); option->keyword != nullptr; ++option) {
    if (option->val != nullptr) {
      parsed.options[option->keyword] = option->val;
    }
  }
  AddDefaults(parsed);
  return parsed;
}

PostgresUrl OnReplica(const PostgresUrl& url) {
  PostgresUrl replica = url;
  const std::size_t colon = url.replica.rfind(':');
  replica.options["host"] = url.replica.substr(0, colon);
  if (colon != std::string::npos) {
    replica.options["port"] = url.replica.substr(colon + 1);
  }
  replica.options.erase("hostaddr");
  replica.options.erase("target_session_attrs");
  replica.replica.clear();
  return replica;
}

}  // namespace host
