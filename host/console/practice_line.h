#pragma once

#include <string>
#include <string_view>

#include "console/step_words.h"
#include "practice/practice.h"

namespace host {

inline constexpr std::string_view kSqlite = "sqlite";
inline constexpr std::string_view kPostgres = "postgres";

// Whether there is an engine of that name, built in or not.
bool IsEngine(std::string_view name);

// What a `practice` line asks for.
struct PracticeLine {
  bool demo = false;
  bool files = false;  // with the letters and templates of a demo practice in the data folder
  std::string engine{kSqlite};
  PracticeOptions options = {};
};

// On the engine given, unless the line names one.
PracticeLine ReadPracticeLine(StepWords& words, std::string engine);

// A new practice in memory; a demo practice is small. Fails for an engine that is not built in.
Practice MakePractice(const PracticeLine& line);

}  // namespace host
