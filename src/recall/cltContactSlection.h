#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "forms/label.h"
#include "forms/list_chooser.h"

namespace recall {

// The methods by which a person may be reached, and those by which he is, the first one first. Entries carry the
// methods' values (data/reminders.h).
class cltContactSlection : public forms::ListChooser {
 public:
  // The letters lead to the lists.
  explicit cltContactSlection(const std::string& available = "&Available methods",
                              const std::string& selected = "Contact orde&r, first one first");

  forms::Label lblAvailable;
  forms::Label lblSelected;

  // A person moved an entry since the lists were shown.
  bool Modified = false;
  // The same, after `Modified` was set.
  std::function<void()> Arranged;

  // Every method but the excluded ones, those of the order selected. A value that is no method stays in its place.
  void Show(const std::vector<std::int32_t>& order, std::int32_t excluded);
  // What is selected, and the excluded methods of the order shown where they stood: the order once they are excluded no
  // more.
  std::vector<std::int32_t> WithExcluded() const;
  // From now on what is selected is the whole order.
  void ForgetExcluded() { excluded_.clear(); }

  void addAvailable(const std::string& text, std::int32_t data);
  void addSelected(const std::string& text, std::int32_t data);
  // Both false when there is no such entry. It is in neither list then.
  bool RemoveAvilable(std::size_t index) { return Leave(Available.Items, index); }
  bool RemoveSelected(std::size_t index) { return Leave(Chosen.Items, index); }

  std::size_t SelectCount() const { return Chosen.Items->size(); }
  // Empty and 0 past the end.
  std::string GetSelectedItem(std::size_t index) const { return At(Chosen.Items, index).text; }
  std::int32_t GetSelectedItemData(std::size_t index) const { return At(Chosen.Items, index).data; }
  std::string GetAvailableItem(std::size_t index) const { return At(Available.Items, index).text; }
  std::int32_t GetAvailableItemData(std::size_t index) const { return At(Available.Items, index).data; }

 protected:
  void RegisterParts(forms::Form& form) override;

 private:
  static forms::ListItem At(const std::vector<forms::ListItem>& items, std::size_t index);
  bool Leave(const std::vector<forms::ListItem>& items, std::size_t index);

  std::vector<forms::ListItem> offered_;
  std::vector<std::pair<std::size_t, std::int32_t>> excluded_;  // of the order, with their places in it
};

}  // namespace recall
