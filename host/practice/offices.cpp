#include "practice/offices.h"

namespace host {

void AddOffice(OfficeGroup& group, std::int32_t office, const std::string& server,
               const std::function<void(Practice& practice)>& fill) {
  CreatePractice(group.PlaceFor(office, server), group.OptionsOf(office), fill);
  group.AddOffice(office, server);
}

}  // namespace host
