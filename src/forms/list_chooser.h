#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "forms/button.h"
#include "forms/list_box.h"

namespace forms {

// Two lists: what there is, in its own order, and what was chosen of it, in the order that the person gives. Buttons
// and double clicks, Insert and Delete move entries over; a dragged one goes to another's place. Its parts are known as
// "NAME.Available", "NAME.Add" and so on.
class ListChooser : public Control {
  // Tells the chooser when another entry is current.
  class Part : public ListBox {
   public:
    explicit Part(ListChooser& chooser) : chooser_(chooser) {}
    void Changed(Aspect aspect) override;

   private:
    ListChooser& chooser_;
  };

 public:
  ListChooser();

  Part Available{*this};
  Part Chosen{*this};
  Button Add, AddAll, Remove, RemoveAll, Up, Down;

  // A person changed what is chosen, or its order.
  std::function<void()> Change;

  // Entries are told apart by their numbers; a chosen one that is not among all is left out.
  void SetItems(std::vector<ListItem> all, const std::vector<std::int32_t>& chosen);
  // The numbers of what is chosen, in its order.
  std::vector<std::int32_t> ChosenData() const;

  bool TakesFocus() const override { return false; }

 protected:
  void RegisterParts(Form& form) override;

 private:
  void Fill(std::vector<ListItem> chosen);
  void MoveOver(bool add);
  void MoveAll(bool add);
  void MoveTo(int from, int to);
  void Arranged(const Button& button, ListBox& next) const;
  void EnableButtons();

  std::vector<ListItem> all_;
};

}  // namespace forms
