#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "database/database.h"
#include "database/office_group.h"

namespace host {

// A kind of databases, behind the URLs that begin as `Shape` does up to its colon. All else throws
// session::DatabaseError.
class Engine {
 public:
  virtual ~Engine() = default;

  // As a person is told how its URLs look: "sqlite:PATH".
  virtual std::string_view Shape() const = 0;
  // Opens a database without tables, for `CreateSchema`; a file that is not there is made.
  virtual PracticeDatabase OpenNew(const std::string& url, const CreationOptions& options) const = 0;
  // Opens a practice, and brings an older one up to date.
  virtual PracticeDatabase Open(const std::string& url) const = 0;
  // Whether a practice can be made there: there is nothing, or a database without tables.
  virtual bool IsVacant(const std::string& url) const = 0;
  // What names the database among all others, whoever connects and how, for an engine with servers.
  virtual std::string PlaceOf(const std::string& /*url*/) const { return {}; }
  // Groups of practices over several servers: what `CreateOfficeGroup` and `OpenOfficeGroup` do, where the engine can.
  virtual void CreateOfficeGroup(const GroupServer& first, const CreationOptions& options) const;
  virtual std::unique_ptr<OfficeGroup> OpenOfficeGroup(const std::string& url) const;
};

// Those that this platform's program has.
std::vector<const Engine*> Engines();

}  // namespace host
