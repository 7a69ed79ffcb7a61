#include "login/frmLogin.h"

#include <algorithm>

#include "data/statements.h"
#include "forms/text.h"
#include "practice/machine.h"
#include "practice/settings.h"

namespace host {
namespace {

// "Please wait 4 seconds before the next try."
std::string WaitText(std::chrono::seconds wait) {
  return "Please wait " + std::to_string(wait.count()) + (wait.count() == 1 ? " second" : " seconds") +
         " before the next try.";
}

frmLogin::OfficeChoice ChoiceOf(Practice& practice, std::int32_t office) {
  OfficeDatabase database(practice, office);
  const data::Statements statements(database);
  return {office,
          session::ToText(statements.SelectValue("SELECT OffLocNam FROM OffLocTable WHERE (OffLocID>0)" +
                                                 statements.Office() + " ORDER BY OffLocID")),
          ReadOfficeSetting(database, kDeskSection, kLoginHint)};
}

}  // namespace

frmLogin::frmLogin(std::vector<OfficeChoice> offices, std::int32_t first_office, Check check)
    : Form("frmLogin"), Office(first_office), offices_(std::move(offices)), check_(std::move(check)) {
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
          }};
}

}  // namespace host
