#include "recall/SelectionList.h"

#include <utility>

namespace recall {

SelectionList::SelectionList() {
  Add("lblText", lblText);
  Add("lstItems", lstItems);
  lstItems.Heading = &lblText;
  lstItems.ItemCheck = [this](int index) { lstItems_ItemCheck(index); };
}

void SelectionList::Changed(forms::Aspect aspect) {
  lblText.Caption = Text.get();
  lstItems.Enabled = Active.get();
  UserControl::Changed(aspect);
}

void SelectionList::ClearList() {
  Fill({}, {});
}

void SelectionList::addList(std::string text, std::int32_t data, bool checked) {
  auto items = lstItems.Items.get();
  auto checks = lstItems.Checked.get();
  items.push_back({std::move(text), data});
  checks.push_back(checked);
  Fill(std::move(items), std::move(checks));
}

void SelectionList::RemoveList(int index) {
  if (ItemAt(index) == nullptr) {
    return;
  }
  auto items = lstItems.Items.get();
  auto checks = lstItems.Checked.get();
  items.erase(items.begin() + index);
  checks.erase(checks.begin() + index);
  Fill(std::move(items), std::move(checks));
}

std::string SelectionList::GetItem(int index) const {
  const forms::ListItem* item = ItemAt(index);
  return item == nullptr ? std::string() : item->text;
}

std::int32_t SelectionList::GetItemData(int index) const {
  const forms::ListItem* item = ItemAt(index);
  return item == nullptr ? 0 : item->data;
}

std::int32_t SelectionList::GetSelectedItemData(int index) const {
  const auto data = lstItems.CheckedData();
  return index < 0 || index >= static_cast<int>(data.size()) ? 0 : data[static_cast<std::size_t>(index)];
}

const forms::ListItem* SelectionList::ItemAt(int index) const {
  return index < 0 || index >= Count() ? nullptr : &lstItems.Items.get()[static_cast<std::size_t>(index)];
}

void SelectionList::Fill(std::vector<forms::ListItem> items, std::vector<bool> checked) {
  const int current = lstItems.ListIndex;
  lstItems.Items = std::move(items);
  lstItems.Checked = std::move(checked);
  lstItems.ListIndex = current < Count() ? current : Count() - 1;
}

void SelectionList::lstItems_ItemCheck(int index) {
  if (ContactSelection) {
    std::vector<bool> only(static_cast<std::size_t>(Count()));
    only[static_cast<std::size_t>(index)] = true;
    lstItems.Checked = std::move(only);
  }
  Modified = true;
  if (Change) {
    Change();
  }
}

}  // namespace recall
