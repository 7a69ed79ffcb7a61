#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "forms/check_list_box.h"
#include "forms/label.h"
#include "forms/user_control.h"

namespace recall {

// A list with a check for each entry, below its heading. Positions count from 0.
class SelectionList : public forms::UserControl {
 public:
  SelectionList();

  // The heading, "&" before the mnemonic.
  forms::Property<std::string> Text{*this};
  // Whether a person may check anything.
  forms::Property<bool> Active{*this, true};
  // One entry is checked, as among the contacts of a person: a person who checks another one takes it from the first.
  bool ContactSelection = false;

  forms::Label lblText;
  forms::CheckListBox lstItems;

  // A person changed what is checked; whoever reads or saves the list clears it.
  bool Modified = false;
  std::function<void()> Change;

  void ClearList();
  void addList(std::string text, std::int32_t data, bool checked = false);
  void RemoveList(int index);

  int Count() const { return static_cast<int>(lstItems.Items->size()); }
  // Of an entry that is not there: nothing, 0 and false.
  std::string GetItem(int index) const;
  std::int32_t GetItemData(int index) const;
  bool GetItemChecked(int index) const { return lstItems.IsChecked(index); }

  // Of the entries that are checked.
  int SelectCount() const { return static_cast<int>(lstItems.CheckedItems().size()); }
  std::int32_t GetSelectedItemData(int index) const;

  void Changed(forms::Aspect aspect) override;

 private:
  const forms::ListItem* ItemAt(int index) const;
  void Fill(std::vector<forms::ListItem> items, std::vector<bool> checked);
  void lstItems_ItemCheck(int index);
};

}  // namespace recall
