#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "practice/practice.h"

namespace host {

// A practice that is played on, and what it stands in, which goes after it.
struct StagedPractice {
  StagedPractice(Practice played) : practice(std::move(played)) {}  // NOLINT(google-explicit-constructor): it is one
  StagedPractice(Practice played, std::shared_ptr<void> stands_in)
      : place(std::move(stands_in)), practice(std::move(played)) {}

  // What may change its tables.
  const PracticeDatabase& ForSettingUp() const { return owners ? *owners : practice.Database(); }

  std::shared_ptr<void> place;
  Practice practice;
  std::optional<PracticeDatabase> owners = {};  // where `practice` is open as a login that may not set it up
};

}  // namespace host
