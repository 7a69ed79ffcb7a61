#pragma once

#include <map>
#include <optional>
#include <string>

namespace host {

// Where a practice is: libpq's options by their names, as its URI and the defaults of the practice give them.
//
// An application's name, a time to wait for the server and signs of life are given where neither the URL nor a service
// nor the environment does. Another machine is spoken to by TLS alone (`sslmode` is "require") unless one of them says
// otherwise; what is libpq's own default ("prefer") counts in the URL alone. A password may stand in the URL, but
// belongs into a password file.
struct PostgresUrl {
  std::map<std::string, std::string> options;
  std::string replica;  // "HOST:PORT" of a server that follows this one, for lists; empty for none
  std::string schema;   // the practice's tables stand in, before `kSearchPath`; empty for none but this

  // "practice on db.example:5433", for messages.
  std::string Shown() const;
  // "db.example/5433/practice", without the usual port: what names the database among all others, whoever connects and
  // how.
  std::string Place() const;
};

// Throws session::DatabaseError, with nothing of the URL where it may be taken for another than it was meant.
PostgresUrl ParsePostgresUrl(const std::string& url);
// The same database on the replica.
PostgresUrl OnReplica(const PostgresUrl& url);

}  // namespace host
