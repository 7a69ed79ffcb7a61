#include "desk/desk.h"

#include <wx/filename.h>
#include <wx/stdpaths.h>

#include "desk/frmLogin_view.h"

namespace host {
namespace {

constexpr const char* kLargeIcons = "/ICO/Large";

}  // namespace

Desk::Desk(Practice practice, const std::string& data_folder, const std::string& share_folder)
    : practice_(std::move(practice)),
      data_folder_(data_folder),
      user_(Views(), views::Pictures({data_folder, data_folder + kLargeIcons, share_folder + "/pictures",
                                      share_folder + "/pictures" + kLargeIcons})) {
  practice_.Database().connection->WhileBusy = [this] { user_.Pulse(); };
}

views::ViewRegistry Desk::Views() {
  views::ViewRegistry registry = views::ViewRegistry::Standard();
  registry.Add<frmLogin>("frmLogin", LayOut_frmLogin);
  return registry;
}

bool Desk::LogIn() {
  frmLogin login = LoginOf(practice_);
  user_.Show(login);
  if (!login.Result) {
    return false;
  }
  Open(*login.Result, login.Office);
  return true;
}

void Desk::Open(const LoginResult& login, std::int32_t office) {
  user_.SetPlaces(nullptr);
  screens_.reset();
  const wxString program_folder = wxFileName(wxStandardPaths::Get().GetExecutablePath()).GetPath();
  session_ = std::make_shared<HostSession>(practice_, office, login.rights,
                                           ThisMachine(data_folder_, views::FromWx(program_folder)));
  screens_ = entry::MakeScreens(*session_, user_);
  editing_screen_.SetPV(session_);
  user_.SetPlaces(session_.get());
}

}  // namespace host
