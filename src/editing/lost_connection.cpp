#include "editing/lost_connection.h"

#include <utility>

namespace editing {
namespace {

// nullptr where there is none: whoever needs it says so.
session::Connection* ConnectionOf(session::Database& database) {
  try {
    return &database.Connection();
  } catch (const session::DatabaseError&) {
    return nullptr;
  }
}

}  // namespace

std::string LossText(const session::DatabaseError& error) {
  return error.Unanswered() ? "The connection to the database was lost while a change was being stored. Whether it was "
                              "stored is not known. Nothing that you typed is lost."
                            : "The connection to the database was lost. Nothing that you typed is lost.";
}

bool WantsToTryAgain(forms::User& user, const session::DatabaseError& error) {
  const std::string question =
      error.Unanswered() ? " Please look whether a new record is there already before you try again: it may be stored "
                           "twice otherwise. Try again?"
                         : " Try again?";
  return user.Ask({.text = LossText(error) + question + "\r\n\r\n" + error.Told(),
                   .buttons = forms::kRetryCancel,
                   .icon = forms::Icon::Exclamation,
                   .default_answer = error.Unanswered() ? forms::Answer::Cancel : forms::Answer::Retry}) ==
         forms::Answer::Retry;
}

AskedOnLoss::AskedOnLoss(session::Connection* connection, forms::User& user) : connection_(connection) {
  if (connection_ != nullptr) {
    before_ = std::exchange(connection_->TryAgain,
                            [&user](const session::DatabaseError& error) { return WantsToTryAgain(user, error); });
  }
}

AskedOnLoss::AskedOnLoss(session::Connection& connection, forms::User& user) : AskedOnLoss(&connection, user) {}

AskedOnLoss::AskedOnLoss(session::Database& database, forms::User& user) : AskedOnLoss(ConnectionOf(database), user) {}

AskedOnLoss::~AskedOnLoss() {
  if (connection_ != nullptr) {
    connection_->TryAgain = std::move(before_);
  }
}

}  // namespace editing
