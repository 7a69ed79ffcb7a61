#include "editing/replacement.h"

#include <optional>

#include "data/shared_record_texts.h"
#include "data/shared_records.h"
#include "editing/rules.h"

namespace editing {
namespace {

using data::SharedRecord;

session::LookUpListTypes ListOf(SharedRecord kind) {
  switch (kind) {
    case SharedRecord::Employer:
      return session::lulEmployer;
    case SharedRecord::Carrier:
      return session::lulInsuranceCo;
    case SharedRecord::GroupPlan:
      return session::lulGroupPlan;
    case SharedRecord::PlanLink:
      return session::lulInsGroup;
    case SharedRecord::Pharmacy:
      break;
  }
  return session::lulPharmacy;
}

// Nothing when the person chose none.
std::optional<std::int32_t> Choose(const session::ScreenContext& context, SharedRecord kind, std::int32_t replaced,
                                   const std::string& name) {
  const SharedRecordWords words = WordsOf(kind);
  for (;;) {
    const session::ListOutcome chosen =
        context.screens.ShowList(ListOf(kind), {.title = "Select Replacement for " + name, .allow_delete = false});
    if (!chosen.Chosen()) {
      return std::nullopt;
    }
    if (chosen.id != replaced) {
      return chosen.id;
    }
    if (context.user.Ask({.text = "You have selected the " + words.noun +
                                  " that is being replaced. Click OK to select a different " + words.different +
                                  " or click Cancel to exit without making any changes.",
                          .buttons = forms::kOkCancel,
                          .icon = forms::Icon::Exclamation}) != forms::Answer::OK) {
      return std::nullopt;
    }
  }
}

}  // namespace

SharedRecordWords WordsOf(SharedRecord kind) {
  switch (kind) {
    case SharedRecord::Employer:
      return {"Employer", "employers", "Employer"};
    case SharedRecord::Carrier:
      return {"Insurance Company", "insurance companies", "Insurance Company"};
    case SharedRecord::GroupPlan:
      return {"Group Plan", "group plans", "plan"};
    case SharedRecord::PlanLink:
      return {"Insurance Plan", "insurance plans", "Insurance Plan"};
    case SharedRecord::Pharmacy:
      break;
  }
  return {"Pharmacy", "pharmacies", "Pharmacy"};
}

bool ReplaceSharedRecord(const session::ScreenContext& context, SharedRecord kind, std::int32_t id,
                         const std::string& name, const RecordHold& hold) {
  const auto replacement = Choose(context, kind, id, name);
  if (!replacement) {
    return false;
  }
  const RecordHold hold_of_replacement(context.session, std::string(data::TableOf(kind).table.Text()), *replacement);
  hold_of_replacement.Require();
  hold.Require();
  if (!data::NameOf(context.session, kind, *replacement)) {
    throw Refusal("The record that was to take its place is not there any more. Nothing was changed.");
  }
  const std::string text = "  Replacing " + WordsOf(kind).noun + " - Please Wait  ";
  const forms::WaitText wait(context.user, text);
  data::SharedRecords records(context.session);
  records.Progress = [&](double done) { context.user.Wait(text, done); };
  records.Replace(kind, id, *replacement);
  return true;
}

}  // namespace editing
