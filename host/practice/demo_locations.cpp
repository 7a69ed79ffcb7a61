#include "practice/demo_locations.h"

#include <array>
#include <string>

#include "data/literal.h"
#include "data/statements.h"

namespace host::demo {
namespace {

using data::Literal;

// As the suite stores a colour.
constexpr std::int32_t Rgb(std::int32_t red, std::int32_t green, std::int32_t blue) {
  return red + 256 * green + 65536 * blue;
}

struct Location {
  std::string_view name;
  std::string_view line2;
  std::int32_t background;
  std::int32_t foreground;
};
constexpr std::array<Location, 3> kLocations = {{{"Main Office", "Suite 100", Rgb(222, 235, 250), Rgb(16, 42, 94)},
                                                 {"North Side", "2nd Floor", Rgb(226, 243, 222), Rgb(24, 74, 30)},
                                                 {"Lakeside", "Building B", Rgb(255, 236, 209), Rgb(99, 46, 4)}}};

data::Assignments ValuesOf(DemoOffice& office, const Location& location, std::size_t index) {
  const std::string number = std::to_string(index + 1);
  const Address address = office.MakeAddress();
  const std::string phone = office.MakePhone();
  const std::string fax = office.MakePhone();
  Random& details = office.Details();
  return {{"OffLocNam", Literal(location.name)},
          {"OffLocAd1", Literal(address.line1)},
          {"OffLocAd2", Literal(location.line2)},
          {"OffLocCit", Literal(address.place.city)},
          {"OffLocSta", Literal(address.place.state)},
          {"OffLocZip", Literal(address.place.zip)},
          {"OffLocPho", Literal(phone)},
          {"OffLocPho2", Literal(office.MakePhone(details))},
          {"OffLocFax", Literal(fax)},
          {"OffLocEma", Literal("office" + number + "@example.com")},
          {"OffLocFacID", Literal("FAC-" + number)},
          {"OffLocTIN", Literal("00-" + Digits(details.Below(10000000), 7))},
          {"OffLocNPI", Literal("0" + Digits(details.Below(1000000000), 9))},
          {"OffLocBanAccNum", Literal("000" + Digits(details.Below(1000000000), 9))},
          {"OffLocBacClr", Literal(location.background)},
          {"OffLocForClr", Literal(location.foreground)}};
}

}  // namespace

std::vector<std::int32_t> MakeLocations(DemoOffice& office) {
  const data::Statements statements(office.Database());
  std::vector<std::int32_t> made;
  for (std::size_t i = 0; i < kLocations.size(); ++i) {
    const data::Assignments values = ValuesOf(office, kLocations.at(i), i);
    if (i > 0) {
      made.push_back(statements.Insert("OffLocTable", values));
      continue;
    }
    made.push_back(session::ToId(
        statements.SelectValue("SELECT TOP 1 OffLocID FROM OffLocTable WHERE (OffLocID>0)" + statements.Office())));
    statements.Update("OffLocTable", values, "OffLocID", made.front());
  }
  return made;
}

}  // namespace host::demo
