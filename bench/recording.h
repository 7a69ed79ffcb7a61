#pragma once

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bare.h"
#include "database/unix/throwaway_cluster.h"
#include "forms/form.h"
#include "forms/user.h"
#include "practice/copy_practice.h"
#include "practice/demo.h"
#include "practice/host_session.h"
#include "practice/settings.h"

namespace bench {

// Keeps the prepared statements, those that read settings too, in order, and the seconds that holding records took.
class PreparedSession : public host::HostSession {
 public:
  using HostSession::HostSession;

  mutable std::vector<std::string> prepared;
  double holding = 0;

  std::string PrepareSQL(const std::string& sql, int flag) const override {
    return prepared.emplace_back(HostSession::PrepareSQL(sql, flag));
  }
  std::string OfficeSetting(std::string_view section, std::string_view key) const override {
    return host::ReadOfficeSetting(self_, section, key);
  }
  std::string UserOption(std::string_view section, std::string_view key) const override {
    return host::ReadUserOption(self_, UserName(), section, key);
  }
  std::optional<session::RecordHolder> HoldRecord(std::string_view table, std::int32_t id) override {
    std::optional<session::RecordHolder> holder;
    holding += Time([&] { holder = HostSession::HoldRecord(table, id); });
    return holder;
  }

 private:
  session::Session& self_ = *this;
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

// Where a bench makes its practices: in files, or on a server of its own where PRACTICE_BENCH is "postgres".
inline bool OnServer() {
  const char* engine = std::getenv("PRACTICE_BENCH");
  return engine != nullptr && std::string_view(engine) == "postgres";
}

// Patients of a large practice: a million, or what PRACTICE_BENCH_PATIENTS says.
inline std::int32_t Many() {
  const char* patients = std::getenv("PRACTICE_BENCH_PATIENTS");
  return patients == nullptr ? 1000000 : std::atoi(patients);
}

// A demo practice, in a place of its own that is gone at the end, or in one that is kept: there it is made only once.
// Kept is a file, or a database of a server by its URL.
class Subject {
 public:
  explicit Subject(std::int32_t patients, const std::string& kept = {})
      : kept_(!kept.empty()),
        url_(kept_ ? UrlOf(kept) : NewUrl()),
        practice_(Open(url_, patients)),
        session_(practice_, practice_.Office(), host::LoginRights("bench", true), host::ThisMachine({}, {})) {}
  // A copy of another as it is, which is not kept.
  struct CopyOf {
    const Subject& model;
  };
  explicit Subject(CopyOf copy)
      : url_(NewUrl()),
        practice_(OpenCopy(copy.model.url_, url_)),
        session_(practice_, practice_.Office(), host::LoginRights("bench", true), host::ThisMachine({}, {})) {}
  Subject(const Subject&) = delete;
  Subject& operator=(const Subject&) = delete;
  ~Subject() {
    if (kept_ || OnServer()) {
      return;
    }
    for (const char* suffix : {"", "-wal", "-shm", "-locks", "-locks-wal", "-locks-shm"}) {
      std::error_code ignored;
      std::filesystem::remove(Path() + suffix, ignored);
    }
  }

  const std::string& Url() const { return url_; }
  // Of a practice in a file.
  std::string Path() const { return url_.substr(std::string_view("sqlite:").size()); }
  PreparedSession& Session() { return session_; }
  void Run(const std::string& sql) { session_.Connection().Execute(sql); }

 private:
  static std::string UrlOf(const std::string& place) {
    return place.find("://") != std::string::npos ? place : "sqlite:" + place;
  }
  static std::string NewUrl() {
    if (OnServer()) {
      return host::SharedCluster().Url(host::SharedCluster().MakeDatabase("bench"));
    }
    const std::string name = "practice_bench_" + std::to_string(getpid()) + "_" + std::to_string(++made_) + ".db";
    return "sqlite:" + (std::filesystem::temp_directory_path() / name).string();
  }
  static host::Practice Open(const std::string& url, std::int32_t patients) {
    if (!host::IsVacant(url)) {
      return host::Practice(url);
    }
    return Settled(url, host::MakeDemo(url, {.patients = patients, .seed = 1, .practice = {}}));
  }
  static host::Practice OpenCopy(const std::string& model, const std::string& url) {
    host::CopyPractice(model, url, [](const host::CopyProgress&) { return true; });
    return Settled(url, host::Practice(url));
  }
  // As a server does by itself a minute later.
  static host::Practice Settled(const std::string& url, host::Practice practice) {
    if (OnServer()) {
      Bare(url).Step("VACUUM ANALYZE", 1 << 30);
    }
    return practice;
  }

  inline static int made_ = 0;

  bool kept_ = false;
  std::string url_;
  host::Practice practice_;
  PreparedSession session_;
};

}  // namespace bench
