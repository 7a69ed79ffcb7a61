#include "automation/connection_object.h"

#include <type_traits>

#include "automation/errors_object.h"
#include "automation/lost_connection.h"
#include "automation/named_object.h"
#include "automation/recordset_object.h"

namespace host {
namespace {

using automation::CallArguments;
using automation::ComPtr;
using automation::Variant;

constexpr std::int32_t kOpen = 1;
constexpr std::int32_t kUnknown = -1;
constexpr std::int32_t kOutermost = 1;

// Of a lost connection, whether anything may have been done.
const char* StateOf(const session::DatabaseError& error) {
  if (error.Unanswered()) {
    return "08007";
  }
  return error.ConnectionLost() ? "08003" : "HY000";
}

class ConnectionObject final : public automation::NamedObject {
 public:
  explicit ConnectionObject(std::shared_ptr<session::Connection> connection) : connection_(std::move(connection)) {
    AddDefault("Execute", [this](const CallArguments& arguments) { return Execute(arguments); });
    AddAction("BeginTrans", &session::Connection::BeginTrans, Variant::Of(kOutermost));
    AddAction("CommitTrans", &session::Connection::CommitTrans);
    AddAction("RollbackTrans", &session::Connection::RollbackTrans);
    AddAction("Cancel", &session::Connection::Cancel);
    Add("State", [](const CallArguments&) { return Variant::Of(kOpen); });
    Add("Errors", [this](const CallArguments& arguments) { return Errors(arguments); });
    Add("Open", [](const CallArguments&) -> Variant {
      throw Refusal(AdoError::ObjectOpen, "The connection is open already.");
    });
    Add("Close", [](const CallArguments&) -> Variant {
      throw Refusal(AdoError::NotAllowed, "The connection belongs to its session and is closed with it.");
    });
  }

 private:
  // A failure is told by `Errors` as well as to the caller, whose error has this number, or that of a lost connection.
  template <typename Action>
  std::invoke_result_t<Action> Run(AdoError number, Action action) {
    errors_->clear();
    try {
      return action();
    } catch (const session::DatabaseError& error) {
      const bool lost = error.ConnectionLost();
      errors_->push_back({error.what(), lost ? automation::ResultOf(error) : static_cast<std::int32_t>(number),
                          error.Code(), StateOf(error)});
      if (lost) {
        throw;
      }
      throw Refusal(number, error.what());
    }
  }

  void AddAction(std::string name, void (session::Connection::*action)(), const Variant& answer = {}) {
    Add(std::move(name), [this, action, answer](const CallArguments&) {
      Run(AdoError::Failed, [this, action] { (*connection_.*action)(); });
      return answer;
    });
  }

  Variant Execute(const CallArguments& arguments) {
    const std::string sql = arguments.Text(0);
    auto rows = Run(AdoError::StatementRefused, [&] { return connection_->Execute(sql); });
    if (arguments.Size() > 1 && (V_VT(&arguments.At(1)) & VT_BYREF) != 0) {
      automation::Assign(&arguments.At(1), Variant::Of(kUnknown));
    }
    return Variant::Of(MakeRecordsetObject(connection_, std::move(rows)).Get());
  }
  // The collection, or one of it.
  Variant Errors(const CallArguments& arguments) const {
    return arguments.Size() > 0 ? ErrorAt(*errors_, arguments.Int(0)) : Variant::Of(MakeErrorsObject(errors_).Get());
  }

  std::shared_ptr<session::Connection> connection_;
  std::shared_ptr<ProviderErrors> errors_ = std::make_shared<ProviderErrors>();
};

}  // namespace

ComPtr<IDispatch> MakeConnectionObject(session::Connection& connection) {
  return MakeConnectionObject(std::shared_ptr<session::Connection>(std::shared_ptr<void>(), &connection));
}

ComPtr<IDispatch> MakeConnectionObject(std::shared_ptr<session::Connection> connection) {
  return ComPtr<IDispatch>::Adopt(new ConnectionObject(std::move(connection)));
}

}  // namespace host
