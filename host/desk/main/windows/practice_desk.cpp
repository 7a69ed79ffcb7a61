#include <wx/init.h>
#include <wx/msgdlg.h>
#include <wx/stdpaths.h>

#include <filesystem>

#include "automation/module.h"
#include "automation/wide_text.h"
#include "database/file_path.h"
#include "desk/desk_app.h"
#include "desk/desk_options.h"
#include "practice/data_folder.h"
#include "practice/machine.h"
#include "windows/component_classes.h"

namespace {

constexpr std::string_view kUsage =
    "practice_desk [--database URL]\n\n"
    "--database URL: the practice, as sqlite:PATH or odbc:CONNECTION-STRING; without it a demo practice in your local "
    "data folder.\n"
    "The editing screens are those of the TWSESC22.dll beside this program.";

void Tell(const std::string& what, long icon) {
  wxMessageBox(views::ToWx(what), "Practice Desk", wxOK | icon);
}

void Serve(host::DeskApp& app, const std::string& database) {
  const std::string folder = views::FromWx(wxStandardPaths::Get().GetUserLocalDataDir());
  std::filesystem::create_directories(host::FilePath(folder));
  auto practice = host::OpenOrMakeDemo(database, folder, host::DeskApp::kDemoPatients);
  app.Serve(std::make_unique<host::Desk>(
      std::move(practice),
      host::Desk::Folders{host::DataFolderOf(database, folder), folder, automation::ToUtf8(automation::ModuleFolder())},
      host::ClassesOfTheComponent));
}

// A wrong command line is told once the toolkit runs, as all the rest.
void Work(host::DeskApp& app) {
  const std::vector<std::string> words = host::ProgramArguments(0, nullptr);
  if (words.size() == 1 && words.front() == "--help") {
    Tell(std::string(kUsage), wxICON_INFORMATION);
    return;
  }
  const auto parsed = host::ParseDeskOptions(words);
  if (const auto* wrong = std::get_if<std::string>(&parsed)) {
    throw std::invalid_argument(*wrong + "\n\n" + std::string(kUsage));
  }
  const auto& options = std::get<host::DeskOptions>(parsed);
  if (!options.tour.empty() || options.scale != 0 || options.port != 0) {
    throw std::invalid_argument("Tours, scales and ports are for Linux.\n\n" + std::string(kUsage));
  }
  Serve(app, options.database);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE /*previous*/, char* /*command_line*/, int nShowCmd) {
  wxApp::SetInstance(new host::DeskApp(Work, [](const std::string& what) { Tell(what, wxICON_ERROR); }));
  return wxEntry(instance, nullptr, nullptr, nShowCmd);
}
