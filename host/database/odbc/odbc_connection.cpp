#include "database/odbc/odbc_connection.h"

#include <limits>
#include <utility>

#include "database/odbc/odbc_recordset.h"
#include "database/odbc/odbc_rows.h"
#include "database/postgres/postgres_error.h"
#include "forms/text.h"

namespace host {
namespace {

// The server's process, and whether the server only reads.
constexpr const char* kAboutItself =
    "SELECT pg_catalog.pg_backend_pid(), CASE WHEN pg_catalog.pg_is_in_recovery() OR "
    "pg_catalog.current_setting('default_transaction_read_only')='on' THEN 1 ELSE 0 END";

// `batch` is what failures name. The rows of the last result of a batch that has any.
std::unique_ptr<session::Recordset> ReadWhole(OdbcHandle& handle, const std::string& text, const std::string& batch) {
  std::vector<session::Field> fields;
  OdbcRows rows;
  const OdbcStatement statement = handle.Execute(text, batch);
  do {
    if (auto found = OdbcFields(statement.get()); !found.empty()) {
      fields = std::move(found);
      rows = FetchOdbcRows(handle, statement.get(), fields, std::numeric_limits<std::size_t>::max(), batch);
    }
  } while (handle.Work(statement.get(), batch, [&] { return SQLMoreResults(statement.get()); }));
  return std::make_unique<OdbcRecordset>(std::move(fields), std::move(rows));
}

std::unique_ptr<session::Recordset> ReadWhole(OdbcHandle& handle, const std::string& batch) {
  return ReadWhole(handle, batch, batch);
}

}  // namespace

OdbcConnection::OdbcConnection(OdbcSource source)
    : source_(std::move(source)), readers_(source_, WhileBusy, [this](OdbcHandle& reader) { Introduce(reader); }) {
  Connect();
}

OdbcConnection::~OdbcConnection() = default;

std::unique_ptr<session::Recordset> OdbcConnection::Execute(const std::string& sql) {
  // A driver would read no further than a zero, and be given other bytes for what is no text.
  if (sql.find('\0') != std::string::npos) {
    throw session::DatabaseError("The statement holds a zero character.", sql, CodeOfState("22021"));
  }
  if (forms::ToUtf8(forms::ToUtf32(sql)) != sql) {
    throw session::DatabaseError("The statement holds bytes that are no text.", sql, CodeOfState("22021"));
  }
  if (forms::Trim(sql).empty()) {
    return std::make_unique<OdbcRecordset>(std::vector<session::Field>(), OdbcRows());
  }
  if (transaction_ != Transaction::Open && source_.reads_apart && CanReadApart(sql)) {
    if (auto rows = ReadApart(sql)) {
      return rows;
    }
  }
  if (transaction_ == Transaction::Open) {
    return source_.is_postgres ? InTransaction(sql) : ReadWhole(*main_, sql);
  }
  Reach();
  try {
    return ReadWhole(*main_, sql);
  } catch (const session::DatabaseError& error) {
    throw CanReadApart(sql) ? error : OfAChange(error);
  }
}

std::unique_ptr<session::Recordset> OdbcConnection::InTransaction(const std::string& sql) {
  try {
    main_->Set(ForWriting());
    return ReadWhole(*main_, sql + kKeepBatch, sql);
  } catch (const session::DatabaseError& refused) {
    if (!refused.ConnectionLost()) {
      main_->ForgetSettings();
      main_->undisturbed = true;
      const std::shared_ptr<void> again(nullptr, [this](void*) { main_->undisturbed = false; });
      ReadWhole(*main_, kTakeBatchBack);
    }
    throw;
  }
}

std::unique_ptr<session::Recordset> OdbcConnection::ReadApart(const std::string& sql) {
  while (true) {
    const bool may_be_lost = readers_.HaveIdle();
    OdbcReaders::Lease reader;
    try {
      reader = readers_.Borrow();
    } catch (const session::DatabaseError&) {
      return nullptr;  // the server takes no further connections, or none at all, which the main one finds out
    }
    try {
      if (source_.is_postgres) {
        reader->Set(use.ForReading());
      }
      OdbcStatement statement = reader->Execute(sql, sql);
      std::vector<session::Field> fields = OdbcFields(statement.get());
      return std::make_unique<OdbcRecordset>(std::move(fields), std::move(reader), std::move(statement), sql);
    } catch (const session::DatabaseError& error) {
      if (!error.ConnectionLost() || !may_be_lost) {
        throw;
      }
      // Nobody has seen anything of it yet.
      reader.reset();
      readers_.DropIdle();
    }
  }
}

void OdbcConnection::BeginTrans() {
  if (transaction_ == Transaction::Open) {
    throw session::DatabaseError("There is a transaction already.", "BEGIN", CodeOfState("25001"));
  }
  Reach();
  main_->BeginTrans();
  transaction_ = Transaction::Open;
  try {
    if (source_.is_postgres) {
      ReadWhole(*main_, kBeginBatches);
    }
  } catch (const session::DatabaseError&) {
    RollbackTrans();
    throw;
  }
}

void OdbcConnection::CommitTrans() {
  if (transaction_ != Transaction::Open) {
    throw session::DatabaseError("There is no transaction.", "COMMIT", CodeOfState("25P01"));
  }
  transaction_ = Transaction::Over;
  // The driver would say that all is well.
  if (main_->Lost()) {
    throw Loss("The transaction has ended with it.", "COMMIT");
  }
  try {
    main_->EndTrans(true);
  } catch (const session::DatabaseError& error) {
    throw OfAChange(error);
  }
  transaction_ = Transaction::None;
}

void OdbcConnection::RollbackTrans() {
  const Transaction before = std::exchange(transaction_, Transaction::None);
  if (before == Transaction::None) {
    throw session::DatabaseError("There is no transaction.", "ROLLBACK", CodeOfState("25P01"));
  }
  if (before != Transaction::Open || main_->Lost()) {
    return;
  }
  try {
    main_->EndTrans(false);
  } catch (const session::DatabaseError& error) {
    if (!error.ConnectionLost()) {
      throw;
    }
  }
}

void OdbcConnection::Cancel() {
  {
    const std::lock_guard lock(changing_);
    main_->Interrupt();
  }
  readers_.Interrupt();
}

PostgresSettings OdbcConnection::ForWriting() const {
  return source_.is_postgres ? use.ForWriting(WhileBusy != nullptr) : PostgresSettings();
}

void OdbcConnection::Reach() {
  if (!main_->Lost()) {
    try {
      if (!main_->Set(ForWriting())) {
        main_->Greet();
      }
      return;
    } catch (const session::DatabaseError& error) {
      if (!error.ConnectionLost()) {
        throw;
      }
    }
  }
  Connect();
  main_->Set(ForWriting());
}

void OdbcConnection::Connect() {
  auto made = std::make_unique<OdbcHandle>(source_.connection_string, source_.fixed, WhileBusy);
  read_only_ = Introduce(*made);
  const std::lock_guard lock(changing_);
  main_ = std::move(made);
}

bool OdbcConnection::Introduce(OdbcHandle& made) {
  if (!source_.is_postgres) {
    return made.ReadOnly();
  }
  const auto about = ReadWhole(made, kAboutItself);
  const std::string process = session::ToText(about->Get(0));
  made.ends_statement = [this, process] { return lookout_.Cancel(process); };
  made.waits_for_another = [this, process] { return lookout_.IsBlocked(process); };
  return made.ReadOnly() || session::ToId(about->Get(1)) != 0;
}

}  // namespace host
