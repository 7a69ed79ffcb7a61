#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

#include "forms/user.h"
#include "session/session.h"
#include "views/pictures.h"
#include "views/view_registry.h"

class wxDialog;

namespace views {

class WaitWindow;

// The person at a window system: every question and every form is a modal window before the one that is on top.
class WxUser : public forms::User {
 public:
  WxUser(ViewRegistry registry, views::Pictures pictures);
  WxUser(const WxUser&) = delete;
  WxUser& operator=(const WxUser&) = delete;
  ~WxUser() override;

  const views::Pictures& Pictures() const { return pictures_; }
  // Behind everything; nullptr for none.
  void SetMainWindow(wxWindow* window) { main_ = window; }
  // Where windows' places are kept; nullptr until somebody is logged in.
  void SetPlaces(session::Settings* places) { places_ = places; }
  // Called when a window of ours has gone, which may be because the message loop was told to end.
  std::function<void()> OnModalEnd;
  // Sees every window of ours once it is up, and may close it.
  std::function<void(wxDialog&)> OnShown;

  forms::Answer Ask(const forms::Message& message) override;
  std::optional<std::string> Input(const forms::InputBox& box) override;
  void Show(forms::Form& form) override;
  std::optional<std::chrono::year_month_day> PickDate(std::string_view title,
                                                      std::chrono::year_month_day start) override;
  std::optional<std::string> PickFile(const forms::FileChoice& choice) override;
  std::optional<std::string> PickFolder(std::string_view title) override;
  std::optional<forms::Color> PickColor(forms::Color start) override;
  void Wait(std::string_view text, double done = -1) override;
  bool WaitOrGiveUp(std::string_view text, double done = -1) override;
  void Copy(std::string_view text) override;
  bool Print(const forms::Report& report) override;

  // Lets the windows paint, and brings up the wait text when it has stood long enough, or one of its own while another
  // program writes, or where a statement runs for long; the host calls it while one runs. True when the person gives
  // the statement up.
  bool Pulse(session::Busy busy);

 private:
  class OnTop;

  wxWindow* Top() const { return open_.empty() ? main_ : open_.back(); }
  WaitWindow* RunningLong();
  void RaiseTop() const;
  int ShowModal(wxDialog& dialog);

  ViewRegistry registry_;
  views::Pictures pictures_;
  wxWindow* main_ = nullptr;
  session::Settings* places_ = nullptr;
  std::vector<wxDialog*> open_;
  std::unique_ptr<WaitWindow> wait_;
  std::unique_ptr<WaitWindow> waiting_;  // for another program
  std::unique_ptr<WaitWindow> running_;  // for a statement that takes long
  std::optional<std::chrono::steady_clock::time_point> running_since_;
};

}  // namespace views
