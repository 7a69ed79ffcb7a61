#include <utility>

#include "data/locations.h"
#include "lookup/frmTGList.h"

namespace lookup {

void frmTGList::ReadFacilities() {
  pnlFacility.Visible = Options.show_facility_options && AtLocation != nullptr;
  if (!pnlFacility.Visible) {
    return;
  }
  std::vector<forms::ListItem> locations = {{.text = "All locations"}};
  Attempt([&] {
    const auto rows = statements_.Select("SELECT OffLocID, OffLocNam FROM OffLocTable WHERE (OffLocID>0)" +
                                         statements_.Office() + " ORDER BY OffLocID");
    for (; !rows->Eof(); rows->MoveNext()) {
      const std::int32_t id = session::ToId(rows->Get(0));
      locations.push_back({.text = data::LocationName(id, rows->Get(1)), .data = id});
    }
  });
  cboFacility.Items = std::move(locations);
  cboFacility.ListIndex = 0;
}

data::Sql frmTGList::FacilityCondition() const {
  const forms::ListItem* chosen = cboFacility.Current();
  return chosen == nullptr || chosen->data == 0 ? data::Sql() : AtLocation(chosen->data);
}

// The filters stay; rows that cannot be read leave the list as it was.
void frmTGList::cboFacility_Click() {
  if (cboFacility.ListIndex == facility_) {
    return;
  }
  const int before = std::exchange(facility_, cboFacility.ListIndex.get());
  const int all_before = std::exchange(all_, 0);
  if (Requery(Asked(), sort_, {.id = CurrentID()})) {
    return;
  }
  facility_ = before;
  all_ = all_before;
  cboFacility.ListIndex = before;
}

}  // namespace lookup
