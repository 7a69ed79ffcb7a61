#include "com/pv_session.h"

#include <chrono>
#include <vector>

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

std::vector<Variant> ToVariants(const VARIANT& array) {
  if (V_VT(&array) != (VT_ARRAY | VT_VARIANT) || SafeArrayGetDim(V_ARRAY(&array)) != 1) {
    throw ComError(DISP_E_TYPEMISMATCH);
  }
  LONG at = 0;
  LONG last = 0;
  Check(SafeArrayGetLBound(V_ARRAY(&array), 1, &at));
  Check(SafeArrayGetUBound(V_ARRAY(&array), 1, &last));
  std::vector<Variant> values;
  for (; at <= last; ++at) {
    Check(SafeArrayGetElement(V_ARRAY(&array), &at, &values.emplace_back()));
  }
  return values;
}

// So many values or more.
std::vector<Variant> ToVariants(const VARIANT& array, std::size_t least) {
  std::vector<Variant> values = ToVariants(array);
  if (values.size() < least) {
    throw ComError(DISP_E_BADINDEX);
  }
  return values;
}

// Balance, balance of the plan, and kind of plan: 0 none, 1 the person's own, 2 another family member's.
session::AccountFigures ToFigures(const VARIANT& variant) {
  const auto figures = ToVariants(variant, 3);
  const std::int32_t plan = ToInt(figures[2]);
  if (plan < 0 || plan > 2) {
    throw ComError(DISP_E_OVERFLOW);
  }
  return {ToCurrency(figures[0]), ToCurrency(figures[1]), static_cast<session::BudgetPlan>(plan)};
}

session::RecordHolder ToHolder(const VARIANT& variant) {
  const auto holder = ToVariants(variant, 3);
  return {automation::ToText(holder[0]), automation::ToText(holder[1]), automation::ToBool(holder[2])};
}

forms::DateTime ToDateTime(const VARIANT& variant) {
  return *session::ToDateTime(ToValue(ChangeType(variant, VT_DATE)));
}

// Keyword, label, product (0 the practice, 1 the time clock), and whether a new employee is given it.
session::Right ToRight(const VARIANT& variant) {
  const auto right = ToVariants(variant, 4);
  const std::int32_t product = ToInt(right[2]);
  if (product < 0 || product > 1) {
    throw ComError(DISP_E_OVERFLOW);
  }
  return {automation::ToText(right[0]), automation::ToText(right[1]), static_cast<session::Product>(product),
          automation::ToBool(right[3])};
}

std::vector<session::Right> ToRights(const VARIANT& variant) {
  std::vector<session::Right> rights;
  for (const Variant& right : ToVariants(variant)) {
    rights.push_back(ToRight(right));
  }
  return rights;
}

std::chrono::minutes ToTimeOfDay(const VARIANT& variant) {
  const forms::DateTime time = ToDateTime(variant);
  return std::chrono::floor<std::chrono::minutes>(time - forms::AtMidnight(forms::DateOf(time)));
}

// Days, start and end.
session::WorkSchedule ToSchedule(const VARIANT& variant) {
  const auto schedule = ToVariants(variant, 3);
  const auto days = forms::ParseWeekdays(automation::ToText(schedule[0]));
  if (!days) {
    throw ComError(DISP_E_TYPEMISMATCH);
  }
  return {*days, ToTimeOfDay(schedule[1]), ToTimeOfDay(schedule[2])};
}

}  // namespace

template <typename Read>
auto PvSession::Told(const char* member, std::initializer_list<Variant> arguments, const std::string& what,
                     Read read) const {
  const Variant told = pv_.Call(member, arguments);
  try {
    return read(told);
  } catch (const ComError& error) {
    throw session::DatabaseError(pv_.Name() + " of the host gives no " + what + " for \"" + member + "\".", {},
                                 static_cast<int>(error.Result()));
  }
}

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
  connection_.Use(HandedOut());
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

void PvSession::SetOfficeSetting(std::string_view section, std::string_view key, std::string_view value) {
  pv_.Call("SetOfficeSetting", {Variant::Of(section), Variant::Of(key), Variant::Of(value)});
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
  return Told("RecordHolder", {Variant::Of(table), Variant::Of(id)}, "three values", ToHolder);
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
  return Told("AccountOf", {Variant::Of(person)}, "three figures", ToFigures);
}

std::vector<session::Right> PvSession::RightsCatalogue() const {
  if (!pv_.Offers("RightsCatalogue")) {
    return {};
  }
  return Told("RightsCatalogue", {}, "rights of four values", ToRights);
}

std::optional<std::string> PvSession::StorablePassword(std::string_view password) const {
  if (!pv_.Offers("StorablePassword")) {
    return std::nullopt;
  }
  std::string stored = pv_.Text("StorablePassword", {Variant::Of(password)});
  return stored.empty() ? std::nullopt : std::optional(std::move(stored));
}

session::WorkSchedule PvSession::DefaultSchedule() const {
  if (!pv_.Offers("DefaultSchedule")) {
    return {};
  }
  return Told("DefaultSchedule", {}, "days and two times", ToSchedule);
}

forms::DateTime PvSession::Now() const {
  return Told("Now", {}, "date", ToDateTime);
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

bool PvSession::SendReminder(const session::ReminderMessage& message) {
  const bool is_email = message.method == session::ReminderMessage::Method::Email;
  return pv_.Bool("SendReminder", {Variant::Of(std::string_view(is_email ? "EMAIL" : "TEXT")), Variant::Of(message.to),
                                   Variant::Of(message.subject), Variant::Of(message.text)});
}

bool PvSession::ShowReminderOptions() {
  return pv_.Offers("ShowReminderOptions") && pv_.Bool("ShowReminderOptions");
}

}  // namespace com
