#pragma once

#include <libpq-fe.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

// The engine's own C interface, as the measure that the screens are held against.
namespace bench {

class BareEngine {
 public:
  virtual ~BareEngine() = default;

  // Runs every statement of the text and reads at most `rows` rows of each, every column as text. The rows read.
  virtual int Step(const std::string& sql, int rows) = 0;
  // Of rows that were not read; a list that is open has not given them up either.
  virtual void GiveUpRest() {}
  virtual void Prepare(const std::string& sql) = 0;
};

class BareSqlite final : public BareEngine {
 public:
  explicit BareSqlite(const std::string& path) {
    if (sqlite3_open(path.c_str(), &handle_) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(handle_));
    }
    // The order of joined texts, as cheap as one can be that folds ASCII alone.
    sqlite3_create_collation(handle_, "UNICODE_NOCASE", SQLITE_UTF8, nullptr, &CompareAscii);
    sqlite3_create_function(handle_, "identity", 0, SQLITE_UTF8, this, &AnswerRow, nullptr, nullptr);
  }
  BareSqlite(const BareSqlite&) = delete;
  BareSqlite& operator=(const BareSqlite&) = delete;
  ~BareSqlite() override { sqlite3_close(handle_); }

  int Step(const std::string& sql, int rows) override {
    int stepped = 0;
    for (const char* rest = sql.c_str(); *rest != '\0';) {
      sqlite3_stmt* statement = nullptr;
      if (sqlite3_prepare_v2(handle_, rest, -1, &statement, &rest) != SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(handle_));
      }
      for (int row = 0; row < rows && sqlite3_step(statement) == SQLITE_ROW; ++row, ++stepped) {
        for (int column = 0; column < sqlite3_column_count(statement); ++column) {
          read_ += sqlite3_column_bytes(statement, column);
        }
      }
      sqlite3_finalize(statement);
    }
    return stepped;
  }

  void Prepare(const std::string& sql) override {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(handle_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(handle_));
    }
    sqlite3_finalize(statement);
  }

 private:
  static int CompareAscii(void* /*unused*/, int left_size, const void* left, int right_size, const void* right) {
    const int common = left_size < right_size ? left_size : right_size;
    const int order = sqlite3_strnicmp(static_cast<const char*>(left), static_cast<const char*>(right), common);
    return order != 0 ? order : left_size - right_size;
  }

  // What the last insert was given, where the key is the row's number.
  static void AnswerRow(sqlite3_context* context, int /*count*/, sqlite3_value** /*arguments*/) {
    sqlite3_result_int64(context,
                         sqlite3_last_insert_rowid(static_cast<BareSqlite*>(sqlite3_user_data(context))->handle_));
  }

  sqlite3* handle_ = nullptr;
  long read_ = 0;
};

// Few rows of a select come one by one, as whoever shows a page would have it; all else comes whole. What it changes
// goes into the change log, as what a desk changes.
class BarePostgres final : public BareEngine {
 public:
  explicit BarePostgres(const std::string& url)
      : connection_(PQconnectdb(url.c_str())), cancel_(PQgetCancel(connection_)) {
    Run("SET search_path = practice, public; SET practice.author = 'bench'; SET practice.moment = '2024-02-29'");
  }
  BarePostgres(const BarePostgres&) = delete;
  BarePostgres& operator=(const BarePostgres&) = delete;
  ~BarePostgres() override {
    PQfreeCancel(cancel_);
    PQfinish(connection_);
  }

  int Step(const std::string& sql, int rows) override {
    if (rows >= kMany) {
      return Run(sql);
    }
    PQsendQuery(connection_, sql.c_str());
    PQsetSingleRowMode(connection_);
    int read = 0;
    while (PGresult* row = PQgetResult(connection_)) {
      const bool failed = PQresultStatus(row) == PGRES_FATAL_ERROR && read < rows;
      read += Read(row);
      PQclear(row);
      if (failed) {
        throw std::runtime_error(PQerrorMessage(connection_));
      }
      if (read == rows) {
        break;
      }
    }
    return read;
  }
  void GiveUpRest() override {
    std::array<char, 256> why{};
    if (PQtransactionStatus(connection_) == PQTRANS_ACTIVE) {
      PQcancel(cancel_, why.data(), static_cast<int>(why.size()));
    }
    while (PGresult* row = PQgetResult(connection_)) {
      PQclear(row);
    }
  }

  void Prepare(const std::string& sql) override { PQclear(PQprepare(connection_, "", sql.c_str(), 0, nullptr)); }

 private:
  static constexpr int kMany = 1 << 20;

  int Run(const std::string& sql) {
    PGresult* result = PQexec(connection_, sql.c_str());
    const bool failed = PQresultStatus(result) == PGRES_FATAL_ERROR;
    const int read = Read(result);
    PQclear(result);
    if (failed) {
      throw std::runtime_error(PQerrorMessage(connection_));
    }
    return read;
  }
  int Read(const PGresult* result) {
    const int rows = PQntuples(result);
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < PQnfields(result); ++column) {
        read_ += PQgetlength(result, row, column);
      }
    }
    return rows;
  }

  PGconn* connection_;
  PGcancel* cancel_ = nullptr;
  long read_ = 0;
};

// The engine of a database URL.
class Bare {
 public:
  explicit Bare(const std::string& url)
      : engine_(url.starts_with("sqlite:") ? std::unique_ptr<BareEngine>(std::make_unique<BareSqlite>(url.substr(7)))
                                           : std::make_unique<BarePostgres>(url)) {}

  int Step(const std::string& sql, int rows) { return engine_->Step(sql, rows); }
  void GiveUpRest() { engine_->GiveUpRest(); }
  void Prepare(const std::string& sql) { engine_->Prepare(sql); }

 private:
  std::unique_ptr<BareEngine> engine_;
};

using Clock = std::chrono::steady_clock;

// Seconds that the work takes.
template <typename Work>
double Time(Work work) {
  const auto start = Clock::now();
  work();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// Other work on the machine slows some of the times.
inline double Median(std::vector<double> times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::ranges::nth_element(times, middle);
  return *middle;
}

}  // namespace bench
