#include "console/copy_command.h"

#include <csignal>

namespace host {
namespace {

using Step = CopyProgress::Step;

// Rows between two lines about one table.
constexpr std::int64_t kRowsALine = 50000;

volatile std::sig_atomic_t stopped = 0;

void Stop(int /*signal*/) {
  stopped = 1;
}

// Tells of each table once, and now and then within a large one.
class Report {
 public:
  explicit Report(std::ostream& output) : output_(output) {}

  void Hear(const CopyProgress& progress) {
    if (progress.step == Step::LeftBehind) {
      left_ += (left_.empty() ? "" : ", ") + std::string(progress.table);
    } else if (progress.step == Step::Copied) {
      Tell(progress, " rows copied");
    } else if (progress.step == Step::Same) {
      Tell(progress, " rows, the same in both");
    } else if (progress.rows >= told_ + kRowsALine) {
      told_ = progress.rows;
      Tell(progress, progress.step == Step::Copying ? " rows so far" : " rows compared so far");
      return;
    } else {
      return;
    }
    told_ = 0;
  }
  // What was not copied, as no practice has it; empty for nothing.
  const std::string& Left() const { return left_; }

 private:
  void Tell(const CopyProgress& progress, const char* what) {
    if (progress.rows > 0) {
      output_ << progress.table << ": " << progress.rows << what << std::endl;
    }
  }

  std::ostream& output_;
  std::string left_;
  std::int64_t told_ = 0;
};

}  // namespace

bool TellOfCopy(const std::function<bool(const WhileCopying& told)>& copy, std::string_view stopped_text,
                std::ostream& output) {
  stopped = 0;
  const auto before = std::signal(SIGINT, Stop);
  Report report(output);
  const bool whole = copy([&](const CopyProgress& progress) {
    report.Hear(progress);
    return stopped == 0;
  });
  (void)std::signal(SIGINT, before);
  output << (whole ? "The practice is copied. Its letters and other files are not in the database: copy them too."
                   : stopped_text)
         << "\n";
  if (!report.Left().empty()) {
    output << "Not copied, as it is no part of a practice: " << report.Left() << ".\n";
  }
  return whole;
}

bool RunCopy(const std::string& from, const std::string& to, std::optional<std::int32_t> office, std::ostream& output) {
  return TellOfCopy([&](const WhileCopying& told) { return CopyPractice(from, to, told, office); },
                    "Stopped; the same command goes on from here.", output);
}

}  // namespace host
