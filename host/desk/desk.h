#pragma once

#include <memory>
#include <string>
#include <vector>

#include "entry/dispatch.h"
#include "entry/form_catalog.h"
#include "login/frmLogin.h"
#include "practice/host_session.h"
#include "views/wx_user.h"

namespace host {

// A practice open at a desk: the person in front of it, and the public classes with the session handed to them.
class Desk {
 public:
  // The data folder may bring pictures of its own; `share_folder` holds the program's.
  Desk(Practice practice, const std::string& data_folder, const std::string& share_folder);

  // Every view, the login's among them.
  static views::ViewRegistry Views();

  // Asks who works; false when given up. The public classes then serve that login.
  bool LogIn();
  void Open(const LoginResult& login, std::int32_t office);

  views::WxUser& User() { return user_; }
  Practice& OfPractice() { return practice_; }
  // After a login.
  HostSession& Session() { return *session_; }
  session::ScreenContext Context() { return {*session_, user_, *screens_}; }
  entry::Dispatch EditingScreenMembers() { return entry::DispatchOf(editing_screen_); }
  entry::Dispatch LookUpListMembers() { return entry::DispatchOf(look_up_list_); }
  entry::LookUpList& Lists() { return look_up_list_; }

 private:
  Practice practice_;
  std::string data_folder_;
  views::WxUser user_;
  entry::EditingScreen editing_screen_{user_};
  entry::LookUpList look_up_list_{user_};
  std::shared_ptr<HostSession> session_;
  std::unique_ptr<session::Screens> screens_;
};

}  // namespace host
