#pragma once

#include "entry/dispatch.h"
#include "session/screens.h"

namespace host {

// The screens as a host opens them: through the methods of the public classes.
class PublicScreens : public session::Screens {
 public:
  PublicScreens(entry::Dispatch editing_screen, entry::Dispatch look_up_list)
      : editing_screen_(std::move(editing_screen)), look_up_list_(std::move(look_up_list)) {}

  std::optional<session::ListChoice> ShowList(session::LookUpListTypes type,
                                              const session::ListRequest& request) override;
  // The short lists have no public method: nothing is picked.
  std::optional<session::PickedText> ShowPickList(session::PickList list, std::string_view title) override;

  void Load_PatInfo_Small(std::string& id, const std::string& typed_name, bool& save_and_book) override;
  void PaTable_Edit_Start(std::string_view person_type, std::string& id) override;
  void Grp_Plan_Start(std::string& plan_id, std::int32_t carrier_id) override;
  void Recall_Master_Start(std::string& recall_id, bool& canceled, bool& data_saved) override;
  void Ins_Company_Start(std::string& carrier_id) override;
  void Pharmacy_Start(std::string& pharmacy_id) override;

 private:
  // The arguments as they come back.
  entry::Arguments Call(std::string_view method, entry::Arguments arguments) const;

  entry::Dispatch editing_screen_;
  entry::Dispatch look_up_list_;
};

}  // namespace host
