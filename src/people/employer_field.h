#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "data/record_binding.h"
#include "editing/rules.h"
#include "forms/button.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "forms/user_control.h"

namespace people {

// The employer that a person works for, with address and phone. The record keeps a link of the employer: the one that
// stands for no insurance coverage, which a save opens where the employer has none yet. Another employer is typed, and
// searched for.
class EmployerField : public forms::UserControl, private editing::Rules {
 public:
  // The screen's own controls.
  struct Parts {
    forms::TextBox& box;
    forms::Button& list;
    forms::Button& remove;
    std::array<forms::Label, 3>& details;  // street, place, phone
    forms::Label& link;                    // hidden
  };

  // The record is the person's, with the label as the first of his places for employers.
  EmployerField(const session::ScreenContext& context, const Parts& parts, const data::RecordBinding& record);

  const Parts& Fields() const { return parts_; }
  // The person's name, for the question whether a new employer is to be his.
  std::function<std::string()> Whose;

  // Shows the employer whose link the label holds. Throws session::DatabaseError.
  void Show();
  // The employer's link is still to be opened: a step of the save, before the record is written.
  bool MustOpenLink() const;
  // Throws session::DatabaseError.
  void OpenLink();

 protected:
  bool OnKey(forms::Key key) override;

 private:
  // Another employer in place of one with insurance would change the person's coverage.
  bool MayReplace() const;
  bool Typed() const { return parts_.box.Text.get() != name_; }
  void TakeTyped();
  // False when the employer stays as he is.
  bool Search(const std::string& typed);
  bool Remove();
  bool Add(const std::string& name);
  bool Take(std::int32_t employer);
  // The other place of the person that names the employer already; 0 for none.
  std::size_t OtherPlaceOf(std::int32_t employer) const;

  Parts parts_;
  const data::RecordBinding& record_;
  std::int32_t employer_ = 0;  // that is shown
  std::string name_;           // his
};

}  // namespace people
