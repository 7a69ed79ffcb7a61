#include "people/frmDatabaseSearch.h"

#include <functional>

#include "editing/recordset_rows.h"
#include "forms/text.h"
#include "people/name_entry.h"

namespace people {
namespace {

constexpr int kFirstPage = 100;

// "1 Main St Apt 2 Springfield, IL 62701", without what is not known.
std::string Address(const std::string& line1, const std::string& line2, const std::string& city,
                    const std::string& state, const std::string& zip) {
  std::string address;
  const auto add = [&address](std::string_view between, const std::string& part) {
    if (!part.empty()) {
      address += (address.empty() ? "" : std::string(between)) + part;
    }
  };
  add("", line1);
  add(" ", line2);
  add(" ", city);
  add(city.empty() ? " " : ", ", state);
  add(" ", zip);
  return address;
}

std::string Text(const session::Recordset& person, std::string_view column) {
  return session::ToText(person[column]);
}

std::function<std::string(const session::Recordset&)> Column(std::string_view column) {
  return [column](const session::Recordset& person) { return Text(person, column); };
}

}  // namespace

frmDatabaseSearch::frmDatabaseSearch(const session::ScreenContext& context)
    : Form("frmDatabaseSearch"), Rules(context) {
  Caption = "Database Search";
  Add("Name_List", Name_List);
  Add("DialogButtons1", DialogButtons1);
  Properties["SearchText"] = {[this] { return SearchText; }, [this](const std::string& text) { SearchText = text; }};
  Properties["FamilyHeads"] = {[this] { return std::string(FamilyHeads ? "True" : "False"); },
                               [this](const std::string& text) { FamilyHeads = forms::IsOn(text); }};
  Properties["SelectedID"] = {[this] { return std::to_string(SelectedID); }, nullptr};
  Name_List.Columns = std::vector<forms::GridColumn>{
      {.key = "Name", .caption = "Name", .width = 220},    {.key = "pHOMPHO", .caption = "Home", .width = 110},
      {.key = "pBUSPHO", .caption = "Work", .width = 110}, {.key = "pSSN", .caption = "SSN", .width = 90},
      {.key = "Addr", .caption = "Addr.", .width = 320},   {.key = "pID", .caption = "ID", .visible = false}};
  Name_List.AccessibleName = "Persons found";
  Name_List.DblClick = [this] { Choose(); };
  Name_List.KeyDown = [this](forms::Key key) {
    if (key == forms::Key::Enter) {
      Choose();
    }
    return key == forms::Key::Enter;
  };
  DialogButtons1.Help.Visible = false;
  DialogButtons1.Extra.Caption = "&New";
  DialogButtons1.Extra.Visible = true;
  DialogButtons1.Extra.ToolTip = "Add the typed name as a new person";
  DialogButtons1.Extra.Click = [this] {
    NewWanted = true;
    Close();
  };
  DialogButtons1.OK.Click = [this] { Choose(); };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
}

int frmDatabaseSearch::Search() {
  const auto name = [](const session::Recordset& person) {
    return Text(person, "pFIRNAM") + " " + Text(person, "pLASNAM") + " [ " + Text(person, "pID") + " ]";
  };
  const auto address = [](const session::Recordset& person) {
    return Address(Text(person, "pADD1"), Text(person, "pADD2"), Text(person, "pCIT"), Text(person, "pSTA"),
                   Text(person, "pZIP"));
  };
  const auto rows = std::make_shared<editing::RecordsetRows>(
      statements_.Select(NameSearch(context_.session, SearchText, FamilyHeads)),
      editing::RecordsetRows::Cells{name, Column("pHOMPHO"), Column("pBUSPHO"), Column("pSSN"), address,
                                    Column("pID")});
  rows->Failed = [this](const session::DatabaseError& error) { Report(error); };
  rows->Fetch(kFirstPage);
  Name_List.Rows = rows;
  Name_List.Row = rows->Count() > 0 ? 0 : -1;
  return rows->Count();
}

void frmDatabaseSearch::OnLoad() {
  if (Name_List.RowCount() == 0 && !Attempt([this] { Search(); })) {
    Close();
  }
}

void frmDatabaseSearch::Choose() {
  if (const int row = Name_List.Row; row >= 0) {
    SelectedID = session::ToId(session::Value(std::string(Name_List.Cell(row, Name_List.ColumnIndex("pID")))));
    Close();
  }
}

}  // namespace people
