#include "practice/offices.h"

namespace host {

void AddOffice(OfficeGroup& group, std::int32_t office, const std::string& server,
               const std::function<void(Practice& practice)>& fill) {
  CreatePractice(group.PlaceFor(office, server), group.OptionsOf(office), fill);
  group.AddOffice(office, server);
}

bool AddCopiedOffice(OfficeGroup& group, std::int32_t office, const std::string& server, const std::string& from,
                     const WhileCopying& told) {
  if (OpenDatabase(from).options.row_guids != group.OptionsOf(office).row_guids) {
    throw session::DatabaseError("Of the two, the practice and the group, one keeps row GUIDs and the other does not.",
                                 {}, 0);
  }
  if (!CopyPractice(from, group.PlaceFor(office, server), told, office)) {
    return false;
  }
  group.AddOffice(office, server);
  return true;
}

}  // namespace host
