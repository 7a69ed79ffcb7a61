#include "console/interpreter.h"

#include <utility>

#include "console/control_state.h"
#include "console/steps.h"
#include "forms/button.h"
#include "forms/text.h"

namespace host {
namespace {

// Puts a value back at its end.
template <typename T>
class Restore {
 public:
  Restore(T& place, T value) : place_(place), before_(std::exchange(place, std::move(value))) {}
  Restore(const Restore&) = delete;
  Restore& operator=(const Restore&) = delete;
  ~Restore() { place_ = std::move(before_); }

 private:
  T& place_;
  T before_;
};

class OnTop {
 public:
  OnTop(std::vector<forms::Form*>& forms, const forms::Control*& acted_on, forms::Form& form)
      : forms_(forms), acted_on_(acted_on) {
    forms.push_back(&form);
    acted_on = nullptr;
  }
  OnTop(const OnTop&) = delete;
  OnTop& operator=(const OnTop&) = delete;
  ~OnTop() {
    forms_.pop_back();
    acted_on_ = nullptr;
  }

 private:
  std::vector<forms::Form*>& forms_;
  const forms::Control*& acted_on_;
};

}  // namespace

Interpreter::Interpreter(LineSource& lines, std::function<std::unique_ptr<Stage>(Interpreter&)> make_first,
                         std::ostream* output)
    : lines_(lines), make_first_(std::move(make_first)), output_(output) {}

Interpreter::~Interpreter() = default;

void Interpreter::Run() {
  try {
    while (PlayNext()) {
    }
  } catch (const EndOfInput&) {
    return;
  }
}

bool Interpreter::PlayNext() {
  if (failure_) {
    throw StepFailure(*failure_);
  }
  const std::optional<Line> line = lines_.Next();
  if (line) {
    Play(*line);
  }
  return line.has_value();
}

void Interpreter::Play(const Line& line) {
  const Restore<std::vector<const forms::Control*>> step_before(spoken_of_, {});
  const Restore<int> depth(depth_, depth_ + 1);
  const auto fail = [&](StepFailure failure) {
    if (failure.place.empty()) {
      failure.place = line.Place();
    }
    if (lines_.ByHand()) {
      Print(Describe(failure));  // the person may ask for the screen
      return;
    }
    if (!failure_) {
      if (HasForm()) {
        failure.screen = StateOf(*forms_.back(), spoken_of_);
      }
      failure_ = std::move(failure);
    }
    throw StepFailure(*failure_);
  };
  constexpr int kDeepest = 100;
  try {
    if (depth_ > kDeepest) {
      Fail("more than " + std::to_string(kDeepest) + " screens and questions are open in one another");
    }
    RunStep(line);
    Idle();
  } catch (const StepFailure& failure) {
    fail(failure);
  } catch (const session::DatabaseError& error) {
    fail({.problem = std::string("the database refused it: ") + error.what() + "\n  statement: " + error.Statement()});
  } catch (const std::exception& error) {
    fail({.problem = std::string("it broke off: ") + error.what()});
  }
}

void Interpreter::RunStep(const Line& line) {
  StepWords words(line, variables_);
  const std::string name = words.Take("a step");
  const Step* step = FindStep(name);
  if (step == nullptr) {
    Fail("there is no step " + name);
  }
  if (question_ != nullptr && (step->kind == StepKind::Act || step->kind == StepKind::Call)) {
    Fail(Describe(*question_) + " is open, and this line does not deal with it");
  }
  step->run(*this, words);
}

void Interpreter::Idle() {
  while (question_ == nullptr && HasForm() && !forms_.back()->Closed() && forms_.back()->DoIdle()) {
  }
}

void Interpreter::PlayForm(forms::Form& form) {
  const OnTop on_top(forms_, acted_on_, form);
  const Restore<Question*> no_question(question_, nullptr);
  form.Load();
  Idle();
  if (lines_.ByHand() && !form.Closed()) {
    Print(StateOf(form));
  }
  while (!form.Closed()) {
    if (!PlayNext()) {
      EndEarly("the lines end while " + form.Name() + " is open");
    }
  }
  if (lines_.ByHand()) {
    Print(form.Name() + " is closed\n");
  }
}

void Interpreter::PlayQuestion(Question& question) {
  const Restore<Question*> open(question_, &question);
  ++question_count_;
  if (lines_.ByHand()) {
    Print(Describe(question) + "\n");
  }
  while (!question.closed) {
    if (!PlayNext()) {
      EndEarly(Describe(question) + " is left open");
    }
  }
}

void Interpreter::EndEarly(const std::string& problem) const {
  if (lines_.ByHand()) {
    throw EndOfInput{};
  }
  Fail(problem);
}

void Interpreter::Say(std::string_view text) {
  if (text.empty()) {
    return;
  }
  recordings_.said.emplace_back(text);
  if (lines_.ByHand()) {
    Print(std::string(text) + "\n");
  }
}

void Interpreter::Print(std::string_view text) {
  if (output_ != nullptr) {
    *output_ << text;
  }
}

Stage& Interpreter::World() {
  if (stage_ == nullptr) {
    stage_ = make_first_(*this);
  }
  return *stage_;
}

void Interpreter::SetWorld(std::unique_ptr<Stage> stage) {
  if (HasForm()) {
    Fail(forms_.back()->Name() + " is open");
  }
  ReadResult = nullptr;
  kept_.clear();
  recordings_.Forget();
  stage_ = std::move(stage);
}

forms::Form& Interpreter::Top() const {
  if (forms_.empty()) {
    Fail("no screen is open");
  }
  return *forms_.back();
}

namespace {

// A screen's own dialog button is called by its caption as well: "DialogButtons1.New".
forms::Control* OwnButton(const forms::Form& form, std::string_view name) {
  const std::size_t point = name.rfind('.');
  if (point == std::string_view::npos) {
    return nullptr;
  }
  auto* button = dynamic_cast<forms::Button*>(form.Find(std::string(name.substr(0, point)) + ".Extra"));
  const bool called = button != nullptr &&
                      forms::EqualsIgnoringCase(forms::WithoutMnemonic(button->Caption.get()), name.substr(point + 1));
  return called ? button : nullptr;
}

}  // namespace

forms::Control& Interpreter::Find(std::string_view name) {
  forms::Control* control = Top().Find(name);
  if (control == nullptr) {
    control = OwnButton(Top(), name);
  }
  if (control == nullptr) {
    Fail(Top().Name() + " has no control " + std::string(name));
  }
  spoken_of_.push_back(control);
  return *control;
}

Question& Interpreter::Open() const {
  if (question_ == nullptr) {
    Fail("no question is open");
  }
  return *question_;
}

bool Interpreter::AnswerFollows() const {
  for (std::size_t ahead = 0;; ++ahead) {
    const Line* line = lines_.Peek(ahead);
    const Step* step = line == nullptr || line->words.empty() ? nullptr : FindStep(line->words.front().text);
    if (step == nullptr || step->kind == StepKind::Act || step->kind == StepKind::Call) {
      return false;
    }
    if (step->kind == StepKind::Answer && step->name != "ask") {
      return step->name == "answer";
    }
  }
}

std::string Describe(const StepFailure& failure) {
  std::string text = failure.place + "\n";
  if (!failure.problem.empty()) {
    text += "  " + failure.problem + "\n";
  }
  if (!failure.expected.empty()) {
    text += "  expected: " + failure.expected + "\n  was:      " + failure.was + "\n";
  }
  return text + failure.screen;
}

}  // namespace host
