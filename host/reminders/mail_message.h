#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace host {

// An e-mail as it is handed to a server. Addresses have been looked at before (`IsMailAddress`); any text may stand in
// the rest.
struct MailMessage {
  std::string from;
  std::string from_name;  // empty for none
  std::string to;
  std::string subject;
  std::string text;  // HTML, or plain when there is no tag in it
  std::chrono::sys_seconds sent;
  std::string id;  // letters and digits, of no other message
};

// The message's source, lines ending in CR LF: the HTML has the same as plain text before it. No text becomes a line of
// the head.
std::string SourceOf(const MailMessage& message);

// Behind the at-sign.
std::string_view DomainOf(std::string_view address);

}  // namespace host
