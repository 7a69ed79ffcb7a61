#include "forms/check_list_box.h"

namespace forms {

bool CheckListBox::IsChecked(int index) const {
  return index >= 0 && index < static_cast<int>(Checked->size()) && Checked.get()[static_cast<std::size_t>(index)];
}

void CheckListBox::Check(int index, bool on) {
  std::vector<bool> checks = Checked;
  checks.at(static_cast<std::size_t>(index)) = on;
  Checked = std::move(checks);
}

std::vector<int> CheckListBox::CheckedItems() const {
  std::vector<int> on;
  for (int i = 0; i < static_cast<int>(Items->size()); ++i) {
    if (IsChecked(i)) {
      on.push_back(i);
    }
  }
  return on;
}

std::vector<std::int32_t> CheckListBox::CheckedData() const {
  std::vector<std::int32_t> data;
  for (const int index : CheckedItems()) {
    data.push_back(Items.get()[static_cast<std::size_t>(index)].data);
  }
  return data;
}

bool CheckListBox::DoTick(int index, bool on) {
  if (index < 0 || index >= static_cast<int>(Items->size())) {
    return false;
  }
  if (!DoFocus()) {
    return true;
  }
  ListIndex = index;
  if (IsChecked(index) != on) {
    Check(index, on);
    if (ItemCheck) {
      Fire([&] { ItemCheck(index); });
    }
  }
  return true;
}

void CheckListBox::Changed(Aspect aspect) {
  if (aspect == Aspect::Items) {
    Checked = std::vector<bool>(Items->size());
  }
  ListBox::Changed(aspect);
}

}  // namespace forms
