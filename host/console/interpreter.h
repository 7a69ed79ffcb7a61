#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "console/console_user.h"
#include "console/line_source.h"
#include "console/practice_line.h"
#include "console/question.h"
#include "console/recordings.h"
#include "console/stage.h"
#include "console/step_failure.h"
#include "console/step_words.h"
#include "forms/form.h"

namespace host {

// Plays lines, one after the other. A step that opens a screen or raises a question plays the lines behind it from
// within, until the screen is closed or the question answered; so a line always acts on what is on top.
class Interpreter {
 public:
  // `make_first` makes the stage that stands until a step makes another; it is called when one is first needed.
  // `output` shows what steps print and, where the lines come by hand, what opens and what fails.
  Interpreter(LineSource& lines, std::function<std::unique_ptr<Stage>(Interpreter&)> make_first,
              std::ostream* output = nullptr);
  Interpreter(const Interpreter&) = delete;
  Interpreter& operator=(const Interpreter&) = delete;
  ~Interpreter();

  // Plays all lines. Throws StepFailure.
  void Run();

  // For the person's side: play lines until it is closed.
  void PlayForm(forms::Form& form);
  void PlayQuestion(Question& question);
  void Say(std::string_view text);

  // For the steps.
  Stage& World();
  // Fails while a screen is open.
  void SetWorld(std::unique_ptr<Stage> stage);
  forms::User& Person() { return user_; }
  Recordings& Heard() { return recordings_; }
  Variables& Known() { return variables_; }
  // Fails when no screen is open.
  forms::Form& Top() const;
  bool HasForm() const { return !forms_.empty(); }
  // Of the topmost screen; fails when it has no such control. The step speaks of it from here on.
  forms::Control& Find(std::string_view name);
  // Fails when no question is open.
  Question& Open() const;
  bool HasQuestion() const { return question_ != nullptr; }
  // The control that the step before acted on; nullptr when a screen has opened or closed since.
  const forms::Control* ActedOn() const { return acted_on_; }
  void SetActedOn(const forms::Control& control) { acted_on_ = &control; }
  // Questions raised so far.
  int QuestionCount() const { return question_count_; }
  // Whether the lines to come answer the open question, before they act on anything.
  bool AnswerFollows() const;

  void Print(std::string_view text);

  // For the stages that steps make: what the screens get for a session, and what a practice is where no line says so.
  SessionPath ToScreens;
  PracticeLine Unnamed;
  // Whether the steps about statements check anything: their texts are those of one kind of practice.
  bool ChecksStatements = true;

  // How `result` reads a name after a call or an opened form; nothing for a name that is not there.
  std::function<std::optional<std::string>(const std::string& name)> ReadResult;
  // A form opened by name outlives its closing, for its properties are read then.
  void Keep(std::unique_ptr<forms::Form> form) { kept_.push_back(std::move(form)); }

 private:
  // False at the end of the lines.
  bool PlayNext();
  void Play(const Line& line);
  void RunStep(const Line& line);
  void Idle();
  // For lines that end too early.
  [[noreturn]] void EndEarly(const std::string& problem) const;

  LineSource& lines_;
  std::function<std::unique_ptr<Stage>(Interpreter&)> make_first_;
  std::ostream* output_;
  ConsoleUser user_{*this};
  Recordings recordings_;
  Variables variables_;
  std::unique_ptr<Stage> stage_;
  std::vector<std::unique_ptr<forms::Form>> kept_;
  std::vector<forms::Form*> forms_;
  const forms::Control* acted_on_ = nullptr;
  int depth_ = 0;  // steps that play the lines behind them
  // The controls that the step under way speaks of.
  std::vector<const forms::Control*> spoken_of_;
  Question* question_ = nullptr;
  int question_count_ = 0;
  // The first failure; once there is one nothing is played any more, whatever a rule made of the exception.
  std::optional<StepFailure> failure_;
};

// As a failure is printed: the place, what was expected and what was there, and the controls that the step speaks of.
std::string Describe(const StepFailure& failure);

}  // namespace host
