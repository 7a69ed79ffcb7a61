#include "insurance/frmCopyPlanOpts.h"

#include "forms/text.h"

namespace insurance {
namespace {

constexpr const char* kTitle = "Copy Insurance Plan";

forms::Form::NamedProperty Named(std::int32_t& number) {
  return {[&number] { return std::to_string(number); },
          [&number](const std::string& text) { number = session::ToId(session::Value(text)); }};
}

forms::Form::NamedProperty Named(std::string& property) {
  return {[&property] { return property; }, [&property](const std::string& text) { property = text; }};
}

}  // namespace

std::string DisplayText(const data::LinkNames& names, const std::string& plan_name) {
  std::string text;
  for (const std::string& part : {names.employer, names.carrier, names.group_number, plan_name}) {
    text += (text.empty() || part.empty() ? "" : " / ") + part;
  }
  return text;
}

frmCopyPlanOpts::frmCopyPlanOpts(const session::ScreenContext& context) : Form("frmCopyPlanOpts"), Rules(context) {
  Register();
  AddProperties();
  Wire();
}

void frmCopyPlanOpts::Register() {
  Caption = kTitle;
  lblSourceHeading.Caption = "Copy from:";
  cmdSource.Caption = "&Source Plan ...";
  cmdSource.ToolTip = "INSURANCE PLANS, Left mouse - Insurance plan list";
  lblTargetHeader.Caption = "Copy into:";
  cmdTarget.Caption = "Target Plan ...";
  cmdTarget.Visible = false;
  optCopyType[kAll].Caption = "&Replace all coverage details";
  lblOverwrite1.Caption = "The coverage details that the plan has now are removed.";
  lblOverwrite2.Caption = "Those of the source plan take their place.";
  optCopyType[kChosen].Caption = "&Update what is checked below";
  lblUpdate1.Caption = "Codes that both plans have take over from the source plan, for primary and secondary coverage:";
  lblUpdate2.Caption = "Codes that only the source plan has are not added.";
  lblUpdate3.Caption = "Everything else stays as it is.";
  chkInfo[kFees].Caption = "&Fees";
  chkInfo[kMaximums].Caption = "&Maximums";
  chkInfo[kPercents].Caption = "Coverage &percentages";
  DialogButtons1.Help.Visible = false;

  Add("lblSourceHeading", lblSourceHeading);
  Add("lblSource", lblSource);
  Add("cmdSource", cmdSource);
  Add("lblTargetHeader", lblTargetHeader);
  Add("lblTarget", lblTarget);
  Add("cmdTarget", cmdTarget);
  Add("optCopyType(0)", optCopyType[kAll]);
  Add("fOverwrite", fOverwrite);
  Add("lblOverwrite1", lblOverwrite1);
  Add("lblOverwrite2", lblOverwrite2);
  Add("optCopyType(1)", optCopyType[kChosen]);
  Add("fUpdate", fUpdate);
  Add("lblUpdate1", lblUpdate1);
  Add("chkInfo", chkInfo);
  Add("lblUpdate2", lblUpdate2);
  Add("lblUpdate3", lblUpdate3);
  Add("DialogButtons1", DialogButtons1);
  for (forms::Label* text : {&lblOverwrite1, &lblOverwrite2}) {
    text->Container = &fOverwrite;
  }
  for (forms::Label* text : {&lblUpdate1, &lblUpdate2, &lblUpdate3}) {
    text->Container = &fUpdate;
  }
  for (forms::CheckBox& box : chkInfo) {
    box.Container = &fUpdate;
  }
}

void frmCopyPlanOpts::AddProperties() {
  Properties["TargetCarrierID"] = Named(TargetCarrierID);
  Properties["TargetGroupID"] = Named(TargetGroupID);
  Properties["Target_elID"] = Named(Target_elID);
  Properties["TargetText"] = Named(TargetText);
  Properties["SourceCarrierID"] = Named(SourceCarrierID);
  Properties["SourceGroupID"] = Named(SourceGroupID);
  Properties["Source_elID"] = Named(Source_elID);
  Properties["SourceText"] = Named(SourceText);
  const auto told = [this](bool (frmCopyPlanOpts::*is)() const) {
    return NamedProperty{[this, is] { return (this->*is)() ? "True" : "False"; }, nullptr};
  };
  Properties["Canceled"] = told(&frmCopyPlanOpts::Canceled);
  Properties["CopyAll"] = told(&frmCopyPlanOpts::CopyAll);
  Properties["CopyFee"] = told(&frmCopyPlanOpts::CopyFee);
  Properties["CopyMax"] = told(&frmCopyPlanOpts::CopyMax);
  Properties["CopyPercent"] = told(&frmCopyPlanOpts::CopyPercent);
}

void frmCopyPlanOpts::Wire() {
  cmdSource.Click = [this] { ChooseSource(); };
  lblSource.Click = cmdSource.Click;
  for (forms::OptionButton& type : optCopyType) {
    type.Click = [this] { ShowCopyType(); };
  }
  optCopyType[kAll].Value = true;
  ShowCopyType();
  DialogButtons1.OK.Click = [this] { Confirm(); };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
}

void frmCopyPlanOpts::OnLoad() {
  lblTarget.Caption = TargetText;
  ShowSource();
}

void frmCopyPlanOpts::ShowSource() {
  lblSource.Caption = SourceText.empty() ? "No plan is selected yet." : SourceText;
}

void frmCopyPlanOpts::ShowCopyType() {
  for (forms::CheckBox& box : chkInfo) {
    box.Enabled = optCopyType[kChosen].Value.get();
  }
}

void frmCopyPlanOpts::ChooseSource() {
  const session::ListOutcome chosen = context_.screens.ShowList(
      session::lulInsGroup, {.title = "Copy Insurance Plan From ...",
                             .selected = Source_elID,
                             .select_mode = true,
                             .wait_text = "  Loading Available Source Plans - Please Wait  "});
  if (!chosen.Chosen()) {
    return;
  }
  const auto link = data::PlanLinks(context_.session).Get(chosen.id);
  if (!link) {
    throw editing::Refusal("Another user has deleted this insurance plan. Please select a different plan.");
  }
  TakeSource(*link);
}

data::GroupPlan frmCopyPlanOpts::PlanOf(std::int32_t plan) const {
  return data::ReadGroupPlan(context_.session, plan).value_or(data::GroupPlan());
}

// Details know a plan by its carrier and number, which two plans may share.
bool frmCopyPlanOpts::IsTarget(std::int32_t carrier, std::int32_t plan) const {
  if (carrier != TargetCarrierID || plan == TargetGroupID) {
    return carrier == TargetCarrierID;
  }
  const std::string number = PlanOf(plan).key.group_number;
  return !number.empty() && forms::EqualsIgnoringCase(number, PlanOf(TargetGroupID).key.group_number);
}

bool frmCopyPlanOpts::RefusesTarget(std::int32_t carrier, std::int32_t plan) const {
  const bool is_target = IsTarget(carrier, plan);
  if (is_target) {
    Tell(kSamePlan, forms::Icon::Information);
  }
  return is_target;
}

void frmCopyPlanOpts::TakeSource(const data::PlanLink& link) {
  if (RefusesTarget(link.carrier, link.plan)) {
    return;
  }
  const data::GroupPlan source = PlanOf(link.plan);
  if (CheckSource) {
    CheckSource({link.carrier, source.key.group_number});
  }
  if (!AgreesToSource(!forms::EqualsIgnoringCase(source.category, PlanOf(TargetGroupID).category),
                      link.carrier != TargetCarrierID)) {
    return;
  }
  SourceText = DisplayText(data::PlanLinks(context_.session).NamesOf(link.id), source.name);
  SourceCarrierID = link.carrier;
  SourceGroupID = link.plan;
  Source_elID = link.id;
  ShowSource();
}

bool frmCopyPlanOpts::AgreesToSource(bool other_type, bool other_carrier) const {
  if (!other_type && !other_carrier) {
    return true;
  }
  return context_.user.Ask({.text = std::string("WARNING: You have selected ") +
                                    (other_type ? "a different type of insurance plan " : "an insurance plan ") +
                                    (other_carrier ? "from a different insurance company " : "") +
                                    ".\r\nAre you sure you want to continue?",
                            .buttons = forms::kYesNo,
                            .icon = forms::Icon::Critical,
                            .default_answer = forms::Answer::No}) == forms::Answer::Yes;
}

bool frmCopyPlanOpts::Complete() {
  if (SourceCarrierID == 0 && SourceGroupID == 0) {
    Tell("Please select the insurance plan to copy from.", forms::Icon::Information);
    cmdSource.SetFocus();
    return false;
  }
  if (RefusesTarget(SourceCarrierID, SourceGroupID)) {
    cmdSource.SetFocus();
    return false;
  }
  if (!CopyAll() && !CopyFee() && !CopyMax() && !CopyPercent()) {
    Tell("Please check what is to be copied.", forms::Icon::Information);
    chkInfo[kFees].SetFocus();
    return false;
  }
  return true;
}

void frmCopyPlanOpts::Confirm() {
  if (Complete() && Confirmed()) {
    canceled_ = false;
    Close();
  }
}

bool frmCopyPlanOpts::Confirmed() const {
  return context_.user.Ask({.text = "This will change the coverage details for ALL PATIENTS who have the following "
                                    "insurance plan:\r\n" +
                                    TargetText + "\r\nAre you sure you want to continue?",
                            .title = kTitle,
                            .buttons = forms::kYesNo,
                            .icon = forms::Icon::Question,
                            .default_answer = forms::Answer::No}) == forms::Answer::Yes;
}

}  // namespace insurance
