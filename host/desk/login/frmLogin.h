#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

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
  struct OfficeChoice {
    std::int32_t number = 0;
    std::string practice;  // its name
    std::string hint;      // what to type, on a practice that is for trying out
    bool vacant = false;   // nobody has a login yet: the first is made here
  };
  // Opens the login of a practice's office.
  using Check = std::function<LoginAnswer(std::int32_t office, const std::string& name, const std::string& password)>;

  // Makes the first login of an office, a supervisor's; its password has been typed twice. False when somebody else has
  // made it meanwhile.
  using AddFirst = std::function<bool(std::int32_t office, const std::string& name, const std::string& password)>;

  frmLogin(std::vector<OfficeChoice> offices, std::int32_t first_office, Check check, AddFirst add_first = {});

  // Set before it is shown: who worked here last.
  void Remember(const std::string& user);
  // The same window for a desk that locked itself: it opens for its user in his office only, and cannot be given up.
  void LockFor(const std::string& user, std::int32_t office);

  forms::Label lblPractice;
  forms::Label lblUser;
  forms::TextBox txtUser;
  forms::Label lblPassword;
  forms::TextBox txtPassword;
  forms::Label lblOffice;
  forms::ComboBox cboOffice;  // seen where the practice has several
  forms::Label lblHint;
  forms::Label lblMessage;  // why the last try failed
  forms::DialogButtons DialogButtons1;

  // Nothing when given up.
  std::optional<LoginResult> Result;
  std::int32_t Office;

 protected:
  bool QueryClose() override { return !locked_ || Result; }

 private:
  void ChooseOffice();
  void Try();
  // Whether the office of nobody has its first login now, whosever.
  bool MakeFirst(const std::string& name);
  void Refuse(const std::string& why, forms::Control& field);

  std::vector<OfficeChoice> offices_;
  Check check_;
  AddFirst add_first_;
  bool locked_ = false;
  std::string chosen_;  // password of the first login, to be typed once more
};

// A login form over the practice's own logins, at the machine's time.
frmLogin LoginOf(Practice& practice);

}  // namespace host
