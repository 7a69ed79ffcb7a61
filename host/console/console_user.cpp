#include "console/console_user.h"

#include <filesystem>

#include "console/interpreter.h"
#include "console/question.h"
#include "forms/dates.h"
#include "forms/report_pages.h"
#include "forms/text.h"

namespace host {
namespace {

// Every character is half as wide as a line is high.
class EvenMeasure : public forms::TextMeasure {
 public:
  double Width(std::string_view text, const forms::Lettering& lettering) const override {
    return static_cast<double>(forms::CharacterCount(text)) * lettering.tenths / 20;
  }
};

// What stands on one height is a line, parted by "|".
std::string TextOf(const forms::ReportPage& page) {
  std::string text;
  double y = -1;
  for (const forms::PrintedText& printed : page.texts) {
    text += (text.empty() ? "" : printed.y == y ? "|" : "\n") + printed.text;
    y = printed.y;
  }
  return text;
}

}  // namespace

forms::Answer ConsoleUser::Ask(const forms::Message& message) {
  Question question{.name = "message box", .title = message.title, .text = message.text, .message = &message};
  interpreter_.PlayQuestion(question);
  return question.answer;
}

std::optional<std::string> ConsoleUser::Input(const forms::InputBox& box) {
  Question question{.name = "input box", .title = box.title, .text = box.prompt, .takes_input = true};
  interpreter_.PlayQuestion(question);
  return question.input;
}

void ConsoleUser::Show(forms::Form& form) {
  interpreter_.PlayForm(form);
}

std::optional<std::chrono::year_month_day> ConsoleUser::PickDate(std::string_view title,
                                                                 std::chrono::year_month_day /*start*/) {
  std::optional<std::chrono::year_month_day> picked;
  Question question{.name = "date picker", .title = std::string(title), .text = {}};
  question.choose = [&](const std::string& value) {
    const auto date = forms::ParseIso(value);
    if (date) {
      picked = forms::DateOf(*date);
    }
    return date.has_value();
  };
  interpreter_.PlayQuestion(question);
  return picked;
}

// A path that is not absolute lies under the data folder.
std::optional<std::string> ConsoleUser::PickFile(const forms::FileChoice& choice) {
  std::optional<std::string> picked;
  Question question{.name = "file picker", .title = choice.title, .text = {}};
  question.choose = [&](const std::string& value) {
    const std::filesystem::path file = interpreter_.World().File(value);
    const bool there = std::filesystem::is_regular_file(file);
    if (there || choice.for_writing) {
      picked = file.string();
    }
    return picked.has_value();
  };
  interpreter_.PlayQuestion(question);
  return picked;
}

std::optional<std::string> ConsoleUser::PickFolder(std::string_view title) {
  std::optional<std::string> picked;
  Question question{.name = "folder picker", .title = std::string(title), .text = {}};
  question.choose = [&](const std::string& value) {
    const std::filesystem::path folder = interpreter_.World().File(value);
    if (std::filesystem::is_directory(folder)) {
      picked = folder.string();
    }
    return picked.has_value();
  };
  interpreter_.PlayQuestion(question);
  return picked;
}

std::optional<forms::Color> ConsoleUser::PickColor(forms::Color /*start*/) {
  std::optional<forms::Color> picked;
  Question question{.name = "colour picker", .title = {}, .text = {}};
  question.choose = [&](const std::string& value) {
    picked = forms::ParseColor(value);
    return picked.has_value();
  };
  interpreter_.PlayQuestion(question);
  return picked;
}

void ConsoleUser::Wait(std::string_view text, double /*done*/) {
  if (text != waiting_) {
    waiting_ = text;
    interpreter_.Say(text);
  }
}

bool ConsoleUser::WaitOrGiveUp(std::string_view text, double done) {
  Wait(text, done);
  return false;
}

void ConsoleUser::Copy(std::string_view text) {
  interpreter_.Heard().copied = text;
}

bool ConsoleUser::Print(const forms::Report& report) {
  const EvenMeasure measure;
  const forms::ReportPages pages(report, measure);
  for (int number = 0; number < pages.Count(); ++number) {
    interpreter_.Heard().printed.push_back(TextOf(pages.Page(number)));
  }
  return true;
}

}  // namespace host
