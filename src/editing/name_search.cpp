#include "editing/name_search.h"

#include <algorithm>

#include "editing/editing_form.h"
#include "forms/text.h"

namespace editing {
namespace {

constexpr std::string_view kBeforeId = " --- ";

std::string NameOf(const forms::ListItem& item) {
  return item.text.substr(0, item.text.rfind(kBeforeId));
}

}  // namespace

NameSearch::NameSearch(const session::ScreenContext& context) : Rules(context) {
  Add("dbcNameSearch", dbcNameSearch);
  dbcNameSearch.Editable = true;
  dbcNameSearch.AccessibleName = "Search by name";
  dbcNameSearch.Click = [this] { TakeCurrent(); };
  dbcNameSearch.KeyDown = [this](forms::Key key) { return OnListKey(key); };
}

void NameSearch::Attach(SearchedField& field) {
  field.box.ReadOnly = true;
  field.box.KeyPress = [this](char32_t) {
    Tell("Please press F9 or click button.");
    return char32_t{0};
  };
  field.box.Enter = [this, &field] { DropBelow(field); };
  field.box.KeyDown = [this, &field](forms::Key key) { return OnBoxKey(field, key); };
  field.list.Click = [&field] { field.PickFromList(); };
}

void NameSearch::DropBelow(SearchedField& field) {
  if (EditingForm::ReadOnly(*this)) {
    return;
  }
  field_ = &field;
  std::vector<forms::ListItem> names;
  Attempt([&] { names = field.Names(); });
  for (forms::ListItem& item : names) {
    item.text += std::string(kBeforeId) + std::to_string(item.data);
  }
  dbcNameSearch.Clear();
  dbcNameSearch.Text = std::string();
  dbcNameSearch.Items = std::move(names);
  dbcNameSearch.ListIndex = field.Current() != 0 ? dbcNameSearch.IndexOfData(field.Current()) : -1;
  Drop(field.box);
}

void NameSearch::TakeCurrent() {
  const forms::ListItem* chosen = dbcNameSearch.Current();
  if (chosen == nullptr) {
    return;
  }
  if (chosen->data != field_->Current()) {
    field_->Take(chosen->data, NameOf(*chosen));
  }
  LeaveList();
}

void NameSearch::TakeTyped() {
  const std::string typed(forms::Trim(dbcNameSearch.Text.get()));
  const auto& names = dbcNameSearch.Items.get();
  const auto known = std::ranges::find_if(names, [&](const forms::ListItem& item) {
    return forms::EqualsIgnoringCase(NameOf(item), typed) || forms::EqualsIgnoringCase(item.text, typed);
  });
  if (known != names.end()) {
    dbcNameSearch.DoPick(static_cast<int>(known - names.begin()));
  } else if (!typed.empty() && field_->Enter(typed)) {
    LeaveList();
  }
}

void NameSearch::LeaveList() {
  Visible = false;
  field_->list.SetFocus();
}

bool NameSearch::OnBoxKey(SearchedField& field, forms::Key key) {
  switch (key) {
    case forms::Key::F9:
      field.PickFromList();
      return true;
    case forms::Key::Insert:
      field.Edit();
      return true;
    case forms::Key::Delete:
      field.Remove();
      return true;
    case forms::Key::Down:
      if (Visible) {
        dbcNameSearch.SetFocus();
      }
      return true;
    case forms::Key::Esc: {
      const bool dropped = Visible;
      Visible = false;
      return dropped;
    }
    default:
      return false;
  }
}

bool NameSearch::OnListKey(forms::Key key) {
  switch (key) {
    case forms::Key::Esc:
      field_->box.SetFocus();
      Visible = false;
      return true;
    case forms::Key::F9:
      field_->PickFromList();
      return true;
    case forms::Key::Insert:
      field_->Edit();
      return true;
    case forms::Key::Tab:
      LeaveList();
      return true;
    case forms::Key::Enter:
      if (dbcNameSearch.Current() != nullptr) {
        TakeCurrent();
      } else {
        TakeTyped();
      }
      return true;
    default:
      return false;
  }
}

}  // namespace editing
