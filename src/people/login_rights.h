#pragma once

#include <bitset>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "editing/editing_form.h"
#include "editing/kept_layout.h"
#include "editing/rules.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/grid.h"
#include "forms/user_control.h"
#include "people/employee_locations.h"

namespace people {

// What an employee's login may do at each location: the office's rights, to view, add, modify, delete and authorise.
// Changes wait for the screen's save.
class LoginRights : public forms::UserControl, private editing::Rules {
 public:
  LoginRights(const session::ScreenContext& context, const EmployeeLocations& locations);

  forms::CheckBox chkSameRights;  // what is changed is changed at every location
  forms::Button cmdLocation;      // the locations at which the login may be used
  forms::Grid FGrd;

  // Whether rights may be changed; says why not.
  std::function<bool()> MayModify = [this] { return editing::EditingForm::MayModify(*this); };

  // Who the rights belong to; 0 and no name for nobody yet.
  struct Login {
    std::int32_t id = 0;
    std::string name = {};
  };
  // Reads the rights at the chosen location; comes when the screen knows whether it may be changed. Throws
  // session::DatabaseError.
  void Read(const Login& login);
  // Shows the location that is chosen now.
  void Show();
  bool Unsaved() const;

  // The last word before a save. A new employee without rights gets the default ones.
  void GiveDefaults();
  // What was changed at one location may go for the others too.
  void AskAboutOthers();
  // Writes the login by `write_login`, which gives it as it is then, and what has changed of its rights: all of it or,
  // when anything is refused, nothing. Throws session::DatabaseError.
  void Save(const std::function<Login()>& write_login);

  // When the screen closes.
  void KeepLayout() { layout_.Keep(); }

 protected:
  std::string Scope() const override { return {}; }

 private:
  class Rows;
  // View, add and modify, delete, authorise: as the row's flags.
  using Access = std::bitset<4>;
  // Of one right at one location.
  struct Grant {
    Access stored;
    Access now;
    bool has_row = false;
  };
  // In the order of the catalogue.
  using Grants = std::vector<Grant>;

  void AddColumns();
  // Reads the location's rights where they are not known yet.
  Grants& At(std::int32_t location);
  // At every location that is chosen.
  Access ShownOf(std::size_t right) const;
  bool IsSupervisor(const Grants& grants) const;
  bool Edit(std::size_t column, bool on);
  void Put(std::int32_t location, std::size_t right, Access access);
  void MakeSame();
  bool MayMakeSame();
  void CopyToOthers(std::int32_t from, session::Product product);
  bool GivesNone(session::Product product);
  bool ChangesAt(std::int32_t location, session::Product product);
  std::vector<session::Product> Products() const;
  void EditLocations();
  void WriteName(const Login& login) const;
  void WriteGrants(const Login& login) const;
  void WriteGrant(const Login& login, std::int32_t location, std::size_t right, const Grant& grant) const;
  void LetInto(std::int32_t location, const Login& login) const;
  void MarkWritten();

  const EmployeeLocations& locations_;
  editing::KeptLayout layout_;
  std::vector<session::Right> catalogue_;
  std::size_t supervisor_ = 0;  // the place of "Supervisor Rights" in it; behind the last where it has none
  std::shared_ptr<Rows> rows_;
  Login login_;
  std::map<std::int32_t, Grants> grants_;                      // by location, those that were needed
  std::map<session::Product, std::set<std::int32_t>> edited_;  // where the person changed rights since the last save
};

}  // namespace people
