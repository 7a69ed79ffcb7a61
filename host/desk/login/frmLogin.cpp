#include "login/frmLogin.h"

#include <algorithm>
#include <utility>

#include "data/statements.h"
#include "forms/text.h"
#include "practice/machine.h"
#include "practice/settings.h"

namespace host {
namespace {

constexpr const char* kFirst =
    "Nobody has a login here yet. The user name and password that you type are the first, with every right.";

constexpr const char* kNotFirst = "Somebody has made the first login here in the meantime. Please ask them for yours.";

// "Please wait 4 seconds before the next try."
std::string WaitText(std::chrono::seconds wait) {
  return "Please wait " + std::to_string(wait.count()) + (wait.count() == 1 ? " second" : " seconds") +
         " before the next try.";
}

frmLogin::OfficeChoice ChoiceOf(Practice& practice, std::int32_t office) {
  OfficeDatabase database(practice, office);
  const data::Statements statements(database);
  const bool vacant = !HasLogins(database);
  return {office,
          session::ToText(statements.SelectValue("SELECT OffLocNam FROM OffLocTable WHERE (OffLocID>0)" +
                                                 statements.Office() + " ORDER BY OffLocID")),
          vacant ? kFirst : ReadOfficeSetting(database, kDeskSection, kLoginHint), vacant};
}

}  // namespace

frmLogin::frmLogin(std::vector<OfficeChoice> offices, std::int32_t first_office, Check check, AddFirst add_first)
    : Form("frmLogin"),
      Office(first_office),
      offices_(std::move(offices)),
      check_(std::move(check)),
      add_first_(std::move(add_first)) {
  Caption = "Log In";
  Add("lblPractice", lblPractice);
  Add("lblUser", lblUser);
  Add("txtUser", txtUser);
  Add("lblPassword", lblPassword);
  Add("txtPassword", txtPassword);
  Add("lblOffice", lblOffice);
  Add("cboOffice", cboOffice);
  Add("lblHint", lblHint);
  Add("lblMessage", lblMessage);
  Add("DialogButtons1", DialogButtons1);
  txtUser.Heading = &lblUser;
  txtPassword.Heading = &lblPassword;
  cboOffice.Heading = &lblOffice;
  lblUser.Caption = "&User name";
  lblPassword.Caption = "&Password";
  lblOffice.Caption = "O&ffice";
  txtPassword.PasswordChar = '*';
  lblOffice.Visible = offices_.size() > 1;
  cboOffice.Visible = offices_.size() > 1;
  std::vector<forms::ListItem> items;
  items.reserve(offices_.size());
  for (const OfficeChoice& office : offices_) {
    items.push_back({"Office " + std::to_string(office.number), office.number});
  }
  cboOffice.Items = std::move(items);
  cboOffice.Click = [this] { ChooseOffice(); };
  cboOffice.ListIndex = cboOffice.IndexOfData(first_office);
  lblMessage.Visible = false;
  DialogButtons1.Help.Visible = false;
  DialogButtons1.OK.Caption = "&Log In";
  DialogButtons1.OK.Click = [this] { Try(); };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
  const auto log_in_on_enter = [this](forms::Key key) {
    if (key == forms::Key::Enter) {
      Try();
    }
    return key == forms::Key::Enter;
  };
  txtPassword.KeyDown = log_in_on_enter;
  cboOffice.KeyDown = log_in_on_enter;
  ChooseOffice();
}

void frmLogin::Remember(const std::string& user) {
  txtUser.Text = user;
  if (!user.empty()) {
    txtPassword.SetFocus();
  }
}

void frmLogin::LockFor(const std::string& user, std::int32_t office) {
  locked_ = true;
  cboOffice.ListIndex = cboOffice.IndexOfData(office);
  ChooseOffice();
  Caption = "Locked";
  Remember(user);
  txtUser.ReadOnly = true;
  cboOffice.Enabled = false;
  lblHint.Visible = false;
  DialogButtons1.OK.Caption = "&Unlock";
  DialogButtons1.Cancel.Visible = false;
}

void frmLogin::ChooseOffice() {
  if (const forms::ListItem* chosen = cboOffice.Current()) {
    Office = chosen->data;
  }
  const auto office = std::ranges::find(offices_, Office, &OfficeChoice::number);
  lblPractice.Caption = office == offices_.end() ? "" : office->practice;
  lblHint.Caption = office == offices_.end() ? "" : office->hint;
  lblHint.Visible = !lblHint.Caption.get().empty();
}

void frmLogin::Try() {
  const std::string name(forms::Trim(txtUser.Text.get()));
  if (name.empty()) {
    Refuse("Please type your user name.", txtUser);
    return;
  }
  LoginAnswer answer;
  try {
    if (!MakeFirst(name)) {
      return;
    }
    answer = check_(Office, name, txtPassword.Text);
  } catch (const session::DatabaseError& error) {
    Refuse(std::string("The practice database cannot be read: ") + error.what(), txtPassword);
    return;
  }
  if (answer) {
    Result = std::move(answer.login);
    Close();
    return;
  }
  Refuse("User name and password do not belong together." +
             (answer.wait.count() > 0 ? " " + WaitText(answer.wait) : std::string()),
         txtPassword);
}

bool frmLogin::MakeFirst(const std::string& name) {
  const auto office = std::ranges::find(offices_, Office, &OfficeChoice::number);
  if (office == offices_.end() || !office->vacant) {
    return true;
  }
  const std::string password = std::exchange(chosen_, txtPassword.Text);
  if (chosen_.empty()) {
    Refuse("Please type a password.", txtPassword);
  } else if (password != chosen_) {
    txtPassword.Text = "";
    Refuse(password.empty() ? "Please type the password once more."
                            : "The two passwords are not the same. Please type the last one once more.",
           txtPassword);
  } else {
    office->vacant = false;
    if (!add_first_(Office, name, password)) {
      office->hint = kNotFirst;
      ChooseOffice();
    }
    return true;
  }
  return false;
}

void frmLogin::Refuse(const std::string& why, forms::Control& field) {
  lblMessage.Caption = why;
  lblMessage.Visible = true;
  field.SetFocus();
}

frmLogin LoginOf(Practice& practice) {
  std::vector<frmLogin::OfficeChoice> offices;
  for (const std::int32_t office : practice.Offices()) {
    offices.push_back(ChoiceOf(practice, office));
  }
  return {std::move(offices), practice.Office(),
          [&practice](std::int32_t office, const std::string& name, const std::string& password) {
            OfficeDatabase database(practice, office);
            return LogIn(database, name, password, LocalNow());
          },
          [&practice](std::int32_t office, const std::string& name, const std::string& password) {
            return AddFirstLogin(practice, office, name, HashPassword(password));
          }};
}

}  // namespace host
