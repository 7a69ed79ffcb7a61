#include "forms/ladder.h"

namespace forms {

std::string Ladder::Rung::Span() const {
  return std::to_string(days) + (days == 1 ? " day" : " days");
}

std::string Ladder::HeadingOf(From from) {
  switch (from) {
    case From::BeforeDate:
      return "Before the date";
    case From::AfterDate:
      return "Past the date";
    case From::AfterVisit:
      return "After the last visit";
  }
  return {};
}

std::string Ladder::SpokenName() const {
  std::string text = AccessibleName;
  for (const Rung& rung : Rungs.get()) {
    text += (text.empty() ? "" : "; ") + HeadingOf(rung.from) + ": " + rung.name + ", " + rung.Span() +
            (rung.out_of_order ? ", out of order" : "") + (rung.current ? ", shown" : "");
  }
  return text;
}

}  // namespace forms
