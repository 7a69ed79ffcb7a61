#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "forms/currency.h"
#include "forms/dates.h"

namespace session {

struct Guid {
  std::array<std::uint8_t, 16> bytes{};

  friend bool operator==(const Guid&, const Guid&) = default;
};

using Blob = std::vector<std::byte>;

// A database value; std::monostate is null. Truth values are 0 and 1 (or the server's -1).
using Value =
    std::variant<std::monostate, std::int64_t, double, forms::Currency, std::string, forms::DateTime, Guid, Blob>;

inline bool IsNull(const Value& value) {
  return std::holds_alternative<std::monostate>(value);
}
// As a person reads it: null is empty, a date-time in the ISO form (a plain date at midnight), a GUID in braces.
std::string ToText(const Value& value);
// Null and what is no whole number are 0.
std::int32_t ToId(const Value& value);
// Nothing for null and what is no date.
std::optional<forms::DateTime> ToDateTime(const Value& value);
// "{01234567-89AB-CDEF-0123-456789ABCDEF}".
std::string ToText(const Guid& guid);
// With or without braces and hyphens; nothing for what is no GUID.
std::optional<Guid> ParseGuid(std::string_view text);

}  // namespace session
