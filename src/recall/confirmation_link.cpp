#include "recall/confirmation_link.h"

#include "forms/html_tags.h"

namespace recall {

std::string ConfirmationAddress(const session::Settings& settings) {
  std::string address = forms::SafeLink(settings.OfficeSetting(kReminderSection, kConfirmationAddress));
  while (address.ends_with('/')) {
    address.pop_back();
  }
  const std::size_t scheme = address.find("://");
  const bool has_host = scheme != std::string::npos && scheme + 3 < address.size();
  return has_host && address.find_first_of("{}\"'<> ") == std::string::npos ? address : "";
}

std::string ConfirmationLink(data::ContactMethod method, std::string_view address) {
  const std::string service(address);
  if (!service.empty() && method == data::ContactMethod::TextMessage) {
    return "Click to confirm\r\n" + service + "/c/{Appointment ID}";
  }
  if (!service.empty() && method == data::ContactMethod::Email) {
    return "Please call us at {Office Phone} or <a href=\"" + forms::EscapedHtml(service) +
           "/confirm/{Appointment ID}\" style=\"color:blue\">Click Here</a> to confirm your appointment.";
  }
  return "Please call us at {Office Phone} to confirm your appointment.";
}

}  // namespace recall
