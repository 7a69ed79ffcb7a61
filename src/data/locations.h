#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/statements.h"
#include "forms/color.h"
#include "session/session.h"

// The office's locations, and who is granted which of them.
namespace data {

// "Location #2" for one without a name.
std::string LocationName(std::int32_t location, const session::Value& name);
// Of a location's colour columns; nothing for one that is not set.
std::optional<forms::Color> LocationColor(const session::Value& color);

// How one of them is reached.
struct LocationAddress {
  std::string name;
  std::string phone;
  std::string fax;
  std::string line1;
  std::string line2;
  std::string place;  // "Springfield, IL 62701"
};
// Of the office's location with the lowest number; empty where it has none. Throws session::DatabaseError.
LocationAddress FirstLocation(const Statements& statements);

// Where a patient is shown besides his primary location, or a login may be used. All throw session::DatabaseError.
class GrantedLocations {
 public:
  enum class Of { Patient, Login };

  struct Granted {
    std::int32_t location = 0;
    std::string name = {};
    std::optional<forms::Color> fore = {};
    std::optional<forms::Color> back = {};
    bool granted = false;
    std::int32_t row = 0;  // the key of the row that tells it; 0 while there is none
  };

  GrantedLocations(session::Database& database, Of of);

  // Every location of the office by number, as the owner, a `pID` or a `PWMID`, has it.
  std::vector<Granted> Read(std::int32_t owner) const;
  // The row tells from now on that the location is granted.
  void Grant(std::int32_t row) const;
  // Changes the row of the owner and the location, or adds one.
  void Write(std::int32_t owner, std::int32_t location, bool granted) const;

 private:
  struct Columns {
    Words table;
    Words key;
    Words owner;
    Words location;
    Words granted;
  };

  Sql Granting(std::int32_t owner) const;

  session::Database& database_;
  Statements statements_;
  Columns columns_;
};

}  // namespace data
