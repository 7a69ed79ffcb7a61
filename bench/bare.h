#pragma once

#include <sqlite3.h>

#include <chrono>
#include <stdexcept>
#include <string>

// The engine's own C interface, as the measure that the screens are held against.
namespace bench {

class Bare {
 public:
  explicit Bare(const std::string& path) {
    if (sqlite3_open(path.c_str(), &handle_) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(handle_));
    }
    // The order of joined texts, as cheap as one can be that folds ASCII alone.
    sqlite3_create_collation(handle_, "UNICODE_NOCASE", SQLITE_UTF8, nullptr, &CompareAscii);
    sqlite3_create_function(handle_, "identity", 0, SQLITE_UTF8, this, &AnswerRow, nullptr, nullptr);
  }
  Bare(const Bare&) = delete;
  Bare& operator=(const Bare&) = delete;
  ~Bare() { sqlite3_close(handle_); }

  // Prepares every statement of the text and steps at most `rows` rows of each, reading every column as text. The
  // rows stepped.
  int Step(const std::string& sql, int rows) {
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

  void Prepare(const std::string& sql) {
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
    sqlite3_result_int64(context, sqlite3_last_insert_rowid(static_cast<Bare*>(sqlite3_user_data(context))->handle_));
  }

  sqlite3* handle_ = nullptr;
  long read_ = 0;
};

using Clock = std::chrono::steady_clock;

// Seconds that the work takes.
template <typename Work>
double Time(Work work) {
  const auto start = Clock::now();
  work();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

}  // namespace bench
