#pragma once

#include <string>
#include <string_view>

#include "session/screens.h"

namespace entry {

// The screens of this component, opened over one session for one person.
class ComponentScreens : public session::Screens {
 public:
  // A new employee is entered for `new_employee_login`, 0 for none.
  ComponentScreens(session::Session& session, forms::User& user, std::int32_t new_employee_login = 0)
      : context_{session, user, *this}, new_employee_login_(new_employee_login) {}

  const session::ScreenContext& Context() const { return context_; }

  std::optional<session::ListChoice> ShowList(session::LookUpListTypes type,
                                              const session::ListRequest& request) override;
  std::optional<session::PickedText> ShowPickList(session::PickList list, std::string_view title) override;

  void Load_PatInfo_Small(std::string& id, const std::string& typed_name, bool& save_and_book) override;
  void PaTable_Edit_Start(std::string_view person_type, std::string& id) override;
  void Grp_Plan_Start(std::string& plan_id, std::int32_t carrier_id) override;
  void Recall_Master_Start(std::string& recall_id, bool& canceled, bool& data_saved) override;
  void Ins_Company_Start(std::string& carrier_id) override;
  void Pharmacy_Start(std::string& pharmacy_id) override;

  // Says that a screen of the suite is not in this version.
  void TellNotBuilt(std::string_view form, std::string_view what);

 private:
  // False when the person would rather not enter a new employee for the login.
  bool AcceptLogin();

  session::ScreenContext context_;
  std::int32_t new_employee_login_;
};

}  // namespace entry
