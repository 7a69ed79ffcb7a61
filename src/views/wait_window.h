#pragma once

#include <wx/frame.h>

#include <chrono>
#include <string_view>

class wxGauge;
class wxStaticText;

namespace views {

// A wait text with how far the work has come. It stays away from what takes no longer than a moment.
class WaitWindow : public wxFrame {
 public:
  explicit WaitWindow(wxWindow* parent);

  // `done` is a share of 0 to 1, or negative when it is not known.
  void Tell(std::string_view text, double done);
  // Shows it when the moment is over, and lets every window paint.
  void Pulse();

 private:
  wxStaticText* text_ = nullptr;
  wxGauge* gauge_ = nullptr;
  bool known_ = false;  // how far the work has come
  std::chrono::steady_clock::time_point since_;
  std::chrono::steady_clock::time_point pulsed_;
};

}  // namespace views
