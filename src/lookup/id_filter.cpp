#include "lookup/id_filter.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

#include "data/literal.h"

namespace lookup {

std::optional<data::Sql> IdBeginning(const data::Sql& column, std::string_view digits) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  std::int64_t first = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, first);
  if (error != std::errc() || stop != end || digits.front() < '1' || first > kMost) {
    return std::nullopt;
  }
  const auto literal = [](std::int64_t id) { return data::Literal(static_cast<std::int32_t>(id)); };
  data::Sql condition = "(" + column + " = " + literal(first);
  for (std::int64_t width = 10; first * width <= kMost; width *= 10) {
    condition += " OR " + column + " BETWEEN " + literal(first * width) + " AND " +
                 literal(std::min(first * width + width - 1, kMost));
  }
  return condition + ")";
}

}  // namespace lookup
