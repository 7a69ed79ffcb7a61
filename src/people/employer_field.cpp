#include "people/employer_field.h"

#include "data/employer_places.h"
#include "data/literal.h"
#include "data/plan_links.h"
#include "editing/editing_form.h"
#include "forms/phone.h"
#include "forms/text.h"

namespace people {

using session::Opening;
using session::RecordKind;
using session::SearchOutcome;
using session::ToText;

namespace {

std::int32_t LinkOf(const std::string& label) {
  return session::ToId(session::Value(label));
}

// One behind the other, with the blanks of those that are there.
std::string Joined(std::initializer_list<std::string> parts) {
  std::string text;
  for (const std::string& part : parts) {
    text += (text.empty() || part.empty() ? "" : " ") + part;
  }
  return text;
}

}  // namespace

EmployerField::EmployerField(const session::ScreenContext& context, const Parts& parts,
                             const data::RecordBinding& record)
    : Rules(context), parts_(parts), record_(record) {
  Adopt(parts_.box);
  Adopt(parts_.list);
  Adopt(parts_.remove);
  parts_.box.Leave = [this] { TakeTyped(); };
  parts_.list.Click = [this] {
    Search({});
    parts_.box.SetFocus();
  };
  parts_.remove.Click = [this] {
    Remove();
    parts_.box.SetFocus();
  };
  parts_.link.AccessibleName = "Employer";
  parts_.link.Told = [this](const std::string& link) {
    return link == parts_.link.Caption.get() ? name_ : data::PlanLinks(context_.session).NamesOf(LinkOf(link)).employer;
  };
}

void EmployerField::Show() {
  const std::int32_t id = LinkOf(parts_.link.Caption);
  if (MustOpenLink()) {
    employer_ = -id;
  } else {
    const auto link = id == 0 ? std::nullopt : data::PlanLinks(context_.session).Get(id);
    employer_ = link ? link->employer : 0;
  }
  std::array<std::string, 3> details;
  std::string name;
  if (employer_ != 0) {
    const auto row = statements_.Select("select * from empTable where EMPIND = " + data::Literal(employer_) +
                                        statements_.Office(" and (OfficeID = ", ")"));
    if (!row->Eof()) {
      const auto text = [&row](std::string_view column) { return ToText((*row)[column]); };
      name = text("EmpNam");
      details = {Joined({text("EmpAdd1"), text("EmpAdd2")}), Joined({text("EmpCIT"), text("EmpSTA"), text("EmpZIP")}),
                 forms::FormatPhone(text("EmpTEL"))};
    }
  }
  name_ = name;
  parts_.box.Text = name;
  for (std::size_t i = 0; i < details.size(); ++i) {
    parts_.details.at(i).Caption = details.at(i);
    parts_.details.at(i).Visible = !details.at(i).empty();
  }
  parts_.remove.Enabled = id != 0;
}

bool EmployerField::MustOpenLink() const {
  return LinkOf(parts_.link.Caption) < 0;
}

void EmployerField::OpenLink() {
  parts_.link.Caption = std::to_string(data::PlanLinks(context_.session).OpenNone(-LinkOf(parts_.link.Caption)));
}

bool EmployerField::OnKey(forms::Key key) {
  const bool removes = key == forms::Key::Delete && !Typed();
  if (key == forms::Key::F9) {
    Search({});
  } else if (removes) {
    Remove();
  } else {
    return false;
  }
  parts_.box.SetFocus();
  return true;
}

// What is not taken is not left standing beside the details of the other.
void EmployerField::TakeTyped() {
  if (!Typed()) {
    return;
  }
  const std::string typed(forms::Trim(parts_.box.Text.get()));
  parts_.box.Text = name_;
  if (!(typed.empty() ? Remove() : typed == name_ || Search(typed))) {
    parts_.box.SetFocus();
  }
}

bool EmployerField::MayReplace() const {
  if (!editing::EditingForm::MayModify(*this) || !HasRight("LINK-EMP-INS", "employer and insurance plan links")) {
    return false;
  }
  bool insured = false;
  const bool read = Attempt([&] {
    const auto link =
        MustOpenLink() ? std::nullopt : data::PlanLinks(context_.session).Get(LinkOf(parts_.link.Caption));
    insured = link && !link->IsNone();
  });
  if (insured) {
    Tell("This person has insurance coverage through " + name_ + ". Please change the employer on the family screen.",
         forms::Icon::Exclamation);
  }
  return read && !insured;
}

bool EmployerField::Search(const std::string& typed) {
  if (!MayReplace()) {
    return false;
  }
  const SearchOutcome found = context_.screens.Search(
      {.list = session::SearchList::Employers, .typed = typed, .offer = [this](const std::string&) {
         return "Enter as employer for " + Whose();
       }});
  if (found.end == SearchOutcome::End::New) {
    return Add(found.name);
  }
  return found.Chosen() &&
         (found.id == employer_ || (Confirm("Change Employer to [ " + found.name + " ] ?") && Take(found.id)));
}

bool EmployerField::Add(const std::string& name) {
  if (!HasRight("EDIT-EMP-INS", "employers")) {
    return false;
  }
  const auto added =
      context_.screens.Edit({.kind = RecordKind::Employer, .mode = Opening::Mode::New, .typed_name = name});
  return added.Saved() && Take(added.id);
}

// Nothing is written before the save: a negative number stands for the link that it opens.
bool EmployerField::Take(std::int32_t employer) {
  bool taken = false;
  Attempt([&] {
    if (const std::size_t place = OtherPlaceOf(employer); place != 0) {
      Tell("This is Employer " + std::to_string(place) + " of " + Whose() + " already.", forms::Icon::Information);
      return;
    }
    parts_.link.Caption = std::to_string(-employer);
    Show();
    taken = true;
  });
  return taken;
}

std::size_t EmployerField::OtherPlaceOf(std::int32_t employer) const {
  const data::PlanLinks links(context_.session);
  for (std::size_t place = 1; place < data::kEmployerPlaces.size(); ++place) {
    const std::int32_t id = session::ToId(record_.Column(data::kEmployerPlaces.at(place).Text()));
    const auto link = id == 0 ? std::nullopt : links.Get(id);
    if (link && link->employer == employer) {
      return place + 1;
    }
  }
  return 0;
}

bool EmployerField::Remove() {
  return LinkOf(parts_.link.Caption) != 0 && MayReplace() && Confirm("Remove this employer?") && Attempt([this] {
           parts_.link.Caption = std::string();
           Show();
         });
}

}  // namespace people
