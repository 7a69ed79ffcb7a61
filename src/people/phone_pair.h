#pragma once

#include <array>
#include <functional>

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

  // The boxes are bound to the record's visible numbers.
  PhonePair(const session::ScreenContext& context, const Parts& parts, data::RecordBinding& record);

  const Parts& Fields() const { return parts_; }
  // Saves a new person, before his contacts are edited; false when that failed.
  std::function<bool()> SaveNew;

  // Reads the contacts of the record, as `Contacts::Setup`, and labels the boxes. Throws session::DatabaseError.
  void Setup();
  // Stores what the boxes show. Throws session::DatabaseError, and Refusal when the person's row is gone.
  void Save();

 private:
  struct Box {
    editing::Side side;
    forms::TextBox& text;
  };
  std::array<Box, 2> Boxes() const {
    return {Box{editing::Side::Home, parts_.home}, Box{editing::Side::Work, parts_.work}};
  }
  void Edit();

  Parts parts_;
  data::RecordBinding& record_;
  editing::Contacts contacts_;
};

}  // namespace people
