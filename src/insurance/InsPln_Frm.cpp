#include "insurance/InsPln_Frm.h"

namespace insurance {

InsPln_Frm::InsPln_Frm(const session::ScreenContext& context)
    : EditingForm("InsPln_Frm", context), ucPlanDetails1(context) {
  Add("ucPlanDetails1", ucPlanDetails1);
  Reads({&ucPlanDetails1.TDBG});
  SetCancelButton(&ucPlanDetails1.TB["CLOSE"]);
  ucPlanDetails1.RequireHold = [this] { EditingForm::RequireHold(); };
  OnSave([this] { return ucPlanDetails1.EditMode(); }, [this] { ucPlanDetails1.Write(); });
  const auto number = [](std::int32_t& property) {
    return NamedProperty{[&property] { return std::to_string(property); },
                         [&property](const std::string& text) { property = session::ToId(session::Value(text)); }};
  };
  const auto text = [](std::string& property) {
    return NamedProperty{[&property] { return property; }, [&property](const std::string& given) { property = given; }};
  };
  Properties["EmployerID"] = number(ucPlanDetails1.EmployerID);
  Properties["CarrierID"] = number(ucPlanDetails1.CarrierID);
  Properties["GroupID"] = number(ucPlanDetails1.GroupID);
  Properties["GroupNumber"] = text(ucPlanDetails1.GroupNumber);
  Properties["Title"] = text(Title);
  Properties["HelpID"] = number(HelpID);
}

const std::string& InsPln_Frm::PlaceKey() const {
  static const std::string key = "INSPLN_FRM";
  return key;
}

void InsPln_Frm::Read() {
  Caption = Title.empty() ? ucPlanDetails1.ParentCaption : Title;
  HoldPlan();
}

// Plans of the same carrier and number have their details in common. The group plan's own screen holds it as well, so
// that nobody gives it another number meanwhile.
void InsPln_Frm::HoldPlan() {
  const bool may_edit = RequireRight(ucPlanDetails::kRight, ucPlanDetails::kGuarded);
  const std::int32_t plan = ucPlanDetails1.GroupID;
  if (may_edit && plan != 0) {
    Hold("GROPLATABLE", plan);
  }
  if (!ucPlanDetails1.FindPlan()) {
    Close();
    return;
  }
  if (may_edit && ucPlanDetails1.IsGlobal()) {
    if (!ReadOnly()) {
      Hold("IPTABLE", 0);
    }
  } else if (may_edit) {
    for (const std::int32_t other : data::PlansWithDetails(context_.session, ucPlanDetails1.Plan())) {
      if (other != plan && !ReadOnly()) {
        Hold("GROPLATABLE", other);
      }
    }
  }
}

}  // namespace insurance
