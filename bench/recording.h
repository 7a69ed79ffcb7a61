#pragma once

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bare.h"
#include "forms/form.h"
#include "forms/user.h"
#include "practice/demo.h"
#include "practice/host_session.h"

namespace bench {

// Keeps the prepared statements, in order, and the seconds that holding records took.
class PreparedSession : public host::HostSession {
 public:
  using HostSession::HostSession;

  mutable std::vector<std::string> prepared;
  double holding = 0;

  std::string PrepareSQL(const std::string& sql, int flag) const override {
    return prepared.emplace_back(HostSession::PrepareSQL(sql, flag));
  }
  std::optional<session::RecordHolder> HoldRecord(std::string_view table, std::int32_t id) override {
    std::optional<session::RecordHolder> holder;
    holding += Time([&] { holder = HostSession::HoldRecord(table, id); });
    return holder;
  }
};

// A person who agrees to every question and does `acts` in every window.
class QuickUser : public forms::User {
 public:
  std::function<void(forms::Form&)> acts;

  std::string told;  // the last question

  forms::Answer Ask(const forms::Message& message) override {
    told = message.text;
    for (const forms::Answer agreeing : {forms::Answer::Yes, forms::Answer::OK}) {
      if (std::ranges::find(message.buttons, agreeing) != message.buttons.end()) {
        return agreeing;
      }
    }
    return message.Default();
  }
  std::optional<std::string> Input(const forms::InputBox&) override { return "Yes"; }
  void Show(forms::Form& form) override {
    form.Load();
    acts(form);
  }
  std::optional<std::chrono::year_month_day> PickDate(std::string_view, std::chrono::year_month_day) override {
    return std::nullopt;
  }
  std::optional<std::string> PickFile(const forms::FileChoice&) override { return std::nullopt; }
  std::optional<std::string> PickFolder(std::string_view) override { return std::nullopt; }
  std::optional<forms::Color> PickColor(forms::Color) override { return std::nullopt; }
  void Wait(std::string_view, double) override {}
  bool WaitOrGiveUp(std::string_view, double) override { return false; }
  void Copy(std::string_view) override {}
  bool Print(const forms::Report&) override { return false; }
};

// A demo practice, in a file of its own that is gone at the end, or in one that is kept: there it is made only once.
class Subject {
 public:
  explicit Subject(std::int32_t patients, const std::filesystem::path& kept = {})
      : kept_(!kept.empty()),
        path_(kept_ ? kept
                    : std::filesystem::temp_directory_path() /
                          ("practice_bench_" + std::to_string(getpid()) + "_" + std::to_string(++made_) + ".db")),
        practice_(Open(path_, patients)),
        session_(practice_, practice_.Office(), host::LoginRights("bench", true), host::ThisMachine({}, {})) {}
  Subject(const Subject&) = delete;
  Subject& operator=(const Subject&) = delete;
  ~Subject() {
    if (kept_) {
      return;
    }
    for (const char* suffix : {"", "-wal", "-shm", "-locks", "-locks-wal", "-locks-shm"}) {
      std::error_code ignored;
      std::filesystem::remove(path_.string() + suffix, ignored);
    }
  }

  std::string Path() const { return path_.string(); }
  PreparedSession& Session() { return session_; }
  void Run(const std::string& sql) { session_.Connection().Execute(sql); }

 private:
  static host::Practice Open(const std::filesystem::path& path, std::int32_t patients) {
    const std::string url = "sqlite:" + path.string();
    return std::filesystem::exists(path) ? host::Practice(url)
                                         : host::MakeDemo(url, {.patients = patients, .seed = 1, .practice = {}});
  }

  inline static int made_ = 0;

  bool kept_;
  std::filesystem::path path_;
  host::Practice practice_;
  PreparedSession session_;
};

}  // namespace bench
