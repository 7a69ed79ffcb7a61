#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "editing/rules.h"
#include "forms/button.h"
#include "forms/list_box.h"
#include "forms/text_box.h"
#include "forms/user_control.h"

namespace editing {

// A field that shows the name of a record and takes another only from a list: what `NameSearch` asks of it.
class SearchedField {
 public:
  SearchedField(forms::TextBox& field, forms::Button& list_button) : box(field), list(list_button) {}
  SearchedField(const SearchedField&) = delete;
  SearchedField& operator=(const SearchedField&) = delete;
  virtual ~SearchedField() = default;

  forms::TextBox& box;
  forms::Button& list;  // opens the look-up list, as F9 does in the box

  // The names to choose from, with their IDs. Throws session::DatabaseError.
  virtual std::vector<forms::ListItem> Names() = 0;
  // 0 for none.
  virtual std::int32_t Current() const = 0;
  // Another record was chosen by its name.
  virtual void Take(std::int32_t id, const std::string& name) = 0;
  // A name was typed that no record has; true when it was added and taken.
  virtual bool Enter(const std::string& typed) = 0;
  // The keys Insert and Delete, and the look-up list.
  virtual void Edit() = 0;
  virtual void Remove() = 0;
  virtual void PickFromList() = 0;
};

// The list of names (`Name_List`) that drops below a searched field when the focus comes to it.
class NameSearch : public forms::DropPanel, private Rules {
 public:
  explicit NameSearch(const session::ScreenContext& context);

  forms::ComboBox dbcNameSearch;  // "Reed, Rita --- 7"

  void Attach(SearchedField& field);

 protected:
  std::string Scope() const override { return {}; }

 private:
  void DropBelow(SearchedField& field);
  void TakeCurrent();
  void TakeTyped();
  // On to the button behind the field.
  void LeaveList();
  bool OnBoxKey(SearchedField& field, forms::Key key);
  bool OnListKey(forms::Key key);

  SearchedField* field_ = nullptr;  // that is searched
};

}  // namespace editing
