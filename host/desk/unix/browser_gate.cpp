#include "unix/browser_gate.h"

#include <sodium.h>

#include <algorithm>
#include <array>
#include <boost/beast/websocket/rfc6455.hpp>
#include <iterator>
#include <stdexcept>

namespace host {
namespace {

namespace http = boost::beast::http;

constexpr std::string_view kEnter = "/?key=";

std::string_view View(boost::beast::string_view text) {
  return {text.data(), text.size()};
}

// 256 bits of the kernel's, as hexadecimal digits.
std::string RandomText() {
  std::array<unsigned char, 32> bytes{};
  randombytes_buf(bytes.data(), bytes.size());
  std::string text(2 * bytes.size() + 1, '\0');
  sodium_bin2hex(text.data(), text.size(), bytes.data(), bytes.size());
  text.pop_back();
  return text;
}

// In a time that does not tell where they differ.
bool AreSame(std::string_view given, std::string_view secret) {
  return given.size() == secret.size() && sodium_memcmp(given.data(), secret.data(), secret.size()) == 0;
}

// Whether the field stands there once, with this value.
bool IsOnly(const BrowserGate::Head& head, http::field field, std::string_view value) {
  const auto [first, last] = head.equal_range(field);
  return std::distance(first, last) == 1 && View(first->value()) == value;
}

}  // namespace

BrowserGate::BrowserGate(std::string authority)
    : authority_(std::move(authority)),
      origin_("http://" + authority_),
      cookie_name_("practice_desk_" + authority_.substr(authority_.rfind(':') + 1)) {
  if (sodium_init() < 0) {
    throw std::runtime_error("No random numbers can be had.");
  }
  cookie_value_ = RandomText();
  key_ = RandomText();
}

std::string BrowserGate::Address() const {
  return origin_ + std::string(kEnter) + key_;
}

std::string BrowserGate::Cookie() const {
  return cookie_name_ + "=" + cookie_value_ + "; HttpOnly; SameSite=Strict; Path=/";
}

BrowserGate::Verdict BrowserGate::Judge(const Head& head) {
  if (!IsOnly(head, http::field::host, authority_)) {
    return {Way::None, http::status::misdirected_request, "This server has another address."};
  }
  if (head.method() != http::verb::get) {
    return {Way::None, http::status::method_not_allowed, "This server answers to GET alone."};
  }
  const std::string_view target = View(head.target());
  if ((target == "/socket" || head.count(http::field::origin) != 0) && !IsOnly(head, http::field::origin, origin_)) {
    return {Way::None, http::status::forbidden, "The page of another address may not come here."};
  }
  if (target.starts_with(kEnter)) {
    return Enter(target.substr(kEnter.size()));
  }
  if (!HasCookie(head)) {
    return {Way::None, http::status::forbidden, "Open the address that practice_desk printed when it started."};
  }
  if (target == "/") {
    return {Way::Page};
  }
  if (target == "/page.js") {
    return {Way::PageScript};
  }
  if (target == "/broadway.js") {
    return {Way::BroadwayScript};
  }
  if (target == "/socket" && boost::beast::websocket::is_upgrade(head)) {
    return {Way::Windows};
  }
  return {Way::None, http::status::not_found, "There is no such page."};
}

BrowserGate::Verdict BrowserGate::Enter(std::string_view key) {
  if (!AreSame(key, key_)) {
    return {Way::None, http::status::forbidden, "The key in this address is wrong."};
  }
  if (key_used_) {
    return {
        Way::None, http::status::forbidden,
        "This address was opened before. Open it without the key in the same browser, or start practice_desk again."};
  }
  key_used_ = true;
  return {Way::Enter};
}

bool BrowserGate::HasCookie(const Head& head) const {
  const auto [first, last] = head.equal_range(http::field::cookie);
  const std::string start = cookie_name_ + "=";
  return std::any_of(first, last, [&](const auto& field) {
    std::string_view rest = View(field.value());
    while (!rest.empty()) {
      rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
      const std::string_view cookie = rest.substr(0, rest.find(';'));
      if (cookie.starts_with(start) && AreSame(cookie.substr(start.size()), cookie_value_)) {
        return true;
      }
      rest.remove_prefix(std::min(cookie.size() + 1, rest.size()));
    }
    return false;
  });
}

}  // namespace host
