#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "practice/host_session.h"
#include "practice/practice.h"

namespace host {

inline constexpr forms::DateTime kTestClock =
    std::chrono::local_days(std::chrono::year(2026) / 11 / 21) + std::chrono::hours(14) + std::chrono::minutes(5);

inline Surroundings StandingStill() {
  return {[] { return kTestClock; }, "data", "programs",
          [](host::OfficeDatabase&, const std::string&) { return true; }};
}

// The first column of the first row.
inline std::string Ask(const Practice& practice, const std::string& sql) {
  const auto rows = practice.Database().connection->Execute(sql);
  return rows->Eof() ? "none" : session::ToText(rows->Get(0));
}

// A database file that is gone after the test.
class PracticeFile {
 public:
  explicit PracticeFile(const std::string& name)
      : path_(std::filesystem::temp_directory_path() / (name + std::to_string(ThisProcess().number) + ".practice")) {
    std::filesystem::remove(path_);
  }
  PracticeFile(const PracticeFile&) = delete;
  PracticeFile& operator=(const PracticeFile&) = delete;
  ~PracticeFile() {
    for (const char* tail : {"", "-wal", "-shm", "-journal", "-locks", "-locks-wal", "-locks-shm"}) {
      std::filesystem::remove(path_.string() + tail);
    }
  }

  std::string Url() const { return "sqlite:" + path_.string(); }
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace host
