#include "forms/list_box.h"

#include <algorithm>

#include "forms/text.h"

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

bool ListBox::DoStep(int step) {
  return DoHighlight(std::clamp(Marked() + step, 0, std::max(0, static_cast<int>(Items->size()) - 1)));
}

bool ListBox::DoMove(int from, int to) {
  const auto holds = [this](int index) { return index >= 0 && index < static_cast<int>(Items->size()); };
  if (!Moved || !holds(from) || !holds(to)) {
    return false;
  }
  if (DoFocus() && from != to) {
    Fire([&] { Moved(from, to); });
  }
  return true;
}

void ListBox::DoOpen() {
  if (Current() != nullptr && DoFocus()) {
    Fire(DblClick);
  }
}

std::string ListBox::FieldText() const {
  const ListItem* current = Current();
  if (current == nullptr) {
    return {};
  }
  return BoundByData ? std::to_string(current->data) : current->text;
}

void ListBox::SetFieldText(std::string text) {
  const auto& items = Items.get();
  const auto found = std::ranges::find_if(items, [&](const ListItem& item) {
    return BoundByData ? std::to_string(item.data) == text : EqualsIgnoringCase(item.text, text);
  });
  ListIndex = found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

// A box that takes typing holds texts that its list does not have.
std::string ComboBox::FieldText() const {
  return BoundByData ? ListBox::FieldText() : Text;
}

void ComboBox::SetFieldText(std::string text) {
  ListBox::SetFieldText(text);
  if (!BoundByData && Current() == nullptr) {
    Text = std::move(text);
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
