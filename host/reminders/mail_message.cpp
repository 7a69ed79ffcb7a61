#include "reminders/mail_message.h"

#include <sodium.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "forms/dates.h"
#include "forms/rich_text.h"
#include "forms/text.h"

namespace host {
namespace {

// No line of a quoted-printable text holds it.
constexpr std::string_view kBoundary = "=_alternative";

std::string Base64(std::string_view bytes) {
  constexpr int kVariant = sodium_base64_VARIANT_ORIGINAL;
  std::string text(sodium_base64_encoded_len(bytes.size(), kVariant), '\0');
  sodium_bin2base64(text.data(), text.size(), reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
                    kVariant);
  text.pop_back();  // the zero at its end
  return text;
}

bool IsPlain(char c) {
  return c >= ' ' && c <= '~';
}

// A text of a head as encoded words, one a line.
std::string EncodedWords(std::u32string_view text) {
  constexpr std::size_t kCharacters = 11;  // of four bytes at most: a word has 75 characters at most
  std::string words;
  for (; !text.empty(); text.remove_prefix(std::min(kCharacters, text.size()))) {
    words +=
        (words.empty() ? "=?UTF-8?B?" : "\r\n =?UTF-8?B?") + Base64(forms::ToUtf8(text.substr(0, kCharacters))) + "?=";
  }
  return words;
}

// What is short and plain stays; line breaks and other control characters are blanks.
std::string HeadText(std::string_view text, bool is_name = false) {
  constexpr std::size_t kShort = 60;
  std::u32string characters = forms::ToUtf32(forms::OnOneLine(text));
  std::ranges::replace_if(
      characters, [](char32_t c) { return c < U' ' || c == U'\u007F'; }, U' ');
  const std::string line = forms::ToUtf8(characters);
  const bool plain =
      line.size() <= kShort && std::ranges::all_of(line, IsPlain) && line.find("=?") == std::string::npos;
  if (!plain) {
    return EncodedWords(characters);
  }
  return is_name && line.find_first_of("\"\\") != std::string::npos ? EncodedWords(characters)
         : is_name                                                  ? '"' + line + '"'
                                                                    : line;
}

std::string Escaped(char c) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto byte = static_cast<std::uint8_t>(c);
  return {'=', kDigits[byte >> 4U], kDigits[byte & 0x0FU]};
}

std::string QuotedLine(std::string_view line) {
  constexpr std::size_t kLongest = 75;  // with the '=' that goes on in the next one
  std::string quoted;
  std::size_t length = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    const bool last = i + 1 == line.size();
    const bool stays = c == '\t' || c == ' ' ? !last : IsPlain(c) && c != '=';
    const std::string written = stays ? std::string(1, c) : Escaped(c);
    if (length + written.size() > kLongest) {
      quoted += "=\r\n";
      length = 0;
    }
    quoted += written;
    length += written.size();
  }
  return quoted;
}

// Lines may end in CR LF, LF or CR.
std::string QuotedPrintable(std::string_view text) {
  std::string quoted;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    quoted += QuotedLine(text.substr(0, end)) + "\r\n";
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(text.size(), 1));
  }
  return quoted;
}

std::string Part(std::string_view type, std::string_view text) {
  return "Content-Type: text/" + std::string(type) +
         "; charset=utf-8\r\nContent-Transfer-Encoding: quoted-printable\r\n\r\n" + QuotedPrintable(text);
}

bool HoldsTags(std::string_view text) {
  for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
    const char next = at + 1 < text.size() ? text[at + 1] : ' ';
    if ((next >= 'a' && next <= 'z') || (next >= 'A' && next <= 'Z') || next == '/' || next == '!') {
      return text.find('>', at) != std::string_view::npos;
    }
  }
  return false;
}

// The HTML without its formats; an address of the web stands behind the words that lead to it.
std::string PlainPart(std::string_view html) {
  forms::RichText text = forms::ReadHtml(html);
  for (auto& paragraph : text.paragraphs) {
    auto& runs = paragraph.runs;
    for (std::size_t i = 0; i < runs.size(); ++i) {
      const std::string& link = runs[i].style.link;
      const bool ends = i + 1 == runs.size() || runs[i + 1].style.link != link;
      if (ends && link.starts_with("http") && runs[i].text != link) {
        runs[i].text += " (" + link + ")";
      }
    }
  }
  return forms::PlainText(text);
}

std::string DateText(std::chrono::sys_seconds time) {
  constexpr std::array kDays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  constexpr std::array kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const auto midnight = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day day(midnight);
  const std::string iso = forms::FormatIso(forms::DateTime(time.time_since_epoch()));  // "2026-11-21 14:05:00"
  return std::string(kDays.at(std::chrono::weekday(midnight).c_encoding())) + ", " + iso.substr(8, 2) + ' ' +
         kMonths.at(static_cast<unsigned>(day.month()) - 1) + ' ' + iso.substr(0, 4) + ' ' + iso.substr(11, 8) +
         " +0000";
}

}  // namespace

std::string SourceOf(const MailMessage& message) {
  const std::string text = forms::ToUtf8(forms::ToUtf32(message.text));
  const std::string name = message.from_name.empty() ? std::string() : HeadText(message.from_name, true) + "\r\n ";
  const std::string head = "To: <" + message.to + ">\r\nFrom: " + name + '<' + message.from +
                           ">\r\nSubject: " + HeadText(message.subject) + "\r\nDate: " + DateText(message.sent) +
                           "\r\nMessage-ID: <" + message.id + '@' + std::string(DomainOf(message.from)) +
                           ">\r\nMIME-Version: 1.0\r\n";
  if (!HoldsTags(text)) {
    return head + Part("plain", text);
  }
  const std::string boundary(kBoundary);
  return head + "Content-Type: multipart/alternative; boundary=\"" + boundary + "\"\r\n\r\n--" + boundary + "\r\n" +
         Part("plain", PlainPart(text)) + "\r\n--" + boundary + "\r\n" + Part("html", text) + "\r\n--" + boundary +
         "--\r\n";
}

std::string_view DomainOf(std::string_view address) {
  return address.substr(address.find('@') + 1);
}

}  // namespace host
