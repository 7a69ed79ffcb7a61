#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string_view>

// What a fuzzer defines: libFuzzer calls it under the preset "fuzz", seeded_main.cpp in every other build.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

// Ends the process, so that either finds the input.
inline void Expect(bool holds, std::string_view what, std::string_view about) {
  if (!holds) {
    std::cerr << what << ":\n" << about << '\n';
    std::abort();
  }
}

}  // namespace fuzz
