#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/currency.h"
#include "forms/dates.h"
#include "forms/weekdays.h"
#include "session/connection.h"

namespace session {

inline constexpr std::int32_t kFileDatabase = 1;
inline constexpr std::int32_t kOfficeScoped = 7;
inline constexpr std::string_view kSupervisorRight = "TAVO-SUP-RIG";

// Whether, and in which plan, a person's account has a budget plan.
enum class BudgetPlan { None, Own, Family };

struct AccountFigures {
  forms::Currency balance;       // negative is a credit
  forms::Currency plan_balance;  // owed through another family member's budget plan
  BudgetPlan plan = BudgetPlan::None;
};

// A product of the suite that has rights of its own.
enum class Product { Practice, TimeClock };

// A guarded action, as rights are given for it.
struct Right {
  std::string keyword;
  std::string label;
  Product product = Product::Practice;
  bool by_default = false;  // given to a new employee whom nobody gives any
};

// When somebody works: the days, and from when to when after midnight.
struct WorkSchedule {
  forms::Weekdays days{0b0011111};
  std::chrono::minutes start = std::chrono::hours(8);
  std::chrono::minutes end = std::chrono::hours(17);

  friend bool operator==(const WorkSchedule&, const WorkSchedule&) = default;
};

// Where an audit text goes.
enum class LogKind {
  Comment,   // a patient's comment log, kind "CM"
  Change,    // the change log of shared records
  Insurance  // "INS_LOG": answers to warnings
};

struct LogEntry {
  LogKind kind = LogKind::Comment;
  std::string category;     // "LogEmp", "LogInsCo", "LogIP"; the kind of answer for "INS_LOG"
  std::int32_t person = 0;  // whose comment log
  std::string text;
};

// Another user who holds a record.
struct RecordHolder {
  std::string user;  // empty where the suite does not tell; so is the machine
  std::string machine;
  bool silent = false;  // he gives no sign of life any more
};

// A message that the reminder service takes to its receiver.
struct ReminderMessage {
  enum class Method { TextMessage, Email };

  Method method = {};
  std::string to;       // the ten digits of a cell phone, or an e-mail address
  std::string subject;  // of an e-mail
  std::string text;     // plain, or the HTML of an e-mail
};

// Which database the session works in; every statement goes through it.
class Database {
 public:
  virtual ~Database() = default;

  // All screens: the office-scoping rule, "DISTINCTROW".
  virtual std::int32_t DatabaseKind() const = 0;
  virtual std::int32_t CurrentOfficeID() const = 0;
  // All statements; the flag is always 1.
  virtual std::string PrepareSQL(const std::string& sql, int flag) const = 0;
  virtual session::Connection& Connection() = 0;
  // Inserts: whether the table's rows carry a `UniqueID` on this database.
  virtual bool KeepsRowGuids(std::string_view table) const = 0;
};

// The logged-in user.
class Login {
 public:
  virtual ~Login() = default;

  // Audit texts, refusals.
  virtual std::string UserName() const = 0;
  // Every guarded action, by keyword: "EDIT-EMP-INS", "CHANGE-PRO-NAME".
  virtual bool HasRight(std::string_view keyword) const = 0;
};

// Settings of the office ("DEFAULT_OFFICE_SETUP") and options of the user ("SESC_LUL"). An absent one is empty.
class Settings {
 public:
  virtual ~Settings() = default;

  // Defaults of new records, ZIP rule, recall setup.
  virtual std::string OfficeSetting(std::string_view section, std::string_view key) const = 0;
  // The list window's filter options, window places, field help.
  // Guarded by `kSupervisorRight`: throws DatabaseError when the user lacks it.
  virtual void SetOfficeSetting(std::string_view section, std::string_view key, std::string_view value) = 0;
  virtual std::string UserOption(std::string_view section, std::string_view key) const = 0;
  virtual void SetUserOption(std::string_view section, std::string_view key, std::string_view value) = 0;
};

// Logs and locks that the suite keeps for all its programs, and the figures of its ledger.
class Suite {
 public:
  virtual ~Suite() = default;

  // After a look-up list or an editing screen has chosen or saved a record.
  virtual void RecordHandOff(std::string_view id_column, std::string_view table, std::int32_t id) = 0;
  // Before a person list is shown.
  virtual void SetCurrentPersonType(std::string_view key) = 0;
  // Replaced and deleted shared records, coverage links, carriers' changes.
  virtual void Log(const LogEntry& entry) = 0;
  // Editing screens hold the record that they edit. Nothing when the session holds it from now on, otherwise who does.
  virtual std::optional<RecordHolder> HoldRecord(std::string_view table, std::int32_t id) = 0;
  // As `HoldRecord`; a silent holder loses the record.
  virtual std::optional<RecordHolder> TakeRecordOver(std::string_view table, std::int32_t id) = 0;
  // Before each save: false when the record that the session holds was taken over.
  virtual bool KeepsRecord(std::string_view table, std::int32_t id) = 0;
  virtual void ReleaseRecord(std::string_view table, std::int32_t id) = 0;
  // The person deletion checks: another user who holds the record.
  virtual std::optional<RecordHolder> HeldByAnother(std::string_view table, std::int32_t id) const = 0;
  // The person deletion checks.
  virtual AccountFigures AccountOf(std::int32_t person) const = 0;
};

// What the suite knows of those who work in it.
class Staff {
 public:
  virtual ~Staff() = default;

  // Every right that can be given, in the order in which they are shown; none where the suite does not tell.
  virtual std::vector<Right> RightsCatalogue() const = 0;
  // The form in which a login keeps the password. Nothing where the suite offers none: it cannot be stored then.
  virtual std::optional<std::string> StorablePassword(std::string_view password) const = 0;
  // The schedule of an employee for whom none was entered: the office's, or else that of `WorkSchedule`.
  virtual WorkSchedule DefaultSchedule() const = 0;
};

// The machine that the session runs on.
class Machine {
 public:
  virtual ~Machine() = default;

  // Local time.
  virtual forms::DateTime Now() const = 0;
  // Layout files, letters, templates, pictures; without a separator at the end.
  virtual std::string DataFolder() const = 0;
  // "FXRECALL.EXE", "TAVOWP.EXE".
  virtual std::string ProgramFolder() const = 0;
  // False when it could not be started.
  virtual bool StartProgram(const std::string& command_line) = 0;
};

// The service that sends the practice's reminders.
class ReminderService {
 public:
  virtual ~ReminderService() = default;

  // False when the service does not take the message.
  virtual bool SendReminder(const ReminderMessage& message) = 0;
  // Where the person sees and changes how reminders are sent. False where the host shows none.
  virtual bool ShowReminderOptions() = 0;
};

// What the host hands over as `PV`.
class Session : public Database,
                public Login,
                public Settings,
                public Suite,
                public Staff,
                public Machine,
                public ReminderService {
 public:
  forms::Date Today() const { return forms::DateOf(Now()); }
};

}  // namespace session
