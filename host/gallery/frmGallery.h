#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/check_list_box.h"
#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/ladder.h"
#include "forms/list_chooser.h"
#include "forms/panels.h"
#include "forms/rich_text_box.h"
#include "forms/text_box.h"
#include "forms/tool_bar.h"
#include "forms/user.h"

namespace host {

// One control of every kind, on the pages of a strip: where a binder is tried and looked at. `lblStatus` tells what
// happened last. It touches no practice and is no screen of the component.
class frmGallery : public forms::Form {
 public:
  explicit frmGallery(forms::User& user);

  forms::ToolBar ToolStrip;
  forms::MenuItem MnuFileFirst, MnuFileSecond;
  forms::TabStrip Tabs;
  forms::Panel pnlFields, pnlLists, pnlGrid, pnlNotes, pnlExtra;

  forms::Label lblName, lblPassword, lblDate, lblRemarks, lblKind, lblPlace, lblSize;
  forms::TextBox txtName, txtPassword, txtDate, txtRemarks;
  forms::ComboBox cboKind, cboPlace;  // one to choose from, one to type into
  forms::CheckBox chkActive, chkExtra;
  forms::OptionButton optLeft, optRight;
  forms::Slider sldSize;
  forms::Button cmdPick, cmdCheck;
  forms::PictureBox picSwap;

  forms::Label lblList, lblChecks, lblChooser;
  forms::ListBox lstPlaces;
  forms::CheckListBox lstChecks;
  forms::ListChooser chsColumns;
  forms::Ladder picLadder;

  forms::Grid grdRows;
  forms::RichTextBox rtfNote;
  forms::Label lblExtra;
  forms::TextBox txtExtra;
  forms::Timer Timer1;
  forms::Label lblStatus;
  forms::DialogButtons DialogButtons1;

 private:
  void Register();
  void FillFields();
  void FillLists();
  void FillGrid();
  void WireFields();
  void WireLists();
  void WireGrid();
  void Tell(const std::string& what) { lblStatus.Caption = what; }
  std::string CellText(int column) const;

  forms::User& user_;
  forms::OptionGroup sides_{&optLeft, &optRight};
};

// The gallery under its own name; nullptr for another. Case does not matter.
std::unique_ptr<forms::Form> MakeGallery(std::string_view name, forms::User& user);

}  // namespace host
