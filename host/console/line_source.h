#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "console/line.h"

namespace host {

// Where the steps come from: a block of a file, or a person at a terminal.
class LineSource {
 public:
  virtual ~LineSource() = default;

  // The next line that is not blank; nothing at the end.
  virtual std::optional<Line> Next() = 0;
  // The line that comes `ahead` lines behind the next one; nullptr at the end, and where nobody can know.
  virtual const Line* Peek(std::size_t ahead) const = 0;
  // Whether a person types them: he hears of all that opens, and goes on after a step that failed.
  virtual bool ByHand() const = 0;
};

class BlockLines : public LineSource {
 public:
  explicit BlockLines(std::vector<Line> lines) : lines_(std::move(lines)) {}

  std::optional<Line> Next() override { return at_ < lines_.size() ? std::optional(lines_[at_++]) : std::nullopt; }
  const Line* Peek(std::size_t ahead) const override {
    return at_ + ahead < lines_.size() ? &lines_[at_ + ahead] : nullptr;
  }
  bool ByHand() const override { return false; }

 private:
  std::vector<Line> lines_;
  std::size_t at_ = 0;
};

}  // namespace host
