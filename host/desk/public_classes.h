#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "entry/dispatch.h"
#include "forms/user.h"
#include "practice/host_session.h"

class wxWindow;

namespace host {

// The public classes `EditingScreen` and `LookUpList`, an instance of each, by the names of their members.
class PublicClasses {
 public:
  PublicClasses() = default;
  PublicClasses(const PublicClasses&) = delete;
  PublicClasses& operator=(const PublicClasses&) = delete;
  virtual ~PublicClasses() = default;

  // A list's event by its name, with its arguments as text ("New, 17").
  std::function<void(const std::string& event, const std::string& arguments)> OnEvent;
  // A list has closed for a command of the suite's ("Patient"), on the record that the designation begins with.
  std::function<void(const std::string& where_to, const std::string& designation)> OnSwapModule;

  virtual entry::Dispatch EditingScreen() = 0;
  virtual entry::Dispatch LookUpList() = 0;
  // The session that the screens work in; nullptr takes it back.
  virtual void HandOver(std::shared_ptr<HostSession> session) = 0;
  // The window that the screens stand before; nullptr for none.
  virtual void SetOwner(wxWindow* window) = 0;

 protected:
  // Passes an event on to who listens.
  void Hear(const std::string& event, const std::vector<std::string>& arguments) const;
};

// Makes the classes for the person at the host's own windows.
using MakePublicClasses = std::function<std::unique_ptr<PublicClasses>(forms::User& user)>;

// The classes as a part of this program.
std::unique_ptr<PublicClasses> ClassesOfThisProgram(forms::User& user);

}  // namespace host
