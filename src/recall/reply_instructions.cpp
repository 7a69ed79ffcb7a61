#include "recall/reply_instructions.h"

#include "forms/rich_text.h"
#include "forms/text.h"
#include "recall/confirmation_link.h"

namespace recall {
namespace {

std::string UsualInstructions(data::ReminderKind kind) {
  switch (kind) {
    case data::ReminderKind::Confirmation:
      return std::string(kConfirmationLink);
    case data::ReminderKind::Recall:
    case data::ReminderKind::Appointment:
      return "To reply, please call us at {Office Phone}.";
    case data::ReminderKind::Birthday:
    case data::ReminderKind::NewsLetter:
      break;
  }
  return {};
}

// Where the words of an HTML document end.
std::size_t EndOfBody(std::string_view html) {
  constexpr std::string_view kEnd = "</body";
  for (std::size_t at = html.rfind("</"); at != std::string_view::npos && at > 0; at = html.rfind("</", at - 1)) {
    if (forms::EqualsIgnoringCase(html.substr(at, kEnd.size()), kEnd)) {
      return at;
    }
  }
  return html.size();
}

// As they stand in a message.
std::string Added(std::string_view instructions, data::ContactMethod method) {
  return method == data::ContactMethod::Email ? forms::WriteHtml(forms::FromPlainText(instructions))
                                              : "\r\n" + std::string(instructions);
}

}  // namespace

std::string ReplyInstructions(const session::Settings& settings, data::ReminderKind kind, data::ContactMethod method) {
  if (method != data::ContactMethod::TextMessage && method != data::ContactMethod::Email) {
    return {};
  }
  const std::string set = settings.OfficeSetting(
      kReminderSection, method == data::ContactMethod::Email ? kEmailInstructions : kTextInstructions);
  return forms::Trim(set).empty() ? UsualInstructions(kind) : set;
}

std::string WithInstructions(std::string message, std::string_view instructions, data::ContactMethod method) {
  if (message.empty() || instructions.empty() || WithoutInstructions(message, instructions, method)) {
    return message;
  }
  const std::size_t end = method == data::ContactMethod::Email ? EndOfBody(message) : message.size();
  return message.insert(end, Added(instructions, method));
}

std::optional<std::string> WithoutInstructions(const std::string& message, std::string_view instructions,
                                               data::ContactMethod method) {
  const std::size_t end = method == data::ContactMethod::Email ? EndOfBody(message) : message.size();
  const std::string added = Added(instructions, method);
  if (instructions.empty() || !std::string_view(message).substr(0, end).ends_with(added)) {
    return std::nullopt;
  }
  return message.substr(0, end - added.size()) + message.substr(end);
}

}  // namespace recall
