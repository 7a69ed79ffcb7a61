#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/color.h"

namespace forms {

class Form;
struct Report;

// The title of a message box that has none of its own.
inline constexpr std::string_view kSuiteTitle = "TAVO Windows";

enum class Answer { OK, Cancel, Yes, No, Retry, Replace, Delete, UnLink, Open, AddAnyway, GoBack, DontAsk };
// "OK", "Un-Link", ...
std::string_view Caption(Answer answer);

enum class Icon { None, Information, Question, Exclamation, Critical };

inline const std::vector<Answer> kOkOnly = {Answer::OK};
inline const std::vector<Answer> kOkCancel = {Answer::OK, Answer::Cancel};
inline const std::vector<Answer> kYesNo = {Answer::Yes, Answer::No};
inline const std::vector<Answer> kYesNoCancel = {Answer::Yes, Answer::No, Answer::Cancel};
inline const std::vector<Answer> kRetryCancel = {Answer::Retry, Answer::Cancel};

// A message box. Its first button is the default unless `default_answer` names another.
struct Message {
  std::string text;
  std::string title{kSuiteTitle};
  std::vector<Answer> buttons = kOkOnly;
  Icon icon = Icon::None;
  std::optional<Answer> default_answer = {};

  Answer Default() const { return default_answer.value_or(buttons.front()); }
};

struct InputBox {
  std::string prompt;
  std::string title{kSuiteTitle};
  std::string text = {};  // what stands in the field at first
  bool masked = false;    // shows '*' for every character
};

// A file to write may be one that is there: whether it is written over is the rule's to ask.
struct FileChoice {
  std::string title;
  std::string folder = {};
  std::string name = {};  // the one that is proposed
  std::string pattern = "*";
  bool for_writing = false;
};

// The person in front of the screen. Closing a question by its close box is its `Cancel`, or its last button.
class User {
 public:
  virtual ~User() = default;

  virtual Answer Ask(const Message& message) = 0;
  // Nothing when cancelled.
  virtual std::optional<std::string> Input(const InputBox& box) = 0;
  // Loads the form and returns when it is closed.
  virtual void Show(Form& form) = 0;

  virtual std::optional<std::chrono::year_month_day> PickDate(std::string_view title,
                                                              std::chrono::year_month_day start) = 0;
  virtual std::optional<std::string> PickFile(const FileChoice& choice) = 0;
  virtual std::optional<std::string> PickFolder(std::string_view title) = 0;
  virtual std::optional<Color> PickColor(Color start) = 0;

  // Shows a wait or status text until the next; an empty one takes it away. `done` is a share of 0 to 1, or
  // negative when how long it takes is not known.
  virtual void Wait(std::string_view text, double done = -1) = 0;
  // As `Wait`, for work that a person may give up: true once he did.
  virtual bool WaitOrGiveUp(std::string_view text, double done = -1) = 0;

  // Puts a text on the clipboard; its lines end with LF.
  virtual void Copy(std::string_view text) = 0;
  // Shows what the pages look like, and prints them when the person says so. False when nothing was printed.
  virtual bool Print(const Report& report) = 0;

  // A message with OK alone.
  void Tell(std::string text, std::string title = std::string(kSuiteTitle), Icon icon = Icon::None);
};

// Shows a wait text for as long as it lives.
class WaitText {
 public:
  WaitText(User& user, std::string_view text) : user_(user) { user_.Wait(text); }
  WaitText(const WaitText&) = delete;
  WaitText& operator=(const WaitText&) = delete;
  ~WaitText() { user_.Wait({}); }

 private:
  User& user_;
};

}  // namespace forms
