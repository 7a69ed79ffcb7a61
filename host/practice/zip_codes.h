#pragma once

#include <string_view>
#include <vector>

namespace host {

struct Place {
  std::string_view zip;
  std::string_view city;
  std::string_view state;
};

// The places of the United States, by ZIP code.
const std::vector<Place>& UnitedStatesPlaces();

}  // namespace host
