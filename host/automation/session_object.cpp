#include "automation/session_object.h"

#include <array>
#include <new>
#include <vector>

#include "automation/connection_object.h"
#include "automation/named_object.h"
#include "forms/text.h"

namespace host {
namespace {

using automation::CallArguments;
using automation::ComPtr;
using automation::ToVariant;
using automation::Variant;

session::LogKind ToLogKind(const std::string& name) {
  constexpr std::array kKinds = {std::pair<std::string_view, session::LogKind>("CM", session::LogKind::Comment),
                                 std::pair<std::string_view, session::LogKind>("CHANGE", session::LogKind::Change),
                                 std::pair<std::string_view, session::LogKind>("INS_LOG", session::LogKind::Insurance)};
  for (const auto& [known, kind] : kKinds) {
    if (forms::EqualsIgnoringCase(known, name)) {
      return kind;
    }
  }
  throw session::DatabaseError("There is no log \"" + name + "\".", {}, 0);
}

session::ReminderMessage::Method ToReminderMethod(const std::string& name) {
  using enum session::ReminderMessage::Method;
  if (forms::EqualsIgnoringCase(name, "TEXT")) {
    return TextMessage;
  }
  if (forms::EqualsIgnoringCase(name, "EMAIL")) {
    return Email;
  }
  throw session::DatabaseError("There is no kind of message \"" + name + "\".", {}, 0);
}

Variant ToArray(std::vector<Variant> values) {
  Variant array;
  V_ARRAY(&array) = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(values.size()));
  if (V_ARRAY(&array) == nullptr) {
    throw std::bad_alloc();
  }
  V_VT(&array) = VT_ARRAY | VT_VARIANT;
  LONG at = 0;
  for (Variant& value : values) {
    automation::Check(SafeArrayPutElement(V_ARRAY(&array), &at, &value));
    ++at;
  }
  return array;
}

class SessionObject final : public automation::NamedObject {
 public:
  explicit SessionObject(std::shared_ptr<session::Session> session) : session_(std::move(session)) {
    AddDatabase();
    AddLoginAndSettings();
    AddSuite();
    AddStaff();
    AddMachine();
  }

 private:
  // A member that gives nothing.
  void AddAction(std::string name, std::function<void(const CallArguments&)> action) {
    Add(std::move(name), [action = std::move(action)](const CallArguments& arguments) {
      action(arguments);
      return Variant();
    });
  }

