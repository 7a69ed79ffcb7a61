#pragma once

#include <string>
#include <string_view>

#include "forms/grid.h"

// The text of a layout file: perhaps "ROWHEIGHT=" with the rows' height, then a line a column,
// "key,position,width,split".
namespace editing {

// What tells a column: the name of its data field, or its number among the columns as they were built.
enum class ColumnKeys { DataFields, Numbers };

// The columns in the order in which they were built, each with its place from left to right; a hidden one has the width
// 0. A grid has one split, 0. The height of the rows stands before them where it is asked for. Lines end with "\n".
std::string WriteLayout(const forms::Grid& grid, ColumnKeys kind = ColumnKeys::DataFields,
                        bool with_row_height = false);

// Gives the grid what the text tells of its columns; what stands in several splits is put side by side. Columns of
// which it tells nothing follow in their order; a text that hides every column is none. In a layout of comments, which
// its key tells, a column of long text without a caption is called "Comments".
void ReadLayout(std::string_view text, std::string_view layout_key, forms::Grid& grid,
                ColumnKeys kind = ColumnKeys::DataFields);

}  // namespace editing
