#include "recall/generic_messages.h"

#include <initializer_list>
#include <string_view>

#include "forms/rich_text.h"

namespace recall {
namespace {

using data::ContactMethod;
using data::ReminderKind;

constexpr std::string_view kSpanishWish =
    "En nombre de todos en la officina queremos deciarle un Feliz Cumpleanos!!! Y Que tenga un maravilloso dia.";

std::string AppointmentText(bool english) {
  return english ? "{Patient Full Name} has an appointment scheduled with {Provider Title} {Provider Last Name} on "
                   "{Appointment Date} at {Appointment Time}. "
                 : "{Patient Full Name} tiene una cita con el {Provider Title} {Provider Last Name} el "
                   "{Appointment Date} a las {Appointment Time}. ";
}

std::string RecallText(bool english) {
  return english ? "{Patient Full Name}, it's time for {Recall Title} with {Provider Title} {Provider Last Name}. "
                   "Please call our office at {Office Phone} to schedule your appointment."
                 : "{Patient Full Name}, Es tiempo para su {Recall Title} con el {Provider Title} {Provider Last "
                   "Name}. Favor de llamar a la officina al numero {Office Phone} para fijar su cita.";
}

std::string BirthdayText(bool english) {
  return english ? "Dear {Patient First Name},\r\nOn behalf of everyone at our office we want to wish you a very HAPPY "
                   "BIRTHDAY!! Have a wonderful day.\r\nDr. {Provider Full Name} and staff"
                 : "Estimado {Patient First Name},\r\n" + std::string(kSpanishWish) +
                       "\r\nDr. {Provider Full Name} y personal";
}

constexpr std::string_view kDocumentBegin =
    "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0 Transitional//EN\">\r\n<HTML>\r\n<BODY bgColor=\"#FFFFFF\" "
    "text=\"#000000\">\r\n";
constexpr std::string_view kDocumentEnd = "</BODY>\r\n</HTML>\r\n";
constexpr std::string_view kFont = "font-family:Arial;font-size:12pt";

std::string Document(std::initializer_list<std::string_view> paragraphs) {
  std::string html(kDocumentBegin);
  for (const std::string_view paragraph : paragraphs) {
    html += "<P style=\"" + std::string(kFont) + "\">" + std::string(paragraph) + "</P>\r\n";
  }
  return html + std::string(kDocumentEnd);
}

std::string BirthdayEmail(bool english) {
  constexpr std::string_view kSpecial =
      "On behalf of everyone at our office we want to wish you a very HAPPY BIRTHDAY!! It is during occasions such as "
      "this that we have an opportunity to let you know you are special to us.";
  return english ? Document({"Dear {Patient First Name}", kSpecial, "Have a wonderful birthday!", "Sincerely,",
                             "Dr. {Provider Full Name} and staff"})
                 : Document({"Estimado {Patient First Name},", kSpanishWish, "Dr. {Provider Full Name} y personal"});
}

std::string LetterFile(ReminderKind kind) {
  return kind == ReminderKind::Birthday ? "Birthday.rtf" : kind == ReminderKind::NewsLetter ? "NewsLetter.RTF" : "";
}

std::string PlainMessage(ReminderKind kind, ContactMethod method, bool english) {
  switch (kind) {
    case ReminderKind::Recall:
      return RecallText(english);
    case ReminderKind::Appointment:
      return AppointmentText(english);
    case ReminderKind::Confirmation:
      return AppointmentText(english) + (method != ContactMethod::Voice ? ""
                                         : english                      ? "Please dial 1 to confirm."
                                                                        : "Marque el numero 1 para confirmar.");
    case ReminderKind::Birthday:
      return BirthdayText(english);
    case ReminderKind::NewsLetter:
      break;
  }
  return {};
}

}  // namespace

std::string GenericMessage(ReminderKind kind, ContactMethod method, Language language) {
  const bool english = language == Language::English;
  switch (method) {
    case ContactMethod::TextMessage:
    case ContactMethod::Voice:
      return PlainMessage(kind, method, english);
    case ContactMethod::Email:
      if (kind == ReminderKind::Birthday) {
        return BirthdayEmail(english);
      }
      [[fallthrough]];
    case ContactMethod::PostCard:
      return forms::WriteHtml(forms::FromPlainText(PlainMessage(kind, method, english)));
    case ContactMethod::Letter:
      return LetterFile(kind);
    case ContactMethod::Phone:
      break;
  }
  return {};
}

bool IsDocument(std::string_view html) {
  return html.starts_with(kDocumentBegin);
}

std::string AsDocument(const std::string& paragraphs) {
  std::string html(kDocumentBegin);
  for (std::size_t i = 0; i < paragraphs.size(); ++i) {
    const std::string_view rest = std::string_view(paragraphs).substr(i);
    html += paragraphs[i];
    for (const std::string_view tag : {"<p", "<li"}) {
      if (rest.starts_with(std::string(tag) + ">")) {
        html += std::string(tag.substr(1)) + " style=\"" + std::string(kFont) + "\"";
        i += tag.size() - 1;
      } else if (const std::string styled = std::string(tag) + " style=\""; rest.starts_with(styled)) {
        html += styled.substr(1) + std::string(kFont) + ";";
        i += styled.size() - 1;
      }
    }
  }
  return html + "\r\n" + std::string(kDocumentEnd);
}

}  // namespace recall
