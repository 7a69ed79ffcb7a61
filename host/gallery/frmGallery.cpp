#include "gallery/frmGallery.h"

#include "forms/text.h"

namespace host {
namespace {

constexpr std::string_view kGallery = "frmGallery";

std::string Numbers(const std::vector<int>& numbers) {
  std::string text;
  for (const int number : numbers) {
    text += " #" + std::to_string(number);
  }
  return text;
}

}  // namespace

frmGallery::frmGallery(forms::User& user) : Form(std::string(kGallery)), user_(user) {
  Caption = "Gallery";
  Register();
  FillFields();
  FillLists();
  FillGrid();
  WireFields();
  WireLists();
  WireGrid();
}

void frmGallery::Register() {
  const auto on = [this](forms::Panel& page, std::initializer_list<std::pair<const char*, forms::Control*>> controls) {
    for (const auto& [name, control] : controls) {
      control->Container = &page;
      Add(name, *control);
    }
  };
  Add("MnuFileFirst", MnuFileFirst);
  Add("MnuFileSecond", MnuFileSecond);
  ToolStrip.Add("New", "New", "ICO/Large/New_32.png");
  ToolStrip.Add("Delete", "Delete", "ICO/Large/Delete_32.png");
  Add("ToolStrip", ToolStrip);
  Add("Tabs", Tabs);
  Add("pnlFields", pnlFields);
  Add("pnlLists", pnlLists);
  Add("pnlGrid", pnlGrid);
  Add("pnlNotes", pnlNotes);
  Add("pnlExtra", pnlExtra);
  on(pnlFields,
     {{"lblName", &lblName},     {"txtName", &txtName},   {"lblPassword", &lblPassword}, {"txtPassword", &txtPassword},
      {"lblDate", &lblDate},     {"txtDate", &txtDate},   {"lblRemarks", &lblRemarks},   {"txtRemarks", &txtRemarks},
      {"lblKind", &lblKind},     {"cboKind", &cboKind},   {"lblPlace", &lblPlace},       {"cboPlace", &cboPlace},
      {"chkActive", &chkActive}, {"chkExtra", &chkExtra}, {"optLeft", &optLeft},         {"optRight", &optRight},
      {"lblSize", &lblSize},     {"sldSize", &sldSize},   {"cmdPick", &cmdPick},         {"cmdCheck", &cmdCheck},
      {"picSwap", &picSwap}});
  on(pnlLists, {{"lblList", &lblList},
                {"lstPlaces", &lstPlaces},
                {"lblChecks", &lblChecks},
                {"lstChecks", &lstChecks},
                {"lblChooser", &lblChooser},
                {"chsColumns", &chsColumns},
                {"picLadder", &picLadder}});
  on(pnlGrid, {{"grdRows", &grdRows}});
  on(pnlNotes, {{"rtfNote", &rtfNote}});
  on(pnlExtra, {{"lblExtra", &lblExtra}, {"txtExtra", &txtExtra}});
  Add("Timer1", Timer1);
  Add("lblStatus", lblStatus);
  Add("DialogButtons1", DialogButtons1);
}

void frmGallery::FillFields() {
  MnuFileFirst.Caption = "&First command";
  MnuFileSecond.Caption = "&Second command";
  MnuFileSecond.Enabled = false;
  pnlFields.Caption = "Fields";
  pnlLists.Caption = "Lists";
  pnlGrid.Caption = "Grid";
  pnlNotes.Caption = "Notes";
  pnlExtra.Caption = "Extra";
  pnlExtra.Visible = false;
  for (forms::Panel* page : {&pnlFields, &pnlLists, &pnlGrid, &pnlNotes, &pnlExtra}) {
    Tabs.AddPage(*page);
  }
  for (const auto& [field, heading] :
       std::initializer_list<std::pair<forms::Control&, forms::Label&>>{{txtName, lblName},
                                                                        {txtPassword, lblPassword},
                                                                        {txtDate, lblDate},
                                                                        {txtRemarks, lblRemarks},
                                                                        {cboKind, lblKind},
                                                                        {cboPlace, lblPlace},
                                                                        {sldSize, lblSize},
                                                                        {lstPlaces, lblList},
                                                                        {lstChecks, lblChecks},
                                                                        {txtExtra, lblExtra}}) {
    field.Heading = &heading;
  }
  Tabs.AccessibleName = "Pages";
  grdRows.AccessibleName = "Rows";
  rtfNote.AccessibleName = "Note";
  lblName.Caption = "&Name :";
  txtName.Text = "Ann Example";
  txtName.MaxLength = 30;
  lblPassword.Caption = "Pass&word :";
  txtPassword.PasswordChar = '*';
  txtPassword.Text = "secret";
  lblDate.Caption = "&Date :";
  txtDate.Mask = "##/##/####";
  txtDate.ToolTip = "Month, day and year";
  lblRemarks.Caption = "&Remarks :";
  txtRemarks.MultiLine = true;
  txtRemarks.Text = "First line\r\nsecond line";
  lblKind.Caption = "K&ind :";
  cboKind.Items = std::vector<forms::ListItem>{{"Home", 1}, {"Work", 2}, {"Other", 3}};
  cboKind.ListIndex = 1;
  lblPlace.Caption = "&Place :";
  cboPlace.Editable = true;
  cboPlace.Items = std::vector<forms::ListItem>{{"Abilene", 1}, {"Rye", 2}, {"Zwolle", 3}};
  chkActive.Caption = "&Active";
  chkActive.ThreeState = true;
  chkActive.Value = forms::CheckState::Mixed;
  chkExtra.Caption = "Show the &extra page";
  optLeft.Caption = "&Left";
  optRight.Caption = "Ri&ght";
  optLeft.Value = true;
  lblSize.Caption = "&Size :";
  sldSize.Value = 4;
  cmdPick.Caption = "&Colour...";
  cmdCheck.Caption = "Chec&k";
  cmdCheck.ToolTip = "Goes to the extra field while it is empty";
  picSwap.Caption = "Swi&tch";
  picSwap.Picture = "SWAP-16X16.PNG";
  picSwap.ToolTip = "Swap the sides";
  lblExtra.Caption = "E&xtra :";
  rtfNote.Html =
      "<p>Prefers <b>mornings</b>, <i>not</i> <u>Fridays</u>.</p><ul><li>call <span style=\"color:#E04040\">before"
      "</span> ten</li><li>see <a href=\"https://localhost/\">his page</a></li></ul>"
      "<p style=\"text-align:center\"><span style=\"font-size:14pt\">Centred and large</span></p>";
  lblStatus.Caption = "Nothing happened yet.";
  DialogButtons1.Help.Visible = false;
  Timer1.Enabled = true;
  Timer1.Interval = 600'000;
}

void frmGallery::FillLists() {
  lblList.Caption = "Pl&aces";
  lstPlaces.Items = std::vector<forms::ListItem>{{"Abilene\tTX", 1}, {"Rye\tNY", 2}, {"Zwolle\tLA", 3}};
  lstPlaces.ListIndex = 0;
  lblChecks.Caption = "Re&minders by";
  lstChecks.Items = std::vector<forms::ListItem>{{"Mail", 1}, {"Telephone", 2}, {"Message", 3}};
  lstChecks.Check(1, true);
  lblChooser.Caption = "Col&umns to print";
  chsColumns.SetItems({{"Name", 1}, {"City", 2}, {"State", 3}, {"Balance", 4}, {"Age", 5}}, {4, 1});
  chsColumns.Chosen.ListIndex = 0;
  using From = forms::Ladder::From;
  picLadder.AccessibleName = "Reminders";
  picLadder.Rungs = std::vector<forms::Ladder::Rung>{{.name = "Before", .from = From::BeforeDate, .days = 30},
                                                     {.name = "First", .from = From::AfterDate, .days = 60},
                                                     {.name = "Stop", .from = From::AfterVisit, .days = 730}};
}

void frmGallery::FillGrid() {
  using Kind = forms::GridColumn::Kind;
  using Align = forms::GridColumn::Align;
  grdRows.Columns = std::vector<forms::GridColumn>{
      {.key = "id", .caption = "ID", .visible = false},
      {.key = "name", .caption = "Name", .width = 140, .editable = true},
      {.key = "shown", .caption = "Shown", .width = 70, .kind = Kind::Check, .align = Align::Center, .editable = true},
      {.key = "room", .caption = "Room", .width = 100, .kind = Kind::DropDown, .editable = true},
      {.key = "color", .caption = "Colour", .width = 80, .kind = Kind::Color, .editable = true},
      {.key = "amount", .caption = "Amount", .width = 90, .align = Align::Right}};
  auto rows = std::make_shared<forms::TableRows>();
  rows->rows = {{.cells = {"1", "Ann Example", "1", "East 1", "#3366CC", "120.00"}},
                {.cells = {"2", "Bob Sample", "0", "West 1", "#C04000", "-35.50"},
                 .fore = forms::Color{192, 0, 0},
                 .colored_cell = 5},
                {.cells = {"3", "Cay Test", "1", "East 2", "", "0.00"}},
                {.cells = {"4", "Dee Model", "0", "West 2", "#40A040", "7.25"},
                 .fore = forms::Color{0, 0, 0},
                 .back = forms::Color{255, 240, 180}}};
  grdRows.Rows = rows;
  grdRows.FilterBar = true;
  grdRows.MultiSelect = true;
  grdRows.RowsMove = true;
  grdRows.Row = 0;
}

std::string frmGallery::CellText(int column) const {
  return grdRows.Columns.get()[static_cast<std::size_t>(column)].caption + " " +
         std::string(grdRows.Cell(grdRows.Row, column));
}

void frmGallery::WireFields() {
  const auto tell = [this](const char* what) { return [this, what] { Tell(what); }; };
  ToolStrip.ItemClicked = [this](const std::string& key) { Tell("tool " + key); };
  MnuFileFirst.Click = tell("first command");
  Tabs.Switch = [this] { Tell("page " + std::to_string(Tabs.CurrTab.get())); };
  txtName.Change = [this] { Tell("name " + txtName.Text.get()); };
  txtPassword.Change = tell("password");
  txtDate.Change = [this] { Tell("date " + txtDate.Text.get()); };
  txtRemarks.Change = tell("remarks");
  txtExtra.Change = [this] { Tell("extra " + txtExtra.Text.get()); };
  cboKind.Click = [this] { Tell("kind " + cboKind.Text.get()); };
  cboPlace.Click = cboPlace.Change = [this] { Tell("place " + cboPlace.Text.get()); };
  chkActive.Click = tell("active");
  chkExtra.Click = [this] {
    pnlExtra.Visible = chkExtra.Value == forms::CheckState::On;
    Tell(pnlExtra.Visible ? "extra page" : "no extra page");
  };
  optLeft.Click = tell("left");
  optRight.Click = tell("right");
  sldSize.Change = [this] { Tell("size " + std::to_string(sldSize.Value.get())); };
  picSwap.Click = [this] {
    (optLeft.Value ? optRight : optLeft).Value = true;
    Tell("swapped");
  };
  cmdPick.Click = [this] {
    const auto color = user_.PickColor({});
    Tell(color ? "colour " + forms::ColorText(*color) : "no colour");
  };
  cmdCheck.Click = [this] {
    if (pnlExtra.Visible && txtExtra.Text->empty()) {
      txtExtra.SetFocus();
    }
    Tell("checked");
  };
  rtfNote.Change = [this] { Tell("note " + rtfNote.Text()); };
  Timer1.Elapsed = tell("time passed");
  DialogButtons1.OK.Click = [this] { Close(); };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
}

void frmGallery::WireLists() {
  lstPlaces.Click = [this] { Tell("place #" + std::to_string(lstPlaces.ListIndex.get())); };
  lstPlaces.DblClick = [this] { Tell("opened #" + std::to_string(lstPlaces.ListIndex.get())); };
  lstChecks.ItemCheck = [this](int index) {
    Tell("#" + std::to_string(index) + (lstChecks.IsChecked(index) ? " on" : " off"));
  };
  chsColumns.Change = [this] {
    std::string chosen = "chosen";
    for (const std::int32_t number : chsColumns.ChosenData()) {
      chosen += " " + std::to_string(number);
    }
    Tell(chosen);
  };
}

void frmGallery::WireGrid() {
  grdRows.RowColChange = [this] {
    Tell("cell #" + std::to_string(grdRows.Row.get()) + "," + std::to_string(grdRows.Col.get()));
  };
  grdRows.SelectionChange = [this] { Tell("rows" + Numbers(grdRows.Selected())); };
  grdRows.DblClick = [this] { Tell("opened #" + std::to_string(grdRows.Row.get())); };
  grdRows.CellEdited = [this](int column, const std::string& text) {
    Tell(CellText(column) + " becomes " + text);
    return !text.empty();
  };
  // Each side has its rooms.
  grdRows.Choices = [this](int row, int column) {
    const std::string side(grdRows.Cell(row, column).substr(0, 4));
    return std::vector<std::string>{side + " 1", side + " 2", side + " 3"};
  };
  grdRows.Pick = [this](int column) -> std::optional<std::string> {
    const std::string_view text = grdRows.Cell(grdRows.Row, column);
    const auto color = user_.PickColor(forms::ParseColor(text).value_or(forms::Color{}));
    return color ? std::optional(forms::ColorText(*color)) : std::nullopt;
  };
  grdRows.Tip = [this](int row, int column) {
    const std::string& caption = grdRows.Columns.get()[static_cast<std::size_t>(column)].caption;
    return row < 0 ? caption : caption + ": " + std::string(grdRows.Cell(row, column));
  };
  grdRows.FilterChanged = [this] {
    std::string filters = "filters";
    for (const forms::GridColumn& column : grdRows.Columns.get()) {
      filters += column.filter.empty() ? "" : " " + column.filter;
    }
    Tell(filters);
  };
  grdRows.HeadClick = [this](int column) { Tell("sorted by " + CellText(column)); };
  grdRows.LayoutChanged = [this] { Tell("layout"); };
  grdRows.RowMoved = [this](int from, int to) {
    Tell("row from #" + std::to_string(from) + " to #" + std::to_string(to));
    return true;
  };
}

std::unique_ptr<forms::Form> MakeGallery(std::string_view name, forms::User& user) {
  return forms::EqualsIgnoringCase(name, kGallery) ? std::make_unique<frmGallery>(user) : nullptr;
}

}  // namespace host
