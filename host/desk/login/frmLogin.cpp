#include "login/frmLogin.h"

#include "forms/text.h"

namespace host {

frmLogin::frmLogin(const std::vector<std::int32_t>& offices, std::int32_t first_office, Check check)
    : Form("frmLogin"), Office(first_office), check_(std::move(check)) {
  Caption = "Log In";
  Add("lblUser", lblUser);
  Add("txtUser", txtUser);
  Add("lblPassword", lblPassword);
  Add("txtPassword", txtPassword);
  Add("lblOffice", lblOffice);
  Add("cboOffice", cboOffice);
  Add("lblMessage", lblMessage);
  Add("DialogButtons1", DialogButtons1);
  txtUser.Heading = &lblUser;
  txtPassword.Heading = &lblPassword;
  cboOffice.Heading = &lblOffice;
  lblUser.Caption = "&User name";
  lblPassword.Caption = "&Password";
  lblOffice.Caption = "O&ffice";
  txtPassword.PasswordChar = '*';
  lblOffice.Visible = offices.size() > 1;
  cboOffice.Visible = offices.size() > 1;
  std::vector<forms::ListItem> items;
  items.reserve(offices.size());
  items.reserve(offices.size());
  for (const std::int32_t office : offices) {
    items.push_back({"Office " + std::to_string(office), office});
  }
  cboOffice.Items = std::move(items);
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
}

void frmLogin::Try() {
  const std::string name(forms::Trim(txtUser.Text.get()));
  if (const forms::ListItem* office = cboOffice.Current()) {
    Office = office->data;
  }
  std::string refusal = name.empty() ? "Please type your user name." : "User name and password do not belong together.";
  try {
    Result = name.empty() ? std::nullopt : check_(Office, name, txtPassword.Text);
  } catch (const session::DatabaseError& error) {
    refusal = std::string("The practice database cannot be read: ") + error.what();
  }
  if (Result) {
    Close();
    return;
  }
  lblMessage.Caption = refusal;
  lblMessage.Visible = true;
  (name.empty() ? txtUser : txtPassword).SetFocus();
}

frmLogin LoginOf(Practice& practice) {
  return {practice.Offices(), practice.Office(),
          [&practice](std::int32_t office, const std::string& name, const std::string& password) {
            OfficeDatabase database(practice, office);
            return LogIn(database, name, password);
          }};
}

}  // namespace host
