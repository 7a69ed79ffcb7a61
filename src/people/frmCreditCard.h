#pragma once

#include <cstdint>
#include <string>

#include "data/record_binding.h"
#include "editing/editing_form.h"
#include "forms/button.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/text_box.h"

namespace people {

// Enters the credit card of a saved person, or removes it. The number is masked as it is typed, and the stored one but
// for its last four digits.
class frmCreditCard : public editing::EditingForm {
 public:
  static constexpr std::string_view kRight = "CC_CAN_ADD_NEW";

  explicit frmCreditCard(const session::ScreenContext& context);

  std::int32_t pID = 0;

  forms::TextBox txtType;
  forms::TextBox txtNumber;  // a new number; empty keeps the stored one
  forms::Label lblType;
  forms::Label lblNumber;
  forms::Label lblStored;
  forms::Button cmdRemove;
  forms::DialogButtons DialogButtons1;

 protected:
  void Read() override;
  bool Differs() const override { return record_.Changed(); }
  bool Check() override;
  void OnTaken() override;

 private:
  void Register();
  void Follow();
  void Leave();
  void Write();
  void Remove();
  void ShowStored();

  data::RecordBinding record_;
  forms::Label number_;   // whole, and never shown
  bool removed_ = false;  // by the next save, unless another number is typed
};

}  // namespace people
