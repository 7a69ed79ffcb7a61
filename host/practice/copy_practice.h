#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace host {

struct CopyProgress {
  enum class Step { Copying, Copied, Comparing, Same };

  std::string_view table;
  Step step = Step::Copying;
  std::int64_t rows = 0;  // so far, with those of a copy that was broken off when it is `Same`
};
// False stops the copy.
using WhileCopying = std::function<bool(const CopyProgress&)>;

// Copies a practice with its keys, GUIDs, offices and change log to a database of any engine that is vacant, or goes on
// with a copy there that was broken off: table by table, in the order of the keys. Keys that the source has handed out
// are not handed out again. In the end every table is read in both and compared by count and hash; only then is the
// target a practice. False when it was stopped; the same call goes on later.
//
// Throws session::DatabaseError: what an engine refuses, by its record; a table that is not the same in both, as when
// the source was written to meanwhile, which the next call copies anew.
bool CopyPractice(const std::string& from, const std::string& to, const WhileCopying& told);

}  // namespace host
