#include "forms/list_chooser.h"

#include <algorithm>

#include "forms/form.h"

namespace forms {

void ListChooser::Part::Changed(Aspect aspect) {
  ListBox::Changed(aspect);
  if (aspect != Aspect::State) {
    chooser_.EnableButtons();
  }
}

ListChooser::ListChooser() {
  const auto set_up = [this](Button& button, const char* caption, const char* tip, std::function<void()> click) {
    button.Caption = caption;
    button.AccessibleName = tip;
    button.ToolTip = tip;
    button.Click = std::move(click);
    button.Container = this;
  };
  set_up(Add, ">", "Add the entry", [this] { MoveOver(true); });
  set_up(AddAll, ">>", "Add all entries", [this] { MoveAll(true); });
  set_up(Remove, "<", "Take the entry out", [this] { MoveOver(false); });
  set_up(RemoveAll, "<<", "Take all entries out", [this] { MoveAll(false); });
  set_up(Up, "\u25B2", "Move the entry up", [this] { MoveTo(Chosen.ListIndex, Chosen.ListIndex - 1); });
  set_up(Down, "\u25BC", "Move the entry down", [this] { MoveTo(Chosen.ListIndex, Chosen.ListIndex + 1); });
  Available.AccessibleName = "Available";
  Chosen.AccessibleName = "Chosen";
  Available.Container = this;
  Chosen.Container = this;
  Available.DblClick = Add.Click;
  Chosen.DblClick = Remove.Click;
  Chosen.Moved = [this](int from, int to) { MoveTo(from, to); };
  // Insert and Delete do what the buttons do.
  const auto moves_over = [this](ListBox& list, Key with, bool add) {
    list.KeyDown = [this, with, add](Key key) {
      if (key == with) {
        MoveOver(add);
      }
      return key == with;
    };
  };
  moves_over(Available, Key::Insert, true);
  moves_over(Chosen, Key::Delete, false);
  EnableButtons();
}

void ListChooser::SetItems(std::vector<ListItem> all, const std::vector<std::int32_t>& chosen) {
  all_ = std::move(all);
  std::vector<ListItem> items;
  for (const std::int32_t data : chosen) {
    if (const auto found = std::ranges::find(all_, data, &ListItem::data); found != all_.end()) {
      items.push_back(*found);
    }
  }
  Available.ListIndex = -1;
  Chosen.ListIndex = -1;
  Fill(std::move(items));
}

std::vector<std::int32_t> ListChooser::ChosenData() const {
  std::vector<std::int32_t> data;
  std::ranges::transform(Chosen.Items.get(), std::back_inserter(data), &ListItem::data);
  return data;
}

void ListChooser::RegisterParts(Form& form) {
  form.Add(Name() + ".Available", Available);
  form.Add(Name() + ".Add", Add);
  form.Add(Name() + ".AddAll", AddAll);
  form.Add(Name() + ".Remove", Remove);
  form.Add(Name() + ".RemoveAll", RemoveAll);
  form.Add(Name() + ".Chosen", Chosen);
  form.Add(Name() + ".Up", Up);
  form.Add(Name() + ".Down", Down);
}

// What is not chosen is available.
void ListChooser::Fill(std::vector<ListItem> chosen) {
  std::vector<ListItem> left;
  std::ranges::copy_if(all_, std::back_inserter(left), [&chosen](const ListItem& item) {
    return std::ranges::find(chosen, item.data, &ListItem::data) == chosen.end();
  });
  const auto show = [](ListBox& list, std::vector<ListItem> items) {
    const int last = static_cast<int>(items.size()) - 1;
    list.Items = std::move(items);
    list.ListIndex = std::min(list.ListIndex.get(), last);
  };
  show(Available, std::move(left));
  show(Chosen, std::move(chosen));
  EnableButtons();
}

// The entry that follows becomes current, so that the next click moves that.
void ListChooser::MoveOver(bool add) {
  ListBox& from = add ? static_cast<ListBox&>(Available) : Chosen;
  ListBox& to = add ? static_cast<ListBox&>(Chosen) : Available;
  const ListItem* current = from.Current();
  if (current == nullptr) {
    return;
  }
  const ListItem moved = *current;
  std::vector<ListItem> chosen = Chosen.Items;
  if (add) {
    chosen.push_back(moved);
  } else {
    std::erase(chosen, moved);
  }
  Fill(std::move(chosen));
  to.ListIndex = to.IndexOfData(moved.data);
  Arranged(add ? Add : Remove, to);
}

void ListChooser::MoveAll(bool add) {
  std::vector<ListItem> chosen;
  if (add) {
    chosen = Chosen.Items;
    chosen.insert(chosen.end(), Available.Items->begin(), Available.Items->end());
  }
  Fill(std::move(chosen));
  Arranged(add ? AddAll : RemoveAll, add ? static_cast<ListBox&>(Chosen) : Available);
}

void ListChooser::MoveTo(int from, int to) {
  std::vector<ListItem> chosen = Chosen.Items;
  const int count = static_cast<int>(chosen.size());
  if (from < 0 || from >= count || to < 0 || to >= count) {
    return;
  }
  const auto at = [&chosen](int index) { return chosen.begin() + index; };
  if (from < to) {
    std::rotate(at(from), at(from + 1), at(to + 1));
  } else {
    std::rotate(at(to), at(from), at(from + 1));
  }
  Fill(std::move(chosen));
  Chosen.ListIndex = to;
  Arranged(to < from ? Up : Down, Chosen);
}

// A button that has nothing left to do passes the focus on.
void ListChooser::Arranged(const Button& button, ListBox& next) const {
  if (button.HasFocus() && !button.Enabled) {
    next.SetFocus();
  }
  Fire(Change);
}

void ListChooser::EnableButtons() {
  const int count = static_cast<int>(Chosen.Items->size());
  const int index = Chosen.ListIndex;
  Add.Enabled = Available.Current() != nullptr;
  AddAll.Enabled = !Available.Items->empty();
  Remove.Enabled = Chosen.Current() != nullptr;
  RemoveAll.Enabled = count > 0;
  Up.Enabled = index > 0;
  Down.Enabled = index >= 0 && index + 1 < count;
}

}  // namespace forms
