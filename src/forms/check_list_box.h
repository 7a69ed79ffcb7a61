#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "forms/list_box.h"

namespace forms {

// A list whose entries are each on or off, besides the one that is current.
class CheckListBox : public ListBox {
 public:
  // One for each entry; all off when the entries are others.
  Property<std::vector<bool>> Checked{*this, {}, Aspect::Value};

  // A person turned an entry on or off.
  std::function<void(int index)> ItemCheck;

  bool IsChecked(int index) const;
  void Check(int index, bool on);
  // The positions of those that are on, and the numbers that the rules keep with them.
  std::vector<int> CheckedItems() const;
  std::vector<std::int32_t> CheckedData() const;

  // Makes the entry current too. False when there is no such entry.
  bool DoTick(int index, bool on);

  void Changed(Aspect aspect) override;
};

}  // namespace forms
