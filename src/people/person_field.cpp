#include "people/person_field.h"

#include "data/literal.h"
#include "data/persons.h"
#include "editing/editing_form.h"
#include "forms/text.h"
#include "people/duplicate_person.h"
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

std::string PersonField::Help() const {
  const std::string what(kind_.word);
  return "Type the last name [comma] first name and press [Enter] to enter a new " + what + ".////To add a new " +
         what + ", type in " + what + " name and press [Enter] Key.////Press [Esc] key to close search window.";
}

void PersonField::Show() {
  box.Text = data::NameOfPerson(statements_, Current());
}

std::int32_t PersonField::Current() const {
  return session::ToId(session::Value(id_.Caption.get()));
}

std::vector<data::Sql> PersonField::Search(std::string_view typed) const {
  std::vector<data::Sql> statements;
  if (typed.empty()) {
    statements.push_back(data::PersonsOfType(statements_, kind_.type, {}));
  } else {
    for (const data::Sql& named : NameConditions(context_.session, typed)) {
      statements.push_back(data::PersonsOfType(statements_, kind_.type, named));
    }
  }
  return statements;
}

bool PersonField::SameName(std::string_view name, std::string_view typed) const {
  const TypedName one = ParseName(name);
  const TypedName other = ParseName(typed);
  return forms::EqualsIgnoringCase(one.last, other.last) && forms::EqualsIgnoringCase(one.first, other.first);
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

bool PersonField::PickFromList() {
  if (!MayChange()) {
    return false;
  }
  const auto picked = context_.screens.ShowList(kind_.list, {.selected = Current()});
  if (!picked.Chosen() || picked.id == Current()) {
    return false;
  }
  std::string name;
  const bool agreed =
      Attempt([&] { name = data::NameOfPerson(statements_, picked.id); }) &&
      Confirm("Change " + std::string(kind_.whose) + " " + std::string(kind_.word) + " to [ " + name + " ] ?");
  if (agreed) {
    Set(picked.id, name);
  }
  return agreed;
}

bool PersonField::Edit() {
  if (!MayChange() || (Current() == 0 && !Confirm("Nothing to edit. Do you want to add one?"))) {
    return false;
  }
  return EditPerson(Current() == 0 ? session::Opening::New(kind_.record)
                                   : session::Opening::Existing(kind_.record, Current()));
}

bool PersonField::EditPerson(const session::Opening& opening) {
  const auto edited = context_.screens.Edit(opening);
  return (edited.Saved() || edited.Deleted()) &&
         Attempt([&] { Set(edited.id, data::NameOfPerson(statements_, edited.id)); });
}

bool PersonField::Remove() {
  const bool agreed = !id_.Caption->empty() && MayChange() &&
                      Confirm("Remove " + std::string(kind_.whose) + " " + std::string(kind_.word) + " ?");
  if (agreed) {
    id_.Caption = std::string();
    box.Text = std::string();
  }
  return agreed;
}

// Typed as "Last, First", a new person is added at once, unless he is there already.
bool PersonField::Enter(const std::string& typed) {
  if (!MayChange()) {
    return false;
  }
  const TypedName name = ParseName(typed);
  if (typed.find(',') == std::string::npos || name.last.empty()) {
    Tell("Type the last name [comma] first name and press [Enter] to enter a new " + std::string(kind_.word) + ".");
    return false;
  }
  DuplicatePerson duplicate(context_);
  bool adds = false;
  if (!Attempt([&] { adds = duplicate.MayAdd({.last = name.last, .first = name.first}); }) || !adds) {
    return duplicate.Instead() != 0 && EditPerson({.kind = kind_.record,
                                                   .mode = session::Opening::Mode::Existing,
                                                   .id = duplicate.Instead(),
                                                   .joins = true});
  }
  return Attempt([&] {
    const auto names =
        statements_.Select("SELECT pLASNAM, pFIRNAM FROM PATable WHERE pID=0" + statements_.Office())->Fields();
    const std::int32_t id =
        statements_.Insert("PATable", {{"pLASNAM", Literal(Fitting(name.last, names[0].defined_size))},
                                       {"pFIRNAM", Literal(Fitting(name.first, names[1].defined_size))},
                                       {kind_.type, Literal("1")}});
    context_.session.RecordHandOff("pID", "PaTable", id);
    Set(id, data::NameOfPerson(statements_, id));
  });
}

}  // namespace people
