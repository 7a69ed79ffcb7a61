#pragma once

#include <algorithm>
#include <chrono>

namespace forms {

// How long a filter waits for another key before it acts: as long as its rows last took to come, and no longer than a
// person waits.
class FilterPause {
 public:
  using Milliseconds = std::chrono::milliseconds;

  Milliseconds Length() const { return length_; }
  // The rows came after so long.
  void Took(Milliseconds time) { length_ = std::clamp(time, kLeast, kMost); }
  // The next key ended the search for them: it costs nothing to begin too early.
  void Ended() { length_ = kLeast; }

 private:
  static constexpr Milliseconds kLeast{25};
  static constexpr Milliseconds kMost{300};

  Milliseconds length_ = kLeast;
};

}  // namespace forms
