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
  host::Desk desk(std::move(practice), {}, {}, host::ClassesOfThisProgram);
  desk.Open({.login = 1, .person = 0, .location = 1, .rights = host::LoginRights("ann")}, 1);
  wxFrame frame(nullptr, wxID_ANY, "Reed, Rita");
  auto* page = new wxPanel(&frame);
  auto* unused = new wxPanel(page);
  unused->Hide();
  desk.SetMainWindow(&frame);
  frame.Show();
  bool seen = false;
  desk.User().OnShown = [&](wxDialog& dialog) {
    seen = true;
    EXPECT_EQ(frame.GetTitle(), "Locked");
    EXPECT_FALSE(page->IsShown());
    auto& login = dynamic_cast<host::frmLogin&>(dynamic_cast<views::FormDialog&>(dialog).Form());
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
