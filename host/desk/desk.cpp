#include "desk/desk.h"

#include <wx/filename.h>
#include <wx/stdpaths.h>

#include <filesystem>
#include <fstream>

#include "database/file_path.h"
#include "desk/frmGallery_view.h"
#include "desk/frmLogin_view.h"
#include "desk/frmReminderOptions_view.h"

namespace host {
namespace {

constexpr const char* kLargeIcons = "/ICO/Large";

}  // namespace

Desk::Desk(Practice practice, const Folders& folders, const MakePublicClasses& make_classes)
    : practice_(std::move(practice)),
      folders_(folders),
      make_classes_(make_classes),
      user_(Views(),
            views::Pictures({folders.data_folder, folders.data_folder + kLargeIcons, folders.share_folder + "/pictures",
                             folders.share_folder + "/pictures" + kLargeIcons})),
      asked_on_loss_(*practice_.Database().connection, user_),
      classes_(make_classes(user_)),
      screens_(classes_->EditingScreen(), classes_->LookUpList()) {
  practice_.Database().connection->WhileBusy = [this](session::Busy busy) { return user_.Pulse(busy); };
}

Desk::~Desk() {
  SetMainWindow(nullptr);
  user_.SetPlaces(nullptr);
  classes_->HandOver(nullptr);
}

std::unique_ptr<Desk> Desk::On(Practice practice) const {
  return std::make_unique<Desk>(std::move(practice), folders_, make_classes_);
}

void Desk::SetMainWindow(wxWindow* window) {
  user_.SetMainWindow(window);
  classes_->SetOwner(window);
}

views::ViewRegistry Desk::Views() {
  views::ViewRegistry registry = views::ViewRegistry::Standard();
  registry.Add<frmLogin>("frmLogin", LayOut_frmLogin);
  registry.Add<frmReminderOptions>("frmReminderOptions", LayOut_frmReminderOptions);
  registry.Add<frmGallery>("frmGallery", LayOut_frmGallery);
  return registry;
}

bool Desk::LogIn() {
  const std::filesystem::path remembered = FilePath(folders_.own_folder + "/last_user.txt");
  frmLogin login = LoginOf(practice_);
  std::string last_user;
  std::getline(std::ifstream(remembered), last_user);
  login.Remember(last_user);
  user_.Show(login);
  if (!login.Result) {
    return false;
  }
  std::ofstream(remembered) << login.Result->rights.Name() << '\n';
  Open(*login.Result, login.Office);
  return true;
}

void Desk::AskForUser() {
  frmLogin login = LoginOf(practice_);
  login.LockFor(session_->UserName(), session_->CurrentOfficeID());
  user_.Show(login);
}

Surroundings Desk::Here() {
  const wxString program_folder = wxFileName(wxStandardPaths::Get().GetExecutablePath()).GetPath();
  Surroundings here = ThisMachine(folders_.data_folder, views::FromWx(program_folder));
  here.send_reminder = [this](const session::ReminderMessage& message) {
    const bool taken = sender_->Send(message);
    if (const std::string notice = sender_->TakeNotice(); !notice.empty()) {
      user_.Tell(notice, std::string(forms::kSuiteTitle), forms::Icon::Information);
    }
    return taken;
  };
  here.show_reminder_options = [this] { return ShowReminderOptions(); };
  return here;
}

bool Desk::ShowReminderOptions() {
  frmReminderOptions options(Context(), sender_->OwnOutbox(), sender_->Problem());
  user_.Show(options);
  return true;
}

void Desk::Open(const LoginResult& login, std::int32_t office) {
  user_.SetPlaces(nullptr);
  auto session = std::make_shared<HostSession>(practice_, office, login.rights, Here());
  classes_->HandOver(session);
  sender_ = std::make_unique<ReminderSender>(*session);
  session_ = std::move(session);
  user_.SetPlaces(session_.get());
}

}  // namespace host
