#include "data/shared_record_texts.h"
#include "insurance/GrpPlaScreen.h"

namespace insurance {
namespace {

using session::Opening;
using session::RecordKind;
using session::SearchOutcome;

constexpr const char* kCarrierHelp =
    "To remove this Insurance Company, please click the 'Remove Ins.' button. To change it, press the <F9> key or "
    "click "
    "the button next to the insurance company name.";

}  // namespace

void GrpPlaScreen::WireCarrier() {
  forms::TextBox& box = Text1[kCarrier];
  box.ReadOnly = true;
  box.Enter = [this] { Label2.Caption = kCarrierHelp; };
  box.Leave = [this] { Label2.Caption = ""; };
  box.KeyPress = [this](char32_t) {
    Tell(kCarrierHelp, forms::Icon::Information);
    return char32_t{0};
  };
  box.KeyDown = [this](forms::Key key) {
    if (key == forms::Key::F9) {
      ChangeCarrier();
    } else if (key == forms::Key::Delete) {
      RemoveCarrier();
    }
    return key == forms::Key::F9 || key == forms::Key::Delete;
  };
  cmdInsCo.Click = [this] {
    ChangeCarrier();
    Text1[kCarrier].SetFocus();
  };
  cmdRemIns.Click = [this] {
    RemoveCarrier();
    Text1[kCarrier].SetFocus();
  };
  // The default group number is made of the carrier's name.
  cmdInsCo.CausesValidation = cmdRemIns.CausesValidation = false;
  insurance_.AccessibleName = "Insurance company";
  insurance_.Told = [this](const std::string& id) {
    return NameOf(session::ToId(session::Value(id))).value_or(std::string());
  };
}

std::optional<std::string> GrpPlaScreen::NameOf(std::int32_t carrier) const {
  return carrier == 0 ? std::nullopt : data::NameOf(context_.session, data::SharedRecord::Carrier, carrier);
}

std::int32_t GrpPlaScreen::IfThere(const std::string& carrier) const {
  const std::int32_t id = session::ToId(session::Value(carrier));
  return NameOf(id) ? id : 0;
}

std::int32_t GrpPlaScreen::InsuranceID() const {
  return IfThere(insurance_.Caption);
}

void GrpPlaScreen::SetInsuranceID(std::int32_t carrier) {
  if (!Loaded()) {
    Opened.carrier = carrier;
    return;
  }
  insurance_.Caption = NameOf(carrier) ? std::to_string(carrier) : std::string();
  ShowCarrier();
}

void GrpPlaScreen::ShowCarrier() {
  const auto name = NameOf(session::ToId(session::Value(insurance_.Caption.get())));
  Text1[kCarrier].Text = name.value_or(std::string());
  cmdRemIns.Enabled = name && !ReadOnly();
}

void GrpPlaScreen::ChangeCarrier() {
  if (!MayModify() ||
      (InsuranceID() != 0 && !Confirm("Are you sure you want to change the Insurance Company for this Group Plan?",
                                      "Change Insurance Company"))) {
    return;
  }
  const SearchOutcome found =
      context_.screens.Search({.list = session::SearchList::Carriers, .offer = [this](const std::string& name) {
                                 return "Enter as " + name + " for Group Plan '" + Text1[kPlanName].Text.get() + "'?";
                               }});
  if (found.Chosen()) {
    SetInsuranceID(found.id);
  } else if (found.end == SearchOutcome::End::New) {
    const auto added =
        context_.screens.Edit({.kind = RecordKind::Carrier, .mode = Opening::Mode::New, .typed_name = found.name});
    if (added.Saved()) {
      SetInsuranceID(added.id);
    }
  }
}

void GrpPlaScreen::RemoveCarrier() {
  if (InsuranceID() != 0 && MayModify() &&
      Confirm("Are you sure you want to remove the Insurance Company from this Group Plan?",
              "Remove Insurance Company")) {
    SetInsuranceID(0);
  }
}

}  // namespace insurance
