#include "reminders/mail_reader.h"

#include <sodium.h>

#include <algorithm>
#include <charconv>

#include "forms/text.h"

namespace host {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kEmptyLine = "\r\n\r\n";

std::string DecodedBase64(std::string_view text) {
  std::string bytes(text.size(), '\0');
  std::size_t size = 0;
  sodium_base642bin(reinterpret_cast<unsigned char*>(bytes.data()), bytes.size(), text.data(), text.size(), nullptr,
                    &size, nullptr, sodium_base64_VARIANT_ORIGINAL);
  bytes.resize(size);
  return bytes;
}

std::string DecodedQuoted(std::string_view text) {
  constexpr int kHexadecimal = 16;
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '=') {
      bytes += text[i];
      continue;
    }
    const std::string_view code = text.substr(i + 1, 2);
    int byte = 0;
    if (std::from_chars(code.data(), code.data() + code.size(), byte, kHexadecimal).ec == std::errc()) {
      bytes += static_cast<char>(byte);
    }
    i += code.size();  // of a line that goes on, its end
  }
  return bytes;
}

// A line of the head, with those that go on with it.
std::string HeadLine(std::string_view head, std::string_view name) {
  const std::string start = std::string(kLineEnd) + std::string(name) + ": ";
  const std::size_t at = head.find(start);
  if (at == std::string_view::npos) {
    return {};
  }
  std::string text;
  for (head.remove_prefix(at + start.size()); !head.empty();) {
    const std::size_t end = std::min(head.find(kLineEnd), head.size());
    text += head.substr(0, end);
    head.remove_prefix(std::min(end + kLineEnd.size(), head.size()));
    if (!head.starts_with(' ')) {
      break;
    }
  }
  return text;
}

// Of encoded words; another text stays.
std::string Decoded(std::string_view text) {
  constexpr std::string_view kStart = "=?UTF-8?B?";
  if (!text.starts_with(kStart)) {
    return std::string(text);
  }
  std::string decoded;
  for (std::size_t at = text.find(kStart); at != std::string_view::npos; at = text.find(kStart, at)) {
    at += kStart.size();
    decoded += DecodedBase64(text.substr(at, text.find("?=", at) - at));
  }
  return decoded;
}

}  // namespace

std::string ReadableMail(std::string_view source) {
  constexpr std::string_view kPlain = "Content-Type: text/plain";
  const std::string head = std::string(kLineEnd) + std::string(source.substr(0, source.find(kEmptyLine)));
  const std::string opening =
      "To: " + HeadLine(head, "To") + "\r\nSubject: " + Decoded(HeadLine(head, "Subject")) + "\r\n\r\n";
  const std::size_t part = source.find(kPlain);
  const std::size_t start = part == std::string_view::npos ? part : source.find(kEmptyLine, part);
  if (start == std::string_view::npos) {
    return std::string(source);
  }
  const std::string_view text = source.substr(start + kEmptyLine.size());
  // Characters that a cut has broken are taken out.
  return forms::ToUtf8(forms::ToUtf32(opening + DecodedQuoted(text.substr(0, text.find("\r\n--=_alternative")))));
}

}  // namespace host
