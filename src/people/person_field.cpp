#include "people/person_field.h"

#include "data/literal.h"
#include "data/persons.h"
#include "editing/editing_form.h"
#include "forms/text.h"
#include "people/name_entry.h"

namespace people {

using data::Literal;
using forms::Fitting;

PersonField::PersonField(const session::ScreenContext& context, const PersonKind& kind, forms::TextBox& field,
                         forms::Button& list_button, forms::Label& id)
    : SearchedField(field, list_button), Rules(context), kind_(kind), id_(id) {
  id_.Told = [this](const std::string& person) {
    return data::NameOfPerson(statements_, session::ToId(session::Value(person)));
  };
}

void PersonField::Show() {
  box.Text = data::NameOfPerson(statements_, Current());
}

std::int32_t PersonField::Current() const {
  return session::ToId(session::Value(id_.Caption.get()));
}

std::vector<forms::ListItem> PersonField::Names() {
  std::vector<forms::ListItem> names;
  const auto rows = data::PersonsOfType(statements_, kind_.type);
  last_name_size_ = rows->Fields()[1].defined_size;
  first_name_size_ = rows->Fields()[2].defined_size;
  for (; !rows->Eof(); rows->MoveNext()) {
    names.push_back({data::LastFirst(rows->Get(1), rows->Get(2)), session::ToId(rows->Get(0))});
  }
  return names;
}

void PersonField::Set(std::int32_t id, const std::string& name) {
  id_.Caption = std::to_string(id);
  box.Text = name;
}

bool PersonField::MayChange() const {
  return editing::EditingForm::MayModify(box) && HasRight(kind_.right, kind_.right_what);
}

void PersonField::Take(std::int32_t id, const std::string& name) {
  if (MayChange()) {
    Set(id, name);
  }
}

void PersonField::PickFromList() {
  if (!MayChange()) {
    return;
  }
  const auto picked = context_.screens.ShowList(kind_.list, {.selected = Current()});
  if (!picked.Chosen() || picked.id == Current()) {
    return;
  }
  Attempt([&] {
    const std::string name = data::NameOfPerson(statements_, picked.id);
    if (Confirm("Change " + std::string(kind_.whose) + " " + std::string(kind_.word) + " to [ " + name + " ] ?")) {
      Set(picked.id, name);
    }
  });
}

void PersonField::Edit() {
  if (!MayChange() || (Current() == 0 && !Confirm("Nothing to edit. Do you want to add one?"))) {
    return;
  }
  const auto edited = context_.screens.Edit(Current() == 0 ? session::Opening::New(kind_.record)
                                                           : session::Opening::Existing(kind_.record, Current()));
  if (edited.Saved()) {
    Attempt([&] { Set(edited.id, data::NameOfPerson(statements_, edited.id)); });
  }
}

void PersonField::Remove() {
  if (!id_.Caption->empty() && MayChange() &&
      Confirm("Remove " + std::string(kind_.whose) + " " + std::string(kind_.word) + " ?")) {
    id_.Caption = std::string();
    box.Text = std::string();
  }
}

// Typed as "Last, First", a new person is added at once.
bool PersonField::Enter(const std::string& typed) {
  if (!MayChange()) {
    return false;
  }
  const TypedName name = ParseName(typed);
  if (typed.find(',') == std::string::npos || name.last.empty()) {
    Tell("Type the last name [comma] first name and press [Enter] to enter a new " + std::string(kind_.word) + ".");
    return false;
  }
  return Attempt([&] {
    const std::int32_t id = statements_.Insert("PATable", {{"pLASNAM", Literal(Fitting(name.last, last_name_size_))},
                                                           {"pFIRNAM", Literal(Fitting(name.first, first_name_size_))},
                                                           {kind_.type, Literal("1")}});
    context_.session.RecordHandOff("pID", "PaTable", id);
    Set(id, data::NameOfPerson(statements_, id));
  });
}

}  // namespace people
