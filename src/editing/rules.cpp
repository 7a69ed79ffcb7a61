#include "editing/rules.h"

#include "editing/lost_connection.h"
#include "forms/text.h"

namespace editing {

bool Rules::Attempt(const std::function<void()>& operation) const {
  try {
    operation();
    return true;
  } catch (const Refusal& refusal) {
    Tell(refusal.what(), forms::Icon::Exclamation);
  } catch (const session::DatabaseError& error) {
    Report(error);
  } catch (const std::overflow_error& error) {
    Tell("A number is too large: " + std::string(error.what()) + ". Nothing was changed.", forms::Icon::Exclamation);
  }
  return false;
}

void Rules::Report(const session::DatabaseError& error) const {
  if (!error.given_up) {
    Tell((error.ConnectionLost() ? LossText(error) + "\r\n\r\n" : std::string()) + error.Told(), forms::Icon::Critical);
  }
}

bool Rules::ReadsAgain(const session::DatabaseError& error) const {
  if (error.ConnectionLost() && !error.given_up) {
    return WantsToTryAgain(context_.user, error);
  }
  Report(error);
  return false;
}

void Rules::Tell(std::string text, forms::Icon icon) const {
  context_.user.Tell(std::move(text), std::string(forms::kSuiteTitle), icon);
}

std::string Rules::ToldBack(std::string_view text, std::size_t most) {
  return "[ " + forms::Left(text, most) + " ]";
}

std::string Rules::ToldDay(const std::string& day) {
  const auto time = forms::ParseIso(day);
  return time ? forms::FormatDashed(forms::DateOf(*time)) : day;
}

void Rules::TellIsBeingEdited() const {
  Tell("This is the same entry you are currently editing. Please edit on Patient Information Screen",
       forms::Icon::Exclamation);
}

bool Rules::Confirm(std::string question, std::string_view title) const {
  return context_.user.Ask({.text = std::move(question),
                            .title = std::string(title),
                            .buttons = forms::kYesNo,
                            .icon = forms::Icon::Question}) == forms::Answer::Yes;
}

bool Rules::Warn(std::string text, std::string_view title) const {
  return context_.user.Ask({.text = std::move(text),
                            .title = std::string(title),
                            .buttons = forms::kOkCancel,
                            .icon = forms::Icon::Exclamation,
                            .default_answer = forms::Answer::Cancel}) == forms::Answer::OK;
}

bool Rules::HasRight(std::string_view right, std::string_view what, std::string_view verb) const {
  const bool has = context_.session.HasRight(right);
  if (!has) {
    Tell("User [" + context_.session.UserName() + "] does not have the rights to " + std::string(verb) + " " +
         std::string(what) + ".");
  }
  return has;
}

}  // namespace editing
