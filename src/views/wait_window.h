#pragma once

#include <wx/frame.h>

#include <chrono>
#include <memory>
#include <string_view>

class wxButton;
class wxGauge;
class wxStaticText;
class wxWindowDisabler;

namespace views {

// A wait text with how far the work has come. It stays away from what takes no longer than a moment.
class WaitWindow : public wxFrame {
 public:
  explicit WaitWindow(wxWindow* parent);
  WaitWindow(const WaitWindow&) = delete;
  WaitWindow& operator=(const WaitWindow&) = delete;
  ~WaitWindow() override;

  // `done` is a share of 0 to 1, or negative when it is not known.
  void Tell(std::string_view text, double done);
  // Shows it when the moment is over, and lets every window paint.
  void Pulse();
  // The same for work that a person can give up, by its button or Esc; all other windows are deaf meanwhile. True
  // once he did.
  bool PulseOrGiveUp();
  // The same for work that keys end: it says so, and leaves every key to the window that has the keyboard.
  void PulseUntilKey();

 private:
  void KeepOthersDeaf();
  // Makes room for a part that was hidden.
  void Add(wxWindow& part);

  wxStaticText* text_ = nullptr;
  wxGauge* gauge_ = nullptr;
  wxButton* give_up_ = nullptr;
  wxStaticText* hint_ = nullptr;
  bool known_ = false;    // how far the work has come
  bool offered_ = false;  // to give it up
  bool given_up_ = false;
  std::unique_ptr<wxWindowDisabler> others_;
  std::chrono::steady_clock::time_point since_;
  std::chrono::steady_clock::time_point pulsed_;
};

}  // namespace views
