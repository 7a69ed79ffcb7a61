#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "data/statements.h"
#include "forms/user.h"
#include "session/screens.h"

namespace editing {

// A rule ends the operation that is running; the person is told why.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The ports as the rules of a screen, or of a part of one, use them.
class Rules {
 public:
  explicit Rules(const session::ScreenContext& context) : context_(context), statements_(context.session) {}

  // Runs one operation. A refusal, a failed statement or a number past its range ends it, and the person is told.
  // False when it was ended.
  bool Attempt(const std::function<void()>& operation) const;
  // Tells the person what the database refused, unless he gave it up himself.
  void Report(const session::DatabaseError& error) const;

  // The same of rows that are shown as they arrive. True when the connection was lost and the person wants them again.
  bool ReadsAgain(const session::DatabaseError& error) const;

  void Tell(std::string text, forms::Icon icon = forms::Icon::None) const;
  // "[ text ]", cut after so many characters.
  static std::string ToldBack(std::string_view text, std::size_t most = 40);
  // A day in the ISO form, as a person reads it: "05-23-1944". What is no day stays.
  static std::string ToldDay(const std::string& day);
  // Of a patient whose own screen is open: he is not edited in the family's as well.
  void TellIsBeingEdited() const;
  // A question that is answered with Yes or No.
  bool Confirm(std::string question, std::string_view title = forms::kSuiteTitle) const;
  // A warning that stands in the way of nothing: OK goes on. Cancel is the default.
  bool Warn(std::string text, std::string_view title = forms::kSuiteTitle) const;
  // Whether the user has the right; says so when he has not: "User [Ann] does not have the rights to modify provider
  // names." for "provider names".
  bool HasRight(std::string_view right, std::string_view what, std::string_view verb = "modify") const;

 protected:
  session::ScreenContext context_;
  data::Statements statements_;
};

}  // namespace editing
