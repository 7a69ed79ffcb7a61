#include "forms/list_box.h"

#include <algorithm>

namespace forms {

const ListItem* ListBox::Current() const {
  const int index = ListIndex;
  return index >= 0 && index < static_cast<int>(Items->size()) ? &Items.get()[static_cast<std::size_t>(index)]
                                                               : nullptr;
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
  if (DoFocus()) {
    ListIndex = index;
    Fire(Click);
  }
  return true;
}

bool ListBox::DoHighlight(int index) {
  if (index < 0 || index >= static_cast<int>(Items->size())) {
    return false;
  }
  if (DoFocus()) {
    ListIndex = index;
  }
  return true;
}

void ListBox::DoOpen() {
  if (Current() != nullptr && DoFocus()) {
    Fire(DblClick);
  }
}

void ComboBox::Changed(Aspect aspect) {
  const ListItem* current = Current();
  if (aspect == Aspect::Value && ListIndex != shown_index_) {
    shown_index_ = ListIndex;
    Text = current != nullptr ? current->text : std::string();
  } else if (aspect == Aspect::Value && current != nullptr && !(Text == current->text)) {
    shown_index_ = -1;
    ListIndex = -1;
  }
  ListBox::Changed(aspect);
}

void ComboBox::DoEdit(std::string text) {
  if (!(Text == text)) {
    Text = std::move(text);
    Fire(Change);
  }
}

}  // namespace forms
