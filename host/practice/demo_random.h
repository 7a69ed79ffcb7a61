#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <span>

#include "session/value.h"

namespace host::demo {

// The chance behind a demo practice, the same on every machine.
class Random {
 public:
  explicit Random(std::uint64_t seed) : engine_(seed) {}

  // 0 to count - 1.
  int Below(std::size_t count) { return static_cast<int>(engine_() % count); }
  int Between(int low, int high) { return low + Below(static_cast<std::size_t>(high - low) + 1); }
  bool Percent(int chance) { return Below(100) < chance; }
  template <class T>
  const T& OneOf(std::span<const T> values) {
    return values[static_cast<std::size_t>(Below(values.size()))];
  }
  session::Guid Guid() {
    session::Guid guid;
    for (auto& byte : guid.bytes) {
      byte = static_cast<std::uint8_t>(engine_());
    }
    return guid;
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace host::demo
