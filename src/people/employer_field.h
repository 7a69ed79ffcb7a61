#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "editing/rules.h"
#include "forms/button.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "forms/user_control.h"

namespace people {

// The employer that a person works for, with address and phone. The record keeps a link of the employer: the one that
// stands for no insurance coverage.
class EmployerField : public forms::UserControl, private editing::Rules {
 public:
  // The screen's own controls.
  struct Parts {
    forms::TextBox& box;  // only shows; another employer is searched for
    forms::Button& list;
    forms::Button& remove;
    std::array<forms::Label, 3>& details;  // street, place, phone
    forms::Label& link;                    // hidden
  };

  EmployerField(const session::ScreenContext& context, const Parts& parts);

  const Parts& Fields() const { return parts_; }
  // The person's name, for the question whether a new employer is to be his.
  std::function<std::string()> Whose;

  // Shows the employer whose link the label holds. Throws session::DatabaseError.
  void Show();

 protected:
  bool OnKey(forms::Key key) override;

 private:
  // Another employer in place of one with insurance would change the person's coverage.
  bool MayReplace() const;
  void Search();
  void Remove();
  void Add(const std::string& name);
  void Take(std::int32_t employer);

  Parts parts_;
  std::int32_t employer_ = 0;  // that is shown
};

}  // namespace people
