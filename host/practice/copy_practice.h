#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace host {

struct CopyProgress {
  // `LeftBehind` names, in the place of a table, what no copy takes along: a further table, or a table's further
  // column.
  enum class Step { LeftBehind, Copying, Copied, Comparing, Same };

  std::string_view table;
  Step step = Step::Copying;
  std::int64_t rows = 0;  // so far, with those of a copy that was broken off when it is `Same`
};
// False stops the copy.
using WhileCopying = std::function<bool(const CopyProgress&)>;

// Copies a practice with its keys, GUIDs, offices and change log to a database of any engine that is vacant, or goes on
// with a copy there that was broken off: table by table, in the order of the keys. Keys that the source has handed out
// are not handed out again. In the end every table is read in both and compared; only then is the target a practice.
// False when it was stopped; the same call goes on later.
//
// Throws session::DatabaseError: what an engine refuses, by its record; where the two are not the same, as when the
// source was written to meanwhile or the target keeps a value as another, by the first record of each such table, which
// the next call copies anew; a login that does not own the source; a second copy into the target at a time.
//
// With `office` that office alone becomes a practice, of one that has several, and of a group.
bool CopyPractice(const std::string& from, const std::string& to, const WhileCopying& told,
                  std::optional<std::int32_t> office = {});

}  // namespace host
