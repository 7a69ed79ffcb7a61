#include "com/ado_errors.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "session/sql_state.h"

namespace com {
namespace {

using automation::DispatchObject;
using automation::Variant;
using Origin = session::DatabaseError::Origin;

// As many as a provider has for one call, and more.
constexpr std::int32_t kMostErrors = 100;

struct Told {
  std::string description;
  int code = 0;
  std::string loss;  // the SQLState that says that the connection is lost; empty when it is not
};

std::string StateOf(const DispatchObject& error) {
  return error.Offers("SQLState") ? error.Text("SQLState") : std::string();
}

// Nothing where the host keeps no errors, or none of this call.
std::optional<Told> ToldOf(const DispatchObject& connection, const session::DatabaseError& failure) {
  if (!connection.Offers("Errors")) {
    return std::nullopt;
  }
  const DispatchObject errors = connection.Object("Errors", "Errors");
  const std::int32_t count = std::min(errors.Int("Count"), kMostErrors);
  std::optional<Told> told;
  for (std::int32_t i = 0; i < count; ++i) {
    const DispatchObject error = errors.Object("Item", "An error", {Variant::Of(i)});
    if (!told) {
      const std::int32_t number = error.Int("Number");
      std::string description = error.Text("Description");
      // Errors of earlier calls are kept until the provider has a new one.
      if (number != failure.Code() && description != failure.what()) {
        return std::nullopt;
      }
      const std::int32_t native = error.Int("NativeError");
      told = {std::move(description), native != 0 ? native : number, {}};
    }
    if (std::string state = StateOf(error); told->loss.empty() && session::IsLoss(state)) {
      told->loss = std::move(state);
    }
  }
  return told;
}

Origin OriginOf(std::string_view loss, bool change) {
  // The server was not reached, there was no connection, it was refused, or not taken for now.
  constexpr std::array<std::string_view, 4> kNeverSent = {"08001", "08003", "08004", "57P03"};
  constexpr std::string_view kNobodyKnows = "08007";
  if (loss.empty()) {
    return Origin::Engine;
  }
  const bool sent = std::ranges::find(kNeverSent, loss) == kNeverSent.end();
  return loss == kNobodyKnows || (change && sent) ? Origin::Unanswered : Origin::Connection;
}

}  // namespace

session::DatabaseError ProviderError(const DispatchObject& connection, const session::DatabaseError& failure,
                                     const std::string& sql, bool change) {
  if (failure.ConnectionLost()) {
    return failure.Of(sql);
  }
  try {
    if (const auto told = ToldOf(connection, failure)) {
      return {told->description, sql, told->code, OriginOf(told->loss, change)};
    }
  } catch (const session::DatabaseError&) {  // NOLINT(bugprone-empty-catch): the host keeps none; the failure speaks
  }
  return failure.Of(sql);
}

}  // namespace com
