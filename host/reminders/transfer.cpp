#include "reminders/transfer.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

#include "reminders/mail_message.h"

namespace host {
namespace {

struct ListEnd {
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using List = std::unique_ptr<curl_slist, ListEnd>;

void Append(List& list, const std::string& text) {
  if (curl_slist* longer = curl_slist_append(list.get(), text.c_str())) {
    (void)list.release();
    list.reset(longer);
  }
}

// One transfer, which keeps what it sends.
class Transfer {
 public:
  Transfer(const char* protocols, WhileSending while_sending)
      : handle_(curl_easy_init(), curl_easy_cleanup), while_sending_(std::move(while_sending)) {
    Set(CURLOPT_PROTOCOLS_STR, protocols);
    Set(CURLOPT_TIMEOUT_MS, static_cast<long>(std::chrono::milliseconds(kTransferTime).count()));
    Set(CURLOPT_NOSIGNAL, 1L);
    Set(CURLOPT_PROXY, "");  // what the environment names is nothing that the office has set
    Set(CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
    Set(CURLOPT_ERRORBUFFER, problem_.data());
    Set(CURLOPT_WRITEFUNCTION, &Transfer::Forget);
    Set(CURLOPT_NOPROGRESS, 0L);
    Set(CURLOPT_XFERINFOFUNCTION, &Transfer::Progress);
    Set(CURLOPT_XFERINFODATA, this);
  }

  template <typename Value>
  void Set(CURLoption option, Value value) {
    curl_easy_setopt(handle_.get(), option, value);
  }
  void Upload(std::string_view source) {
    left_ = source;
    Set(CURLOPT_UPLOAD, 1L);
    Set(CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(source.size()));
    Set(CURLOPT_READFUNCTION, &Transfer::Read);
    Set(CURLOPT_READDATA, this);
  }

  // What went wrong; empty when nothing did.
  std::string Run() {
    const CURLcode code = curl_easy_perform(handle_.get());
    if (code == CURLE_OK) {
      return {};
    }
    if (code == CURLE_ABORTED_BY_CALLBACK) {
      return "It was given up.";
    }
    return problem_.front() != '\0' ? problem_.data() : curl_easy_strerror(code);
  }
  long Answer() const {
    long code = 0;
    curl_easy_getinfo(handle_.get(), CURLINFO_RESPONSE_CODE, &code);
    return code;
  }

 private:
  static std::size_t Forget(char* /*bytes*/, std::size_t size, std::size_t count, void* /*data*/) {
    return size * count;
  }
  static std::size_t Read(char* buffer, std::size_t size, std::size_t count, void* self) {
    std::string_view& left = static_cast<Transfer*>(self)->left_;
    const std::size_t taken = left.copy(buffer, size * count);
    left.remove_prefix(taken);
    return taken;
  }
  static int Progress(void* self, curl_off_t /*to_come*/, curl_off_t /*came*/, curl_off_t /*to_go*/,
                      curl_off_t /*went*/) {
    const WhileSending& while_sending = static_cast<Transfer*>(self)->while_sending_;
    return while_sending && while_sending() ? 1 : 0;
  }

  std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> handle_;
  WhileSending while_sending_;
  std::string_view left_;
  std::array<char, CURL_ERROR_SIZE> problem_{};
};

}  // namespace

std::string SendMail(const ReminderSettings& settings, const std::string& to, const std::string& source,
                     const WhileSending& while_sending) {
  const bool over_tls = settings.security == MailSecurity::Tls;
  const bool in_brackets = settings.server.find(':') != std::string::npos;
  // The domain is what this machine calls itself: its own name is nobody's business.
  const std::string url = std::string(over_tls ? "smtps://" : "smtp://") + (in_brackets ? "[" : "") + settings.server +
                          (in_brackets ? "]:" : ":") + std::to_string(settings.Port()) + '/' +
                          std::string(DomainOf(settings.sender));
  Transfer transfer("smtp,smtps", while_sending);
  transfer.Set(CURLOPT_URL, url.c_str());
  transfer.Set(CURLOPT_USE_SSL,
               static_cast<long>(settings.security == MailSecurity::None ? CURLUSESSL_NONE : CURLUSESSL_ALL));
  if (!settings.user.empty()) {
    transfer.Set(CURLOPT_USERNAME, settings.user.c_str());
    transfer.Set(CURLOPT_PASSWORD, settings.password.c_str());
  }
  const std::string from = '<' + settings.sender + '>';
  transfer.Set(CURLOPT_MAIL_FROM, from.c_str());
  List receivers;
  Append(receivers, '<' + to + '>');
  transfer.Set(CURLOPT_MAIL_RCPT, receivers.get());
  transfer.Upload(source);
  return transfer.Run();
}

std::string PostToHook(const ReminderSettings& settings, const std::string& json, const WhileSending& while_sending) {
  Transfer transfer("http,https", while_sending);
  transfer.Set(CURLOPT_URL, settings.hook.c_str());
  List heads;
  Append(heads, "Content-Type: application/json");
  Append(heads, "Expect:");  // it is sent at once
  if (!settings.token.empty()) {
    Append(heads, "Authorization: Bearer " + settings.token);
  }
  transfer.Set(CURLOPT_HTTPHEADER, heads.get());
  transfer.Set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(json.size()));
  transfer.Set(CURLOPT_POSTFIELDS, json.c_str());
  std::string problem = transfer.Run();
  const bool taken = transfer.Answer() / 100 == 2;
  return problem.empty() && !taken ? "The web hook answered " + std::to_string(transfer.Answer()) + "." : problem;
}

}  // namespace host
