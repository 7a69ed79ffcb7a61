#include "forms/user.h"

#include <utility>

namespace forms {

std::string_view Caption(Answer answer) {
  switch (answer) {
    case Answer::OK:
      return "OK";
    case Answer::Cancel:
      return "Cancel";
    case Answer::Yes:
      return "Yes";
    case Answer::No:
      return "No";
    case Answer::Retry:
      return "Retry";
    case Answer::Replace:
      return "Replace";
    case Answer::Delete:
      return "Delete";
    case Answer::UnLink:
      return "Un-Link";
    case Answer::Open:
      return "Open";
    case Answer::AddAnyway:
      return "Add Anyway";
    case Answer::GoBack:
      return "Go Back";
    case Answer::DontAsk:
      return "Don't Ask Again";
  }
  return {};
}

void User::Tell(std::string text, std::string title, Icon icon) {
  Ask(Message{.text = std::move(text), .title = std::move(title), .icon = icon});
}

}  // namespace forms
