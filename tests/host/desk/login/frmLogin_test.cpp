#include "login/frmLogin.h"

#include <gmock/gmock.h>

namespace {

using host::frmLogin;
using host::LoginAnswer;
using host::LoginResult;

// Lets "ann" in with "pw" and notes the office.
frmLogin::Check OnlyAnn(std::int32_t& office_asked) {
  return [&office_asked](std::int32_t office, const std::string& name, const std::string& password) {
    office_asked = office;
    return name == "ann" && password == "pw" ? LoginAnswer{LoginResult{5, 0, 0, {}}, {}}
                                             : LoginAnswer{std::nullopt, std::chrono::seconds(password.size() / 5)};
  };
}

TEST(FrmLogin, KeepsWhatWasTypedWhenRefused) {
  std::int32_t office = 0;
  frmLogin form({{1, "Bay Dental", ""}}, 1, OnlyAnn(office));
  form.txtUser.DoType(" ann ");
  form.txtPassword.DoType("no");
  form.DialogButtons1.OK.DoClick();
  EXPECT_FALSE(form.Closed());
  EXPECT_TRUE(form.lblMessage.Visible);
  EXPECT_EQ(form.lblMessage.Caption.get(), "User name and password do not belong together.");
  EXPECT_EQ(form.txtUser.Text.get(), " ann ");
  EXPECT_EQ(form.txtPassword.Text.get(), "no");
  EXPECT_TRUE(form.txtPassword.HasFocus());

  form.txtPassword.DoType("pw");
  form.txtPassword.DoKey(forms::Key::Enter);
  EXPECT_TRUE(form.Closed());
  ASSERT_TRUE(form.Result);
  EXPECT_EQ(form.Result->login, 5);
}

TEST(FrmLogin, AsksForAName) {
  std::int32_t office = 0;
  frmLogin form({{1, "Bay Dental", ""}}, 1, OnlyAnn(office));
  form.DialogButtons1.OK.DoClick();
  EXPECT_EQ(form.lblMessage.Caption.get(), "Please type your user name.");
  EXPECT_TRUE(form.txtUser.HasFocus());
  EXPECT_EQ(office, 0);
}

TEST(FrmLogin, MakesTheFirstLoginWhereNobodyHasOne) {
  std::int32_t office = 0;
  std::string made;
  frmLogin form({{1, "Bay Dental", "nobody", true}}, 1, OnlyAnn(office),
                [&](std::int32_t in, const std::string& name, const std::string& password) {
                  made = std::to_string(in) + name + password;
                  return true;
                });
  form.txtUser.DoType("ann");
  form.DialogButtons1.OK.DoClick();
  EXPECT_EQ(form.lblMessage.Caption.get(), "Please type a password.");
  for (const auto& [typed, message] :
       {std::pair{"pq", "Please type the password once more."},
        {"pw", "The two passwords are not the same. Please type the last one once more."}}) {
    form.txtPassword.DoType(typed);
    form.DialogButtons1.OK.DoClick();
    EXPECT_EQ(form.lblMessage.Caption.get(), message);
    EXPECT_EQ(form.txtPassword.Text.get(), "");
  }
  EXPECT_EQ(made, "");
  form.txtPassword.DoType("pw");
  form.DialogButtons1.OK.DoClick();
  EXPECT_EQ(made, "1annpw");
  EXPECT_TRUE(form.Closed());
}

TEST(FrmLogin, IsAnOrdinaryLoginWhenSomebodyElseMadeTheFirst) {
  std::int32_t office = 0;
  int tries = 0;
  frmLogin form({{1, "Bay Dental", "nobody", true}}, 1, OnlyAnn(office), [&](auto&&...) { return ++tries > 1; });
  form.txtUser.DoType("bob");
  for (int typed = 0; typed < 3; ++typed) {
    form.txtPassword.DoType("pq");
    form.DialogButtons1.OK.DoClick();
  }
  EXPECT_EQ(tries, 1);
  EXPECT_FALSE(form.Closed());
  EXPECT_THAT(form.lblHint.Caption.get(), testing::HasSubstr("in the meantime"));
  EXPECT_EQ(form.lblMessage.Caption.get(), "User name and password do not belong together.");
}

TEST(FrmLogin, OffersTheOfficesOfAPracticeThatHasSeveral) {
  std::int32_t office = 0;
  EXPECT_FALSE(frmLogin({{1, "Bay Dental", ""}}, 1, OnlyAnn(office)).cboOffice.Visible);
  frmLogin form({{1, "Bay", "hint"}, {2, "Hill", ""}, {7, "Lake", "ann, pw"}}, 2, OnlyAnn(office));
  EXPECT_TRUE(form.cboOffice.Visible);
  EXPECT_EQ(form.cboOffice.Text.get(), "Office 2");
  EXPECT_EQ(form.lblPractice.Caption.get(), "Hill");
  EXPECT_FALSE(form.lblHint.Visible);
  form.cboOffice.DoPick(2);
  EXPECT_EQ(form.lblPractice.Caption.get(), "Lake");
  EXPECT_EQ(form.lblHint.Caption.get(), "ann, pw");
  form.txtUser.DoType("ann");
  form.txtPassword.DoType("pw");
  form.DialogButtons1.OK.DoClick();
  EXPECT_EQ(office, 7);
  EXPECT_EQ(form.Office, 7);
}

TEST(FrmLogin, SaysWhenTheDatabaseCannotBeRead) {
  frmLogin form({{1, "Bay Dental", ""}}, 1,
                [](auto&&...) -> LoginAnswer { throw session::DatabaseError("disk I/O error", "SELECT", 10); });
  form.txtUser.DoType("ann");
  form.DialogButtons1.OK.DoClick();
  EXPECT_THAT(form.lblMessage.Caption.get(), testing::HasSubstr("disk I/O error"));
  EXPECT_FALSE(form.Closed());
}

TEST(FrmLogin, ALockedDeskOpensForItsUserOnly) {
  std::int32_t office = 0;
  frmLogin form({{1, "Bay Dental", ""}, {2, "Hill Dental", "hint"}}, 1, OnlyAnn(office));
  form.LockFor("ann", 2);
  EXPECT_EQ(form.lblPractice.Caption.get(), "Hill Dental");
  EXPECT_FALSE(form.lblHint.Visible);
  form.DoKey(forms::Key::Esc);
  EXPECT_FALSE(form.DoClose());
  EXPECT_TRUE(form.txtPassword.HasFocus());
  form.txtUser.DoType("bob");
  EXPECT_EQ(form.txtUser.Text.get(), "ann");
  form.txtPassword.DoType("wrong, and long");
  form.DialogButtons1.OK.DoClick();
  EXPECT_EQ(form.lblMessage.Caption.get(),
            "User name and password do not belong together. Please wait 3 seconds before the next try.");
  form.txtPassword.DoType("pw");
  form.txtPassword.DoKey(forms::Key::Enter);
  EXPECT_TRUE(form.Closed());
  EXPECT_EQ(office, 2);
}

TEST(FrmLogin, IsGivenUpByCancel) {
  std::int32_t office = 0;
  frmLogin form({{1, "Bay Dental", ""}}, 1, OnlyAnn(office));
  form.DoKey(forms::Key::Esc);
  EXPECT_TRUE(form.Closed());
  EXPECT_FALSE(form.Result);
}

}  // namespace
