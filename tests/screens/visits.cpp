#include "screens/visits.h"

#include "screens/trying.h"

namespace screens_test {

using forms::Answer;
using forms::Form;

std::string WayName(const testing::TestParamInfo<Way>& info) {
  return info.param.form + "_" + info.param.how;
}

bool Has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

// Throws the changes away, whichever way the question is put.
Answer Discard(const forms::Message& message) {
  return Offers(message, Answer::Cancel) && Offers(message, Answer::No) ? Answer::No : Agree(message);
}

// Everything that can be done there, on a fresh practice again for each thing that closes the screen.
void TryAll(const Way& way, std::int32_t kind, const std::function<void(Desk&)>& prepare,
            const std::function<void(Desk&, Form&, const std::string& what)>& tried,
            const std::function<void(Desk&)>& left) {
  std::set<std::string> closers;
  for (bool whole = false; !whole && !testing::Test::HasFailure();) {
    Desk desk(kind);
    prepare(desk);
    Open(desk, way.open, [&](Form& form) {
      whole = form.Closed() || TryEverything(form, closers, [&](const std::string& what) { tried(desk, form, what); });
    });
    if (left) {
      left(desk);
    }
  }
}

}  // namespace screens_test
