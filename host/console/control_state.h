#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "console/expectation.h"
#include "forms/form.h"
#include "forms/grid.h"

namespace host {

// What a control shows under one of its properties.
struct PropertyValue {
  std::string text;
  std::optional<bool> truth = {};  // of a property that is on or off
  bool mnemonic = false;           // a "&" marks a letter, and is not seen

  void Check(const Expectation& wanted) const;
};

// Case does not matter; the empty name is the default property. Nothing when a control of that kind has no such
// property. `Visible` and `Enabled` are what a person finds: with the panels that the control lies on.
std::optional<PropertyValue> ReadProperty(const forms::Control& control, std::string_view property);

// The visible cells of a row, joined by "|".
std::string RowText(const forms::Grid& grid, int row);

// The captions of the visible columns, in order, joined by "|".
std::string ColumnCaptions(const forms::Grid& grid);

// A form's name and caption, and controls of it with their default properties; several lines.
std::string StateOf(const forms::Form& form, const std::vector<const forms::Control*>& controls);
// The same with every control.
std::string StateOf(const forms::Form& form);

}  // namespace host
