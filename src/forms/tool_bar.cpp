#include "forms/tool_bar.h"

#include <stdexcept>

#include "forms/form.h"

namespace forms {

Button& ToolBar::Add(std::string key, std::string caption, std::string picture) {
  Item& item = items_.emplace_back();
  item.key = std::move(key);
  item.button.Caption = std::move(caption);
  item.button.Picture = std::move(picture);
  item.button.Container = this;
  item.button.TabStop = false;
  item.button.Click = [this, &item] {
    if (ItemClicked) {
      ItemClicked(item.key);
    }
  };
  if (Owner() != nullptr) {
    Owner()->Add(Name() + "." + item.key, item.button);
  }
  return item.button;
}

void ToolBar::AddSeparator(std::string key) {
  Item& item = items_.emplace_back();
  item.key = std::move(key);
  item.separator = true;
}

Button& ToolBar::operator[](std::string_view key) {
  for (Item& item : items_) {
    if (item.key == key && !item.separator) {
      return item.button;
    }
  }
  throw std::out_of_range("no tool bar button " + std::string(key));
}

void ToolBar::RegisterParts(Form& form) {
  for (Item& item : items_) {
    if (!item.separator) {
      form.Add(Name() + "." + item.key, item.button);
    }
  }
}

}  // namespace forms
