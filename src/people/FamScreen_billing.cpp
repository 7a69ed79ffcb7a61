#include "people/FamScreen.h"
#include "people/frmCreditCard.h"

namespace people {
namespace {

constexpr std::string_view kStatementRight = "CHANGE-STA-DAT";

}  // namespace

void FamScreen::WireBilling() {
  Text1[kBillingTitle].KeyDown = [this](forms::Key key) {
    if (key == forms::Key::F9) {
      PickBillingTitle();
    }
    return key == forms::Key::F9;
  };
  Command3D1[kPickBillingTitle].Click = [this] {
    PickBillingTitle();
    Text1[kBillingTitle].SetFocus();
  };
  NextStatement.MayChange = [this] { return MayChangeStatement(); };
  for (const Field card : {kCardType, kCardNumber}) {
    Text1.at(card).ReadOnly = true;
    Text1.at(card).KeyPress = [this](char32_t) {
      Tell("Please press F9 or click button.");
      return char32_t{0};
    };
    Text1.at(card).KeyDown = [this](forms::Key key) {
      if (key == forms::Key::F9) {
        EditCard();
      }
      return key == forms::Key::F9;
    };
  }
  Command3D1[kEditCard].Click = [this] {
    EditCard();
    Text1[kCardNumber].SetFocus();
  };
}

void FamScreen::GuardStatement() {
  if (!ReadOnly() && !context_.session.HasRight(kStatementRight)) {
    LookOnly(Text1[kNextStatement], [this] { return MayChangeStatement(); });
  }
}

bool FamScreen::MayChangeStatement() const {
  return HasRight(kStatementRight, "Next Statement Date");
}

void FamScreen::PickBillingTitle() {
  if (!MayModify()) {
    return;
  }
  if (const auto picked = context_.screens.ShowPickList(session::PickList::BillingTitle, "Billing Title")) {
    Text1[kBillingTitle].Text = picked->text;
  }
}

// Says why not, and whether the entry is locked besides.
bool FamScreen::MayEnterCard() const {
  const bool right = context_.session.HasRight(frmCreditCard::kRight);
  if (right && !ReadOnly()) {
    return true;
  }
  context_.user.Tell(
      right ? "Read only, cannot modify."
            : "User [" + context_.session.UserName() + "] does not have the rights to modify credit card information.",
      std::string(right ? "Credit Card" : "Incorrect Rights") + (ReadOnly() ? " / Entry is locked, Read only." : ""));
  return false;
}

// The window writes the row: what is typed here is stored first.
void FamScreen::EditCard() {
  if (!MayEnterCard()) {
    return;
  }
  const std::string_view unsaved = Adding() ? "This new patient must be saved" : "All changes must be saved";
  if ((Adding() || Unsaved()) &&
      !(Confirm(std::string(unsaved) + " before entering credit card information. Do you want to save now?") &&
        Save())) {
    return;
  }
  frmCreditCard card(context_);
  card.pID = pID;
  context_.user.Show(card);
  if (card.Saved) {
    Attempt([this] { Person.Refresh({&Text1[kCardType], &Text1[kCardNumber]}); });
  }
}

}  // namespace people
