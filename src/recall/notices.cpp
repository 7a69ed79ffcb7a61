#include "recall/notices.h"

#include "recall/generic_messages.h"

namespace recall {
namespace {

data::ContactMethod MethodOf(Notice notice) {
  using enum data::ContactMethod;
  constexpr std::array kMethods = {Letter, PostCard, TextMessage, Email, Voice, Voice};
  return kMethods.at(static_cast<std::size_t>(notice));
}

}  // namespace

Notices Completed(Notices notices) {
  for (const Notice notice : kNotices) {
    if (notices.emptied.test(static_cast<std::size_t>(notice)) && notices[notice].empty()) {
      notices[notice] = GenericMessage(data::ReminderKind::Recall, MethodOf(notice),
                                       notice == Notice::VoiceSpanish ? Language::Spanish : Language::English);
    }
  }
  notices.emptied.reset();
  return notices;
}

}  // namespace recall
