#include "database/postgres/postgres_connection.h"

#include "database/postgres/postgres_error.h"
#include "database/postgres/postgres_handle.h"
#include "database/postgres/postgres_readers.h"
#include "database/postgres/postgres_recordset.h"
#include "database/postgres/postgres_replica.h"
#include "database/postgres/postgres_schema.h"
#include "database/postgres/postgres_values.h"
#include "forms/text.h"

namespace host {
namespace {

PostgresUrl UrlFor(const std::string& url, const PostgresWay& way) {
  PostgresUrl parsed = ParsePostgresUrl(url);
  if (!way.application_name.empty()) {
    parsed.options["application_name"] = way.application_name;
  }
  return parsed;
}

// Empty is `kSearchPath`.
std::string PathFor(const PostgresUrl& url, const PostgresWay& way) {
  return url.schema.empty() ? way.search_path : url.schema + ", " + std::string(kSearchPath);
}

PostgresSettings FixedFor(const PostgresUrl& url, const PostgresWay& way) {
  PostgresSettings fixed = FixedSettings(PathFor(url, way));
  return way.only_looks ? OnlyLooking(std::move(fixed)) : fixed;
}

}  // namespace

class PostgresServer {
 public:
  PostgresServer(const std::string& url, const PostgresWay& way, const session::WhileBusy& while_busy)
      : url_(UrlFor(url, way)),
        fixed_(FixedFor(url_, way)),
        while_busy_(while_busy),
        reads_apart_(way.readers),
        longest_(way.longest),
        readers_(url_, fixed_, while_busy),
        replica_(url_, fixed_, while_busy, [this] { return QuestionForReplica(); }),
        columns_([this](const std::string& select) { return OnMain(select); }) {
    Connect();
  }

  PostgresHandle& Main() { return *main_; }

  void Interrupt() {
    main_->Interrupt();
    readers_.Interrupt();
    replica_.Interrupt();
  }

  std::unique_ptr<session::Recordset> Execute(const std::string& sql) {
    if (state_ == State::Lost) {
      throw Loss("The transaction has ended with it.", sql);
    }
    if (state_ == State::Open) {
      return InTransaction(sql);
    }
    if (reads_apart_ && CanReadApart(sql)) {
      if (auto rows = OnReader(sql)) {
        return rows;
      }
    }
    Ready();
    try {
      return Rows(main_->Run(use.ForWriting(while_busy_ != nullptr), sql, sql));
    } catch (const session::DatabaseError& error) {
      throw CanReadApart(sql) ? error : OfAChange(error);
    }
  }

  void Begin() {
    if (state_ == State::Open) {
      throw session::DatabaseError("There is a transaction already.", "BEGIN", CodeOfState("25001"));
    }
    state_ = State::None;
    Ready();
    main_->Run({}, std::string("BEGIN; ") + kBeginBatches, "BEGIN");
    state_ = State::Open;
  }

  void Commit() {
    if (state_ == State::None || state_ == State::Over) {
      throw session::DatabaseError("There is no transaction.", "COMMIT", CodeOfState("25P01"));
    }
    const bool lost = state_ == State::Lost;
    if (lost) {
      state_ = State::Over;
      throw Loss("The transaction has ended with it.", "COMMIT");
    }
    const session::Value written = InTransaction(kWhichTransaction)->Get(0);
    state_ = State::Over;
    try {
      main_->Run({}, "COMMIT", "COMMIT");
    } catch (const session::DatabaseError& error) {
      main_->ForgetSettings();
      if (!error.ConnectionLost() || session::IsNull(written)) {
        throw;
      }
      const std::string outcome = OutcomeOf(session::ToText(written));
      if (outcome != "committed") {
        throw outcome == "aborted" ? error : OfAChange(error);
      }
    }
    state_ = State::None;
  }

  void Rollback() {
    const State before = state_;
    state_ = State::None;
    if (before == State::None) {
      throw session::DatabaseError("There is no transaction.", "ROLLBACK", CodeOfState("25P01"));
    }
    if (before != State::Open) {
      return;
    }
    main_->ForgetSettings();
    try {
      main_->Run({}, "ROLLBACK", "ROLLBACK");
    } catch (const session::DatabaseError& error) {
      if (!error.ConnectionLost()) {
        throw;
      }
    }
  }

  PostgresUse use;

 private:
  enum class State {
    None,
    Open,
    Lost,  // with its connection
    Over,  // by a commit that failed
  };

  void Connect() {
    main_ = std::make_unique<PostgresHandle>(url_, fixed_, while_busy_);
    main_->waits_for_another = [this] { return WaitsForAnother(); };
    main_->longest = longest_;
  }

  void Ready() {
    if (!main_->IsAlive()) {
      Connect();
    }
  }

