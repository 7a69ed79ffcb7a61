#include "editing/name_search.h"

#include <algorithm>
#include <iterator>

#include "data/persons.h"
#include "editing/editing_form.h"
#include "forms/form.h"
#include "forms/text.h"

namespace editing {
namespace {

constexpr int kFirstRows = 100;
constexpr int kRowsAtOnce = 500;
constexpr std::string_view kBeforeId = " --- ";

std::string NameOf(const forms::ListItem& item) {
  return item.text.substr(0, item.text.rfind(kBeforeId));
}

}  // namespace

NameSearch::NameSearch(const session::ScreenContext& context) : Rules(context) {
  Add("dbcNameSearch", dbcNameSearch);
  Add("lblNameSearch", lblNameSearch);
  dbcNameSearch.Editable = true;
  dbcNameSearch.AccessibleName = "Search by name";
  dbcNameSearch.Change = [this] { Typed(); };
  dbcNameSearch.Click = [this] { TakeBest(); };
  dbcNameSearch.KeyDown = [this](forms::Key key) { return OnListKey(key); };
}

void NameSearch::Attach(SearchedField& field) {
  field.box.ReadOnly = true;
  field.box.KeyPress = [this](char32_t) {
    Tell("Please press F9 or click button.");
    return char32_t{0};
  };
  field.box.Enter = [this, &field] {
    const bool from_search = Visible && field_ == &field;
    if (!coming_back_ && !from_search) {
      DropBelow(field);
    }
  };
  field.box.KeyDown = [this, &field](forms::Key key) { return OnBoxKey(field, key); };
  field.list.Click = [this, &field] { Pick(field); };
}

void NameSearch::DropBelow(SearchedField& field) {
  if (EditingForm::ReadOnly(*this) || !field.Drops()) {
    return;
  }
  field_ = &field;
  unread_ = false;
  awaited_ = field.Current();
  dbcNameSearch.Clear();
  dbcNameSearch.Text = std::string();
  if (Search({})) {
    Drop(field.box);
    dbcNameSearch.SetFocus();
  }
}

bool NameSearch::Search(std::string_view typed) {
  StopFetching();
  listed_.clear();
  dbcNameSearch.Offered = -1;
  dbcNameSearch.Clear();
  unread_ = !Attempt([&] {
    std::ranges::move(field_->Search(typed), std::back_inserter(waiting_));
    Fetch(kFirstRows);
  });
  if (unread_) {
    StopFetching();
  }
  dbcNameSearch.Offered = typed.empty() || dbcNameSearch.Items->empty() ? -1 : 0;
  ShowHint();
  return !unread_;
}

void NameSearch::Fetch(int count) {
  auto items = dbcNameSearch.Items.get();
  while (count > 0 && !Fetched()) {
    if (rows_ == nullptr) {
      rows_ = statements_.Select(waiting_.front());
      waiting_.pop_front();
    }
    for (; count > 0 && !rows_->Eof(); rows_->MoveNext(), --count) {
      if (const std::int32_t id = session::ToId(rows_->Get(0)); listed_.insert(id).second) {
        items.push_back(
            {data::LastFirst(rows_->Get(1), rows_->Get(2)) + std::string(kBeforeId) + std::to_string(id), id});
      }
    }
    if (rows_->Eof()) {
      rows_.reset();
    }
  }
  dbcNameSearch.Items = std::move(items);
  if (const int place = dbcNameSearch.IndexOfData(awaited_); awaited_ != 0 && place >= 0) {
    awaited_ = 0;
    if (dbcNameSearch.ListIndex < 0) {
      dbcNameSearch.ListIndex = place;
    }
  }
}

bool NameSearch::OnIdle() {
  if (Visible && !Fetched() && !Attempt([this] { Fetch(kRowsAtOnce); })) {
    unread_ = true;
    StopFetching();
  }
  return Visible && !Fetched();
}

void NameSearch::StopFetching() {
  waiting_.clear();
  rows_.reset();
}

// After a refusal Enter searches again, and no key before.
void NameSearch::Typed() {
  awaited_ = 0;
  if (!unread_) {
    Search(TypedName());
  }
}

std::string NameSearch::TypedName() const {
  const std::string& text = dbcNameSearch.Text;
  return std::string(forms::Trim(text.substr(0, text.find(kBeforeId))));
}

void NameSearch::ShowHint() {
  const std::string typed = TypedName();
  const std::string word(field_->Word());
  if (typed.empty() || unread_) {
    lblNameSearch.Caption = field_->Prompt() + " [Enter] takes the first,\r\n[Esc] closes the search.";
  } else if (dbcNameSearch.Items->empty()) {
    lblNameSearch.Caption = "No " + word + " is called so. " + field_->HowToAdd();
  } else if (typed.find(',') != std::string::npos && Named() == nullptr) {
    lblNameSearch.Caption = "[Enter] takes the first, [Insert] adds the new\r\n" + word + " " + ToldBack(typed) + ".";
  } else {
    lblNameSearch.Caption = "[Enter] takes the first,\r\n[Esc] closes the search.";
  }
}

const forms::ListItem* NameSearch::Named() const {
  if (const forms::ListItem* current = dbcNameSearch.Current(); current != nullptr) {
    return current;
  }
  const std::string typed = TypedName();
  const auto& items = dbcNameSearch.Items.get();
  const auto named = [&](const forms::ListItem& item) { return field_->SameName(NameOf(item), typed); };
  const auto first = typed.empty() ? items.end() : std::ranges::find_if(items, named);
  return first == items.end() || std::find_if(first + 1, items.end(), named) != items.end() ? nullptr : &*first;
}

void NameSearch::Take(const forms::ListItem& item) {
  if (item.data != field_->Current()) {
    field_->Take(item.data, NameOf(item));
  }
}

void NameSearch::TakeBest() {
  const std::string typed = TypedName();
  if (unread_ && !Search(typed)) {
    return;
  }
  if (const forms::ListItem* named = Named(); named != nullptr) {
    Take(*named);
  } else if (dbcNameSearch.Offered >= 0) {
    Take(dbcNameSearch.Items->front());
  } else if (!typed.empty() && !field_->Enter(typed)) {
    return;
  }
  GoOn(*field_);
}

// By Insert, where others are called nearly so.
void NameSearch::AddTyped() {
  if (field_->Enter(TypedName())) {
    GoOn(*field_);
  }
}

void NameSearch::OnFocusLeft() {
  StopFetching();
  if (const forms::ListItem* named = Named(); named != nullptr) {
    Take(*named);
  }
}

void NameSearch::Pick(SearchedField& field) {
  if (field.PickFromList()) {
    GoOn(field);
  } else if (field.list.HasFocus()) {
    BackTo(field);
  }
}

bool NameSearch::Edit(SearchedField& field) {
  if (field.Edit()) {
    GoOn(field);
  }
  return true;
}

bool NameSearch::Remove(SearchedField& field) {
  if (field.Remove()) {
    awaited_ = 0;
    dbcNameSearch.ListIndex = -1;
  }
  return true;
}

void NameSearch::Hide() {
  StopFetching();
  Visible = false;
}

void NameSearch::GoOn(SearchedField& field) {
  Hide();
  field.box.FocusNext();
}

void NameSearch::BackTo(SearchedField& field) {
  coming_back_ = true;
  field.box.SetFocus();
  coming_back_ = false;
  Hide();
}

bool NameSearch::OnBoxKey(SearchedField& field, forms::Key key) {
  switch (key) {
    case forms::Key::F9:
      Pick(field);
      return true;
    case forms::Key::Insert:
      return Edit(field);
    case forms::Key::Delete:
      return Remove(field);
    case forms::Key::Down:
      if (Visible) {
        dbcNameSearch.SetFocus();
      } else {
        DropBelow(field);
      }
      return true;
    case forms::Key::Esc: {
      const bool dropped = Visible;
      Hide();
      return dropped;
    }
    default:
      return false;
  }
}

bool NameSearch::OnListKey(forms::Key key) {
  switch (key) {
    case forms::Key::Esc:
      BackTo(*field_);
      return true;
    case forms::Key::F9:
      Pick(*field_);
      return true;
    case forms::Key::Insert:
      if (TypedName().find(',') != std::string::npos && Named() == nullptr) {
        AddTyped();
        return true;
      }
      return Edit(*field_);
    case forms::Key::Delete: {
      const forms::ListItem* current = dbcNameSearch.Current();
      const bool untouched = dbcNameSearch.Text->empty() || (current != nullptr && current->data == field_->Current());
      return untouched && Remove(*field_);
    }
    case forms::Key::Enter:
      TakeBest();
      return true;
    default:
      return false;
  }
}

}  // namespace editing
