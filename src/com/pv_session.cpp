#include "com/pv_session.h"

#include <array>

namespace com {
namespace {

using automation::ChangeType;
using automation::Check;
using automation::ComError;
using automation::ToInt;
using automation::ToValue;
using automation::Variant;

// The log that an entry goes to, as PV is told it.
std::string_view NameOf(session::LogKind kind) {
  switch (kind) {
    case session::LogKind::Change:
      return "CHANGE";
    case session::LogKind::Insurance:
      return "INS_LOG";
    case session::LogKind::Comment:
      break;
  }
  return "CM";
}

forms::Currency ToCurrency(const VARIANT& variant) {
  const Variant amount = ChangeType(variant, VT_CY);
  return forms::Currency::FromTenThousandths(V_CY(&amount).int64);
}

std::array<Variant, 3> ToThree(const VARIANT& array) {
  std::array<Variant, 3> three;
  if (V_VT(&array) != (VT_ARRAY | VT_VARIANT) || SafeArrayGetDim(V_ARRAY(&array)) != 1) {
    throw ComError(DISP_E_TYPEMISMATCH);
  }
  LONG at = 0;
  Check(SafeArrayGetLBound(V_ARRAY(&array), 1, &at));
  for (Variant& value : three) {
    Check(SafeArrayGetElement(V_ARRAY(&array), &at, &value));
    ++at;
  }
  return three;
}

// Balance, balance of the plan, and kind of plan: 0 none, 1 the person's own, 2 another family member's.
session::AccountFigures ToFigures(const VARIANT& variant) {
  const auto figures = ToThree(variant);
  const std::int32_t plan = ToInt(figures[2]);
  if (plan < 0 || plan > 2) {
    throw ComError(DISP_E_OVERFLOW);
  }
  return {ToCurrency(figures[0]), ToCurrency(figures[1]), static_cast<session::BudgetPlan>(plan)};
}

}  // namespace

std::int32_t PvSession::DatabaseKind() const {
  return pv_.Int("DatabaseKind");
}

std::int32_t PvSession::CurrentOfficeID() const {
  return pv_.Int("CurrentOfficeID");
}

std::string PvSession::PrepareSQL(const std::string& sql, int flag) const {
  return pv_.Text("PrepareSQL", {Variant::Of(sql), Variant::Of(static_cast<std::int32_t>(flag))});
}

session::Connection& PvSession::Connection() {
  connection_.Use(pv_.Object("Connection", "The connection"));
  return connection_;
}

bool PvSession::KeepsRowGuids(std::string_view table) const {
  return pv_.Bool("KeepsRowGuids", {Variant::Of(table)});
}

std::string PvSession::UserName() const {
  return pv_.Text("UserName");
}

bool PvSession::HasRight(std::string_view keyword) const {
  return pv_.Bool("HasRight", {Variant::Of(keyword)});
}

std::string PvSession::OfficeSetting(std::string_view section, std::string_view key) const {
  return pv_.Text("OfficeSetting", {Variant::Of(section), Variant::Of(key)});
}

std::string PvSession::UserOption(std::string_view section, std::string_view key) const {
  return pv_.Text("UserOption", {Variant::Of(section), Variant::Of(key)});
}

void PvSession::SetUserOption(std::string_view section, std::string_view key, std::string_view value) {
  pv_.Call("SetUserOption", {Variant::Of(section), Variant::Of(key), Variant::Of(value)});
}

void PvSession::RecordHandOff(std::string_view id_column, std::string_view table, std::int32_t id) {
  pv_.Call("RecordHandOff", {Variant::Of(id_column), Variant::Of(table), Variant::Of(id)});
}

void PvSession::SetCurrentPersonType(std::string_view key) {
  pv_.Call("CurrentPersonType", {Variant::Of(key)});
}

void PvSession::Log(const session::LogEntry& entry) {
  pv_.Call("Log", {Variant::Of(NameOf(entry.kind)), Variant::Of(entry.category), Variant::Of(entry.person),
                   Variant::Of(entry.text)});
}

session::RecordHolder PvSession::HolderOf(std::string_view table, std::int32_t id) const {
  if (!pv_.Offers("RecordHolder")) {
    return {};
  }
  const Variant holder = pv_.Call("RecordHolder", {Variant::Of(table), Variant::Of(id)});
  try {
    const auto [user, machine, silent] = ToThree(holder);
    return {automation::ToText(user), automation::ToText(machine), automation::ToBool(silent)};
  } catch (const ComError& error) {
    throw session::DatabaseError(pv_.Name() + " of the host gives no three values for \"RecordHolder\".", {},
                                 static_cast<int>(error.Result()));
  }
}

std::optional<session::RecordHolder> PvSession::HoldRecord(std::string_view table, std::int32_t id) {
  if (pv_.Bool("HoldRecord", {Variant::Of(table), Variant::Of(id)})) {
    return std::nullopt;
  }
  return HolderOf(table, id);
}

std::optional<session::RecordHolder> PvSession::TakeRecordOver(std::string_view table, std::int32_t id) {
  if (pv_.Bool("TakeRecordOver", {Variant::Of(table), Variant::Of(id)})) {
    return std::nullopt;
  }
  return HolderOf(table, id);
}

// A host without the member never takes a record from its holder.
bool PvSession::KeepsRecord(std::string_view table, std::int32_t id) {
  return !pv_.Offers("KeepsRecord") || pv_.Bool("KeepsRecord", {Variant::Of(table), Variant::Of(id)});
}

void PvSession::ReleaseRecord(std::string_view table, std::int32_t id) {
  pv_.Call("ReleaseRecord", {Variant::Of(table), Variant::Of(id)});
}

std::optional<session::RecordHolder> PvSession::HeldByAnother(std::string_view table, std::int32_t id) const {
  if (!pv_.Bool("HeldByAnother", {Variant::Of(table), Variant::Of(id)})) {
    return std::nullopt;
  }
  return HolderOf(table, id);
}

session::AccountFigures PvSession::AccountOf(std::int32_t person) const {
  const Variant figures = pv_.Call("AccountOf", {Variant::Of(person)});
  try {
    return ToFigures(figures);
  } catch (const ComError& error) {
    throw session::DatabaseError(pv_.Name() + " of the host gives no three figures for \"AccountOf\".", {},
                                 static_cast<int>(error.Result()));
  }
}

forms::DateTime PvSession::Now() const {
  const Variant now = pv_.Call("Now");
  try {
    return *session::ToDateTime(ToValue(ChangeType(now, VT_DATE)));
  } catch (const ComError& error) {
    throw session::DatabaseError(pv_.Name() + " of the host gives no date for \"Now\".", {},
                                 static_cast<int>(error.Result()));
  }
}

std::string PvSession::DataFolder() const {
  return pv_.Text("DataFolder");
}

std::string PvSession::ProgramFolder() const {
  return pv_.Text("ProgramFolder");
}

bool PvSession::StartProgram(const std::string& command_line) {
  return pv_.Bool("StartProgram", {Variant::Of(command_line)});
}

}  // namespace com
