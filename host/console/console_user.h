#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "forms/user.h"

namespace host {

class Interpreter;

// The person whom the steps play: forms are acted on and questions are answered by the lines that follow.
class ConsoleUser : public forms::User {
 public:
  explicit ConsoleUser(Interpreter& interpreter) : interpreter_(interpreter) {}

  forms::Answer Ask(const forms::Message& message) override;
  std::optional<std::string> Input(const forms::InputBox& box) override;
  void Show(forms::Form& form) override;
  std::optional<std::chrono::year_month_day> PickDate(std::string_view title,
                                                      std::chrono::year_month_day start) override;
  std::optional<std::string> PickFile(const forms::FileChoice& choice) override;
  std::optional<std::string> PickFolder(std::string_view title) override;
  std::optional<forms::Color> PickColor(forms::Color start) override;
  void Wait(std::string_view text, double done) override;
  bool WaitOrGiveUp(std::string_view text, double done) override;
  void Copy(std::string_view text) override;
  bool Print(const forms::Report& report) override;

 private:
  Interpreter& interpreter_;
  std::string waiting_;  // the text that is shown
};

}  // namespace host
