#pragma once

#include <boost/beast/http/message.hpp>
#include <boost/beast/http/status.hpp>
#include <string>
#include <string_view>

namespace host {

// Says which requests may come to the windows: those of the one browser that opened the printed address. The key in
// that address works once, for a cookie that every other request has to carry.
class BrowserGate {
 public:
  using Head = boost::beast::http::request_header<>;

  enum class Way {
    None,
    Enter,  // to the page, with the cookie
    Page,
    PageScript,
    BroadwayScript,
    Windows,  // the web socket
  };
  struct Verdict {
    Way way = Way::None;
    boost::beast::http::status status = boost::beast::http::status::ok;
    std::string_view sentence = {};  // why there is no way; nothing of the request is in it
  };

  // `authority` is the host and port that browsers come to, such as "127.0.0.1:8123".
  explicit BrowserGate(std::string authority);

  // What a person opens, with the key.
  std::string Address() const;
  // The cookie as a browser is to keep it.
  std::string Cookie() const;
  Verdict Judge(const Head& head);

 private:
  Verdict Enter(std::string_view key);
  bool HasCookie(const Head& head) const;

  std::string authority_;
  std::string origin_;
  std::string cookie_name_;  // browsers do not tell ports apart
  std::string cookie_value_;
  std::string key_;
  bool key_used_ = false;
};

}  // namespace host
