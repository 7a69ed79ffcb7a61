#include "unix/browser_visits.h"

#include <array>
#include <boost/asio/local/stream_protocol.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/string_body.hpp>
#include <boost/beast/http/write.hpp>
#include <chrono>
#include <utility>

#include "unix/browser_page.h"

namespace host {
namespace {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
using asio::ip::tcp;
using asio::local::stream_protocol;
using beast::error_code;
using Piece = std::array<char, 16384>;

constexpr const char* kHtml = "text/html; charset=utf-8";
constexpr const char* kJavaScript = "text/javascript; charset=utf-8";

constexpr std::chrono::seconds kPatience{10};  // until a request's head is complete, and for each step of an answer
constexpr std::chrono::seconds kReloading{2};  // until the page that is loaded again has left
constexpr std::size_t kLongestHead = 8192;
constexpr std::size_t kMost = 32;

}  // namespace

// One connection; it lives as long as something is awaited for it.
class BrowserVisits::Visit : public std::enable_shared_from_this<Visit> {
 public:
  Visit(BrowserVisits& visits, tcp::socket socket)
      : visits_(visits),
        browser_(std::move(socket)),
        windows_(browser_.get_executor()),
        wait_(browser_.get_executor()) {
    ++visits_.count_;
  }
  Visit(const Visit&) = delete;
  Visit& operator=(const Visit&) = delete;
  ~Visit() { --visits_.count_; }

  void Begin() {
    parser_.header_limit(kLongestHead);
    browser_.expires_after(kPatience);
    http::async_read_header(browser_, head_bytes_, parser_,
                            [self = shared_from_this()](error_code error, std::size_t) { self->OnHead(error); });
  }

  void StopWaiting() { wait_.cancel(); }

 private:
  void OnHead(error_code error) {
    if (error == http::error::header_limit || error == http::error::buffer_overflow) {
      Refuse(http::status::request_header_fields_too_large, "The request is too long.");
    } else if (error == http::error::end_of_stream || error == beast::error::timeout) {
      // Browsers open connections that they then do not need.
    } else if (error) {
      Refuse(http::status::bad_request, "This is no request.");
    } else {
      Follow(visits_.gate_.Judge(parser_.get()));
    }
  }

  void Follow(const BrowserGate::Verdict& verdict) {
    switch (verdict.way) {
      case BrowserGate::Way::None:
        Refuse(verdict.status, verdict.sentence);
        break;
      case BrowserGate::Way::Enter:
        answer_.result(http::status::see_other);
        answer_.set(http::field::location, "/");
        answer_.set(http::field::set_cookie, visits_.gate_.Cookie());
        Answer(kHtml, PageOfSentence(visits_.title_, ""));
        break;
      case BrowserGate::Way::Page:
        Answer(kHtml, PageOfWindows(visits_.title_));
        break;
      case BrowserGate::Way::PageScript:
        Answer(kJavaScript, std::string(kPageScript));
        break;
      case BrowserGate::Way::BroadwayScript:
        AskWindows([this] { Fetch(); });
        break;
      case BrowserGate::Way::Windows:
        JoinInTurn();
        break;
    }
  }

  void Refuse(http::status status, std::string_view sentence) {
    visits_.log_("Refused a browser: " + std::string(sentence));
    answer_.result(status);
    Answer(kHtml, PageOfSentence(visits_.title_, sentence));
  }

  void Answer(const char* kind, std::string body) {
    answer_.set(http::field::content_type, kind);
    answer_.set(http::field::cache_control, "no-store");
    answer_.set("Content-Security-Policy", visits_.content_policy_);
    answer_.set("Cross-Origin-Resource-Policy", "same-origin");
    answer_.set("Referrer-Policy", "no-referrer");
    answer_.set("X-Content-Type-Options", "nosniff");
    answer_.keep_alive(false);
    answer_.body() = std::move(body);
    answer_.prepare_payload();
    browser_.expires_after(kPatience);
    http::async_write(browser_, answer_, [self = shared_from_this()](error_code, std::size_t) {
      error_code ignored;
      self->browser_.socket().shutdown(tcp::socket::shutdown_send, ignored);
    });
  }

