#pragma once

#include <string_view>

namespace session {

// Whether an SQLSTATE says that the server has ended the connection, or takes none for now.
inline bool IsLoss(std::string_view state) {
  return state.starts_with("08") || state == "57P01" || state == "57P02" || state == "57P03" || state == "57P05";
}

}  // namespace session
