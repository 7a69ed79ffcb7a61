#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"

namespace host {

// How a practice is laid out; kept in its database from the moment it is made.
struct PracticeOptions {
  std::int32_t kind = session::kFileDatabase;
  std::int32_t office = 1;   // the office a session starts in
  std::int32_t offices = 1;  // offices 1 to this are filled alike; more than one needs kind 7
  bool row_guids = false;    // link and master rows carry a `UniqueID`
};

// One practice's database, open.
class Practice {
 public:
  // Opens what `CreatePractice` or `MakeDemo` made; an older schema is migrated. Throws session::DatabaseError, also
  // when there is no practice at the URL.
  explicit Practice(const std::string& url);
  Practice(Practice&&) noexcept;
  Practice& operator=(Practice&&) noexcept;
  ~Practice();

  const PracticeOptions& Options() const { return options_; }
  const std::string& Url() const { return url_; }
  session::Connection& Connection() const { return *connection_; }
  // The dialect's text as this practice's engine takes it.
  std::string PrepareSQL(const std::string& sql) const;

 private:
  friend Practice CreatePractice(const std::string& url, const PracticeOptions& options);
  Practice(std::string url, std::unique_ptr<session::Connection> connection);

  std::string url_;
  std::unique_ptr<session::Connection> connection_;
  PracticeOptions options_;
};

// Makes an empty practice where there is none: the schema, each office's defaults, pick lists and one location.
// Throws session::DatabaseError, also when there is a practice already.
Practice CreatePractice(const std::string& url, const PracticeOptions& options = {});

// A practice as one of its offices sees it. The host's own statements go through it.
class OfficeDatabase final : public session::Database {
 public:
  OfficeDatabase(Practice& practice, std::int32_t office) : practice_(&practice), office_(office) {}

  std::int32_t DatabaseKind() const override { return practice_->Options().kind; }
  std::int32_t CurrentOfficeID() const override { return office_; }
  std::string PrepareSQL(const std::string& sql, int flag) const override;
  session::Connection& Connection() override { return practice_->Connection(); }
  bool KeepsRowGuids(std::string_view table) const override;

 private:
  Practice* practice_;
  std::int32_t office_;
};

}  // namespace host
