#include "recall/test_message.h"

#include <algorithm>

#include "forms/text.h"

namespace recall {
namespace {

constexpr std::string_view kTitle = "eReminder Test";

// The ten digits of a number, however it is written; nothing for another.
std::optional<std::string> TenDigits(std::string_view number) {
  std::string digits;
  for (const char c : number) {
    if (forms::IsDigit(c)) {
      digits += c;
    } else if (std::string_view("()-. /").find(c) == std::string_view::npos) {
      return std::nullopt;
    }
  }
  constexpr std::size_t kDigits = 10;
  return digits.size() == kDigits ? std::optional(digits) : std::nullopt;
}

bool IsAddress(std::string_view address) {
  return address.find('@') != std::string_view::npos && address.find('.') != std::string_view::npos &&
         std::ranges::none_of(address, [](char c) { return static_cast<unsigned char>(c) <= ' '; });
}

std::string Refused(bool email, const std::string& receiver) {
  return email ? "The email address you've entered, [" + receiver +
                     "], cannot be processed.\r\nTo send a test email, you must enter a valid email address. Would you "
                     "like to re-enter the number?"
               : "The cell phone number you've entered [ " + receiver +
                     " ] cannot be processed.\r\nTo send a text message, you must enter a 10 digit cell phone number. "
                     "Would you like to re-enter the number?";
}

std::string Announced(bool email, const std::string& receiver) {
  return (email ? "You are about to send an email to the following email address.\r\n"
                : "You are about to send a text message to the following cell phone number.\r\n") +
         receiver + "\r\nDo you want to continue?";
}

}  // namespace

void TestMessage::Send(data::ContactMethod method, const std::function<std::string()>& text) const {
  const bool email = method == data::ContactMethod::Email;
  if (!email && method != data::ContactMethod::TextMessage) {
    context_.user.Tell("Tests can only be sent for emails and text messages.", std::string(kTitle),
                       forms::Icon::Information);
    return;
  }
  const auto receiver = AskReceiver(email);
  if (!receiver) {
    return;
  }
  OfferToKeep(email, *receiver);
  using Method = session::ReminderMessage::Method;
  const session::ReminderMessage message{.method = email ? Method::Email : Method::TextMessage,
                                         .to = email ? *receiver : TenDigits(*receiver).value(),
                                         .subject = email ? std::string(kTitle) : "",
                                         .text = text()};
  const bool sent = [&] {
    const forms::WaitText wait(context_.user, "  Sending - Please Wait  ");
    return context_.session.SendReminder(message);
  }();
  TellResult(email, sent);
}

std::optional<std::string> TestMessage::AskReceiver(bool email) const {
  constexpr std::size_t kLongest = 320;  // no address and no number has more
  std::string receiver = context_.session.UserOption(kTestSection, email ? kTestEmail : kTestMobile);
  while (true) {
    const auto typed = context_.user.Input(
        {.prompt = email ? "Email address to send the test to:" : "Cell phone number to send the test to:",
         .title = std::string(kTitle),
         .text = receiver});
    if (!typed) {
      return std::nullopt;
    }
    receiver = forms::Left(forms::Trim(*typed), kLongest);
    if (!Confirm(Announced(email, receiver), kTitle)) {
      return std::nullopt;
    }
    if (email ? IsAddress(receiver) : TenDigits(receiver).has_value()) {
      return receiver;
    }
    if (!Confirm(Refused(email, receiver), kTitle)) {
      return std::nullopt;
    }
  }
}

// The test goes out all the same when that cannot be kept.
void TestMessage::OfferToKeep(bool email, const std::string& receiver) const {
  if (Confirm("Would you like to save " + receiver +
                  (email ? " as your default test email address?" : " as your default test cell phone number?"),
              kTitle)) {
    Attempt([&] { context_.session.SetUserOption(kTestSection, email ? kTestEmail : kTestMobile, receiver); });
  }
}

void TestMessage::TellResult(bool email, bool sent) const {
  if (sent) {
    context_.user.Tell(
        email ? "Your test eReminder has been sent via email. Please check your email to view the message.\r\nBecause "
                "this test message is not connected to a patient, replies to this message will not be received."
              : "Your test eReminder has been sent as a text message. Please check your cell phone to view the "
                "message.\r\nBecause this test message is not connected to a patient, replies will not be processed.",
        std::string(kTitle), forms::Icon::Information);
    return;
  }
  if (Confirm(email ? "Your test eReminder email could not be sent. Would you like to check your eReminder Send & "
                      "Receive options?"
                    : "Your test eReminder text message could not be sent. Would you like to check your eReminder Send "
                      "& Receive options?",
              kTitle) &&
      !context_.session.ShowReminderOptions()) {
    context_.user.Tell("The eReminder Send & Receive options cannot be opened here.", std::string(kTitle),
                       forms::Icon::Information);
  }
}

}  // namespace recall
