#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "forms/form.h"
#include "session/screens.h"

// A host without a practice: it records what a list asks of it and answers what a test tells it to.
namespace test_support {

using Row = std::vector<session::Value>;

class FakeRows : public session::Recordset {
 public:
  FakeRows(std::vector<std::string> columns, std::vector<Row> rows, std::size_t breaks_at,
           const session::WhileBusy& while_busy)
      : rows_(std::move(rows)), breaks_at_(breaks_at), while_busy_(while_busy) {
    for (std::string& column : columns) {
      fields_.push_back({.name = std::move(column)});
    }
  }

  const std::vector<session::Field>& Fields() const override { return fields_; }
  bool Eof() const override { return at_ >= rows_.size(); }
  void MoveNext() override {
    if (++at_ == breaks_at_) {
      if (while_busy_) {
        while_busy_(session::Busy::Running);
      }
      throw session::DatabaseError("the line broke", "", 1);
    }
  }
  session::Value Get(std::size_t field) const override { return rows_[at_][field]; }

 private:
  std::vector<session::Field> fields_;
  std::vector<Row> rows_;
  std::size_t breaks_at_;
  const session::WhileBusy& while_busy_;
  std::size_t at_ = 0;
};

class FakeSession : public session::Session, public session::Connection {
 public:
  std::int32_t kind = session::kFileDatabase;
  std::int32_t office = 3;
  std::vector<std::string> columns = {"ID Num", "Name"};
  std::vector<Row> rows;
  bool refuses = false;
  std::size_t breaks_at = 0;        // the row whose fetch fails; 0 for none
  std::function<void()> meanwhile;  // what happens while a statement runs, which may then be given up

  std::vector<std::string> statements;
  std::vector<std::string> person_types;
  std::vector<std::string> handed;
  bool takes_hand_offs = true;
  std::vector<std::pair<std::string, std::string>> options;

  std::int32_t DatabaseKind() const override { return kind; }
  std::int32_t CurrentOfficeID() const override { return office; }
  std::string PrepareSQL(const std::string& sql, int) const override { return sql; }
  session::Connection& Connection() override { return *this; }
  bool KeepsRowGuids(std::string_view) const override { return false; }
  std::unique_ptr<session::Recordset> Execute(const std::string& sql) override {
    statements.push_back(sql);
    if (refuses) {
      throw session::DatabaseError("refused", sql, 1);
    }
    if (meanwhile) {
      meanwhile();
      if (WhileBusy && WhileBusy(session::Busy::Running)) {
        throw session::DatabaseError("given up", sql, 1);
      }
    }
    return std::make_unique<FakeRows>(columns, rows, breaks_at, WhileBusy);
  }
  void BeginTrans() override {}
  void CommitTrans() override {}
  void RollbackTrans() override {}
  void Cancel() override {}

