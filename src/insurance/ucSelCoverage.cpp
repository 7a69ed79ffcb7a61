#include "insurance/ucSelCoverage.h"

#include <algorithm>
#include <utility>

#include "data/literal.h"
#include "data/persons.h"
#include "editing/editing_form.h"
#include "forms/form.h"
#include "forms/text.h"

namespace insurance {
namespace {

using data::Literal;
using data::Sql;

constexpr std::string_view kTitle = "Insurance Plan";

std::string Day(const session::Value& value) {
  const auto time = session::ToDateTime(value);
  return time ? forms::FormatDashed(forms::DateOf(*time)) : std::string();
}

std::string Number(std::int32_t id) {
  return id == 0 ? std::string() : std::to_string(id);
}

}  // namespace

ucSelCoverage::ucSelCoverage(const session::ScreenContext& context) : Rules(context), layout_(context.session, TDBG) {
  Register();
  Wire();
}

void ucSelCoverage::Register() {
  TB.Add("LINK", "Link", {}).ToolTip = " Add Additional Insurance Plan to employer ";
  TB.Add("EDIT", "Edit", {}).ToolTip = " Edit Insurance Plan ";
  TB.Add("UNLINK", "UnLink", {}).ToolTip = " Remove Insurance Plan from employer ";
  TB.Add("OKAY", "Okay", {}).ToolTip = " Accept highlighted plan and close ";
  TB.Add("CLOSE", "Close", {}).ToolTip = " Close without making a selection ";
  TB["CLOSE"].CausesValidation = false;
  Add("TB", TB);
  Add("lblPlans", lblPlans);
  Add("TDBG", TDBG);
  Add("SB", SB);
  lblPlans.Caption = "P&lans offered";
  TDBG.Heading = &lblPlans;
  TDBG.ToolTip = "F9 links a plan to the employer, Insert edits the highlighted one, Delete un-links it";
  TDBG.EmptyText = "This employer offers no insurance plan.";
  TDBG.Columns =
      std::vector<forms::GridColumn>{{.key = "InsCoNam", .caption = "Insurance Company", .width = 220},
                                     {.key = "GroPlaGroNum", .caption = "Group #", .width = 120},
                                     {.key = "GroPlaNam", .caption = "Plan Name", .width = 220},
                                     {.key = "elEmpID", .caption = "Emp ID", .width = 60, .visible = false},
                                     {.key = "elInsID", .caption = "Ins ID", .width = 60, .visible = false},
                                     {.key = "elGroID", .caption = "Grp ID", .width = 60, .visible = false},
                                     {.key = "elStaDat", .caption = "Start Date", .width = 90, .visible = false},
                                     {.key = "elEndDat", .caption = "End Date", .width = 90, .visible = false},
                                     {.key = "elID", .caption = "Record #", .width = 70, .visible = false}};
}

void ucSelCoverage::Wire() {
  TB.ItemClicked = [this](const std::string& key) { Clicked(key); };
  TDBG.KeyDown = [this](forms::Key key) { return OnGridKey(key); };
  TDBG.DblClick = [this] { Clicked(Buttons("OKAY").Visible ? "OKAY" : "EDIT"); };
}

void ucSelCoverage::Clicked(const std::string& key) {
  if (key == "LINK") {
    Link();
  } else if (key == "EDIT") {
    EditPlan();
  } else if (key == "UNLINK") {
    UnLink();
  } else if (key == "OKAY") {
    Accept();
  } else if (Closed) {
    Closed();
  }
}

bool ucSelCoverage::OnGridKey(forms::Key key) {
  const char* const button = key == forms::Key::F9       ? "LINK"
                             : key == forms::Key::Insert ? "EDIT"
                             : key == forms::Key::Delete ? "UNLINK"
                                                         : nullptr;
  if (button != nullptr && Buttons(button).Visible) {
    Clicked(button);
  }
  return button != nullptr;
}

void ucSelCoverage::OnLoad() {
  layout_.Restore(Owner()->Name());
  if (ForFamilyMember() && Highlight([this](const Offer& offer) { return offer.link.id == Subscriber_elID; })) {
    context_.user.Tell("For your reference, " + SubscriberName() + "'s insurance plan has been highlighted.",
                       std::string(kTitle), forms::Icon::Information);
  }
}

void ucSelCoverage::Load_Information() {
  const data::PlanLink at = Current() != nullptr ? Current()->link : data::PlanLink{.id = Subscriber_elID};
  const std::int32_t none = EmployerID == 0 ? 0 : NoneLink();
  std::vector<Offer> offers = ReadOffers();
  for (const Offer& offer : offers_) {
    const auto is_plan = [&](const Offer& live) { return live.link.plan == offer.link.plan; };
    if (offer.IsNew() && std::ranges::none_of(offers, is_plan)) {
      offers.push_back(ReadPlan(offer.link.plan).value_or(offer));
    }
  }
  if (ShowNone && none != 0) {
    offers.insert(offers.begin(), {.link = {.id = none, .employer = EmployerID}, .carrier = "( none )"});
  }
  if (HideElID != 0) {
    std::erase_if(offers, [this](const Offer& offer) { return offer.link.id == HideElID; });
  }
  offers_ = std::move(offers);
  ShowOffers();
  if (at.id != 0 || at.plan != 0) {
    Highlight([&at](const Offer& offer) { return at.id != 0 ? offer.link.id == at.id : offer.link.plan == at.plan; });
  }
}

std::vector<ucSelCoverage::Offer> ucSelCoverage::ReadOffers() const {
  std::vector<Offer> offers;
  if (EmployerID == 0) {
    return offers;
  }
  for (const auto row = statements_.Select(
           Sql("SELECT InsCoTable.InsCoNam, GroPlaTable.GroPlaGroNum, GroPlaTable.GroPlaNam, ELTable.elEmpID, "
               "ELTable.elInsID, ELTable.elGroID, ELTable.elStaDat, ELTable.elEndDat, ELTable.elFla, ELTable.elID FROM "
               "(ELTable INNER JOIN InsCoTable ON ELTable.elInsID = InsCoTable.InsCoInd") +
           statements_.OfficeJoin(" and (ELTable.OfficeID = InsCoTable.OfficeID) ") +
           ") INNER JOIN GroPlaTable ON ELTable.elGroID = GroPlaTable.GroPlaInd" +
           statements_.OfficeJoin(" and (ELTable.OfficeID = GroPlaTable.OfficeID) ") + " WHERE (ELTable.elEmpID=" +
           Literal(EmployerID) + ") AND (ELTable.elFla=0) AND (ELTable.elInsID<>0) AND (ELTable.elGroID<>0)" +
           statements_.Office(" and (ELTable.OfficeID = ", ") ") +
           " ORDER BY InsCoTable.InsCoNam, GroPlaTable.GroPlaGroNum, GroPlaTable.GroPlaNam");
       !row->Eof(); row->MoveNext()) {
    const auto text = [&](std::size_t field) { return session::ToText(row->Get(field)); };
    const auto id = [&](std::size_t field) { return session::ToId(row->Get(field)); };
    offers.push_back({.link = {.id = id(9), .employer = id(3), .carrier = id(4), .plan = id(5), .start = row->Get(6)},
                      .end = row->Get(7),
                      .carrier = text(0),
                      .group_number = text(1),
                      .plan = text(2)});
  }
  return offers;
}

std::optional<ucSelCoverage::Offer> ucSelCoverage::ReadPlan(std::int32_t plan) const {
  const auto row = statements_.Select(
      Sql("SELECT GroPlaTable.GroPlaGroNum, GroPlaTable.GroPlaNam, InsCoTable.InsCoNam, InsCoTable.InsCoInd, "
          "GroPlaTable.GroPlaInd FROM GroPlaTable LEFT JOIN InsCoTable ON GroPlaTable.GroPlaInsID = "
          "InsCoTable.InsCoInd") +
      statements_.OfficeJoin(" and (GroPlaTable.OfficeID = InsCoTable.OfficeID) ") + " WHERE (GroPlaTable.GroPlaInd=" +
      Literal(plan) + ")" + statements_.Office(" and (GroPlaTable.OfficeID = ", ") "));
  if (row->Eof()) {
    return std::nullopt;
  }
  return Offer{.link = {.employer = EmployerID,
                        .carrier = session::ToId(row->Get(3)),
                        .plan = plan,
                        .start = forms::AtMidnight(context_.session.Today())},
               .carrier = session::ToText(row->Get(2)),
               .group_number = session::ToText(row->Get(0)),
               .plan = session::ToText(row->Get(1))};
}

void ucSelCoverage::ShowOffers() {
  const auto rows = std::make_shared<forms::TableRows>();
  int plans = 0;
  int unsaved = 0;
  for (const Offer& offer : offers_) {
    rows->rows.push_back({.cells = {offer.carrier, offer.group_number, offer.plan, Number(offer.link.employer),
                                    Number(offer.link.carrier), Number(offer.link.plan), Day(offer.link.start),
                                    Day(offer.end), Number(offer.link.id)}});
    plans += offer.IsNone() ? 0 : 1;
    unsaved += offer.IsNew() ? 1 : 0;
  }
  TDBG.Row = -1;
  TDBG.Rows = rows;
  SB.Caption = std::to_string(plans) + (plans == 1 ? " plan" : " plans") +
               (unsaved == 0 ? std::string() : ", " + std::to_string(unsaved) + " not saved yet");
}

const ucSelCoverage::Offer* ucSelCoverage::Current() const {
  const int row = TDBG.Row;
  return row >= 0 && row < static_cast<int>(offers_.size()) ? &offers_[static_cast<std::size_t>(row)] : nullptr;
}

bool ucSelCoverage::Highlight(const std::function<bool(const Offer&)>& which) {
  const auto found = std::ranges::find_if(offers_, which);
  if (found != offers_.end()) {
    TDBG.Row = static_cast<int>(found - offers_.begin());
  }
  return found != offers_.end();
}

std::int32_t ucSelCoverage::Selected_elID() const {
  return Current() == nullptr ? 0 : Current()->link.id;
}

std::int32_t ucSelCoverage::CarrierID() const {
  return Current() == nullptr ? 0 : Current()->link.carrier;
}

std::int32_t ucSelCoverage::GroupID() const {
  return Current() == nullptr ? 0 : Current()->link.plan;
}

bool ucSelCoverage::MayEdit() const {
  return editing::EditingForm::MayModify(*this) && HasRight("EDIT-EMP-INS", "insurance plans");
}

void ucSelCoverage::Accept() {
  const Offer* offer = Current();
  if (offer == nullptr) {
    Tell("Please select an insurance plan.", forms::Icon::Information);
    TDBG.SetFocus();
    return;
  }
  if (!offer->IsNew()) {
    const auto link = data::PlanLinks(context_.session).Get(offer->link.id);
    if (!link || !link->live) {
      const std::string gone = ToldBack(offer->carrier + " " + offer->group_number);
      Load_Information();
      throw editing::Refusal("This employer does not offer " + gone + " any more. Please select another plan.");
    }
  }
  TellOfOther(*offer);
  if (Accepted) {
    Accepted();
  }
}

void ucSelCoverage::TellOfOther(const Offer& offer) const {
  if (!ForFamilyMember() || Subscriber_elID == 0 || offer.link.id == Subscriber_elID) {
    return;
  }
  const std::string name = SubscriberName();
  context_.user.Tell("Selecting or modifying a different insurance plan will not affect " + name +
                         "'s insurance coverage. \r\nTo select a different insurance plan for " + name +
                         ", click the link icon next to the Plan field in the Patient Information Screen.",
                     std::string(kTitle), forms::Icon::Information);
}

std::string ucSelCoverage::SubscriberName() const {
  const auto row = statements_.Select("SELECT pFIRNAM, pLASNAM FROM PATable WHERE pID=" + Literal(SubscriberID) +
                                      statements_.Office());
  const std::string name =
      row->Eof() ? std::string() : session::ToText(row->Get(0)) + " " + session::ToText(row->Get(1));
  const std::string told(forms::Trim(name));
  return told.empty() ? data::PersonByNumber(SubscriberID) : told;
}

void ucSelCoverage::EditPlan() {
  const Offer* offer = Current();
  if (offer == nullptr || offer->IsNone()) {
    Tell("Please select the insurance plan to be edited and try again.", forms::Icon::Information);
  } else if (MayEdit()) {
    TellOfOther(*offer);
    const auto outcome =
        context_.screens.Edit(session::Opening::Existing(session::RecordKind::GroupPlan, offer->link.plan));
    if (outcome.Saved() || outcome.Deleted()) {
      Load_Information();
    }
  }
}

}  // namespace insurance
