#include <wx/init.h>
#include <wx/log.h>
#include <wx/msgdlg.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

#include <filesystem>
#include <iostream>
#include <optional>

#include "database/private_files.h"
#include "desk/desk_app.h"
#include "desk/desk_options.h"
#include "desk/tour.h"
#include "practice/data_folder.h"
#include "unix/displays.h"
#include "unix/temporary_folder.h"

namespace {

using host::DeskOptions;

constexpr std::string_view kUsage =
    "practice_desk [--database URL] [--files DIR] [--port N] [--tour DIR] [--scale 1|2]\n"
    "  --database URL  the practice, as sqlite:PATH, with its letters beside it, or as\n"
    "                  postgresql://USER@HOST/DATABASE; without it a demo practice in your data folder\n"
    "  --files DIR     where the practice's letters and templates lie; without it those of a practice on a server lie\n"
    "                  in your data folder\n"
    "  --port N        where a browser finds the windows; without it any port that is free\n"
    "  --tour DIR      opens every screen on demo data without showing it and writes a picture of each to DIR\n"
    "  --scale 1|2     size of the windows; a tour without it makes pictures of both, light and dark\n"
    "Without a display the windows are served to a browser on this machine, one page at a time. The address that is\n"
    "printed opens once; the browser is let in again until practice_desk ends.\n";

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
  try {
    host::MakePrivateFolder(folder);
  } catch (const std::filesystem::filesystem_error& error) {
    throw std::runtime_error("The data folder " + folder + " cannot be made: " + error.code().message() + ".");
  }
  return folder;
}

void Tour(const DeskOptions& options) {
  constexpr std::int32_t kPatients = 200;
  const host::TemporaryFolder temporary;
  host::Desk desk(host::OpenOrMakeDemo(options.database, temporary.Path(), kPatients),
                  {temporary.Path(), temporary.Path(), ShareFolder()}, host::ClassesOfThisProgram);
  if (!host::TakePictures(desk, options.tour)) {
    throw std::runtime_error("A picture could not be written to " + options.tour + ".");
  }
}

// Of the practice; a server knows nothing of it, so that it is made here.
std::string FilesFolder(const DeskOptions& options, const std::string& own_folder) {
  if (!options.files.empty()) {
    return options.files;
  }
  std::string folder = host::DataFolderOf(options.database, own_folder);
  host::MakePrivateFolder(folder);
  return folder;
}

void Serve(host::DeskApp& app, const DeskOptions& options) {
  const std::string folder = DataFolder();
  auto practice = host::OpenOrMakeDemo(options.database, folder, host::DeskApp::kDemoPatients);
  app.Serve(std::make_unique<host::Desk>(std::move(practice),
                                         host::Desk::Folders{FilesFolder(options, folder), folder, ShareFolder()},
                                         host::ClassesOfThisProgram));
}

// The window that stays is as large as the page.
void FitToPage(host::DeskApp& app) {
  if (auto* window = dynamic_cast<wxTopLevelWindow*>(app.GetTopWindow())) {
    window->Maximize();
  }
}

// One write, because the browser's server reports from a thread of its own.
void Report(const std::string& what) {
  std::cerr << "practice_desk: " + what + '\n';
}

void ReportInWindow(const std::string& what) {
  Report(what);
  wxMessageBox(views::ToWx(what), "Practice Desk", wxOK | wxICON_ERROR);
}

// The size of the windows and their colours hold for a process: one for each.
int TourInEveryLook(const std::string& program, const DeskOptions& options) {
  int status = 0;
  for (const char* theme : {"Adwaita", "Adwaita:dark"}) {
    setenv("GTK_THEME", theme, 1);
    for (const char* scale : {"1", "2"}) {
      std::vector<std::string> command = {program, "--tour", options.tour, "--scale", scale};
      if (!options.database.empty()) {
        command.insert(command.end(), {"--database", options.database});
      }
      status = std::max(status, host::ChildProcess(command).WaitForEnd());
    }
  }
  return status;
}

int Run(const std::string& program, const DeskOptions& options) {
  if (!options.tour.empty() && options.scale == 0) {
    return TourInEveryLook(program, options);
  }
  if (options.scale != 0) {
    setenv("GDK_SCALE", std::to_string(options.scale).c_str(), 1);
  }
  host::OwnDisplay display;
  const bool seen = host::HasDisplay();
  if (!seen) {
    display =
        options.tour.empty() ? host::ServeToBrowser("Practice Desk", options.port, Report) : host::HideFromEverybody();
  }
  if (display.page != nullptr) {
    // This display has no resolution of its own, which the toolkit makes good and complains of at every text.
    wxApp::GTKAllowDiagnosticsControl();
    wxApp::GTKSuppressDiagnostics();
    std::cout << "Open " << display.page->Address() << " in a browser on this machine." << std::endl;
  }
  // Of a display that it cannot reach the toolkit would tell in words of its own, and in a tour in windows nobody sees.
  std::optional<wxLogNull> quiet(std::in_place);
  const auto work = [&, in_browser = display.page != nullptr](host::DeskApp& app) {
    if (options.tour.empty()) {
      quiet.reset();
      Serve(app, options);
      if (in_browser) {
        FitToPage(app);
      }
    } else {
      Tour(options);
    }
  };
  wxApp::SetInstance(new host::DeskApp(work, seen && options.tour.empty() ? ReportInWindow : Report));
  int words = 1;
  std::string name = program;
  std::array<char*, 2> arguments = {name.data(), nullptr};
  const int status = wxEntry(words, arguments.data());
  if (status < 0) {
    throw std::runtime_error("The display that DISPLAY or WAYLAND_DISPLAY names cannot be reached.");
  }
  return status;
}

}  // namespace

int main(int count, char** words) {
  const std::vector<std::string> given(words + 1, words + count);
  if (given.size() == 1 && given.front() == "--help") {
    std::cout << kUsage;
    return 0;
  }
  const auto options = host::ParseDeskOptions(given);
  if (const auto* wrong = std::get_if<std::string>(&options)) {
    std::cerr << *wrong << '\n' << kUsage;
    return 2;
  }
  try {
    return Run(words[0], std::get<DeskOptions>(options));
  } catch (const std::exception& error) {
    Report(error.what());
    return 1;
  }
}
