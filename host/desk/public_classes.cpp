#include "desk/public_classes.h"

#include "entry/members.h"

namespace host {
namespace {

class OwnClasses : public PublicClasses {
 public:
  explicit OwnClasses(forms::User& user) : screen_(user), list_(user) {
    list_.Events.SwapModuleCalled = [this](const std::string& where_to, const std::string& designation) {
      Hear("SwapModuleCalled", {where_to, designation});
    };
    list_.Events.ButtonClicked = [this](const std::string& button_key, std::int32_t current_id) {
      Hear("ButtonClicked", {button_key, std::to_string(current_id)});
    };
    list_.Events.BeforePrint = [this](bool& /*cancel*/) { Hear("BeforePrint", {}); };
    list_.Events.AfterPrint = [this] { Hear("AfterPrint", {}); };
  }

  entry::Dispatch EditingScreen() override { return entry::DispatchOf(screen_); }
  entry::Dispatch LookUpList() override { return entry::DispatchOf(list_); }
  void HandOver(std::shared_ptr<HostSession> session) override { screen_.SetPV(std::move(session)); }
  // The person's windows stand before the program's own by themselves.
  void SetOwner(wxWindow* /*window*/) override {}

 private:
  entry::EditingScreen screen_;
  entry::LookUpList list_;
};

}  // namespace

void PublicClasses::Hear(const std::string& event, const std::vector<std::string>& arguments) const {
  if (event == "SwapModuleCalled" && OnSwapModule) {
    OnSwapModule(arguments.at(0), arguments.at(1));
  }
  if (OnEvent) {
    std::string told;
    for (const std::string& argument : arguments) {
      told += (told.empty() ? "" : ", ") + argument;
    }
    OnEvent(event, told);
  }
}

std::unique_ptr<PublicClasses> ClassesOfThisProgram(forms::User& user) {
  return std::make_unique<OwnClasses>(user);
}

}  // namespace host
