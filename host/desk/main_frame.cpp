#include "desk/main_frame.h"

#include <wx/display.h>
#include <wx/menu.h>

#include "desk/change_list.h"
#include "desk/developer_console.h"
#include "desk/frmHome_view.h"
#include "forms/text.h"
#include "views/placing.h"

namespace host {
namespace {

using views::ToWx;

// The practice's first location gives it its name.
std::string PracticeName(HostSession& session) {
  const data::Statements statements(session);
  std::string name = session::ToText(statements.SelectValue(
      "SELECT TOP 1 OffLocNam FROM OffLocTable WHERE (OffLocID <> 0)" + statements.Office() + " ORDER BY OffLocID"));
  return name.empty() ? "Practice" : name;
}

}  // namespace

HomeOfDesk::HomeOfDesk(Desk& desk) : home(desk.Context(), PracticeName(desk.Session())) {
  home.CallMethod = [&desk](std::string_view name, std::int32_t patient) {
    const entry::Dispatch screens = desk.Classes().EditingScreen();
    const entry::Method* method = screens.Find(name);
    entry::Arguments arguments;
    if (!method->parameters.empty() && method->parameters.front().name == "PatientID") {
      arguments[method->parameters.front().name] = std::to_string(patient);
    }
    method->invoke(arguments);
  };
  desk.Session().OnHandOff = [this](const HandOff& record) {
    if (forms::EqualsIgnoringCase(record.table, "PaTable")) {
      home.PatientSaved(record.id);
    }
  };
  desk.Classes().OnSwapModule = [this](const std::string& where_to, const std::string& designation) {
    home.GoTo(where_to, session::ToId(session::Value(designation.substr(0, designation.find(',')))));
  };
  home.Load();
}

MainFrame::MainFrame(Desk& desk, const std::function<void()>& switch_user)
    : HomeOfDesk(desk),
      wxFrame(nullptr, wxID_ANY, ToWx(home.Caption.get())),
      FormWindow(*this, home, desk.User(), desk.User().Pictures(), &desk.Session()),
      desk_(desk) {
  SetName("practice_desk");
#ifdef __WXMSW__
  SetIcons(wxIconBundle("a_practice_desk", nullptr));
#endif
  MakeMenus(switch_user);
  LayOut_frmHome(*this, home);
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
    SaveScreenPosition();
    home.Close();
    event.Skip();
  });
  Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
    event.Skip();
    if (event.GetActive() && !Covered()) {
      desk_.SetMainWindow(this);
    }
  });
  // A browser's page may become smaller, and is first known when a browser has come.
  Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    event.Skip();
    if (const wxSize screen = wxGetDisplaySize(); screen != screen_) {
      screen_ = screen;
      views::KeepOnDisplay(*this);
    }
  });
  Prepare(FromDIP(wxSize(1250, 650)));
  views::KeepOnDisplay(*this);
}

void MainFrame::Retire() {
  SetCovered(true);
  home.Close();
  Hide();
  Destroy();
}

wxMenuItem* MainFrame::AddItem(wxMenu& menu, const wxString& text, std::function<void()> act) {
  wxMenuItem* item = menu.Append(wxID_ANY, text);
  if (wxAcceleratorEntry key; text.Contains("\t") && key.FromString(text)) {
    key.Set(key.GetFlags(), key.GetKeyCode(), item->GetId());
    keys_.push_back(key);
  }
  Bind(
      wxEVT_MENU, [act = std::move(act)](wxCommandEvent&) { act(); }, item->GetId());
  return item;
}

void MainFrame::MakeMenus(const std::function<void()>& switch_user) {
  auto* bar = new wxMenuBar;
  auto* practice = new wxMenu;
  AddItem(*practice, "&Switch User...", [this, switch_user] {
    SaveScreenPosition();
    switch_user();
  });
  const bool supervisor = desk_.Session().HasRight(kSupervisorRight);
  AddItem(*practice, supervisor ? "&Change Log..." : "&Change Log...  (needs the right \"Supervisor Rights\")", [this] {
    ShowChangeList(desk_.Context());
  })->Enable(supervisor);
  practice->AppendSeparator();
  AddItem(*practice, "E&xit\tCtrl+Q", [this] { Close(); });
  bar->Append(practice, "&Practice");
  wxMenu* menu = nullptr;
  std::string_view title;
  for (const DeskCommand& command : DeskCommands()) {
    if (command.menu != title) {
      title = command.menu;
      menu = new wxMenu;
      bar->Append(menu, ToWx(title));
    } else if (command.apart) {
      menu->AppendSeparator();
    }
    const std::string obstacle = home.Obstacle(command);
    const std::string text = std::string(command.caption) + (obstacle.empty() ? "" : "  (" + obstacle + ")") +
                             (command.key.empty() ? "" : "\t" + std::string(command.key));
    AddItem(*menu, ToWx(text), [this, &command] { home.Do(command); })->Enable(obstacle.empty());
  }
  auto* help = new wxMenu;
  AddItem(*help, "&Keys\tF1", [this] { ShowKeys(); });
  AddItem(*help, "&Developer Console\tF12", [this] { ShowConsole(); });
  help->AppendSeparator();
  AddItem(*help, "&About", [this] { ShowAbout(); });
  bar->Append(help, "&Help");
  SetMenuBar(bar);
  // Before the widgets, which have a use of their own for some.
  SetAcceleratorTable(wxAcceleratorTable(static_cast<int>(keys_.size()), keys_.data()));
}

void MainFrame::ShowConsole() {
  wxWindow* console = FindWindowByName("developer_console", this);
  if (console == nullptr) {
    console = new DeveloperConsole(this, desk_);
  }
  console->Show();
  console->Raise();
}

void MainFrame::ShowKeys() {
  desk_.User().Tell(
      "Type any part of a search at once: the box has the focus.\r\r"
      "Up, Down\tchoose another patient\r"
      "Enter\topens the chosen patient\r"
      "Esc\tempties the box and lists the patients opened last\r"
      "Ctrl+N\tadds a patient by the name that was typed\r"
      "Ctrl+E\tadds an emergency patient\r"
      "Ctrl+F\tgoes to the box\r"
      "F5\treads everything again",
      "Keys", forms::Icon::Information);
}

void MainFrame::ShowAbout() {
  desk_.User().Tell("Practice Desk\r\rThe editing screens of a dental practice, over its own database.", "About",
                    forms::Icon::Information);
}

}  // namespace host