  std::unique_ptr<session::Recordset> InTransaction(const std::string& sql) {
    try {
      return Rows(main_->Run(use.ForWriting(while_busy_ != nullptr), sql + kKeepBatch, sql));
    } catch (const session::DatabaseError& refused) {
      try {
        if (!refused.ConnectionLost()) {
          main_->undisturbed = true;
          const std::shared_ptr<void> again(nullptr, [this](void*) { main_->undisturbed = false; });
          main_->Run({}, kTakeBatchBack, sql);
          throw;
        }
      } catch (const session::DatabaseError& error) {
        state_ = error.ConnectionLost() ? State::Lost : state_;
        throw;
      }
      state_ = State::Lost;
      throw;
    }
  }

  // "committed", "aborted", or empty when nobody can tell.
  std::string OutcomeOf(const std::string& transaction) {
    try {
      Connect();
      const PostgresResult status = main_->Run({}, LookUpTransaction(transaction), {});
      return PQgetvalue(status.get(), 0, 0);
    } catch (const session::DatabaseError&) {
      return {};
    }
  }

  std::string QuestionForReplica() {
    Ready();
    const PostgresResult question =
        main_->Run({},
                   "SELECT format('SELECT CASE WHEN pg_is_in_recovery() AND system_identifier=%s THEN "
                   "pg_last_wal_replay_lsn() >= %L END FROM pg_control_system()', "
                   "system_identifier, pg_current_wal_flush_lsn()) FROM pg_control_system()",
                   {});
    return PQgetvalue(question.get(), 0, 0);
  }

  std::unique_ptr<session::Recordset> OnReader(const std::string& sql) {
    PostgresReaders::Lease reader;
    try {
      reader = replica_.Borrow();
      if (reader == nullptr) {
        reader = readers_.Borrow();
      }
    } catch (const session::DatabaseError&) {
      return nullptr;  // the server takes no further connections, or none at all, which the main one finds out
    }
    reader->Send(use.ForReading(), ForFirstRows(sql), sql);
    reader->RowByRow();
    return std::make_unique<PostgresStream>(std::move(reader), columns_);
  }

  std::unique_ptr<session::Recordset> OnMain(const std::string& select) {
    if (state_ != State::Open) {
      Ready();
    }
    PostgresResult rows = main_->Run({}, select, select);
    auto fields = columns_.FieldsOf(rows.get());
    return std::make_unique<PostgresRows>(std::move(rows), std::move(fields));
  }

  // A reader looks, as the main connection is busy.
  bool WaitsForAnother() {
    try {
      const auto reader = readers_.Borrow(true);
      const auto blocked = reader->Run(
          {}, "SELECT pg_catalog.cardinality(pg_catalog.pg_blocking_pids(" + std::to_string(main_->Process()) + "))",
          {});
      return blocked != nullptr && std::string_view(PQgetvalue(blocked.get(), 0, 0)) != "0";
    } catch (const session::DatabaseError&) {
      return false;
    }
  }

  std::unique_ptr<session::Recordset> Rows(PostgresResult result) {
    auto fields = columns_.FieldsOf(result.get());
    return std::make_unique<PostgresRows>(std::move(result), std::move(fields));
  }

  PostgresUrl url_;
  PostgresSettings fixed_;
  const session::WhileBusy& while_busy_;
  bool reads_apart_;
  std::optional<std::chrono::milliseconds> longest_;
  PostgresReaders readers_;
  PostgresReplica replica_;
  PostgresColumns columns_;
  std::unique_ptr<PostgresHandle> main_;
  State state_ = State::None;
};

PostgresConnection::PostgresConnection(const std::string& url, const PostgresWay& way)
    : server_(std::make_unique<PostgresServer>(url, way, WhileBusy)) {}

PostgresConnection::~PostgresConnection() = default;

bool PostgresConnection::ReadOnly() const {
  const PostgresHandle& main = server_->Main();
  return main.Parameter("in_hot_standby") == "on" || main.Parameter("default_transaction_read_only") == "on";
}

std::unique_ptr<session::Recordset> PostgresConnection::Execute(const std::string& sql) {
  // libpq would read no further.
  if (sql.find('\0') != std::string::npos) {
    throw session::DatabaseError("The statement holds a zero character.", sql, CodeOfState("22021"));
  }
  return server_->Execute(sql);
}

void PostgresConnection::BeginTrans() {
  server_->Begin();
}

void PostgresConnection::CommitTrans() {
  server_->Commit();
}

void PostgresConnection::RollbackTrans() {
  server_->Rollback();
}

void PostgresConnection::Cancel() {
  server_->Interrupt();
}

int PostgresConnection::Process() const {
  return server_->Main().Process();
}

void PostgresConnection::WriteAs(const ChangeAuthor* author) {
  server_->use.author = author;
}

void PostgresConnection::EnterOffice(int office) {
  server_->use.office = office;
}

}  // namespace host
