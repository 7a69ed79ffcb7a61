#pragma once

#include <array>
#include <functional>
#include <optional>
#include <set>
#include <string>

#include "data/record_binding.h"
#include "editing/Contacts.h"
#include "editing/rules.h"
#include "forms/button.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "forms/user_control.h"

namespace people {

// A person's home and work box, each showing the contact that is selected on its side, and the button to all of them.
class PhonePair : public forms::UserControl, private editing::Rules {
 public:
  // The screen's own controls; the boxes' headings name the contacts.
  struct Parts {
    forms::TextBox& home;
    forms::TextBox& work;
    forms::Button& contacts;
  };

  // The screen binds the boxes to the record's visible numbers. What is typed there goes into the contact that they
  // show as well, in the record's own statement.
  PhonePair(const session::ScreenContext& context, const Parts& parts, data::RecordBinding& record);

  const Parts& Fields() const { return parts_; }
  // Saves a new person, before his contacts are edited; false when that failed.
  std::function<bool()> SaveNew;
  // Of the question whether to save him.
  std::string_view SaveNewTitle = forms::kSuiteTitle;

  // Prepares the contacts of the record that was read, as `Contacts::Setup`, and labels the boxes. Throws
  // session::DatabaseError.
  void Setup();
  // Before the record is compared with its row or written: the contacts follow the boxes.
  void Follow();
  // The first home phone, when another one was typed or, since the last save, entered among the contacts.
  std::optional<std::string> NewHomePhone() const;
  bool HomePhoneEntered() const { return home_phone_entered_; }
  // The first home phone, shown or not.
  const std::string& HomePhone() const { return home_.contacts.front().Caption; }
  // After stored values took the place of what was typed: a contact's stored value shows in its box, below its name.
  // Throws session::DatabaseError.
  void ShowTaken();
  // After the record was written: stores what was typed. Throws session::DatabaseError, and Refusal when the person's
  // row is gone.
  void Save();

 private:
  // A box, and the columns behind it that nobody sees.
  struct SideFields {
    editing::Side side;
    forms::TextBox& box;
    forms::Label selected = {};
    std::array<forms::Label, editing::kContactCodes.size()> contacts = {};
  };
  std::array<SideFields*, 2> Sides() { return {&home_, &work_}; }
  void Bind(SideFields& side);
  // The contact that is selected in the row.
  std::size_t Selected(const SideFields& side) const;
  // The boxes' headings name the contacts that they show.
  void Label();
  void Refresh();
  void Edit();

  Parts parts_;
  data::RecordBinding& record_;
  editing::Contacts contacts_;
  SideFields home_{.side = editing::Side::Home, .box = parts_.home};
  SideFields work_{.side = editing::Side::Work, .box = parts_.work};
  std::set<editing::Side> typed_;
  bool home_phone_entered_ = false;  // among the contacts, where it is saved at once
};

}  // namespace people
