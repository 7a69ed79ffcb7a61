#include <algorithm>
#include <utility>

#include "data/shared_record_texts.h"
#include "editing/editing_form.h"
#include "insurance/link_removal.h"
#include "insurance/ucSelCoverage.h"

// What an employer offers, changed: plans linked to him and taken from him.
namespace insurance {

std::int32_t ucSelCoverage::NoneLink() const {
  const data::PlanLinks links(context_.session);
  const auto live = links.Using(data::SharedRecord::Employer, EmployerID);
  const auto none = std::ranges::find_if(live, &data::PlanLink::IsNone);
  if (none != live.end()) {
    return none->id;
  }
  const bool may_write = !context_.session.Connection().ReadOnly() && !editing::EditingForm::ReadOnly(*this);
  return may_write && HasEmployer() ? links.OpenNone(EmployerID) : 0;
}

bool ucSelCoverage::HasEmployer() const {
  return data::NameOf(context_.session, data::SharedRecord::Employer, EmployerID).has_value();
}

bool ucSelCoverage::MayLink() const {
  if (!editing::EditingForm::MayModify(*this)) {
    return false;
  }
  if (context_.session.Connection().ReadOnly()) {
    Tell("Read only, cannot modify.");
    return false;
  }
  return HasRight(kLinkRight, "employer and insurance plan links");
}

void ucSelCoverage::Link() {
  if (!MayLink()) {
    return;
  }
  const auto chosen = context_.screens.ShowList(session::lulGroupPlan, {.select_mode = true});
  if (chosen.Chosen()) {
    AddCoverage(chosen.id);
  }
}

bool ucSelCoverage::AddCoverage(std::int32_t plan) {
  const auto offer = ReadPlan(plan);
  if (!offer) {
    throw editing::Refusal("The selected plan is not there any more. Nothing was changed.");
  }
  if (offer->link.carrier == 0) {
    throw editing::Refusal(
        "The selected plan has no insurance company. Please enter its insurance company, or select a different plan.");
  }
  Load_Information();  // with what others have linked meanwhile
  const auto is_plan = [plan](const Offer& other) { return other.link.plan == plan; };
  const std::vector<Offer> live = ReadOffers();
  if (Highlight(is_plan) || std::ranges::any_of(live, is_plan)) {
    context_.user.Tell(
        "The selected plan is already linked to this employer. You may choose this plan, or click the Link button to "
        "select a different plan, from the previous screen.\r\nClick [OK] to return to the previous screen.",
        "Duplicate Plan", forms::Icon::Information);
    return false;
  }
  offers_.push_back(*offer);
  ShowOffers();
  Highlight(is_plan);
  TDBG.SetFocus();
  return true;
}

bool ucSelCoverage::Unsaved() const {
  return std::ranges::any_of(offers_, &Offer::IsNew);
}

// Who has linked the same plan meanwhile has made the link.
void ucSelCoverage::Save() {
  if (!Unsaved()) {
    return;
  }
  if (BeforeWriting) {
    BeforeWriting();
  }
  session::Transaction transaction(context_.session.Connection());
  if (!HasEmployer()) {
    throw editing::Refusal("This employer is not there any more. Nothing was changed.");
  }
  const data::PlanLinks links(context_.session);
  std::vector<Offer> saved = offers_;
  for (Offer& offer : saved) {
    if (offer.IsNew()) {
      const auto plan = ReadPlan(offer.link.plan);
      if (!plan || plan->link.carrier == 0) {
        throw editing::Refusal(ToldBack(offer.carrier + " " + offer.group_number) +
                               " cannot be linked any more. Please un-link it and try again.");
      }
      offer.link.employer = EmployerID;
      offer.link.carrier = plan->link.carrier;
      offer.link.id = links.Open(EmployerID, offer.link.carrier, offer.link.plan, offer.link.start);
    }
  }
  transaction.Commit();
  offers_ = std::move(saved);
  const int row = TDBG.Row;
  ShowOffers();
  TDBG.Row = row;
}

void ucSelCoverage::UnLink() {
  if (!MayLink()) {
    return;
  }
  const Offer* offer = Current();
  if (offer == nullptr) {
    context_.user.Tell("Please select the coverage link to be removed and try again.", "Remove Insurance Plan",
                       forms::Icon::Information);
  } else if (offer->IsNone()) {
    Tell("The 'No Insurance Coverage' link is required by the program and cannot be removed.",
         forms::Icon::Information);
  } else if (!offer->IsNew()) {
    UnLink(*offer);
  } else if (Confirm("This new coverage link has not yet been saved. Are you sure you want to remove it?")) {
    offers_.erase(offers_.begin() + TDBG.Row);
    ShowOffers();
  }
}

void ucSelCoverage::UnLink(const Offer& offer) {
  if (BeforeWriting) {
    BeforeWriting();
  }
  // The plan that takes its place may have been linked just now.
  const auto save = [this] {
    if (Unsaved()) {
      Save();
      if (Written) {
        Written();
      }
    }
  };
  if (RemovePlanLink(context_, offer.link.id, offer.carrier + " [" + offer.group_number + "]", save)) {
    if (Written) {
      Written();
    }
    Load_Information();
  }
}

}  // namespace insurance
