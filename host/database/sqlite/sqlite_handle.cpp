#include "database/sqlite/sqlite_handle.h"

#include <cerrno>
#include <utility>

#include "database/dialect/folded_text.h"
#include "database/schema.h"

namespace host {
namespace {

// Another program that writes is waited for ten seconds where nobody can give it up.
constexpr int kMillisecondsATry = 10;
constexpr int kMostTries = 1000;
// Of SQLite's machine: some milliseconds.
constexpr int kBusySteps = 100000;

std::string_view TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return text == nullptr ? std::string_view()
                         : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

// identity()
void AnswerIdentity(sqlite3_context* context, int /*count*/, sqlite3_value** /*arguments*/) {
  if (const auto& identity = *static_cast<const Identity*>(sqlite3_user_data(context))) {
    sqlite3_result_int64(context, *identity);
  }
}

// text MATCH pattern, which SQLite asks as match(pattern, text)
void AnswerMatch(sqlite3_context* context, int /*count*/, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL) {
    return;
  }
  auto* pattern = static_cast<std::u32string*>(sqlite3_get_auxdata(context, 0));
  std::u32string folded;
  if (pattern == nullptr) {
    folded = Folded(TextOf(arguments[0]));
    pattern = &folded;
    sqlite3_set_auxdata(context, 0, new std::u32string(folded),
                        [](void* kept) { delete static_cast<std::u32string*>(kept); });
  }
  sqlite3_result_int(context, MatchesPattern(*pattern, Folded(TextOf(arguments[1]))) ? 1 : 0);
}

int CompareTexts(void* /*unused*/, int left_size, const void* left, int right_size, const void* right) {
  return CompareFolded({static_cast<const char*>(left), static_cast<std::size_t>(left_size)},
                       {static_cast<const char*>(right), static_cast<std::size_t>(right_size)});
}

// Of an extended code.
constexpr int kPrimary = 0xFF;

// What a person can do something about is said in plain words.
std::string Reason(int extended_code, const char* message) {
  switch (extended_code & kPrimary) {
    case SQLITE_BUSY:
      return "Another program is writing to the database, and the wait for it was ended. Please try again.";
    case SQLITE_INTERRUPT:
      return "It was ended before it was done.";
    case SQLITE_READONLY:
      return "The database can only be read: its file or folder is protected against writing.";
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return "The file is damaged, or is no database.";
    case SQLITE_FULL:
      return "The disk is full.";
    default:
      return message;
  }
}

}  // namespace

SqliteHandle::SqliteHandle(const SqliteSource& source, Identity& identity, const session::WhileBusy& while_busy)
    : identity_(identity), while_busy_(while_busy) {
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(source.name.c_str(), &opened, source.flags, nullptr);
  database_.reset(opened);
  if (code != SQLITE_OK) {
    throw session::DatabaseError(Reason(code, sqlite3_errstr(code)), {}, code);
  }
  sqlite3_extended_result_codes(opened, 1);
  sqlite3_busy_handler(opened, WaitOn, this);
  constexpr int kPure = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
  sqlite3_create_function(opened, "identity", 0, SQLITE_UTF8, &identity, AnswerIdentity, nullptr, nullptr);
  sqlite3_create_function(opened, "match", 2, kPure, nullptr, AnswerMatch, nullptr, nullptr);
  sqlite3_create_collation(opened, "UNICODE_NOCASE", SQLITE_UTF8, nullptr, CompareTexts);
  sqlite3_update_hook(opened, NoteInsert, this);
  sqlite3_progress_handler(opened, kBusySteps, GiveUpRunning, this);
}

SqliteStatement SqliteHandle::Prepare(std::string_view& text, const std::string& batch) {
  sqlite3_stmt* compiled = nullptr;
  const char* rest = nullptr;
  const int code =
      sqlite3_prepare_v2(database_.get(), text.data(), static_cast<int>(text.size() + 1), &compiled, &rest);
  EndWait();
  if (code != SQLITE_OK) {
    Fail(batch);
  }
  SqliteStatement statement(compiled);
  text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
  if (statement != nullptr && sqlite3_bind_parameter_count(compiled) > 0) {
    throw session::DatabaseError("The statement uses a variable that has no value.", batch, SQLITE_ERROR);
  }
  return statement;
}

bool SqliteHandle::Step(sqlite3_stmt* statement, const std::string& batch) {
  stepping_ = true;
  const int code = sqlite3_step(statement);
  stepping_ = false;
  EndWait();
  if (code != SQLITE_ROW && code != SQLITE_DONE) {
    inserted_.reset();
    Fail(batch);
  }
  if (code == SQLITE_DONE && inserted_) {
    TakeIdentity();
  }
  return code == SQLITE_ROW;
}

