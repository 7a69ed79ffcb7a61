#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "editing/rules.h"
#include "forms/button.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/text_box.h"
#include "forms/user_control.h"

namespace editing {

// A field that shows the name of a person, or of another record, and takes another only from a list: what `NameSearch`
// asks of it.
class SearchedField {
 public:
  SearchedField(forms::TextBox& field, forms::Button& list_button) : box(field), list(list_button) {}
  SearchedField(const SearchedField&) = delete;
  SearchedField& operator=(const SearchedField&) = delete;
  virtual ~SearchedField() = default;

  forms::TextBox& box;
  forms::Button& list;  // opens the look-up list, as F9 does in the box

  // What such a person is called: "Referral".
  virtual std::string_view Word() const = 0;
  // What the search asks for, and how one is added whom nobody is called like.
  virtual std::string Prompt() const { return "Type a name."; }
  virtual std::string HowToAdd() const { return "To add one, type last\r\nname [comma] first name and press [Enter]."; }
  // Whether the search drops when the focus comes.
  virtual bool Drops() const { return true; }
  // The statements for the ID, last and first name of those whose names begin as typed, the likeliest reading first;
  // for everybody where nothing is typed.
  virtual std::vector<data::Sql> Search(std::string_view typed) const = 0;
  // Whether the two are one name, in whatever order and case.
  virtual bool SameName(std::string_view name, std::string_view typed) const = 0;
  // 0 for none.
  virtual std::int32_t Current() const = 0;
  // Another person was chosen by his name.
  virtual void Take(std::int32_t id, const std::string& name) = 0;
  // A name was typed that nobody has; true when it was added and taken.
  virtual bool Enter(const std::string& typed) = 0;
  // The keys Insert and Delete, and the look-up list. True when the field shows another person then.
  virtual bool Edit() = 0;
  virtual bool Remove() = 0;
  virtual bool PickFromList() = 0;
};

// The search (`Name_List`) that drops below such a field when the focus comes to it, and takes the keyboard. What is
// typed narrows the list; Enter takes its first entry, leaving the search one that is named whole.
class NameSearch : public forms::DropPanel, private Rules {
 public:
  explicit NameSearch(const session::ScreenContext& context);

  forms::ComboBox dbcNameSearch;  // "Reed, Rita --- 7"
  forms::Label lblNameSearch;     // what the keys would do

  void Attach(SearchedField& field);

 protected:
  std::string Scope() const override { return {}; }
  void OnFocusLeft() override;
  // Fetches until everybody is there.
  bool OnIdle() override;

 private:
  void DropBelow(SearchedField& field);
  // False when it was refused, and the person told.
  bool Search(std::string_view typed);
  void Fetch(int count);
  bool Fetched() const { return rows_ == nullptr && waiting_.empty(); }
  void StopFetching();
  void Typed();
  std::string TypedName() const;
  void ShowHint();

  // The entry that was made current, or that is the only one with the typed name; nullptr for none.
  const forms::ListItem* Named() const;
  void Take(const forms::ListItem& item);
  void TakeBest();
  void AddTyped();
  void Pick(SearchedField& field);
  bool Edit(SearchedField& field);
  bool Remove(SearchedField& field);

  void Hide();
  void GoOn(SearchedField& field);
  // Back in the field, which drops nothing.
  void BackTo(SearchedField& field);
  bool OnBoxKey(SearchedField& field, forms::Key key);
  bool OnListKey(forms::Key key);

  SearchedField* field_ = nullptr;  // that is searched
  std::deque<data::Sql> waiting_;   // statements whose rows come behind those of `rows_`
  std::unique_ptr<session::Recordset> rows_;
  std::set<std::int32_t> listed_;
  std::int32_t awaited_ = 0;  // becomes current when he arrives
  bool unread_ = false;       // a search was refused since the focus came
  bool coming_back_ = false;
};

}  // namespace editing
