#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "forms/grid.h"
#include "session/session.h"

namespace editing {

// A grid's layout, kept from one opening of its screen to the next in a file under the data folder, "STP/TG" + key +
// ".STP". Where a file cannot be read or written the grid keeps what it has, and nobody is told.
class KeptLayout {
 public:
  KeptLayout(const session::Machine& machine, forms::Grid& grid) : machine_(machine), grid_(grid) {}

  // When the grid has its columns: gives them the places that the file tells. A key that is no plain file name keeps
  // nothing.
  void Restore(const std::string& key);
  // When the screen closes: writes the file if a person has changed the layout.
  void Keep();

 private:
  // The columns as they were built; the file goes.
  void RestoreBuiltIn();

  const session::Machine& machine_;
  forms::Grid& grid_;
  std::filesystem::path file_;  // empty when nothing is kept
  std::vector<forms::ColumnPlace> built_;
  std::vector<forms::ColumnPlace> kept_;
};

}  // namespace editing
