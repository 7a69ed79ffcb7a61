#pragma once

#include <array>

#include "data/record_binding.h"
#include "editing/ZIPCODE.h"
#include "editing/editing_form.h"
#include "editing/kept_layout.h"
#include "forms/button.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/panels.h"
#include "forms/text_box.h"
#include "forms/tool_bar.h"

namespace locations {

// The office's locations: those of the list above are edited below, one at a time. None is added or removed here.
class frmOfficeLocation : public editing::EditingForm {
 public:
  // Positions in `txtInfo` and, for the captions beside them, in `lblInfo`.
  enum Field : std::size_t {
    kName,
    kAddress1,
    kAddress2,
    kCity,
    kState,
    kZip,
    kPhone,
    kPhone2,
    kFax,
    kEmail,
    kFacility,
    kTaxId,
    kProviderId,
    kBankAccount,
  };
  // Positions in `cmdColor` and `lblColorInfo`.
  enum ColorOf : std::size_t { kBackground, kForeground };

  explicit frmOfficeLocation(const session::ScreenContext& context);

  forms::ToolBar TB;
  forms::Label lblLocations;
  forms::Grid TDBG;
  forms::Panel fraEdit;
  std::array<forms::TextBox, 14> txtInfo;
  std::array<forms::Label, 14> lblInfo;
  forms::Button cmdCSZ;  // drops the list of places
  std::array<forms::Button, 2> cmdColor;
  std::array<forms::Label, 2> lblColorInfo;
  forms::Label lblColor;     // the location in its colours
  forms::Label lblContrast;  // stands there when they are hard to tell apart
  forms::Label SB;
  data::RecordBinding Location;
  editing::ZIPCODE CSZ;

  // Fills the list and shows its first location.
  void Setup_Screen();
  // The selected location was edited.
  bool ChangeMade() const { return shown_ >= 0 && Location.Changed(); }

 protected:
  void Read() override;
  bool Differs() const override { return ChangeMade(); }
  bool Check() override;
  void OnTaken() override { ShowColors(); }
  ClosingQuestion OnClosing() const override {
    return {.text = "Do you want to save changes?", .title = "Location Modified", .offers_to_save = true};
  }
  void OnClose() override { layout_.Keep(); }

 private:
  void Register();
  void Wire();
  void WireColors();
  void ShowHelp();
  std::int32_t IdAt(int row) const;
  void TDBG_RowColChange();
  void ShowLocation(int row);
  void ShowColors();
  void ShowNameInList();
  void cmdColor_Click(std::size_t which);
  void Write();

  std::array<forms::Label, 2> colors_;  // of the row, as numbers
  editing::KeptLayout layout_;
  bool may_edit_ = false;
  int shown_ = -1;  // the row of the list whose location is shown; -1 for none
};

}  // namespace locations
