#pragma once

#include <memory>
#include <string>
#include <vector>

#include "desk/public_classes.h"
#include "desk/public_screens.h"
#include "editing/lost_connection.h"
#include "login/frmLogin.h"
#include "practice/host_session.h"
#include "reminders/reminder_sender.h"
#include "views/wx_user.h"

namespace host {

// A practice open at a desk: the person in front of it, and the public classes with the session handed to them, which
// is taken back at the end.
class Desk {
 public:
  // The practice's files lie in the data folder, which may bring pictures of its own, the person's in `own_folder`;
  // `share_folder` holds the program's pictures.
  struct Folders {
    std::string data_folder;
    std::string own_folder;
    std::string share_folder;
  };
  Desk(Practice practice, const Folders& folders, const MakePublicClasses& make_classes);
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;
  ~Desk();

  // A desk of the same kind on another practice.
  std::unique_ptr<Desk> On(Practice practice) const;

  // Every view, the login's and the gallery's among them.
  static views::ViewRegistry Views();

  // Asks who works; false when given up. The public classes then serve that login.
  bool LogIn();
  void Open(const LoginResult& login, std::int32_t office);
  // Asks the user who is logged in for his password until he gives it.
  void AskForUser();

  // What every window stands before; nullptr for none.
  void SetMainWindow(wxWindow* window);

  views::WxUser& User() { return user_; }
  Practice& OfPractice() { return practice_; }
  // After a login.
  HostSession& Session() { return *session_; }
  session::ScreenContext Context() { return {*session_, user_, screens_}; }
  PublicClasses& Classes() { return *classes_; }

 private:
  // Of a session that sends its reminders.
  Surroundings Here();
  bool ShowReminderOptions();

  Practice practice_;
  Folders folders_;
  MakePublicClasses make_classes_;
  views::WxUser user_;
  editing::AskedOnLoss asked_on_loss_;
  std::unique_ptr<PublicClasses> classes_;
  PublicScreens screens_;
  std::shared_ptr<HostSession> session_;
  std::unique_ptr<ReminderSender> sender_;
};

}  // namespace host
