#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "data/statements.h"

namespace editing {

enum class Side { Home, Work };
inline constexpr std::array<Side, 2> kSides = {Side::Home, Side::Work};

// The six ways of reaching a person on either side, by the suffix of their columns.
inline constexpr std::array<data::Words, 6> kContactCodes = {"Pho1", "Pho2", "Fax", "Cell", "Pag", "Ema"};

// "pHom", "pBus".
data::Words Prefix(Side side);
// "Home ", "Work ".
std::string_view SideLabel(Side side);
// The label of a contact's full code ("PHOMFAX" in any case): "Fax". An unknown code is "Phone" and becomes "Pho1".
std::string ContactLabel(std::string& code);

// What the host's name prompt says.
std::string NamePromptText(bool ids_allowed);

// The contact columns of one person's row: which of a side's six is shown, and the shown value. All throw
// session::DatabaseError.
class Contacts {
 public:
  explicit Contacts(session::Database& database) : statements_(database) {}

  // Reads the row; the first time a side is seen, its visible number becomes its first phone.
  void Setup(std::int32_t person);
  // As `Setup`, without writing that first phone.
  void Read(std::int32_t person);

  // The suffix of the selected contact's column.
  const std::string& Selected(Side side) const { return sides_.at(side).selected; }
  // "Home Phone", "Work E-Mail".
  std::string SideCaption(Side side) const;
  const std::string& Value(Side side, std::string_view code) const;
  // In characters.
  int DefinedSize(Side side, std::string_view code) const;

  void Select(Side side, std::string_view code);
  void SetValue(Side side, std::string_view code, std::string value);

  // Writes the visible value of both sides into their selected contact, and brings the visible columns in step. False
  // when the person's row is gone.
  bool Save(std::int32_t person, const std::map<Side, std::string>& visible);
  // Writes all twelve contacts and both selections.
  void SaveAll(std::int32_t person);

 private:
  struct SideRow {
    std::string selected;
    bool seen = false;  // a contact is selected in the row
    std::map<std::string, std::string, std::less<>> values;
    std::map<std::string, int, std::less<>> sizes;
  };

  std::string Cut(Side side, std::string_view code, std::string_view value) const;
  data::Sql Where(std::int32_t person) const;
  // What the visible columns are set to.
  data::Sql VisibleNumbers() const;

  data::Statements statements_;
  std::map<Side, SideRow> sides_;
  std::map<Side, int> visible_sizes_;
};

}  // namespace editing
