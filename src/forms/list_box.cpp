#include "forms/list_box.h"

#include <algorithm>

namespace forms {

const ListItem* ListBox::Current() const {
  const int index = ListIndex;
  return index >= 0 && index < static_cast<int>(Items->size()) ? &Items.get()[static_cast<std::size_t>(index)] : nullptr;
}

int ListBox::IndexOfData(std::int32_t data) const {
  const auto& items = Items.get();
  const auto found = std::ranges::find(items, data, &ListItem::data);
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

void ListBox::Clear() {
  ListIndex = -1;
  Items = std::vector<ListItem>{};
}

bool ListBox::DoPick(int index) {
  if (index < 0 || index >= static_cast<int>(Items->size())) {
    return false;
  }
  ListIndex = index;
  Fire(Click);
  return true;
}

void ComboBox::Changed(Aspect aspect) {
  const ListItem* current = Current();
  if (aspect == Aspect::Value && current != nullptr && !(Text == current->text)) {
    Text = current->text;  // tells the widget in its turn
    return;
  }
  ListBox::Changed(aspect);
}

void ComboBox::DoEdit(std::string text) {
  ListIndex = -1;
  if (!(Text == text)) {
    Text = std::move(text);
    Fire(Change);
  }
}

}  // namespace forms
