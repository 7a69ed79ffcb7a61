#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/dispatch_object.h"
#include "automation/module.h"
#include "com/ado_connection.h"
#include "session/session.h"

namespace com {

using automation::ComPtr;
using automation::DispatchObject;
using automation::Variant;

// The host's session object, called late-bound by the names of the session's operations; docs/integration.md lists
// them. A member that the object lacks is thrown as session::DatabaseError that names it.
class PvSession : public session::Session {
 public:
  explicit PvSession(ComPtr<IDispatch> pv) : pv_(std::move(pv), "The session object (PV)") {
    pv_.InsistOn(connection_);
    connection_.HandedOut = [this] { return HandedOut(); };
  }
  PvSession(const PvSession&) = delete;
  PvSession& operator=(const PvSession&) = delete;
  ~PvSession() override = default;

  IDispatch* Object() const { return pv_.Get(); }

  std::int32_t DatabaseKind() const override;
  std::int32_t CurrentOfficeID() const override;
  std::string PrepareSQL(const std::string& sql, int flag) const override;
  // Asked for each time: the host may hand out another one.
  session::Connection& Connection() override;
  bool KeepsRowGuids(std::string_view table) const override;

  std::string UserName() const override;
  bool HasRight(std::string_view keyword) const override;

  std::string OfficeSetting(std::string_view section, std::string_view key) const override;
  void SetOfficeSetting(std::string_view section, std::string_view key, std::string_view value) override;
  std::string UserOption(std::string_view section, std::string_view key) const override;
  void SetUserOption(std::string_view section, std::string_view key, std::string_view value) override;

  void RecordHandOff(std::string_view id_column, std::string_view table, std::int32_t id) override;
  void SetCurrentPersonType(std::string_view key) override;
  void Log(const session::LogEntry& entry) override;
  std::optional<session::RecordHolder> HoldRecord(std::string_view table, std::int32_t id) override;
  std::optional<session::RecordHolder> TakeRecordOver(std::string_view table, std::int32_t id) override;
  bool KeepsRecord(std::string_view table, std::int32_t id) override;
  void ReleaseRecord(std::string_view table, std::int32_t id) override;
  std::optional<session::RecordHolder> HeldByAnother(std::string_view table, std::int32_t id) const override;
  session::AccountFigures AccountOf(std::int32_t person) const override;

  std::vector<session::Right> RightsCatalogue() const override;
  std::optional<std::string> StorablePassword(std::string_view password) const override;
  session::WorkSchedule DefaultSchedule() const override;

  forms::DateTime Now() const override;
  std::string DataFolder() const override;
  std::string ProgramFolder() const override;
  bool StartProgram(const std::string& command_line) override;

  bool SendReminder(const session::ReminderMessage& message) override;
  bool ShowReminderOptions() override;

 private:
  // What a member gives in an array; throws session::DatabaseError that names the member and what it should be when
  // `read` finds something else.
  template <typename Read>
  auto Told(const char* member, std::initializer_list<Variant> arguments, const std::string& what, Read read) const;
  DispatchObject HandedOut() const { return pv_.Object("Connection", "The connection"); }
  // Empty where the host does not tell.
  session::RecordHolder HolderOf(std::string_view table, std::int32_t id) const;

  automation::LivingObject living_;  // the slot that holds it keeps the library loaded
  DispatchObject pv_;
  AdoConnection connection_;
};

}  // namespace com
