#include "desk/public_classes.h"

#include "entry/members.h"

namespace host {
namespace {

class OwnClasses : public PublicClasses {
 public:
  explicit OwnClasses(forms::User& user) : screen_(user), list_(user) {
    list_.Events.SwapModuleCalled = [this](const std::string& where_to, const std::string& designation) {
      Tell("SwapModuleCalled", where_to + ", " + designation);
    };
    list_.Events.ButtonClicked = [this](const std::string& button_key, std::int32_t current_id) {
      Tell("ButtonClicked", button_key + ", " + std::to_string(current_id));
    };
  }

  entry::Dispatch EditingScreen() override { return entry::DispatchOf(screen_); }
  entry::Dispatch LookUpList() override { return entry::DispatchOf(list_); }
  void HandOver(std::shared_ptr<HostSession> session) override { screen_.SetPV(std::move(session)); }
  // The person's windows stand before the program's own by themselves.
  void SetOwner(wxWindow* /*window*/) override {}

 private:
  void Tell(const std::string& event, const std::string& arguments) const {
    if (OnEvent) {
      OnEvent(event, arguments);
    }
  }

  entry::EditingScreen screen_;
  entry::LookUpList list_;
};

}  // namespace

std::unique_ptr<PublicClasses> ClassesOfThisProgram(forms::User& user) {
  return std::make_unique<OwnClasses>(user);
}

}  // namespace host
