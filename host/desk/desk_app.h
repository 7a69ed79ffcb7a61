#pragma once

#include <wx/app.h>

#include <functional>
#include <memory>
#include <string>

#include "desk/desk.h"
#include "desk/idle_lock.h"

namespace host {

class MainFrame;

// The practice of the URL, made in an empty database of a server; a demo practice in the folder, made when it is not
// there yet, for an empty URL.
Practice OpenOrMakeDemo(const std::string& url, const std::string& folder, std::int32_t patients);

// The program on its toolkit. Its exit status is 1 when the work failed.
class DeskApp : public wxApp {
 public:
  // `work` runs once the toolkit does. It serves a desk, or does all that it has to do before it returns; what it
  // throws is given to `report`, and ends the program.
  DeskApp(std::function<void(DeskApp&)> work, std::function<void(const std::string&)> report);

  static constexpr std::int32_t kDemoPatients = 2000;

  // Asks who works and opens the main window; the program ends with it, or when no one logs in.
  void Serve(std::unique_ptr<Desk> desk);

  bool OnInit() override;
  int OnRun() override;
  int OnExit() override;
  // What a command throws is told to the person.
  bool OnExceptionInMainLoop() override;

 private:
  void Work();
  // Asks who works, and opens the main window for him in place of the one before, nullptr for none.
  void OpenForSomebody(MainFrame* before);

  std::function<void(DeskApp&)> work_;
  std::function<void(const std::string&)> report_;
  std::unique_ptr<Desk> desk_;
  std::unique_ptr<IdleLock> lock_;
  int status_ = 0;
};

}  // namespace host
