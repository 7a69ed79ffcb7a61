#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "database/database.h"
#include "database/office_group.h"

namespace host {

// A kind of databases, behind the URLs that begin with its name. All throw session::DatabaseError.
class Engine {
 public:
  virtual ~Engine() = default;

  // Opens a database without tables, for `CreateSchema`; a file that is not there is made.
  virtual PracticeDatabase OpenNew(const std::string& url, const CreationOptions& options) const = 0;
  // Opens a practice, and brings an older one up to date.
  virtual PracticeDatabase Open(const std::string& url) const = 0;
  // Whether a practice can be made there: there is nothing, or a database without tables.
  virtual bool IsVacant(const std::string& url) const = 0;
  // Groups of practices over several servers: what `CreateOfficeGroup` and `OpenOfficeGroup` do, where the engine can.
  virtual void CreateOfficeGroup(const GroupServer& first, const CreationOptions& options) const;
  virtual std::unique_ptr<OfficeGroup> OpenOfficeGroup(const std::string& url) const;
};

// By the name before the colon of a URL; null for one that this platform's program does not have.
const Engine* FindEngine(std::string_view name);

}  // namespace host
