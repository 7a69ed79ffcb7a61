#include "editing/Contacts.h"

#include <algorithm>

#include "data/literal.h"
#include "forms/text.h"

namespace editing {
namespace {

using data::Literal;
using data::Sql;

constexpr std::array<std::string_view, kContactCodes.size()> kLabels = {"Phone", "Phone 2", "Fax",
                                                                        "Cell",  "Pager",   "E-Mail"};
constexpr SideColumns kHome = {
    "pHomPho", "pHomCon", {"pHomPho1", "pHomPho2", "pHomFax", "pHomCell", "pHomPag", "pHomEma"}};
constexpr SideColumns kWork = {
    "pBusPho", "pBusCon", {"pBusPho1", "pBusPho2", "pBusFax", "pBusCell", "pBusPag", "pBusEma"}};

}  // namespace

std::size_t ContactOf(std::string_view code) {
  const auto known =
      std::ranges::find_if(kContactCodes, [&](data::Words c) { return forms::EqualsIgnoringCase(c.Text(), code); });
  return known == kContactCodes.end() ? 0 : static_cast<std::size_t>(known - kContactCodes.begin());
}

const SideColumns& ColumnsOf(Side side) {
  return side == Side::Home ? kHome : kWork;
}

std::string_view SideLabel(Side side) {
  return side == Side::Home ? "Home " : "Work ";
}

std::string ContactLabel(std::string& code) {
  for (const Side side : kSides) {
    for (std::size_t i = 0; i < kLabels.size(); ++i) {
      if (forms::EqualsIgnoringCase(code, ColumnsOf(side).contacts.at(i).Text())) {
        return std::string(kLabels.at(i));
      }
    }
  }
  code = kContactCodes.front().Text();
  return std::string(kLabels.front());
}

std::string_view LabelOfContact(std::string_view code) {
  return kLabels.at(ContactOf(code));
}

std::string NamePromptText(bool ids_allowed) {
  std::string text = ids_allowed ? "Enter name or ID number below." : "Enter name below.";
  text +=
      "\rExample:"
      "\r      John Smith  (First-Name Last-Name)"
      "\ror Smith, John  (Last-Name, First-Name)";
  return ids_allowed ? text + "\ror 3412  (ID for existing patient)" : text;
}

void Contacts::Read(std::int32_t person) {
  const auto row = statements_.Select("SELECT * FROM PATable WHERE pID=" + Literal(person) +
                                      statements_.Office(" AND (OfficeID = ", ")"));
  const auto text = [&](data::Words column) {
    return row->Eof() ? std::string() : session::ToText((*row)[column.Text()]);
  };
  const auto size = [&](data::Words column) {
    const int field = row->FieldIndex(column.Text());
    return field < 0 ? 0 : row->Fields()[static_cast<std::size_t>(field)].defined_size;
  };
  for (const Side side : kSides) {
    const SideColumns& columns = ColumnsOf(side);
    const std::string selected = text(columns.selected);
    SideRow& contacts = sides_[side];
    contacts = {.seen = !selected.empty(),
                .selected = ContactOf(selected),
                .visible = text(columns.visible),
                .visible_size = size(columns.visible),
                .first_phone = text(columns.contacts.front())};
    std::ranges::transform(columns.contacts, contacts.sizes.begin(), size);
  }
}

bool Contacts::Setup(std::int32_t person) {
  Read(person);
  bool changed = false;
  for (const Side side : kSides) {
    const SideRow& row = sides_[side];
    if (row.seen) {
      continue;
    }
    const SideColumns& columns = ColumnsOf(side);
    Sql set = Sql(columns.selected) + "=" + Literal(Selected(side)) + ", ";
    if (row.visible.empty() && !row.first_phone.empty()) {
      set += Sql(columns.visible) + "=" + Literal(forms::Fitting(row.first_phone, row.visible_size));
    } else {
      set += Sql(columns.contacts.front()) + "=" + Literal(forms::Fitting(row.visible, row.sizes.front()));
    }
    statements_.Execute("UPDATE PATable SET " + set + Where(person));
    changed = true;
  }
  return changed;
}

std::string Contacts::SideCaption(Side side) const {
  return std::string(SideLabel(side)) + std::string(LabelOfContact(Selected(side)));
}

const std::string& Contacts::FirstPhone(Side side) const {
  const SideRow& row = sides_.at(side);
  return row.seen || row.visible.empty() ? row.first_phone : row.visible;
}

int Contacts::SelectedSize(Side side) const {
  const SideRow& row = sides_.at(side);
  return row.sizes.at(row.selected);
}

bool Contacts::Save(std::int32_t person, const std::map<Side, std::string>& shown) {
  std::map<Side, std::string> visible;
  std::map<Side, std::size_t> selected;
  {
    const auto row =
        statements_.Select("SELECT pID, pHomPho, pBusPho, pHomCon, pBusCon FROM PATable WHERE pID=" + Literal(person) +
                           statements_.Office());
    if (row->Eof()) {
      return false;
    }
    for (const Side side : kSides) {
      visible[side] = session::ToText((*row)[ColumnsOf(side).visible.Text()]);
      selected[side] = ContactOf(session::ToText((*row)[ColumnsOf(side).selected.Text()]));
    }
  }
  for (const auto& [side, value] : shown) {
    const SideColumns& columns = ColumnsOf(side);
    const SideRow& row = sides_.at(side);
    const std::size_t contact = selected[side];
    const std::string kept = forms::Fitting(value, row.sizes.at(contact));
    statements_.Execute(Sql("UPDATE PATABLE SET ") + columns.selected + "=" +
                        Literal(kContactCodes.at(contact).Text()) + ", " + columns.contacts.at(contact) + "=" +
                        Literal(kept) + Where(person));
    visible[side] = forms::Fitting(kept, row.visible_size);
  }
  if (!shown.empty()) {
    statements_.Execute("UPDATE PATABLE SET pHomPho=" + Literal(visible[Side::Home]) + ", pBusPho=" +
                        Literal(visible[Side::Work]) + " WHERE (pID=" + Literal(person) + ")" + statements_.Office());
  }
  return true;
}

void Contacts::Mirror(std::int32_t person, Side side, std::string_view selected) {
  const SideColumns& columns = ColumnsOf(side);
  statements_.Execute(Sql("UPDATE PATABLE SET ") + columns.visible + "=" + columns.contacts.at(ContactOf(selected)) +
                      " WHERE (pID=" + Literal(person) + ")" + statements_.Office());
}

Sql Contacts::Where(std::int32_t person) const {
  return " WHERE pID=" + Literal(person) + statements_.Office(" AND (OfficeID = ", ")");
}

}  // namespace editing
