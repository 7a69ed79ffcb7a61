#include "forms/panels.h"

#include <algorithm>

#include "forms/form.h"

namespace forms {

void Panel::Changed(Aspect aspect) {
  Control::Changed(aspect);
  if (auto* tabs = dynamic_cast<TabStrip*>(Container); tabs != nullptr) {
    tabs->PagesChanged();
  }
  if (aspect != Aspect::State || Owner() == nullptr) {
    return;
  }
  for (Control* control : Owner()->Controls()) {
    if (control->LiesOn(*this)) {
      control->Control::Changed(Aspect::State);
    }
  }
}

void TabStrip::AddPage(Panel& page) {
  page.Container = this;
  pages_.push_back(&page);
  PagesChanged();
}

bool TabStrip::HasTab(int index) const {
  return index >= 0 && index < static_cast<int>(Tabs->size()) &&
         (pages_.empty() || pages_[static_cast<std::size_t>(index)]->Visible);
}

int TabStrip::NextTab(int step) const {
  const int count = static_cast<int>(Tabs->size());
  for (int i = 1; i < count; ++i) {
    const int next = (CurrTab + step * i + count * 2) % count;
    if (HasTab(next)) {
      return next;
    }
  }
  return CurrTab;
}

bool TabStrip::DoTab(int index) {
  if (!HasTab(index)) {
    return false;
  }
  if (DoFocus() && !(CurrTab == index)) {
    CurrTab = index;
    Fire(Switch);
  }
  return true;
}

bool TabStrip::Shows(const Control& part) const {
  return pages_.empty() || IndexOf(part) == CurrTab;
}

void TabStrip::BringForward(const Control& part) {
  if (const int index = IndexOf(part); HasTab(index) && !(CurrTab == index)) {
    CurrTab = index;
    Fire(Switch);
  }
}

// The place of a page in front that went is taken by the one behind it, or else by the one before.
void TabStrip::PagesChanged() {
  std::vector<std::string> captions;
  for (const Panel* page : pages_) {
    captions.push_back(page->Caption);
  }
  Tabs = std::move(captions);
  if (!HasTab(CurrTab)) {
    const int last = static_cast<int>(pages_.size()) - 1;
    int front = std::clamp(CurrTab.get(), 0, last);
    while (front <= last && !HasTab(front)) {
      ++front;
    }
    for (front = std::min(front, last); front >= 0 && !HasTab(front);) {
      --front;
    }
    CurrTab = front;
  }
  Changed(Aspect::Items);
}

int TabStrip::IndexOf(const Control& page) const {
  const auto found = std::ranges::find(pages_, &page);
  return found == pages_.end() ? -1 : static_cast<int>(found - pages_.begin());
}

}  // namespace forms
