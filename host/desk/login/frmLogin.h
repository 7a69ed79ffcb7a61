#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/text_box.h"
#include "practice/logins.h"
#include "practice/practice.h"

namespace host {

// Who works, and in which office of the practice. A refusal leaves what was typed.
class frmLogin : public forms::Form {
 public:
  // Opens the login of a practice's office.
  using Check = std::function<std::optional<LoginResult>(std::int32_t office, const std::string& name,
                                                         const std::string& password)>;

  frmLogin(const std::vector<std::int32_t>& offices, std::int32_t first_office, Check check);

  forms::Label lblUser;
  forms::TextBox txtUser;
  forms::Label lblPassword;
  forms::TextBox txtPassword;
  forms::Label lblOffice;
  forms::ComboBox cboOffice;  // seen where the practice has several
  forms::Label lblMessage;    // why the last try failed
  forms::DialogButtons DialogButtons1;

  // Nothing when given up.
  std::optional<LoginResult> Result;
  std::int32_t Office;

 private:
  void Try();

  Check check_;
};

// A login form over the practice's own logins.
frmLogin LoginOf(Practice& practice);

}  // namespace host
