#pragma once

#include <windows.h>

#include <memory>

#include "forms/user.h"
#include "session/session.h"

namespace com {

// The person whom a host's call opens screens for.
class ScreenUser : public forms::User {
 public:
  // The screens of the call that begins stand before `owner`, or nullptr, and keep their places in `places`, or
  // nowhere; calls may be nested.
  virtual void BeginCall(HWND owner, std::shared_ptr<session::Settings> places) = 0;
  virtual void EndCall() = 0;
};

// Made by the library that holds the windows.
std::unique_ptr<ScreenUser> MakeScreenUser();

}  // namespace com
