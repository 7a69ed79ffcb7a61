#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "editing/rules.h"
#include "forms/grid.h"

namespace people {

// The numbers by which agencies and health plans know a provider: one of each of the office's kinds of number, and all
// where he has several of a kind. The values are typed into the grid.
class IdentificationNumbers : private editing::Rules {
 public:
  IdentificationNumbers(const session::ScreenContext& context, forms::Grid& grid);

  // The person's numbers, 0 for a new one's. Kind 2 is given its name first. Throws session::DatabaseError.
  void Read(std::int32_t person);
  bool Changed() const;
  // Writes what changed, row by row: what was written before a failure is not written again. A first number takes the
  // row that another user has given the person meanwhile. Throws
  // session::DatabaseError.
  void Save(std::int32_t person);

 private:
  struct Number {
    std::int32_t kind = 0;
    std::string name = {};   // of the kind
    std::int32_t id = 0;     // of the row; 0 for none yet
    std::string value = {};  // that the row has
  };

  // 0 for none.
  std::int32_t RowOf(std::int32_t person, std::int32_t kind) const;
  std::vector<Number> OfPerson(std::int32_t person);
  bool Fits(int column, const std::string& value) const;
  std::string Shown(std::size_t row) const;

  forms::Grid& grid_;
  std::vector<Number> numbers_;  // in the order of the grid's rows
  int room_ = 0;                 // for a value, in characters
};

}  // namespace people
