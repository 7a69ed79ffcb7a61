#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "forms/field.h"

namespace forms {

// An entry of a list: its text, columns separated by tabs, and the number that the rules keep with it.
struct ListItem {
  std::string text;
  std::int32_t data = 0;

  friend bool operator==(const ListItem&, const ListItem&) = default;
};

// A list of entries of which one may be current.
class ListBox : public Field {
 public:
  Property<std::vector<ListItem>> Items{*this, {}, Aspect::Items};
  // -1 for none.
  Property<int> ListIndex{*this, -1, Aspect::Value};

  // A record keeps the entry's number in place of its text.
  bool BoundByData = false;

  // A person chose an entry.
  std::function<void()> Click;
  std::function<void()> DblClick;
  // A character typed while the list has the focus; U+0008 is the backspace key.
  std::function<void(char32_t)> KeyPress;
  // A person drags an entry to another's place; null where entries stay where they are.
  std::function<void(int from, int to)> Moved;

  // Nullptr when no entry is current.
  const ListItem* Current() const;
  // -1 when no entry carries that number.
  int IndexOfData(std::int32_t data) const;
  void Clear();
  // The entry that stands out; -1 for none.
  virtual int Marked() const { return ListIndex; }

  // Chooses an entry, as a click does, or only makes it current, as the arrow keys do. False when there is no such
  // entry.
  bool DoPick(int index);
  bool DoHighlight(int index);
  // Makes the entry so many below the marked one current, or the last that there is.
  bool DoStep(int step);
  // False when entries stay where they are, or there are no such places.
  bool DoMove(int from, int to);
  // A double click on the current entry.
  void DoOpen();

  std::string FieldText() const override;
  // An entry that is not there leaves none current.
  void SetFieldText(std::string text) override;
};

// A list that drops down from its box; the box may take typing. An entry made current gives the box its text, and
// none an empty one; another text in the box leaves no entry current.
class ComboBox : public ListBox {
 public:
  Property<std::string> Text{*this, {}, Aspect::Value};
  Property<bool> Editable{*this, false};
  // The entry that a rule takes for what is typed: marked as long as none is current, and the box keeps its text.
  Property<int> Offered{*this, -1, Aspect::Value};

  // A person typed into the box.
  std::function<void()> Change;

  int Marked() const override { return ListIndex < 0 ? Offered : ListIndex; }
  bool TakesEnter() const override { return true; }
  void Changed(Aspect aspect) override;
  void DoEdit(std::string text);

  std::string FieldText() const override;
  void SetFieldText(std::string text) override;

 private:
  int shown_index_ = -1;
};

}  // namespace forms
