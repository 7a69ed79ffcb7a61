#pragma once

#include <string>
#include <string_view>

#include "console/staged_practice.h"
#include "console/step_words.h"
#include "practice/demo.h"

namespace host {

inline constexpr std::string_view kSqlite = "sqlite";
inline constexpr std::string_view kPostgres = "postgres";
// The same, where practices of kind 7 are a group over servers, of one server.
inline constexpr std::string_view kGroup = "group";

// Whether there is an engine of that name.
bool IsEngine(std::string_view name);

// What a `practice` line asks for.
struct PracticeLine {
  bool demo = false;
  bool files = false;  // with the letters and templates of a demo practice in the data folder
  std::string engine{kSqlite};
  bool as_desk = false;  // on a server: as a desk's login, which may do no more than it needs
  PracticeOptions options = {};
};

// What the line does not name is as in the one given.
PracticeLine ReadPracticeLine(StepWords& words, PracticeLine line);

// A new practice, in memory or on a server of its own; a demo practice is small. Fails for an engine that there is not.
StagedPractice MakePractice(const PracticeLine& line);
// The same at a URL where there is none yet.
Practice NewPractice(const std::string& url, const PracticeLine& line);
// What a demo practice is made with.
DemoOptions DemoOf(const PracticeLine& line);

}  // namespace host
