#include "desk/desk_app.h"

#include <wx/image.h>

#include "desk/main_frame.h"
#include "practice/demo.h"
#include "practice/demo_files.h"

namespace host {

Practice OpenOrMakeDemo(const std::string& url, const std::string& folder, std::int32_t patients) {
  const std::string demo = "sqlite:" + folder + "/demo.sqlite";
  if (!url.empty()) {
    return url.starts_with("sqlite:") ? Practice(url) : OpenOrCreatePractice(url);
  }
  if (!IsVacant(demo)) {
    return Practice(demo);
  }
  DemoOptions options;
  options.patients = patients;
  WriteDemoFiles(folder);
  return MakeDemo(demo, options);
}

DeskApp::DeskApp(std::function<void(DeskApp&)> work, std::function<void(const std::string&)> report)
    : work_(std::move(work)), report_(std::move(report)) {}

void DeskApp::Serve(std::unique_ptr<Desk> desk) {
  desk_ = std::move(desk);
  if (desk_->OfPractice().ReadOnly()) {
    desk_->User().Tell(
        "The practice database is protected against writing. Everything can be looked at, and nothing changed.",
        std::string(forms::kSuiteTitle), forms::Icon::Information);
  }
  OpenForSomebody(nullptr);
}

void DeskApp::OpenForSomebody(MainFrame* before) {
  if (!desk_->LogIn()) {
    return;
  }
  if (before != nullptr) {
    before->Retire();
  }
  auto* frame = new MainFrame(
      *desk_, [this] { CallAfter([this] { OpenForSomebody(dynamic_cast<MainFrame*>(GetTopWindow())); }); });
  desk_->SetMainWindow(frame);
  SetTopWindow(frame);
  SetExitOnFrameDelete(true);
  frame->Show();
  frame->Raise();
  lock_ = std::make_unique<IdleLock>(*desk_);
}

bool DeskApp::OnInit() {
  SetAppName("practice_desk");
  wxInitAllImageHandlers();
  SetExitOnFrameDelete(false);
  CallAfter([this] { Work(); });
  return true;
}

void DeskApp::Work() {
  try {
    work_(*this);
  } catch (const std::exception& error) {
    report_(error.what());
    status_ = 1;
  }
  if (!GetExitOnFrameDelete()) {
    ExitMainLoop();
  }
}

int DeskApp::OnRun() {
  const int status = wxApp::OnRun();
  return status_ != 0 ? status_ : status;
}

int DeskApp::OnExit() {
  lock_.reset();
  desk_.reset();
  return wxApp::OnExit();
}

bool DeskApp::OnExceptionInMainLoop() {
  std::string what = "This command could not be carried out.";
  try {
    throw;
  } catch (const session::DatabaseError& error) {
    if (error.given_up) {
      return true;
    }
    what = error.Told();
  } catch (const std::exception& error) {
    what += "\r\r" + std::string(error.what());
  } catch (...) {  // it says nothing about itself
  }
  if (desk_ != nullptr) {
    desk_->User().Tell(what, std::string(forms::kSuiteTitle), forms::Icon::Critical);
  } else {
    report_(what);
  }
  return true;
}

}  // namespace host
