#pragma once

#include "console/step_words.h"
#include "practice/practice.h"

namespace host {

// What a `practice` line asks for.
struct PracticeLine {
  bool demo = false;
  PracticeOptions options;
};

PracticeLine ReadPracticeLine(StepWords& words);

// A new practice in memory; a demo practice is small.
Practice MakePractice(const PracticeLine& line);

}  // namespace host
