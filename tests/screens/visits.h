#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "screens/ways.h"

// What tests of all screens have in common.
namespace screens_test {

// One way in to a screen.
class Screen : public testing::TestWithParam<Way> {
 protected:
  const Way& way = GetParam();
};
std::string WayName(const testing::TestParamInfo<Way>& info);

// What is typed where any text will do.
inline constexpr const char* kPlain = "1 Elm St";

bool Has(const std::string& text, std::string_view part);
// Throws the changes away, whichever way the question is put.
forms::Answer Discard(const forms::Message& message);

// Everything that can be done there, on a fresh practice again for each thing that closes the screen.
void TryAll(const Way& way, std::int32_t kind, const std::function<void(Desk&)>& prepare,
            const std::function<void(Desk&, forms::Form&, const std::string& what)>& tried,
            const std::function<void(Desk&)>& left = {});

}  // namespace screens_test
