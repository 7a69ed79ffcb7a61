#include "recall/reply_instructions.h"

#include <algorithm>

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
  const std::size_t end = forms::ToLower(html).rfind("</body");
  return std::min(end, html.size());
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
  const bool html = method == data::ContactMethod::Email;
  const std::string added =
      html ? forms::WriteHtml(forms::FromPlainText(instructions)) : "\r\n" + std::string(instructions);
  const bool has_them = html ? message.find(added) != std::string::npos : message.ends_with(added);
  if (message.empty() || instructions.empty() || has_them) {
    return message;
  }
  return message.insert(html ? EndOfBody(message) : message.size(), added);
}

}  // namespace recall
