#include "recall/cltContactSlection.h"

#include <algorithm>

#include "data/contact_orders.h"
#include "data/reminders.h"
#include "forms/form.h"

namespace recall {

cltContactSlection::cltContactSlection(const std::string& available, const std::string& selected) {
  lblAvailable.Caption = available;
  lblSelected.Caption = selected;
  lblAvailable.Container = this;
  lblSelected.Container = this;
  Available.Heading = &lblAvailable;
  Chosen.Heading = &lblSelected;
  Change = [this] {
    Modified = true;
    Fire(Arranged);
  };
}

void cltContactSlection::RegisterParts(forms::Form& form) {
  form.Add(Name() + ".lblAvailable", lblAvailable);
  form.Add(Name() + ".lblSelected", lblSelected);
  ListChooser::RegisterParts(form);
}

void cltContactSlection::Show(const std::vector<std::int32_t>& order, std::int32_t excluded) {
  const auto is_method = [](std::int32_t value) {
    return std::ranges::find(data::kContactMethods, static_cast<data::ContactMethod>(value)) !=
           data::kContactMethods.end();
  };
  offered_.clear();
  const auto offer = [this](std::int32_t value) {
    offered_.push_back({.text = std::string(data::NameOf(static_cast<data::ContactMethod>(value))), .data = value});
  };
  for (const data::ContactMethod method : data::kContactMethods) {
    if (const auto value = static_cast<std::int32_t>(method); (excluded & value) == 0) {
      offer(value);
    }
  }
  for (const std::int32_t value : order) {
    if (!is_method(value)) {
      offer(value);
    }
  }
  const std::vector<std::int32_t> left = data::Without(order, excluded);
  excluded_.clear();
  for (std::size_t place = 0; place < order.size(); ++place) {
    if (std::ranges::find(left, order[place]) == left.end()) {
      excluded_.emplace_back(place, order[place]);
    }
  }
  SetItems(offered_, left);
  Modified = false;
}

std::vector<std::int32_t> cltContactSlection::WithExcluded() const {
  std::vector<std::int32_t> order = ChosenData();
  for (const auto& [place, method] : excluded_) {
    order.insert(order.begin() + static_cast<std::ptrdiff_t>(std::min(place, order.size())), method);
  }
  return order;
}

void cltContactSlection::addAvailable(const std::string& text, std::int32_t data) {
  offered_.push_back({text, data});
  SetItems(offered_, ChosenData());
}

void cltContactSlection::addSelected(const std::string& text, std::int32_t data) {
  std::vector<std::int32_t> order = ChosenData();
  order.push_back(data);
  offered_.push_back({text, data});
  SetItems(offered_, order);
}

forms::ListItem cltContactSlection::At(const std::vector<forms::ListItem>& items, std::size_t index) {
  return index < items.size() ? items[index] : forms::ListItem{};
}

bool cltContactSlection::Leave(const std::vector<forms::ListItem>& items, std::size_t index) {
  if (index >= items.size()) {
    return false;
  }
  std::erase(offered_, forms::ListItem(items[index]));
  SetItems(offered_, ChosenData());
  return true;
}

}  // namespace recall
