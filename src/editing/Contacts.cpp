#include "editing/Contacts.h"

#include <algorithm>

#include "data/literal.h"
#include "forms/text.h"

namespace editing {
namespace {

using data::Literal;
using data::Sql;
using data::Words;

constexpr Words kFirstPhone = kContactCodes.front();
constexpr std::array<std::string_view, 6> kLabels = {"Phone", "Phone 2", "Fax", "Cell", "Pager", "E-Mail"};

// The code as the columns are spelled; an unknown one becomes the first phone.
Words KnownCode(std::string_view code) {
  const auto known =
      std::ranges::find_if(kContactCodes, [&](Words c) { return forms::EqualsIgnoringCase(c.Text(), code); });
  return known == kContactCodes.end() ? kFirstPhone : *known;
}

Sql Column(Side side, Words code) {
  return Prefix(side) + Sql(code);
}

// The column that mirrors the selected contact: "pHomPho".
Sql VisibleColumn(Side side) {
  return Column(side, "Pho");
}

}  // namespace

Words Prefix(Side side) {
  return side == Side::Home ? Words("pHom") : Words("pBus");
}

std::string_view SideLabel(Side side) {
  return side == Side::Home ? "Home " : "Work ";
}

std::string ContactLabel(std::string& code) {
  const std::string upper = forms::ToUpper(code);
  for (const Side side : kSides) {
    for (std::size_t i = 0; i < kContactCodes.size(); ++i) {
      if (upper == forms::ToUpper(Column(side, kContactCodes.at(i)).Text())) {
        return std::string(kLabels.at(i));
      }
    }
  }
  code = kFirstPhone.Text();
  return std::string(kLabels.front());
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
  sides_.clear();
  for (const Side side : kSides) {
    SideRow& contacts = sides_[side];
    const auto text = [&](const Sql& column) {
      return row->Eof() ? std::string() : session::ToText((*row)[column.Text()]);
    };
    const auto size = [&](const Sql& column) {
      const int field = row->FieldIndex(column.Text());
      return field < 0 ? 0 : row->Fields()[static_cast<std::size_t>(field)].defined_size;
    };
    const std::string selected = text(Column(side, "Con"));
    contacts.seen = !selected.empty();
    contacts.selected = KnownCode(selected).Text();
    visible_sizes_[side] = size(VisibleColumn(side));
    for (const Words code : kContactCodes) {
      contacts.values.emplace(code.Text(), text(Column(side, code)));
      contacts.sizes.emplace(code.Text(), size(Column(side, code)));
    }
    if (!contacts.seen) {
      SetValue(side, kFirstPhone.Text(), Cut(side, kFirstPhone.Text(), text(VisibleColumn(side))));
    }
  }
}

void Contacts::Setup(std::int32_t person) {
  Read(person);
  for (const Side side : kSides) {
    if (sides_[side].seen) {
      continue;
    }
    statements_.Execute("UPDATE PATable SET " + Column(side, "Con") + "=" + Literal(Selected(side)) + ", " +
                        Column(side, kFirstPhone) + "=" + Literal(Value(side, kFirstPhone.Text())) + Where(person));
  }
}

std::string Contacts::SideCaption(Side side) const {
  std::string code = Column(side, KnownCode(Selected(side))).Text();
  return std::string(SideLabel(side)) + ContactLabel(code);
}

const std::string& Contacts::Value(Side side, std::string_view code) const {
  return sides_.at(side).values.find(KnownCode(code).Text())->second;
}

int Contacts::DefinedSize(Side side, std::string_view code) const {
  return sides_.at(side).sizes.find(KnownCode(code).Text())->second;
}

void Contacts::Select(Side side, std::string_view code) {
  sides_[side].selected = KnownCode(code).Text();
}

void Contacts::SetValue(Side side, std::string_view code, std::string value) {
  sides_[side].values.find(KnownCode(code).Text())->second = std::move(value);
}

bool Contacts::Save(std::int32_t person, const std::map<Side, std::string>& visible) {
  const auto row =
      statements_.Select("SELECT pID, pHomPho, pBusPho, pHomCon, pBusCon FROM PATable WHERE pID=" + Literal(person) +
                         statements_.Office());
  if (row->Eof()) {
    return false;
  }
  for (const Side side : kSides) {
    SideRow& contacts = sides_[side];
    if (const std::string stored = session::ToText((*row)[Column(side, "Con").Text()]); !stored.empty()) {
      contacts.selected = KnownCode(stored).Text();
    }
    const std::string& code = contacts.selected;
    SetValue(side, code, Cut(side, code, visible.at(side)));
    statements_.Execute("UPDATE PATABLE SET " + Column(side, "Con") + "=" + Literal(code) + ", " +
                        Column(side, KnownCode(code)) + "=" + Literal(Value(side, code)) + Where(person));
  }
  statements_.Execute("UPDATE PATABLE SET " + VisibleNumbers() + " WHERE (pID=" + Literal(person) + ")" +
                      statements_.Office());
  return true;
}

// In one statement: contacts without the visible numbers that mirror them would never be put right.
void Contacts::SaveAll(std::int32_t person) {
  Sql set = VisibleNumbers();
  for (const Side side : kSides) {
    set += ", " + Column(side, "Con") + "=" + Literal(Selected(side));
    for (const Words code : kContactCodes) {
      set += ", " + Column(side, code) + "=" + Literal(Cut(side, code.Text(), Value(side, code.Text())));
    }
  }
  statements_.Execute("UPDATE PATABLE SET " + set + Where(person));
}

std::string Contacts::Cut(Side side, std::string_view code, std::string_view value) const {
  return forms::Fitting(value, DefinedSize(side, code));
}

Sql Contacts::Where(std::int32_t person) const {
  return " WHERE pID=" + Literal(person) + statements_.Office(" AND (OfficeID = ", ")");
}

Sql Contacts::VisibleNumbers() const {
  const auto visible = [this](Side side) {
    return Literal(forms::Fitting(Value(side, Selected(side)), visible_sizes_.at(side)));
  };
  return "pHomPho=" + visible(Side::Home) + ", pBusPho=" + visible(Side::Work);
}

}  // namespace editing
