#include "people/employer_slot.h"

#include "data/literal.h"
#include "data/plan_links.h"
#include "editing/editing_form.h"
#include "forms/phone.h"
#include "forms/text.h"
#include "people/employer_slots.h"

namespace people {
namespace {

using data::Literal;
using data::PlanLinks;
using data::Sql;
using forms::Answer;
using session::Opening;
using session::RecordKind;

constexpr std::string_view kNoPlan = "-- No Insurance Coverage --";

// Those that are there, with a comma between.
std::string Listed(std::initializer_list<std::string> parts) {
  std::string text;
  for (const std::string& part : parts) {
    text += (text.empty() || part.empty() ? "" : ", ") + part;
  }
  return text;
}

}  // namespace

EmployerSlot::EmployerSlot(const session::ScreenContext& context, EmployerSlots& slots, std::size_t index,
                           const Parts& parts)
    : SearchedField(parts.employer, parts.link_employer),
      Rules(context),
      slots_(slots),
      number_(std::to_string(index + 1)),
      name_("Employer " + number_),
      parts_(parts) {
  parts_.link.AccessibleName = name_;
  parts_.link.Told = [this](const std::string& link) {
    return PlanLinks(context_.session).NamesOf(session::ToId(session::Value(link))).employer;
  };
}

std::string EmployerSlot::Prompt() const {
  return "Type name of employer " + number_;
}

std::int32_t EmployerSlot::Link() const {
  return session::ToId(session::Value(parts_.link.Caption.get()));
}

Sql EmployerSlot::Rows(const data::Statements& statements, const std::vector<std::int32_t>& links) {
  Sql ids;
  for (const std::int32_t link : links) {
    ids += (ids.Empty() ? Sql() : Sql(", ")) + Literal(link);
  }
  return Sql("SELECT ELTable.elID, ELTable.elEmpID, ELTable.elInsID, ELTable.elGroID, EmpTable.EmpNam, "
             "EmpTable.EmpAdd1, EmpTable.EmpAdd2, EmpTable.EmpCIT, EmpTable.EmpSTA, EmpTable.EmpZIP, EmpTable.EmpTEL, "
             "InsCoTable.InsCoNam, GroPlaTable.GroPlaGroNum, GroPlaTable.GroPlaNam FROM ((ELTable LEFT JOIN EmpTable "
             "ON ELTable.elEmpID = EmpTable.EmpInd") +
         statements.OfficeJoin(" and (ELTable.OfficeID = EmpTable.OfficeID) ") +
         ") LEFT JOIN InsCoTable ON ELTable.elInsID = InsCoTable.InsCoInd" +
         statements.OfficeJoin(" and (ELTable.OfficeID = InsCoTable.OfficeID) ") +
         ") LEFT JOIN GroPlaTable ON ELTable.elGroID = GroPlaTable.GroPlaInd" +
         statements.OfficeJoin(" and (ELTable.OfficeID = GroPlaTable.OfficeID) ") + " WHERE (ELTable.elID IN (" + ids +
         "))" + statements.Office(" and (ELTable.OfficeID = ", ") ");
}

void EmployerSlot::Show(const session::Recordset* row) {
  const auto text = [row](std::string_view column) {
    return row == nullptr ? std::string() : session::ToText((*row)[column]);
  };
  const auto id = [row](std::string_view column) { return row == nullptr ? 0 : session::ToId((*row)[column]); };
  employer_ = id("elEmpID");
  carrier_ = id("elInsID");
  plan_ = id("elGroID");
  employer_name_ = text("EmpNam");
  std::string plan = text("GroPlaNam");
  if (row != nullptr && plan.empty()) {
    plan = carrier_ == 0 && plan_ == 0 ? kNoPlan : "Group " + text("GroPlaGroNum");
  }
  parts_.plan.Text = plan;
  parts_.plan_details.Caption = Listed({text("InsCoNam"), text("GroPlaGroNum")});
  parts_.employer_details.Caption =
      Listed({text("EmpAdd1"), text("EmpAdd2"), text("EmpCIT"),
              std::string(forms::Trim(text("EmpSTA") + " " + text("EmpZIP"))), forms::FormatPhone(text("EmpTEL"))});
  for (forms::Label* details : {&parts_.employer_details, &parts_.plan_details}) {
    details->Visible = !details->Caption->empty();
  }
  box.Text = row != nullptr ? employer_name_ + " / " + plan
             : Link() == 0  ? std::string()
                            : "Plan link " + std::to_string(Link()) + " is not there.";
}

std::vector<Sql> EmployerSlot::Search(std::string_view typed) const {
  return {Sql("SELECT EmpInd AS ID, EmpNam, Null AS Rest FROM EmpTable WHERE (EmpInd<>0)") +
          (typed.empty() ? Sql() : " AND (EmpNam LIKE " + data::LikeBeginning(typed) + ")") + statements_.Office() +
          " ORDER BY EmpNam"};
}

bool EmployerSlot::SameName(std::string_view name, std::string_view typed) const {
  return forms::EqualsIgnoringCase(forms::Trim(name), forms::Trim(typed));
}

bool EmployerSlot::MayLink() const {
  return editing::EditingForm::MayModify(box) && HasRight("LINK-EMP-INS", "employer and insurance plan links");
}

bool EmployerSlot::MayEdit(std::string_view what) const {
  return editing::EditingForm::MayModify(box) && HasRight("EDIT-EMP-INS", what);
}

void EmployerSlot::Take(std::int32_t id, const std::string& /*name*/) {
  if (MayLink()) {
    LinkEmployer(id);
  }
}

bool EmployerSlot::Enter(const std::string& typed) {
  if (!MayLink() || !Confirm("Enter as employer for " + slots_.Whose() + "?")) {
    return false;
  }
  const std::int32_t employer = NewEmployer(typed);
  return employer != 0 && LinkEmployer(employer);
}

bool EmployerSlot::Edit() {
  EditEmployer();
  return false;
}

bool EmployerSlot::Remove() {
  UnLink();
  return false;
}

bool EmployerSlot::PickFromList() {
  if (!MayLink()) {
    return false;
  }
  if (Link() != 0) {
    return Replace();
  }
  const std::int32_t employer = ChooseEmployer();
  return employer != 0 && LinkEmployer(employer);
}

std::int32_t EmployerSlot::ChooseEmployer() {
  using End = session::SearchOutcome::End;
  const auto found =
      context_.screens.Search({.list = session::SearchList::Employers, .offer = [this](const std::string&) {
                                 return "Enter as employer for " + slots_.Whose() + "?";
                               }});
  return found.end == End::New ? NewEmployer(found.name) : found.Chosen() ? found.id : 0;
}

std::int32_t EmployerSlot::NewEmployer(const std::string& name) {
  const auto added =
      context_.screens.Edit({.kind = RecordKind::Employer, .mode = Opening::Mode::New, .typed_name = name});
  return added.Saved() ? added.id : 0;
}

bool EmployerSlot::Set(std::int32_t link) {
  if (const EmployerSlot* other = slots_.Naming(link); other != nullptr && other != this) {
    Tell("This is " + other->SlotName() + " of " + slots_.Whose() + " already.", forms::Icon::Information);
    return false;
  }
  parts_.link.Caption = std::to_string(link);
  slots_.Show();
  return true;
}

bool EmployerSlot::LinkEmployer(std::int32_t employer) {
  bool linked = false;
  Attempt([&] { linked = Set(PlanLinks(context_.session).OpenNone(employer)); });
  return linked;
}

void EmployerSlot::EditEmployer() {
  if (employer_ == 0) {
    Tell("There is nothing to edit. Please link an employer " + number_ + " to this patient and try again.");
  } else if (MayEdit("employers") &&
             Confirm("Changing employer info can affect insurance coverage for other family members. Update this "
                     "employer?",
                     "Employer") &&
             context_.screens.Edit(Opening::Existing(RecordKind::Employer, employer_)).Saved()) {
    Attempt([this] { slots_.ShowMoved(); });
  }
}

void EmployerSlot::UnLink() {
  if (Link() == 0) {
    Tell("There is nothing to un-link. Please link an employer " + number_ + " to this patient and try again.");
    return;
  }
  if (!MayLink()) {
    return;
  }
  const Answer answer = context_.user.Ask(
      {.text = "Before un-linking this Employer, you can select a new Employer to take its place.\r\nClick 'Replace' "
               "to select a replacement Employer from the list.\r\nClick 'Un-Link' to Un-Link the Employer without "
               "replacing.",
       .title = "Delete Employer",
       .buttons = {Answer::Replace, Answer::UnLink, Answer::Cancel},
       .icon = forms::Icon::Question,
       .default_answer = Answer::Cancel});
  if (answer == Answer::Replace) {
    Replace();
  } else if (answer == Answer::UnLink &&
             Confirm("Un-linking an employer can affect coverage for other family members. All current changes will "
                     "be saved. Are you sure you want to un-link " +
                         ToldEmployer() + "?",
                     "Un-link " + name_)) {
    Clear();
  }
}

void EmployerSlot::Clear() {
  parts_.link.Caption = "0";
  Show(nullptr);
  slots_.Save();
}

std::string EmployerSlot::ToldEmployer() const {
  return employer_name_.empty() ? name_ : employer_name_;
}

// What he holds goes on through the other employer, who offers the plan from then on.
bool EmployerSlot::Replace() {
  const std::int32_t employer = ChooseEmployer();
  if (employer == 0 || employer == employer_) {
    return false;
  }
  bool replaced = false;
  const bool done = Attempt([&] {
    const PlanLinks links(context_.session);
    const bool insured = carrier_ != 0 || plan_ != 0;
    if (!Confirm((insured ? "Insurance coverage through " + ToldEmployer() + " will go on through the new employer. "
                          : std::string()) +
                     "All current changes will be saved. Are you sure you want to replace " + ToldEmployer() + "?",
                 "Replace " + name_)) {
      return;
    }
    replaced = Set(insured ? links.Open(employer, carrier_, plan_, forms::AtMidnight(context_.session.Today()))
                           : links.OpenNone(employer));
  });
  return done && replaced && slots_.Save();
}

void EmployerSlot::LinkPlan() {
  if (employer_ == 0) {
    Tell("Please link an employer " + number_ + " to this patient and try again.");
    return;
  }
  if (!MayLink()) {
    return;
  }
  const std::int32_t chosen = context_.screens.SelectCoverage({.employer = employer_,
                                                               .current = Link(),
                                                               .offers_none = true,
                                                               .subscriber = slots_.Person(),
                                                               .patient = slots_.Person()});
  Attempt([&] {
    slots_.ShowMoved();
    if (chosen != 0 && chosen != Link() && MayHold(chosen)) {
      Set(chosen);
    }
  });
}

bool EmployerSlot::MayHold(std::int32_t link) const {
  const auto row = PlanLinks(context_.session).Get(link);
  const bool ends_coverage = row && row->IsNone() && slots_.StoresPlan(*this);
  return !ends_coverage ||
         context_.user.Ask({.text = "Un-linking this insurance plan will remove insurance\r\ncoverage from both the "
                                    "subscriber and covered family members.\r\nAre you sure you want to un-link it?",
                            .title = "Insurance Plan",
                            .buttons = forms::kYesNo,
                            .icon = forms::Icon::Exclamation,
                            .default_answer = Answer::No}) == Answer::Yes;
}

void EmployerSlot::EditPlan() {
  if (employer_ == 0) {
    Tell("There is nothing to edit. Please link an employer " + number_ + " to this patient and try again.");
  } else if (plan_ == 0) {
    Tell("This patient does not have coverage for employer " + employer_name_ +
         ". Please select an insurance plan and try again.");
  } else if (MayEdit("insurance plans") &&
             Confirm("Changing insurance plan info can affect insurance coverage for other family members.\r\nUpdate "
                     "this insurance plan?",
                     "Insurance Plan") &&
             context_.screens.Edit(Opening::Existing(RecordKind::GroupPlan, plan_)).Saved()) {
    Attempt([this] { slots_.Show(); });
  }
}

}  // namespace people
