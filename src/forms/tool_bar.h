#pragma once

#include <functional>
#include <initializer_list>
#include <list>
#include <string>
#include <string_view>

#include "forms/button.h"

namespace forms {

// A row of buttons, each known by its key: "ToolStrip.New". The Tab key passes them by.
class ToolBar : public Control {
 public:
  struct Item {
    std::string key;
    bool separator = false;
    Button button;
  };

  // The key of the button that a person clicked.
  std::function<void(const std::string& key)> ItemClicked;

  // `picture` is a file name in the picture folder.
  Button& Add(std::string key, std::string caption, std::string picture);
  void AddSeparator(std::string key);

  // Throws std::out_of_range for a key that the bar does not have.
  Button& operator[](std::string_view key);
  std::list<Item>& Items() { return items_; }

  bool TakesFocus() const override { return false; }

 protected:
  void RegisterParts(Form& form) override;

 private:
  std::list<Item> items_;
};

}  // namespace forms
