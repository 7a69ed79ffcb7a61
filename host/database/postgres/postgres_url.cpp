#include "database/postgres/postgres_url.h"

#include <libpq-fe.h>

#include <cstdlib>
#include <memory>
#include <string_view>

#include "database/postgres/postgres_error.h"
#include "database/postgres/postgres_session.h"
#include "database/shown_url.h"

namespace host {
namespace {

struct FreeOptions {
  void operator()(PQconninfoOption* options) const { PQconninfoFree(options); }
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

std::string FromEnvironment(const char* name) {
  const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): nobody changes the environment
  return value == nullptr ? std::string() : value;
}

std::string Known(const PostgresUrl& url, const std::string& option, const char* variable) {
  const auto found = url.options.find(option);
  return found != url.options.end() ? found->second : FromEnvironment(variable);
}

void AddDefaults(PostgresUrl& url) {
  const auto add = [&](const char* option, const char* value, const char* variable = nullptr) {
    if (variable == nullptr || FromEnvironment(variable).empty()) {
      url.options.try_emplace(option, value);
    }
  };
  url.options["client_encoding"] = "UTF8";
  const bool by_service = !Known(url, "service", "PGSERVICE").empty();
  if (!by_service) {
    add("application_name", "practice", "PGAPPNAME");
    add("connect_timeout", "10", "PGCONNECT_TIMEOUT");
    const bool here = AllHere(Known(url, "host", "PGHOST")) && AllHere(Known(url, "hostaddr", "PGHOSTADDR"));
    if (!here) {
      add("sslmode", "require", "PGSSLMODE");
    }
  }
  // A server that was unplugged is noticed within a minute.
  add("keepalives_idle", "30");
  add("keepalives_interval", "10");
  add("keepalives_count", "3");
  add("tcp_user_timeout", "60000");
}

}  // namespace

std::string PostgresUrl::Shown() const {
  const auto part = [this](const char* option, const char* variable) { return Known(*this, option, variable); };
  std::string database = part("dbname", "PGDATABASE");
  if (database.empty()) {
    database = part("user", "PGUSER");
  }
  std::string server = part("host", "PGHOST");
  if (server.empty()) {
    server = part("hostaddr", "PGHOSTADDR");
  }
  if (const std::string service = part("service", "PGSERVICE"); server.empty() && !service.empty()) {
    server = "the service " + service;
  }
  const std::string port = part("port", "PGPORT");
  return "\"" + database + "\" on " +
         (server.empty() ? std::string("this machine") : server + (port.empty() ? port : ":" + port));
}

PostgresUrl ParsePostgresUrl(const std::string& url) {
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
    // libpq's reason may repeat the URL, with its password.
    PQfreemem(why);
    throw session::DatabaseError("\"" + ShownUrl(url) + "\" is no URL that PostgreSQL reads: " +
                                     "postgresql://USER@HOST:PORT/DATABASE?OPTION=VALUE is expected.",
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
