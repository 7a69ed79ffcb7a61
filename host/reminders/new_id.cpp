#include "reminders/new_id.h"

#include <sodium.h>

#include <array>

namespace host {

std::string NewId() {
  std::array<unsigned char, 16> bytes{};
  randombytes_buf(bytes.data(), bytes.size());
  std::string text(bytes.size() * 2 + 1, '\0');
  sodium_bin2hex(text.data(), text.size(), bytes.data(), bytes.size());
  text.pop_back();  // the zero at its end
  return text;
}

}  // namespace host
