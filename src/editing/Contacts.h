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
// The position of a code in any case; an unknown one is the first phone.
std::size_t ContactOf(std::string_view code);

// By its position; all but the e-mail.
constexpr bool IsNumber(std::size_t contact) {
  return contact + 1 < kContactCodes.size();
}

// The columns of a side.
struct SideColumns {
  data::Words visible;                  // mirrors the selected contact
  data::Words selected;                 // the code of the selected contact
  std::array<data::Words, 6> contacts;  // in the order of the codes
};
const SideColumns& ColumnsOf(Side side);

// "Home ", "Work ".
std::string_view SideLabel(Side side);
// The label of a contact's full code ("PHOMFAX" in any case): "Fax". An unknown code is "Phone" and becomes "Pho1".
std::string ContactLabel(std::string& code);
// The same for the suffix alone: "Fax" for "fax".
std::string_view LabelOfContact(std::string_view code);

// What the host's name prompt says.
std::string NamePromptText(bool ids_allowed);

// The contacts of one person's row, of which each side shows one. All throw session::DatabaseError.
class Contacts {
 public:
  explicit Contacts(session::Database& database) : statements_(database) {}

  // Reads the row; the first time a side is seen, its visible number becomes its first phone, unless there is one and
  // no other is visible: then that one is shown. True when the row was changed.
  bool Setup(std::int32_t person);
  // As `Setup`, without changing the row.
  void Read(std::int32_t person);

  // The suffix of the selected contact's column.
  std::string_view Selected(Side side) const { return kContactCodes.at(sides_.at(side).selected).Text(); }
  // "Home Phone", "Work E-Mail".
  std::string SideCaption(Side side) const;
  // The number that a side's first phone has, or gets when the side is prepared.
  const std::string& FirstPhone(Side side) const;
  // Of the selected contact, in characters.
  int SelectedSize(Side side) const;

  // After the main save: writes the value that a side shows into the contact that is selected in the row, and brings
  // the visible columns in step; sides that are not given stay as they are. False when the person's row is gone.
  bool Save(std::int32_t person, const std::map<Side, std::string>& shown);
  // The side's visible column takes the value of the contact that is selected on it in the row.
  void Mirror(std::int32_t person, Side side, std::string_view selected);

 private:
  struct SideRow {
    bool seen = false;  // a contact is selected in the row
    std::size_t selected = 0;
    std::string visible;
    int visible_size = 0;
    std::string first_phone;
    std::array<int, kContactCodes.size()> sizes{};
  };

  data::Sql Where(std::int32_t person) const;

  data::Statements statements_;
  std::map<Side, SideRow> sides_;
};

}  // namespace editing
