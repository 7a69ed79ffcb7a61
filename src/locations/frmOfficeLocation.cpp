#include "locations/frmOfficeLocation.h"

#include "data/locations.h"
#include "editing/customary_form.h"
#include "forms/text.h"
#include "forms/us_numbers.h"

namespace locations {
namespace {

using Field = frmOfficeLocation::Field;

constexpr std::string_view kTable = "OFFLOCTABLE";
constexpr std::array kPhones = {Field::kPhone, Field::kPhone2, Field::kFax};

// In the order of `txtInfo`.
struct Column {
  data::Words name;
  const char* caption = nullptr;
};
constexpr std::array kColumns = {Column{"OffLocNam", "&Name"},          Column{"OffLocAd1", "Address &1"},
                                 Column{"OffLocAd2", "Address &2"},     Column{"OffLocCit", "Cit&y"},
                                 Column{"OffLocSta", "&State"},         Column{"OffLocZip", "&ZIP Code"},
                                 Column{"OffLocPho", "&Phone"},         Column{"OffLocPho2", "Sec&ond Phone"},
                                 Column{"OffLocFax", "Fa&x"},           Column{"OffLocEma", "E-&mail"},
                                 Column{"OffLocFacID", "&Facility ID"}, Column{"OffLocTIN", "&Tax ID"},
                                 Column{"OffLocNPI", "NP&I"},           Column{"OffLocBanAccNum", "Ban&k Account"}};

std::string ToldColor(const std::string& number) {
  const auto color = data::LocationColor(number);
  return color ? forms::ColorText(*color) : number;
}

}  // namespace

frmOfficeLocation::frmOfficeLocation(const session::ScreenContext& context)
    : EditingForm("frmOfficeLocation", context),
      Location(context.session, "OffLocTable", "OffLocID"),
      CSZ(context, {txtInfo[kCity], txtInfo[kState], txtInfo[kZip], cmdCSZ}),
      layout_(context.session, TDBG) {
  for (std::size_t i = 0; i < txtInfo.size(); ++i) {
    Location.Bind(txtInfo.at(i), kColumns.at(i).name);
  }
  Location.Bind(colors_[kBackground], "OffLocBacClr");
  Location.Bind(colors_[kForeground], "OffLocForClr");
  Register();
  Wire();
}

void frmOfficeLocation::Register() {
  TB.Add("HELP", "Help", {}).ToolTip = "View help";
  TB.Add("CLOSE", "Close", {}).ToolTip = "Close this screen";
  Add("TB", TB);
  Add("lblLocations", lblLocations);
  Add("TDBG", TDBG);
  Add("fraEdit", fraEdit);
  Add("lblInfo", lblInfo);
  Add("txtInfo", txtInfo);
  Add("cmdCSZ", cmdCSZ);
  Add("CSZ", CSZ);
  Add("cmdColor", cmdColor);
  Add("lblColorInfo", lblColorInfo);
  Add("lblColor", lblColor);
  Add("lblContrast", lblContrast);
  Add("SB", SB);
  SetCancelButton(&TB["CLOSE"]);
  TB["CLOSE"].CausesValidation = TB["HELP"].CausesValidation = false;

  lblLocations.Caption = "&Locations";
  TDBG.Heading = &lblLocations;
  TDBG.Columns = std::vector<forms::GridColumn>{
      {.key = "Number", .caption = "#", .width = 40, .align = forms::GridColumn::Align::Right},
      {.key = "OffLocNam", .caption = "Name", .width = 560},
      {.key = "OffLocID", .caption = "ID", .width = 60, .align = forms::GridColumn::Align::Right}};
  for (std::size_t i = 0; i < txtInfo.size(); ++i) {
    lblInfo.at(i).Caption = kColumns.at(i).caption;
    txtInfo.at(i).Heading = &lblInfo.at(i);
    lblInfo.at(i).Container = txtInfo.at(i).Container = &fraEdit;
  }
  txtInfo[kBankAccount].Told = forms::Masked;
  cmdColor[kBackground].Caption = "&Background...";
  cmdColor[kForeground].Caption = "Fore&ground...";
  colors_[kBackground].AccessibleName = "Background";
  colors_[kForeground].AccessibleName = "Foreground";
  for (std::size_t which = 0; which < colors_.size(); ++which) {
    colors_.at(which).Told = ToldColor;
    cmdColor.at(which).Container = lblColorInfo.at(which).Container = &fraEdit;
  }
  lblColor.Container = lblContrast.Container = cmdCSZ.Container = &fraEdit;
  lblContrast.Caption =
      "These two colours are hard to tell apart. Elsewhere the name is written in black or white instead.";
  lblContrast.Visible = false;
  Reads({&TDBG, &fraEdit});
}

void frmOfficeLocation::Wire() {
  TDBG.RowColChange = [this] { TDBG_RowColChange(); };
  for (const Field phone : kPhones) {
    txtInfo.at(phone).Leave = [this, phone] {
      editing::TakeCustomaryForm(context_.session, Location, txtInfo.at(phone), forms::FormatTenDigits);
    };
  }
  txtInfo[kName].Change = [this] { ShowColors(); };
  // What is typed can be read until the field is left.
  txtInfo[kBankAccount].Change = [this] { txtInfo[kBankAccount].PasswordChar = '\0'; };
  txtInfo[kBankAccount].Leave = [this] { txtInfo[kBankAccount].PasswordChar = '*'; };
  for (std::size_t which = 0; which < cmdColor.size(); ++which) {
    cmdColor.at(which).Click = [this, which] { cmdColor_Click(which); };
  }
  TB.ItemClicked = [this](const std::string& key) {
    if (key == "CLOSE") {
      DoClose();
    } else {
      ShowHelp();
    }
  };
  Edits(Location);
  OnSave([] { return true; }, [this] { Write(); });
}

void frmOfficeLocation::Read() {
  Caption = "Office Locations";
  may_edit_ = RequireRight(session::kSupervisorRight, "office locations");
  Setup_Screen();
}

void frmOfficeLocation::Setup_Screen() {
  auto list = std::make_shared<forms::TableRows>();
  for (const auto rows = statements_.Select("SELECT OffLocID, OffLocNam FROM OffLocTable" +
                                            statements_.Office(" WHERE (OfficeID=", ")") + " ORDER BY OffLocID");
       !rows->Eof(); rows->MoveNext()) {
    const std::int32_t id = session::ToId(rows->Get(0));
    list->rows.push_back(
        {.cells = {std::to_string(list->Count() + 1), data::LocationName(id, rows->Get(1)), std::to_string(id)}});
  }
  TDBG.Rows = list;
  layout_.Restore("frmOfficeLocation");
  SB.Caption = std::to_string(list->Count()) + (list->Count() == 1 ? " location" : " locations");
  if (list->Count() > 0) {
    TDBG.Row = 0;
  }
  ShowLocation(TDBG.Row);
}

std::int32_t frmOfficeLocation::IdAt(int row) const {
  return session::ToId(session::Value(std::string(TDBG.Cell(row, TDBG.ColumnIndex("ID")))));
}

void frmOfficeLocation::ShowHelp() {
  Tell(
      "Choose a location in the list, and change it below: name, address, phones, identifiers and the two colours in "
      "which its name is shown elsewhere.\r\n\r\nOn leaving a location that you have changed you are asked whether "
      "to save it. Ctrl+S saves at once.",
      forms::Icon::Information);
}

// Back to the location that is not to be left yet.
void frmOfficeLocation::TDBG_RowColChange() {
  if (TDBG.Row == shown_) {
    return;
  }
  if (QueryClose()) {
    ShowLocation(TDBG.Row);
  } else {
    TDBG.Row = shown_;
  }
}

// Until the location is read there is none to edit: one that cannot be read leaves the fields unusable.
void frmOfficeLocation::ShowLocation(int row) {
  shown_ = -1;
  fraEdit.Enabled = false;
  if (row < 0) {
    return;
  }
  const std::int32_t id = IdAt(row);
  if (may_edit_) {
    LetGo();
    Caption = "Office Locations";
    Hold(std::string(kTable), id);
  }
  if (!Location.Read(id)) {
    Location.Read(0);
    fraEdit.Caption = "";
    ShowColors();
    Tell("Location " + std::to_string(id) + " was not found in the database.", forms::Icon::Information);
    return;
  }
  shown_ = row;
  fraEdit.Enabled = true;
  fraEdit.Caption = "Location " + std::to_string(id);
  txtInfo[kBankAccount].PasswordChar = '*';
  ShowColors();
}

// A name tells the location where its colours do not.
void frmOfficeLocation::ShowColors() {
  const auto color = [this](ColorOf which) { return data::LocationColor(colors_.at(which).Caption.get()); };
  const forms::Color back = color(kBackground).value_or(forms::kWhite);
  const forms::Color fore = color(kForeground).value_or(forms::kBlack);
  lblColor.BackColor = back;
  lblColor.ForeColor = forms::ReadableOn(back, fore);
  lblColor.Caption = Location.Id() == 0 ? std::string()
                                        : "  " + data::LocationName(Location.Id(), txtInfo[kName].Text.get()) + "  (" +
                                              std::to_string(Location.Id()) + ")  ";
  lblColorInfo[kBackground].Caption = forms::ColorText(back);
  lblColorInfo[kForeground].Caption = forms::ColorText(fore);
  lblContrast.Visible = forms::Contrast(back, fore) < forms::kReadableContrast;
}

void frmOfficeLocation::cmdColor_Click(std::size_t which) {
  if (!MayModify()) {
    return;
  }
  forms::Label& color = colors_.at(which);
  const auto now = data::LocationColor(color.Caption.get());
  if (const auto picked = context_.user.PickColor(now.value_or(which == kBackground ? forms::kWhite : forms::kBlack))) {
    color.Caption = std::to_string(forms::NumberOf(*picked));
    ShowColors();
  }
}

// What nobody touched keeps its blanks.
bool frmOfficeLocation::Check() {
  for (forms::TextBox& box : txtInfo) {
    if (Location.Changed(box)) {
      box.Text = std::string(forms::Trim(box.Text.get()));
    }
  }
  return true;
}

// What the database says of a refused statement does not repeat the account number.
void frmOfficeLocation::Write() {
  try {
    Location.Update();
  } catch (const session::DatabaseError& error) {
    throw error.Of("UPDATE OffLocTable");
  }
  ShowNameInList();
  SB.Caption = "Saved " + data::LocationName(Location.Id(), txtInfo[kName].Text.get()) + ".";
}

void frmOfficeLocation::ShowNameInList() {
  auto& list = dynamic_cast<forms::TableRows&>(*TDBG.Rows.get());
  list.rows.at(static_cast<std::size_t>(shown_))
      .cells.at(static_cast<std::size_t>(TDBG.CellOf(TDBG.ColumnIndex("Name")))) =
      data::LocationName(Location.Id(), txtInfo[kName].Text.get());
  TDBG.Refresh();
}

}  // namespace locations