void SqliteHandle::Run(const std::string& batch) {
  for (std::string_view rest = batch; !rest.empty();) {
    if (const SqliteStatement statement = Prepare(rest, batch)) {
      while (Step(statement.get(), batch)) {
      }
    }
  }
}

void SqliteHandle::AddFunction(const char* name, const void* state,
                               void (*answer)(sqlite3_context*, int, sqlite3_value**)) {
  sqlite3_create_function(database_.get(), name, 0, SQLITE_UTF8, const_cast<void*>(state), answer, nullptr, nullptr);
}

bool SqliteHandle::IsSound() {
  try {
    std::string_view check = "PRAGMA quick_check(1)";
    const SqliteStatement statement = Prepare(check, std::string(check));
    return Step(statement.get(), {}) &&
           std::string_view(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0))) == "ok";
  } catch (const session::DatabaseError& error) {
    const int primary = error.Code() & kPrimary;
    if (primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB) {
      return false;
    }
    throw;
  }
}

void SqliteHandle::Empty() {
  sqlite3_db_config(database_.get(), SQLITE_DBCONFIG_RESET_DATABASE, 1, nullptr);
  Run("VACUUM");
  sqlite3_db_config(database_.get(), SQLITE_DBCONFIG_RESET_DATABASE, 0, nullptr);
}

void SqliteHandle::Interrupt() {
  if (stepping_) {
    sqlite3_interrupt(database_.get());
  }
}

int SqliteHandle::GiveUpRunning(void* handle) {
  auto& self = *static_cast<SqliteHandle*>(handle);
  self.told_ = true;
  return self.while_busy_ && self.while_busy_(session::Busy::Running) ? 1 : 0;
}

int SqliteHandle::WaitOn(void* handle, int tries) {
  auto& self = *static_cast<SqliteHandle*>(handle);
  self.told_ = true;
  if (self.while_busy_ ? self.while_busy_(session::Busy::Waiting) : tries >= kMostTries) {
    return 0;
  }
  sqlite3_sleep(kMillisecondsATry);
  return 1;
}

void SqliteHandle::EndWait() {
  if (std::exchange(told_, false) && while_busy_) {
    while_busy_(session::Busy::Done);
  }
}

// Triggers insert nothing but into the change log, so the last other insert that is heard of is the statement's own.
void SqliteHandle::NoteInsert(void* handle, int operation, const char* /*schema*/, const char* table,
                              sqlite3_int64 row) {
  if (operation == SQLITE_INSERT && std::string_view(table) != kChangeLog) {
    static_cast<SqliteHandle*>(handle)->inserted_ = InsertedRow{table, row};
  }
}

void SqliteHandle::TakeIdentity() {
  const InsertedRow inserted = *inserted_;
  inserted_.reset();
  identity_.reset();
  const Table* table = FindTable(inserted.table);
  if (table == nullptr) {
    return;
  }
  const std::string select =
      "SELECT " + std::string(table->key) + " FROM " + inserted.table + " WHERE rowid=" + std::to_string(inserted.row);
  std::string_view text = select;
  const SqliteStatement statement = Prepare(text, select);
  if (Step(statement.get(), select)) {
    identity_ = sqlite3_column_int64(statement.get(), 0);
  }
}

void SqliteHandle::Fail(const std::string& batch) const {
  const int code = sqlite3_extended_errcode(database_.get());
  const bool full = (code & kPrimary) == SQLITE_IOERR && sqlite3_system_errno(database_.get()) == ENOSPC;
  throw session::DatabaseError(Reason(full ? SQLITE_FULL : code, sqlite3_errmsg(database_.get())), batch, code);
}

SqliteReaders::Lease SqliteReaders::Borrow() {
  if (idle_.empty()) {
    auto reader = std::make_unique<SqliteHandle>(source_, identity_, while_busy_);
    reader->Run("PRAGMA query_only=1");
    const std::lock_guard lock(growing_);
    idle_.push_back(reader.get());
    all_.push_back(std::move(reader));
  }
  SqliteHandle* reader = idle_.back();
  idle_.pop_back();
  return {reader, GiveBack{this}};
}

void SqliteReaders::Interrupt() {
  const std::lock_guard lock(growing_);
  for (const auto& reader : all_) {
    reader->Interrupt();
  }
}

}  // namespace host
