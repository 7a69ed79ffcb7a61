#include <atomic>
#include <cstdlib>
#include <new>

#include "forms/grid.h"

namespace {

std::atomic<std::size_t> allocations{0};

}  // namespace

// NOLINTBEGIN(cppcoreguidelines-no-malloc): the program's own allocations are counted. Inlined, they would look
// mismatched.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size == 0 ? 1 : size)) {
    return memory;
  }
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
// NOLINTEND(cppcoreguidelines-no-malloc)

namespace forms {
namespace {

TEST(Grid, ReadsManyCellsWithoutAnAllocation) {
  constexpr int kRows = 100'000;
  constexpr int kColumns = 10;
  auto table = std::make_shared<TableRows>();
  table->rows.assign(kRows, {.cells = std::vector<std::string>(kColumns, "a text that no small string can hold")});
  Grid grid;
  grid.Columns = std::vector<GridColumn>(kColumns);
  grid.Rows = table;
  grid.DoMoveColumn(3, 7);

  const std::size_t before = allocations;
  std::size_t read = 0;
  for (int row = 0; row < grid.RowCount(); ++row) {
    for (const int column : grid.VisibleColumns()) {
      read += grid.Cell(row, column).size() + (grid.Fore(row, column) || grid.Back(row, column) ? 1U : 0U);
    }
  }
  EXPECT_EQ(allocations - before, 0U);
  EXPECT_EQ(read, std::size_t{36} * kRows * kColumns);
  const auto text = std::make_unique<std::string>(grid.Cell(0, 0));
  EXPECT_GE(allocations - before, 2U) << "they are counted";
}

}  // namespace
}  // namespace forms
