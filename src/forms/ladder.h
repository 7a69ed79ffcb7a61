#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "forms/control.h"

namespace forms {

// A picture of spans of time, one above the other, each counted from one of three days.
class Ladder : public Control {
 public:
  enum class From { BeforeDate, AfterDate, AfterVisit };

  struct Rung {
    std::string name;
    From from = From::BeforeDate;
    std::int32_t days = 0;
    bool current = false;
    bool out_of_order = false;

    // "! Period 2", marked where it is out of order.
    std::string Title() const { return (out_of_order ? "! " : "") + name; }
    // "45 days".
    std::string Span() const;

    friend bool operator==(const Rung&, const Rung&) = default;
  };
  Property<std::vector<Rung>> Rungs{*this, {}, Aspect::Items};

  // "Before the date".
  static std::string HeadingOf(From from);

  bool TakesFocus() const override { return false; }
  // Everything that the picture shows.
  std::string SpokenName() const override;
};

}  // namespace forms
