#pragma once

#include <map>
#include <string>
#include <string_view>

#include "database/change_author.h"

// What every connection to a PostgreSQL server is told, whichever library it is made by.
namespace host {

// Whether a server of this name is reached without a network: its address, or the folder of its socket.
bool IsThisMachine(std::string_view server);

// A text as a statement writes it.
std::string Quoted(const std::string& text);

// Session variables by their names.
using PostgresSettings = std::map<std::string, std::string>;

// What is set once; an empty search path is `kSearchPath`.
PostgresSettings FixedSettings(const std::string& search_path = {});
// The same for a connection that changes nothing, and for one that reads lists.
PostgresSettings OnlyLooking(PostgresSettings fixed);
PostgresSettings ForReaders(PostgresSettings fixed);

// Whom and where statements are run for.
struct PostgresUse {
  const ChangeAuthor* author = nullptr;  // nullptr for nobody
  int office = 0;                        // 0 for every one

  PostgresSettings ForReading() const;
  // `can_give_up` is whether somebody can end the wait for another program.
  PostgresSettings ForWriting(bool can_give_up) const;
};

// Stand before, behind and after each batch of a transaction, so that one that fails takes back nothing but itself.
inline constexpr const char* kBeginBatches = "SAVEPOINT practice_batch";
inline constexpr const char* kKeepBatch = "\n; RELEASE practice_batch; SAVEPOINT practice_batch";
inline constexpr const char* kTakeBatchBack = "ROLLBACK TO practice_batch";

// The transaction as `LookUpTransaction` knows it; null while it has written nothing.
inline constexpr const char* kWhichTransaction =
    "SELECT CASE WHEN pg_current_xact_id_if_assigned() IS NOT NULL THEN pg_current_xact_id_if_assigned()::text || '@' "
    "|| left(pg_walfile_name(pg_current_wal_insert_lsn()), 8) END";
// How it ended, "committed" or "aborted", asked by the same login on another connection. One that still runs without
// its connection is ended. Null from a server that has another history since, as one that took over from the first.
std::string LookUpTransaction(const std::string& transaction);

// Whether a batch is one select that another connection may run as well.
bool CanReadApart(std::string_view batch);

// A select that `CanReadApart`, for whoever reads its first rows at once and the rest in their time: where it sorts all
// rows, the server is led to an index that has their order.
std::string ForFirstRows(const std::string& select);

}  // namespace host
