#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "data/record_binding.h"
#include "editing/ZIPCODE.h"
#include "editing/editing_form.h"
#include "editing/payer_link.h"
#include "editing/shared_record_guard.h"
#include "forms/button.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/panels.h"
#include "forms/text_box.h"

namespace insurance {

// One insurance company, with its link to an electronic payer; or, in its second mode, one pharmacy. A change of a
// company that coverages run through is guarded.
class insScreen : public editing::EditingForm {
 public:
  // Positions in `Text1` and, for the captions beside them, in `Label1`. A pharmacy has those before `kPrefix`.
  enum Field : std::size_t {
    kName,
    kAddress1,
    kAddress2,
    kCity,
    kState,
    kZip,
    kPhone1,
    kPhone2,
    kFax,
    kRemark1,
    kRemark2,
    kEmail,
    kPrefix,
    kAccount,
    kSwitchCharacter,
  };

  explicit insScreen(const session::ScreenContext& context);

  forms::Label lblHeading;
  forms::Label lblID;
  std::array<forms::TextBox, 15> Text1;
  std::array<forms::Label, 15> Label1;
  forms::Button ZipCode1;  // drops the list of places
  forms::Panel fraClaims;  // what an insurance company has beyond a pharmacy
  forms::Label lblLin;
  forms::TextBox txtNEA;  // the payer's name
  forms::Label lblRemID;
  forms::TextBox txtRemID;  // and its ID
  forms::TextBox txtLin;    // hidden: the ID as it is stored
  forms::Button cmdLin;
  forms::Button cmdUnLin;
  forms::Panel picAnsExplain;  // shown while no payer is linked
  forms::Label LblAnsExplain;
  forms::DialogButtons Command3D2;
  editing::ZIPCODE ZipCodes;

  // A carrier or a pharmacy.
  session::Opening Opened = session::Opening::New(session::RecordKind::Carrier);
  session::Outcome Ended() const;

  // A pharmacy's window is narrower.
  const std::string& PlaceKey() const override;
  // "INSCOTABLE" or "PHATABLE".
  std::string_view TableName() const;

  void Setup_Screen();
  // Reads the opened record; false when there is none such.
  bool Load_Data();
  // Saves what there is to save; whether the screen may close.
  bool Save_Record();
  void cmdLin_Click();
  void cmdUnLin_Click();

 protected:
  void Read() override;
  bool Differs() const override { return Record().Changed(); }
  bool Check() override;
  bool Agreed() override;
  void OnTaken() override { ShowPayer(); }
  ClosingQuestion OnClosing() const override { return {.text = "Save current changes?", .offers_to_save = true}; }

 private:
  void Register();
  void RegisterClaims();
  void Wire();
  void WireSaving();
  bool IsPharmacy() const { return Opened.kind == session::RecordKind::Pharmacy; }
  const data::RecordBinding& Record() const { return IsPharmacy() ? pharmacy_ : carrier_; }
  data::RecordBinding& Record() { return IsPharmacy() ? pharmacy_ : carrier_; }
  bool Adding() const { return Record().Id() == 0; }
  void ShowId();
  // The payer whose ID `txtLin` has.
  std::int32_t PayerId() const;
  // What stands in `txtNEA` for it.
  std::string NameOf(std::int32_t payer) const;
  void ShowPayer();
  void Show(const editing::PayerLink::Payer& payer);
  // Stored with the rest of the record.
  void Link(const editing::PayerLink::Payer& payer);

  data::RecordBinding carrier_;
  data::RecordBinding pharmacy_;
  editing::SharedRecordGuard guard_;
  editing::PayerLink payers_;
  bool accepted_ = false;  // left with OK
};

}  // namespace insurance
