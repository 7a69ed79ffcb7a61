#include "people/employer_field.h"

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

EmployerField::EmployerField(const session::ScreenContext& context, const Parts& parts)
    : Rules(context), parts_(parts) {
  Adopt(parts_.box);
  Adopt(parts_.list);
  Adopt(parts_.remove);
  parts_.box.ReadOnly = true;
  parts_.list.Click = [this] { Search(); };
  parts_.remove.Click = [this] { Remove(); };
  parts_.link.AccessibleName = "Employer";
  parts_.link.Told = [this](const std::string& link) {
    return data::PlanLinks(context_.session).NamesOf(LinkOf(link)).employer;
  };
}

void EmployerField::Show() {
  const std::int32_t id = LinkOf(parts_.link.Caption);
  const auto link = id == 0 ? std::nullopt : data::PlanLinks(context_.session).Get(id);
  employer_ = link ? link->employer : 0;
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
  parts_.box.Text = name;
  for (std::size_t i = 0; i < details.size(); ++i) {
    parts_.details.at(i).Caption = details.at(i);
    parts_.details.at(i).Visible = !details.at(i).empty();
  }
  parts_.remove.Enabled = id != 0;
}

bool EmployerField::OnKey(forms::Key key) {
  switch (key) {
    case forms::Key::F9:
      Search();
      return true;
    case forms::Key::Delete:
      Remove();
      return true;
    default:
      return false;
  }
}

bool EmployerField::MayReplace() const {
  if (!editing::EditingForm::MayModify(*this)) {
    return false;
  }
  bool insured = false;
  const bool read = Attempt([&] {
    const auto link = data::PlanLinks(context_.session).Get(LinkOf(parts_.link.Caption));
    insured = link && !link->IsNone();
  });
  if (insured) {
    Tell("This person has insurance coverage through " + parts_.box.Text.get() +
             ". Please change the employer on the family screen.",
         forms::Icon::Exclamation);
  }
  return read && !insured;
}

void EmployerField::Search() {
  if (!MayReplace()) {
    return;
  }
  const SearchOutcome found =
      context_.screens.Search({.list = session::SearchList::Employers,
                               .offer = [this](const std::string&) { return "Enter as employer for " + Whose(); }});
  if (found.end == SearchOutcome::End::New) {
    Add(found.name);
  } else if (found.Chosen() && found.id != employer_ && Confirm("Change Employer to [ " + found.name + " ] ?")) {
    Take(found.id);
  }
  parts_.box.SetFocus();
}

void EmployerField::Add(const std::string& name) {
  const auto added =
      context_.screens.Edit({.kind = RecordKind::Employer, .mode = Opening::Mode::New, .typed_name = name});
  if (added.Saved()) {
    Take(added.id);
  }
}

void EmployerField::Take(std::int32_t employer) {
  Attempt([&] {
    parts_.link.Caption = std::to_string(data::PlanLinks(context_.session).OpenNone(employer));
    Show();
  });
}

void EmployerField::Remove() {
  if (LinkOf(parts_.link.Caption) != 0 && MayReplace() && Confirm("Remove this employer?")) {
    parts_.link.Caption = std::string();
    Attempt([this] { Show(); });
  }
  parts_.box.SetFocus();
}

}  // namespace people