  std::string UserName() const override { return "Ann"; }
  bool HasRight(std::string_view) const override { return true; }
  std::string OfficeSetting(std::string_view, std::string_view) const override { return {}; }
  void SetOfficeSetting(std::string_view, std::string_view, std::string_view) override {}
  std::string UserOption(std::string_view section, std::string_view key) const override {
    std::string value;
    for (const auto& [name, set] : options) {
      value = name == std::string(section) + "." + std::string(key) ? set : value;
    }
    return value;
  }
  void SetUserOption(std::string_view section, std::string_view key, std::string_view value) override {
    options.emplace_back(std::string(section) + "." + std::string(key), value);
  }
  void RecordHandOff(std::string_view column, std::string_view table, std::int32_t id) override {
    if (!takes_hand_offs) {
      throw session::DatabaseError("not taken", {}, 0);
    }
    handed.push_back(std::string(column) + " " + std::string(table) + " " + std::to_string(id));
  }
  void SetCurrentPersonType(std::string_view key) override { person_types.emplace_back(key); }
  void Log(const session::LogEntry&) override {}
  std::optional<session::RecordHolder> HoldRecord(std::string_view, std::int32_t) override { return std::nullopt; }
  std::optional<session::RecordHolder> TakeRecordOver(std::string_view, std::int32_t) override { return std::nullopt; }
  bool KeepsRecord(std::string_view, std::int32_t) override { return true; }
  void ReleaseRecord(std::string_view, std::int32_t) override {}
  std::optional<session::RecordHolder> HeldByAnother(std::string_view, std::int32_t) const override {
    return std::nullopt;
  }
  session::AccountFigures AccountOf(std::int32_t) const override { return {}; }
  std::vector<session::Right> RightsCatalogue() const override { return {}; }
  std::optional<std::string> StorablePassword(std::string_view) const override { return std::nullopt; }
  session::WorkSchedule DefaultSchedule() const override { return {}; }
  forms::DateTime Now() const override { return {}; }
  std::string DataFolder() const override { return {}; }
  std::string ProgramFolder() const override { return {}; }
  bool StartProgram(const std::string&) override { return false; }
  bool SendReminder(const session::ReminderMessage&) override { return false; }
  bool ShowReminderOptions() override { return false; }
};

class FakeUser : public forms::User {
 public:
  std::function<void(forms::Form&)> acts;  // what the person does in a window
  // The answer to a question; without it the default one.
  std::function<forms::Answer(const forms::Message&)> answers;
  std::optional<std::string> input;  // what is typed into every input box; nothing cancels it
  std::function<std::optional<std::string>(const forms::InputBox&)> inputs;  // in the place of `input`
  std::optional<std::string> file;                                           // what is picked where one is asked for
  bool gives_up = false;                                                     // whatever takes time
  std::string copied;
  std::vector<std::string> told;
  std::vector<std::string> waits;
  int shown = 0;

  forms::Answer Ask(const forms::Message& message) override {
    told.push_back(message.text);
    return answers ? answers(message) : message.Default();
  }
  std::optional<std::string> Input(const forms::InputBox& box) override { return inputs ? inputs(box) : input; }
  void Show(forms::Form& form) override {
    ++shown;
    form.Load();
    if (acts) {
      acts(form);
    }
    form.DoClose();
  }
  std::optional<std::chrono::year_month_day> PickDate(std::string_view, std::chrono::year_month_day) override {
    return std::nullopt;
  }
  std::optional<std::string> PickFile(const forms::FileChoice&) override { return file; }
  std::optional<std::string> PickFolder(std::string_view) override { return std::nullopt; }
  std::optional<forms::Color> PickColor(forms::Color) override { return std::nullopt; }
  void Wait(std::string_view text, double) override { waits.emplace_back(text); }
  bool WaitOrGiveUp(std::string_view text, double) override {
    waits.emplace_back(text);
    return gives_up;
  }
  void Copy(std::string_view text) override { copied = text; }
  bool Print(const forms::Report&) override { return false; }
};

// Every editing screen saves the record `saves`, or is left with Cancel when that is 0.
class FakeScreens : public session::Screens {
 public:
  std::int32_t saves = 0;
  std::vector<session::Opening> opened;

  session::Outcome Edit(const session::Opening& opening) override {
    opened.push_back(opening);
    return saves == 0 ? session::Outcome() : session::Outcome{.end = session::Outcome::End::Saved, .id = saves};
  }
  session::ListOutcome ShowList(session::LookUpListTypes, const session::ListOptions&) override { return {}; }
  session::ListOutcome ShowPayers(const session::ListOptions&) override { return {}; }
  std::vector<std::string> ChooseServiceCodes() override { return {}; }
  session::SearchOutcome Search(const session::SearchRequest&) override { return {}; }
  std::int32_t SelectCoverage(const session::CoverageChoice&) override { return 0; }
  void ShowPlanDetails(const session::PlanDetailsRequest&) override {}
  std::optional<session::PickedText> ShowPickList(session::PickList, std::string_view) override { return std::nullopt; }
  bool EditLoginLocations(std::int32_t) override { return false; }
};

struct FakeHost {
  FakeSession session;
  FakeUser user;
  FakeScreens screens;

  session::ScreenContext Context() { return {session, user, screens}; }
};

}  // namespace test_support