  // Sends Broadway the request, with no more fields than it needs, and goes on with `next`.
  void AskWindows(const std::function<void()>& next) {
    const BrowserGate::Head& head = parser_.get();
    request_ = {http::verb::get, head.target(), 11};
    for (const http::field field :
         {http::field::host, http::field::origin, http::field::upgrade, http::field::connection,
          http::field::sec_websocket_key, http::field::sec_websocket_version, http::field::sec_websocket_protocol}) {
      if (const auto found = head.find(field); found != head.end()) {
        request_.set(field, found->value());
      }
    }
    windows_.expires_after(kPatience);
    windows_.async_connect(stream_protocol::endpoint(visits_.windows_socket_),
                           [self = shared_from_this(), next](error_code error) {
                             if (error) {
                               self->MissWindows();
                               return;
                             }
                             self->SendRequest(next);
                           });
  }

  void SendRequest(const std::function<void()>& next) {
    http::async_write(windows_, request_, [self = shared_from_this(), next](error_code error, std::size_t) {
      if (error) {
        self->MissWindows();
      } else {
        next();
      }
    });
  }

  void MissWindows() { Refuse(http::status::bad_gateway, "The windows do not answer."); }

  void Fetch() {
    http::async_read(windows_, file_bytes_, file_, [self = shared_from_this()](error_code error, std::size_t) {
      if (error || self->file_.result() != http::status::ok) {
        self->MissWindows();
      } else {
        self->Answer(kJavaScript, std::move(self->file_.body()));
      }
    });
  }

  // One page shows the windows. One that is loaded again may come a moment before its old self has left.
  void JoinInTurn() {
    if (visits_.joined_.expired()) {
      Join();
    } else if (!visits_.waiting_.expired()) {
      Refuse(http::status::conflict, kOpenElsewhere);
    } else {
      visits_.waiting_ = weak_from_this();
      wait_.expires_after(kReloading);
      wait_.async_wait([self = shared_from_this()](error_code) {
        self->visits_.waiting_.reset();
        if (self->visits_.joined_.expired()) {
          self->Join();
        } else {
          self->Refuse(http::status::conflict, kOpenElsewhere);
        }
      });
    }
  }

  void Join() {
    visits_.joined_ = weak_from_this();
    AskWindows([this] {
      browser_.expires_never();
      windows_.expires_never();
      PassOn(browser_, windows_, from_browser_);
      PassOn(windows_, browser_, from_windows_);
    });
  }

  // Until one of the two ends, which ends the other.
  template <class From, class To>
  void PassOn(From& from, To& to, Piece& piece) {
    from.async_read_some(asio::buffer(piece),
                         [this, self = shared_from_this(), &from, &to, &piece](error_code error, std::size_t size) {
                           if (error) {
                             Close();
                             return;
                           }
                           asio::async_write(to, asio::buffer(piece, size),
                                             [this, self, &from, &to, &piece](error_code failed, std::size_t) {
                                               if (failed) {
                                                 Close();
                                               } else {
                                                 PassOn(from, to, piece);
                                               }
                                             });
                         });
  }

  void Close() {
    browser_.close();
    windows_.close();
    visits_.Leave(*this);
  }

  BrowserVisits& visits_;
  beast::tcp_stream browser_;
  beast::basic_stream<stream_protocol> windows_;
  asio::steady_timer wait_;
  beast::flat_buffer head_bytes_{kLongestHead};
  http::request_parser<http::empty_body> parser_;
  http::request<http::empty_body> request_;
  http::response<http::string_body> answer_;
  beast::flat_buffer file_bytes_;
  http::response<http::string_body> file_;
  Piece from_browser_{};
  Piece from_windows_{};
};

BrowserVisits::BrowserVisits(const std::string& authority, std::string windows_socket, std::string title, Log log)
    : gate_(authority),
      windows_socket_(std::move(windows_socket)),
      title_(std::move(title)),
      content_policy_(
          "default-src 'none'; script-src 'self'; style-src 'unsafe-inline'; img-src data: blob:; "
          "connect-src ws://" +
          authority + "; base-uri 'none'; form-action 'none'; frame-ancestors 'none'"),
      log_(std::move(log)) {}

void BrowserVisits::Begin(tcp::socket socket) {
  if (count_ == kMost) {
    log_("Refused a browser: There are too many connections.");
    return;
  }
  std::make_shared<Visit>(*this, std::move(socket))->Begin();
}

void BrowserVisits::Leave(const Visit& visit) {
  if (joined_.lock().get() != &visit) {
    return;
  }
  joined_.reset();
  if (const auto waiting = waiting_.lock()) {
    waiting->StopWaiting();
  }
}

}  // namespace host