  void AddDatabase() {
    Add("DatabaseKind", [this](const CallArguments&) { return Variant::Of(session_->DatabaseKind()); });
    Add("CurrentOfficeID", [this](const CallArguments&) { return Variant::Of(session_->CurrentOfficeID()); });
    Add("PrepareSQL",
        [this](const CallArguments& given) { return Variant::Of(session_->PrepareSQL(given.Text(0), given.Int(1))); });
    Add("Connection", [this](const CallArguments&) { return Connection(); });
    Add("KeepsRowGuids",
        [this](const CallArguments& given) { return Variant::Of(session_->KeepsRowGuids(given.Text(0))); });
  }
  void AddLoginAndSettings() {
    Add("UserName", [this](const CallArguments&) { return Variant::Of(session_->UserName()); });
    Add("HasRight", [this](const CallArguments& given) { return Variant::Of(session_->HasRight(given.Text(0))); });
    Add("OfficeSetting", [this](const CallArguments& given) {
      return Variant::Of(session_->OfficeSetting(given.Text(0), given.Text(1)));
    });
    AddAction("SetOfficeSetting", [this](const CallArguments& given) {
      session_->SetOfficeSetting(given.Text(0), given.Text(1), given.Text(2));
    });
    Add("UserOption",
        [this](const CallArguments& given) { return Variant::Of(session_->UserOption(given.Text(0), given.Text(1))); });
    AddAction("SetUserOption", [this](const CallArguments& given) {
      session_->SetUserOption(given.Text(0), given.Text(1), given.Text(2));
    });
  }
  void AddSuite() {
    AddAction("RecordHandOff", [this](const CallArguments& given) {
      session_->RecordHandOff(given.Text(0), given.Text(1), given.Int(2));
    });
    AddAction("CurrentPersonType",
              [this](const CallArguments& given) { session_->SetCurrentPersonType(given.Text(0)); });
    AddAction("Log", [this](const CallArguments& given) {
      session_->Log({ToLogKind(given.Text(0)), given.Text(1), given.Int(2), given.Text(3)});
    });
    Add("HoldRecord",
        [this](const CallArguments& given) { return Variant::Of(!session_->HoldRecord(given.Text(0), given.Int(1))); });
    Add("RecordHolder", [this](const CallArguments& given) {
      const auto holder = session_->HeldByAnother(given.Text(0), given.Int(1)).value_or(session::RecordHolder());
      return ToArray({Variant::Of(holder.user), Variant::Of(holder.machine), Variant::Of(holder.silent)});
    });
    Add("TakeRecordOver", [this](const CallArguments& given) {
      return Variant::Of(!session_->TakeRecordOver(given.Text(0), given.Int(1)));
    });
    Add("KeepsRecord",
        [this](const CallArguments& given) { return Variant::Of(session_->KeepsRecord(given.Text(0), given.Int(1))); });
    AddAction("ReleaseRecord",
              [this](const CallArguments& given) { session_->ReleaseRecord(given.Text(0), given.Int(1)); });
    Add("HeldByAnother", [this](const CallArguments& given) {
      return Variant::Of(session_->HeldByAnother(given.Text(0), given.Int(1)).has_value());
    });
    Add("AccountOf", [this](const CallArguments& given) {
      const session::AccountFigures figures = session_->AccountOf(given.Int(0));
      return ToArray({ToVariant(figures.balance), ToVariant(figures.plan_balance),
                      Variant::Of(static_cast<std::int32_t>(figures.plan))});
    });
  }
  void AddStaff() {
    Add("RightsCatalogue", [this](const CallArguments&) {
      std::vector<Variant> rights;
      for (const session::Right& right : session_->RightsCatalogue()) {
        rights.push_back(
            ToArray({Variant::Of(right.keyword), Variant::Of(right.label),
                     Variant::Of(static_cast<std::int32_t>(right.product)), Variant::Of(right.by_default)}));
      }
      return ToArray(std::move(rights));
    });
    Add("StorablePassword", [this](const CallArguments& given) {
      const auto stored = session_->StorablePassword(given.Text(0));
      return stored ? Variant::Of(*stored) : Variant();
    });
    Add("DefaultSchedule", [this](const CallArguments&) {
      const session::WorkSchedule schedule = session_->DefaultSchedule();
      const forms::DateTime day = forms::AtMidnight(session_->Today());
      return ToArray({Variant::Of(forms::FormatWeekdays(schedule.days)), ToVariant(day + schedule.start),
                      ToVariant(day + schedule.end)});
    });
  }
  void AddMachine() {
    Add("Now", [this](const CallArguments&) { return ToVariant(session_->Now()); });
    Add("DataFolder", [this](const CallArguments&) { return Variant::Of(session_->DataFolder()); });
    Add("ProgramFolder", [this](const CallArguments&) { return Variant::Of(session_->ProgramFolder()); });
    Add("StartProgram",
        [this](const CallArguments& given) { return Variant::Of(session_->StartProgram(given.Text(0))); });
    Add("SendReminder", [this](const CallArguments& given) {
      return Variant::Of(
          session_->SendReminder({ToReminderMethod(given.Text(0)), given.Text(1), given.Text(2), given.Text(3)}));
    });
    Add("ShowReminderOptions", [this](const CallArguments&) { return Variant::Of(session_->ShowReminderOptions()); });
  }

  Variant Connection() {
    if (!connection_) {
      connection_ = MakeConnectionObject(std::shared_ptr<session::Connection>(session_, &session_->Connection()));
    }
    return Variant::Of(connection_.Get());
  }

  std::shared_ptr<session::Session> session_;
  ComPtr<IDispatch> connection_;
};

}  // namespace

ComPtr<IDispatch> MakeSessionObject(session::Session& session) {
  return MakeSessionObject(std::shared_ptr<session::Session>(std::shared_ptr<void>(), &session));
}

ComPtr<IDispatch> MakeSessionObject(std::shared_ptr<session::Session> session) {
  return ComPtr<IDispatch>::Adopt(new SessionObject(std::move(session)));
}

}  // namespace host
