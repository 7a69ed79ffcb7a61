#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "database/database.h"
#include "practice/lock_table.h"
#include "session/session.h"

namespace host {

// On kind 7 offices 1 to `offices` are filled alike, and `office`; a database of another kind holds `office` alone.
using PracticeOptions = CreationOptions;

// One practice's database, open.
class Practice {
 public:
  // Opens what `CreatePractice` or `MakeDemo` made; an older schema is migrated. Throws session::DatabaseError, also
  // when there is no practice at the URL.
  explicit Practice(const std::string& url) : Practice(OpenDatabase(url)) {}
  explicit Practice(PracticeDatabase database);

  std::int32_t Kind() const { return database_.options.kind; }
  // The office a session starts in.
  std::int32_t Office() const { return database_.options.office; }
  // Every office that the practice holds.
  std::vector<std::int32_t> Offices() const;
  // Whether it can only be looked at.
  bool ReadOnly() const { return database_.connection->ReadOnly(); }
  const PracticeDatabase& Database() const { return database_; }
  LockTable& Locks() const { return *locks_; }
  // The connection, on which an office works from now on; 0 is every one.
  session::Connection& ConnectionIn(std::int32_t office) const;

 private:
  friend Practice CreatePractice(const std::string& url, const PracticeOptions& options,
                                 const std::function<void(Practice& practice)>& fill);

  PracticeDatabase database_;
  std::unique_ptr<LockTable> locks_;
};

// Makes a practice: the schema, each office's defaults and one location, and what `fill` adds, all of it or, when it is
// broken off, nothing. Throws session::DatabaseError, also when there is a practice already.
Practice CreatePractice(const std::string& url, const PracticeOptions& options = {},
                        const std::function<void(Practice& practice)>& fill = {});

// Opens the practice at a server's URL, or makes it in a database without tables; several programs may come at once.
Practice OpenOrCreatePractice(const std::string& url);

// A practice as one of its offices sees it. The host's own statements go through it.
class OfficeDatabase final : public session::Database {
 public:
  OfficeDatabase(Practice& practice, std::int32_t office) : practice_(&practice), office_(office) {}

  std::int32_t DatabaseKind() const override { return practice_->Kind(); }
  std::int32_t CurrentOfficeID() const override { return office_; }
  std::string PrepareSQL(const std::string& sql, int) const override { return practice_->Database().prepare(sql); }
  session::Connection& Connection() override { return practice_->ConnectionIn(office_); }
  bool KeepsRowGuids(std::string_view table) const override { return practice_->Database().KeepsRowGuids(table); }
  LockTable& Locks() const { return practice_->Locks(); }

 private:
  Practice* practice_;
  std::int32_t office_;
};

}  // namespace host
