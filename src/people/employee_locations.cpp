#include "people/employee_locations.h"

namespace people {
namespace {

// Numbers in the place of a location's.
constexpr std::int32_t kAllLocations = -1;
constexpr std::int32_t kUnspecified = 0;

std::string Named(std::int32_t location, const std::string& name, bool primary) {
  if (primary) {
    return "Primary Location";
  }
  return "Location " + (name.empty() ? "#" + std::to_string(location) : name);
}

}  // namespace

EmployeeLocations::EmployeeLocations(const session::ScreenContext& context) : Rules(context) {
  Add("lblLocation", lblLocation);
  Add("cboLocation", cboLocation);
  lblLocation.Caption = "Offi&ce Location";
  cboLocation.Heading = &lblLocation;
  cboLocation.ToolTip = "The location whose schedule and rights are shown";
  // What cannot be read leaves the choice, and what is shown, as it was.
  cboLocation.Click = [this] {
    if (!Attempt(Switched)) {
      cboLocation.ListIndex = shown_;
      Switched();
    }
    shown_ = cboLocation.ListIndex;
  };
}

void EmployeeLocations::Read() {
  std::vector<forms::ListItem> items;
  all_.clear();
  const auto rows = statements_.Select("SELECT TOP 1000 OffLocID, OffLocNam FROM OffLocTable" +
                                       statements_.Office(" WHERE (OfficeID=", ")") + " ORDER BY OffLocID");
  for (; !rows->Eof(); rows->MoveNext()) {
    const std::int32_t location = session::ToId(rows->Get(0));
    if (location > 0) {
      items.push_back({.text = Named(location, session::ToText(rows->Get(1)), all_.empty()), .data = location});
      all_.push_back(location);
    }
  }
  if (all_.empty()) {
    all_.push_back(kUnspecified);
  }
  items.push_back({.text = "ALL LOCATIONS", .data = kAllLocations});
  items.push_back({.text = "Unspecified", .data = kUnspecified});
  cboLocation.Items = std::move(items);
  Choose(all_.front());
}

std::vector<std::int32_t> EmployeeLocations::Chosen() const {
  const forms::ListItem* chosen = cboLocation.Current();
  if (chosen == nullptr || chosen->data == kAllLocations) {
    return all_;
  }
  return {chosen->data};
}

bool EmployeeLocations::Choose(std::int32_t location) {
  const int index = cboLocation.IndexOfData(location);
  if (index >= 0) {
    cboLocation.ListIndex = shown_ = index;
  }
  return index >= 0;
}

std::string EmployeeLocations::NameOf(std::int32_t location) const {
  const int index = cboLocation.IndexOfData(location);
  return index < 0 ? std::string() : cboLocation.Items.get()[static_cast<std::size_t>(index)].text;
}

}  // namespace people
