#include <wx/app.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/stdpaths.h>

#include <filesystem>
#include <iostream>

#include "desk/desk_options.h"
#include "desk/main_frame.h"
#include "desk/tour.h"
#include "practice/demo.h"
#include "unix/displays.h"

namespace {

using host::DeskOptions;

// The pictures and what else comes with the program.
std::string ShareFolder() {
  return host::ProgramFolder() + "/../share";
}

// "~/.local/share/practice_desk", or where the person keeps such things.
std::string DataFolder() {
  wxStandardPaths::Get().SetFileLayout(wxStandardPaths::FileLayout_XDG);
  wxString base;
  if (!wxGetEnv("XDG_DATA_HOME", &base) || base.empty()) {
    base = wxGetHomeDir() + "/.local/share";
  }
  std::string folder = views::FromWx(base) + "/practice_desk";
  std::filesystem::create_directories(folder);
  return folder;
}

host::Practice OpenOrMakeDemo(const std::string& folder, std::int32_t patients) {
  const std::string url = "sqlite:" + folder + "/demo.sqlite";
  if (!host::IsVacant(url)) {
    return host::Practice(url);
  }
  host::DemoOptions options;
  options.patients = patients;
  return host::MakeDemo(url, options);
}

// A folder that goes when this goes.
class TemporaryFolder {
 public:
  TemporaryFolder() : path_((std::filesystem::temp_directory_path() / "practice_desk-XXXXXX").string()) {
    if (mkdtemp(path_.data()) == nullptr) {
      throw std::runtime_error("No folder can be made in " + std::filesystem::temp_directory_path().string() + ".");
    }
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

class DeskApp : public wxApp {
 public:
  explicit DeskApp(DeskOptions options) : options_(std::move(options)) {}

  bool OnInit() override {
    SetAppName("practice_desk");
    wxInitAllImageHandlers();
    SetExitOnFrameDelete(false);
    CallAfter([this] { Work(); });
    return true;
  }

  int OnRun() override {
    const int status = wxApp::OnRun();
    return status_ != 0 ? status_ : status;
  }

 private:
  void Work() {
    try {
      if (options_.tour.empty()) {
        Serve();
        return;
      }
      Tour();
    } catch (const std::exception& error) {
      std::cerr << "practice_desk: " << error.what() << '\n';
      status_ = 1;
    }
    ExitMainLoop();
  }

  void Serve() {
    const std::string folder = DataFolder();
    desk_ = std::make_unique<host::Desk>(
        options_.database.empty() ? OpenOrMakeDemo(folder, kDemoPatients) : host::Practice(options_.database), folder,
        ShareFolder());
    if (!desk_->LogIn()) {
      ExitMainLoop();
      return;
    }
    auto* frame = new host::MainFrame(*desk_);
    desk_->User().SetMainWindow(frame);
    SetTopWindow(frame);
    SetExitOnFrameDelete(true);
    frame->Show();
    frame->Raise();
  }

  void Tour() const {
    const TemporaryFolder temporary;
    host::Desk desk(
        options_.database.empty() ? OpenOrMakeDemo(temporary.Path(), kTourPatients) : host::Practice(options_.database),
        temporary.Path(), ShareFolder());
    if (!host::TakePictures(desk, options_.tour)) {
      throw std::runtime_error("A picture could not be written to " + options_.tour + ".");
    }
  }

  static constexpr std::int32_t kDemoPatients = 2000;
  static constexpr std::int32_t kTourPatients = 200;

  DeskOptions options_;
  std::unique_ptr<host::Desk> desk_;
  int status_ = 0;
};

// A size of the windows holds for a process: one for each.
int TourInBothSizes(const std::string& program, const DeskOptions& options) {
  int status = 0;
  for (const char* scale : {"1", "2"}) {
    std::vector<std::string> command = {program, "--tour", options.tour, "--scale", scale};
    if (!options.database.empty()) {
      command.insert(command.end(), {"--database", options.database});
    }
    status = std::max(status, host::ChildProcess(command).WaitForEnd());
  }
  return status;
}

int Run(const std::string& program, const DeskOptions& options) {
  if (!options.tour.empty() && options.scale == 0) {
    return TourInBothSizes(program, options);
  }
  if (options.scale != 0) {
    setenv("GDK_SCALE", std::to_string(options.scale).c_str(), 1);
  }
  host::OwnDisplay display;
  if (!host::HasDisplay()) {
    display = options.tour.empty() ? host::ServeToBrowser() : host::HideFromEverybody();
  }
  if (!display.address.empty()) {
    // This display has no resolution of its own, which the toolkit makes good and complains of at every text.
    wxApp::GTKAllowDiagnosticsControl();
    wxApp::GTKSuppressDiagnostics();
    std::cout << "Open " << display.address << " in a browser on this machine." << std::endl;
  }
  auto* app = new DeskApp(options);
  wxApp::SetInstance(app);
  int words = 1;
  std::string name = program;
  std::array<char*, 2> arguments = {name.data(), nullptr};
  return wxEntry(words, arguments.data());
}

}  // namespace

int main(int count, char** words) {
  const std::vector<std::string> given(words + 1, words + count);
  if (given.size() == 1 && given.front() == "--help") {
    std::cout << host::kDeskUsage;
    return 0;
  }
  const auto options = host::ParseDeskOptions(given);
  if (const auto* wrong = std::get_if<std::string>(&options)) {
    std::cerr << *wrong << '\n' << host::kDeskUsage;
    return 2;
  }
  try {
    return Run(words[0], std::get<DeskOptions>(options));
  } catch (const std::exception& error) {
    std::cerr << "practice_desk: " << error.what() << '\n';
    return 1;
  }
}
