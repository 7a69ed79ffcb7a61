#include "console/terminal.h"

#include "console/interpreter.h"
#include "console/line_source.h"
#include "console/practice_line.h"
#include "console/steps.h"

namespace host {
namespace {

constexpr std::string_view kOwnHelp =
    "At the terminal\n"
    "  help                                          lists all steps\n"
    "  quit                                          ends\n";

class TypedLines : public LineSource {
 public:
  TypedLines(std::istream& input, std::ostream& output) : input_(input), output_(output) {}

  // The interpreter that plays the lines: what is on top stands in the prompt.
  void PromptFor(const Interpreter& interpreter) { interpreter_ = &interpreter; }

  std::optional<Line> Next() override {
    std::string text;
    while (output_ << Prompt() << std::flush && std::getline(input_, text)) {
      Line line = ReadLine(text, "typed", ++number_);
      if (line.Is("quit")) {
        return std::nullopt;
      }
      if (line.Is("help")) {
        output_ << StepHelp() << kOwnHelp;
      } else if (!line.Blank()) {
        return line;
      }
    }
    output_ << "\n";
    return std::nullopt;
  }
  const Line* Peek(std::size_t /*ahead*/) const override { return nullptr; }
  bool ByHand() const override { return true; }

 private:
  std::string Prompt() const {
    if (interpreter_->HasQuestion()) {
      return interpreter_->Open().name + "> ";
    }
    return interpreter_->HasForm() ? interpreter_->Top().Name() + "> " : "> ";
  }

  std::istream& input_;
  std::ostream& output_;
  const Interpreter* interpreter_ = nullptr;
  int number_ = 0;
};

}  // namespace

void RunTerminal(std::istream& input, std::ostream& output, const std::optional<std::string>& database_url) {
  TypedLines lines(input, output);
  Interpreter interpreter(
      lines,
      [](Interpreter& owner) {
        return std::make_unique<Stage>(MakePractice({}), std::nullopt, owner.Person(), owner.Heard());
      },
      &output);
  lines.PromptFor(interpreter);
  if (database_url) {
    interpreter.SetWorld(
        std::make_unique<Stage>(Practice(*database_url), std::nullopt, interpreter.Person(), interpreter.Heard()));
  }
  output << "Type `help` for the steps, `quit` to end.\n";
  interpreter.Run();
}

}  // namespace host
