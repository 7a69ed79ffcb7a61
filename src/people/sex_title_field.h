#pragma once

#include <string_view>

#include "editing/rules.h"
#include "forms/button.h"
#include "forms/text_box.h"
#include "forms/user_control.h"

namespace people {

// A person's sex and title, typed or picked from one list.
class SexTitleField : public forms::UserControl, private editing::Rules {
 public:
  // The screen's own controls.
  struct Parts {
    forms::TextBox& sex;
    forms::TextBox& title;
    forms::Button& list;
  };

  // `whose` they are in the confirmation: "this patient's", or nobody's; `list_title` is that of the list.
  SexTitleField(const session::ScreenContext& context, const Parts& parts, std::string_view whose,
                std::string_view list_title = "Sex and Title");

  const Parts& Fields() const { return parts_; }
  // False when the sex is neither F nor M: the person is told, and the focus is there. One that was stored so and is
  // not changed may stay.
  bool Take();
  // What the boxes show is the record's.
  void Show() { shown_ = parts_.sex.Text; }

 protected:
  bool OnKey(forms::Key key) override;

 private:
  // The focus then goes on, or stays where nothing was picked.
  void Pick();
  bool PickFromList();

  Parts parts_;
  std::string_view whose_;
  std::string_view list_title_;
  std::string shown_;
};

}  // namespace people
