#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "data/record_binding.h"
#include "editing/editing_form.h"
#include "editing/rules.h"
#include "forms/button.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "forms/user_control.h"

namespace people {

// An employee's login: its name, which no other login of the office has, and its password, of which only the form that
// the host gives it goes anywhere. All but the fields' own rules throw session::DatabaseError.
class LoginName : public forms::UserControl, private editing::Rules {
 public:
  // The screen's own controls.
  struct Parts {
    forms::TextBox& box;
    forms::Button& password;
    forms::Label& state;  // whether a password waits to be stored
  };
  // Whose login it is.
  struct Person {
    std::int32_t id = 0;  // 0 before he is written
    std::string last;
    std::string first;
  };

  LoginName(const session::ScreenContext& context, const Parts& parts, std::function<Person()> whose);

  const Parts& Fields() const { return parts_; }
  data::RecordBinding& Record() { return record_; }

  // The person's login; ID 0 reads none.
  void Read(std::int32_t person);
  // One that was entered before its employee.
  void ReadEntered(std::int32_t login);
  // 0 while there is none.
  std::int32_t Id() const { return record_.Id(); }
  // The name that it has in the database; its rights carry it.
  const std::string& StoredName() const { return record_.Stored(parts_.box); }
  // Whether the login may be changed; says why not.
  std::function<bool()> MayModify = [this] { return editing::EditingForm::MayModify(*this); };
  // A name or a password that is not saved yet.
  bool Pending() const { return record_.Changed() || !storable_.empty(); }

  // Takes the name that was typed: one that is taken gives way to a proposed one, and the person is told. False when
  // it cannot stay, and the focus is there.
  bool Take();
  // Puts the proposed name in where there is none.
  void Propose();

  // Steps of saving. A login is to be made, and belongs to nobody yet.
  bool IsNew() const { return Id() == 0 && !parts_.box.Text->empty(); }
  bool BelongsToNobody() const { return IsNew() || entered_; }
  // Its ID. A save that is broken off leaves no login that is nobody's.
  std::int32_t Insert(std::int32_t person);
  void Link(std::int32_t person);
  // At the office's first location, where it has none.
  void Locate();
  // The name and the password; what is written counts as stored when the whole of it stands.
  void Write() const;
  void MarkWritten();

 private:
  bool Taken(const std::string& name) const;
  std::string Proposed() const;
  void TakeFree();
  void AskPassword();
  void ReadState();
  void ShowState();

  Parts parts_;
  std::function<Person()> whose_;
  forms::Label person_;  // of the row
  data::RecordBinding record_;
  std::string storable_;  // of the password that was typed; empty for none
  bool entered_ = false;
  bool has_password_ = false;
};

// The condition for the rights of a login. Logins that had their name together before names were unique keep theirs
// apart by number.
data::Sql RightsOf(const data::Statements& statements, std::int32_t login, const std::string& name);

}  // namespace people
