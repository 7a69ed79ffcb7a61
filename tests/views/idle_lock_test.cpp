#include "desk/idle_lock.h"

#include <gtest/gtest.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include "practice/logins.h"
#include "views/form_dialog.h"

namespace {

TEST(IdleLock, HidesWhatWindowsShowUntilItsUserIsBack) {
  host::Practice practice = host::CreatePractice("sqlite::memory:");
  host::OfficeDatabase office(practice, 1);
  host::AddLogin(office, {"ann", host::HashPassword("pw", host::HashCost::Least), 0, {1}, {}});
  host::Desk desk(std::move(practice), {}, host::ClassesOfThisProgram);
  desk.Open({.login = 1, .person = 0, .location = 1, .rights = host::LoginRights("ann")}, 1);
  wxFrame frame(nullptr, wxID_ANY, "Reed, Rita");
  auto* page = new wxPanel(&frame);
  auto* unused = new wxPanel(page);
  unused->Hide();
  desk.SetMainWindow(&frame);
  frame.Show();
  const auto run = [&](const char* sql) { desk.OfPractice().Database().connection->Execute(sql); };
  run("ALTER TABLE OffLocTable RENAME TO Unreadable");
  bool seen = false;
  desk.User().OnShown = [&](wxDialog& dialog) {
    EXPECT_EQ(frame.GetTitle(), "Locked");
    EXPECT_FALSE(page->IsShown());
    auto* shown = dynamic_cast<views::FormDialog*>(&dialog);
    if (shown == nullptr) {  // told that the logins cannot be read
      run("ALTER TABLE Unreadable RENAME TO OffLocTable");
      dialog.EndModal(wxID_OK);
      return;
    }
    seen = true;
    auto& login = dynamic_cast<host::frmLogin&>(shown->Form());
    EXPECT_FALSE(login.DoClose());
    login.txtPassword.DoType("no");
    login.DialogButtons1.OK.DoClick();
    EXPECT_FALSE(login.Closed());
    login.txtPassword.DoType("pw");
    login.DialogButtons1.OK.DoClick();
  };
  host::IdleLock lock(desk);
  lock.Lock();
  EXPECT_TRUE(seen);
  EXPECT_EQ(frame.GetTitle(), "Reed, Rita");
  EXPECT_TRUE(page->IsShown());
  EXPECT_FALSE(unused->IsShown());
  desk.SetMainWindow(nullptr);
}

}  // namespace
