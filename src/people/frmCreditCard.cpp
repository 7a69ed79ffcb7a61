#include "people/frmCreditCard.h"

#include <algorithm>

#include "forms/card_number.h"
#include "forms/text.h"

namespace people {
namespace {

constexpr int kLongestNumber = 25;  // characters, with what parts the digits
constexpr int kFewestDigits = 12;   // of a number, which no name of a card has

}  // namespace

frmCreditCard::frmCreditCard(const session::ScreenContext& context)
    : EditingForm("frmCreditCard", context), record_(context.session, "PATable", "pID") {
  Caption = "Credit Card";
  record_.Bind(txtType, "pCRECARTYP");
  record_.Bind(number_, "pCRECARNUM");
  number_.AccessibleName = "Credit card number";
  number_.Told = [](const std::string& number) { return forms::MaskedCardNumber(number); };
  Register();
  txtNumber.Change = [this] { Follow(); };
  txtNumber.Leave = [this] { Leave(); };
  cmdRemove.Click = [this] { Remove(); };
  DialogButtons1.OK.Click = [this] {
    if (!Unsaved() || Save()) {
      Close();
    }
  };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
  Edits(record_);
  OnSave([this] { return Differs(); }, [this] { Write(); });
  OnSave([] { return true; }, [this] { context_.session.RecordHandOff("pID", "PaTable", pID); });
}

void frmCreditCard::Register() {
  Add("txtType", txtType);
  Add("lblType", lblType);
  Add("txtNumber", txtNumber);
  Add("lblNumber", lblNumber);
  Add("lblStored", lblStored);
  Add("cmdRemove", cmdRemove);
  Add("DialogButtons1", DialogButtons1);
  lblType.Caption = "&Type";
  txtType.Heading = &lblType;
  lblNumber.Caption = "&Number";
  txtNumber.Heading = &lblNumber;
  txtNumber.PasswordChar = '*';
  txtNumber.MaxLength = kLongestNumber;
  cmdRemove.Caption = "&Remove Card";
  DialogButtons1.Help.Visible = false;
  Reads({&txtType, &txtNumber, &lblStored, &cmdRemove, &DialogButtons1});
  Properties["pID"] = {[this] { return std::to_string(pID); },
                       [this](const std::string& id) { pID = session::ToId(session::Value(id)); }};
}

void frmCreditCard::Read() {
  if (!RequireRight(kRight, "credit card information")) {
    MayModify();
    Close();
    return;
  }
  Hold("PATABLE", pID);
  if (!record_.Read(pID)) {
    Tell("Person " + std::to_string(pID) + " was not found in the database.", forms::Icon::Information);
    Close();
    return;
  }
  ShowStored();
}

void frmCreditCard::ShowStored() {
  const std::string masked = forms::MaskedCardNumber(record_.Stored(number_));
  const bool removes = removed_ && number_.Caption->empty();
  lblStored.Caption = removes          ? "The card is removed when you save."
                      : masked.empty() ? "No number is stored."
                                       : "The stored number is " + masked + ".";
  cmdRemove.Enabled = !masked.empty() || !record_.Stored(txtType).empty();
}

void frmCreditCard::Follow() {
  std::string typed = txtNumber.Text;
  std::erase_if(typed, [](char c) { return c == ' ' || c == '-'; });
  number_.Caption = typed.empty() && !removed_ ? record_.Stored(number_) : typed;
  ShowStored();
}

// Told without what was typed.
void frmCreditCard::Leave() {
  if (record_.Changed(number_) && !number_.Caption->empty() && !forms::IsCardNumber(number_.Caption.get())) {
    Tell("What you have typed is not the number of a credit card. Please type it again.", forms::Icon::Information);
    txtNumber.SetFocus();
  }
}

bool frmCreditCard::Check() {
  if (record_.Changed(txtType)) {
    txtType.Text = std::string(forms::Trim(txtType.Text.get()));
    if (std::ranges::count_if(txtType.Text.get(), forms::IsDigit) >= kFewestDigits) {
      Tell("The type of a card is its name, such as Visa. Please type the number into the box below it.",
           forms::Icon::Information);
      txtType.SetFocus();
      return false;
    }
  }
  return true;
}

void frmCreditCard::OnTaken() {
  if (!record_.Changed(number_)) {
    txtNumber.Text = std::string();
    removed_ = false;
  }
  ShowStored();
}

void frmCreditCard::Write() {
  record_.Update();
  txtNumber.Text = std::string();
  removed_ = false;
  ShowStored();
}

void frmCreditCard::Remove() {
  if (MayModify() && Confirm("Remove this credit card?")) {
    txtType.Text = std::string();
    txtNumber.Text = std::string();
    number_.Caption = std::string();
    removed_ = true;
    ShowStored();
  }
}

}  // namespace people
