#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "data/reminders.h"
#include "editing/rules.h"

namespace recall {

// Where the last test went: user options.
inline constexpr std::string_view kTestSection = "eReminders";
inline constexpr std::string_view kTestMobile = "TestMobile";
inline constexpr std::string_view kTestEmail = "TestEmail";

// Sends a message to whoever writes it, for a look at it where it arrives.
class TestMessage : private editing::Rules {
 public:
  explicit TestMessage(const session::ScreenContext& context) : Rules(context) {}

  // Asks for the receiver; `text` gives the words that go out.
  void Send(data::ContactMethod method, const std::function<std::string()>& text) const;

 private:
  // Nothing when the person gives up.
  std::optional<std::string> AskReceiver(bool email) const;
  void OfferToKeep(bool email, const std::string& receiver) const;
  void TellResult(bool email, bool sent) const;
};

}  // namespace recall
