#include "people/frmDatabaseSearch.h"

#include <functional>
#include <initializer_list>
#include <utility>

#include "data/persons.h"
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

std::string BirthDate(const session::Recordset& person) {
  const auto birth = session::ToDateTime(person["pBIRDAT"]);
  return birth ? forms::FormatDashed(forms::DateOf(*birth)) : std::string();
}

std::string Persons(int count) {
  return std::to_string(count) + (count == 1 ? " person" : " persons");
}

// What stands behind "order by" for the column with that key.
data::Sql SortBy(std::string_view key, bool descending) {
  const auto directed = [descending](std::initializer_list<data::Words> columns) {
    data::Sql sort;
    for (const data::Words column : columns) {
      sort += (sort.Empty() ? data::Sql() : data::Sql(", ")) + column + (descending ? data::Words(" DESC") : "");
    }
    return sort;
  };
  const auto then_name = [](const data::Sql& sort) { return sort + ", pLasNam, pFirNam"; };
  if (key == "pHOMPHO") {
    return then_name(directed({"pHOMPHO"}));
  }
  if (key == "pBUSPHO") {
    return then_name(directed({"pBUSPHO"}));
  }
  if (key == "pSSN") {
    return then_name(directed({"pSSN"}));
  }
  if (key == "pBIRDAT") {
    return then_name(directed({"pBIRDAT"}));
  }
  return key == "Addr" ? then_name(directed({"pADD1", "pADD2", "pCIT"})) : directed({"pLasNam", "pFirNam"});
}

}  // namespace

frmDatabaseSearch::frmDatabaseSearch(const session::ScreenContext& context)
    : Form("frmDatabaseSearch"), Rules(context) {
  Caption = "Database Search";
  Add("Name_List", Name_List);
  Add("RowLabel", RowLabel);
  Add("DialogButtons1", DialogButtons1);
  Properties["SearchText"] = {[this] { return SearchText; }, [this](const std::string& text) { SearchText = text; }};
  Properties["FamilyHeads"] = {[this] { return std::string(FamilyHeads ? "True" : "False"); },
                               [this](const std::string& text) { FamilyHeads = forms::IsOn(text); }};
  Properties["SelectedID"] = {[this] { return std::to_string(SelectedID); }, nullptr};
  Name_List.Columns = std::vector<forms::GridColumn>{
      {.key = "Name", .caption = "Name", .width = 200},         {.key = "pHOMPHO", .caption = "Home", .width = 110},
      {.key = "pBUSPHO", .caption = "Work", .width = 110},      {.key = "pSSN", .caption = "SSN", .width = 90},
      {.key = "pBIRDAT", .caption = "Birth Date", .width = 90}, {.key = "Addr", .caption = "Addr.", .width = 270},
      {.key = "pID", .caption = "ID", .visible = false}};
  Name_List.HeadClick = [this](int column) { Sort(column); };
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
  const auto ssn = [](const session::Recordset& person) { return data::MaskedSsn(person["pSSN"]); };
  const auto address = [](const session::Recordset& person) {
    return Address(Text(person, "pADD1"), Text(person, "pADD2"), Text(person, "pCIT"), Text(person, "pSTA"),
                   Text(person, "pZIP"));
  };
  const auto rows = std::make_shared<editing::RecordsetRows>(
      statements_.Select(NameSearch(context_.session, SearchText, FamilyHeads, SortBy(sort_key_, sort_descending_))),
      editing::RecordsetRows::Cells{name, Column("pHOMPHO"), Column("pBUSPHO"), ssn, BirthDate, address,
                                    Column("pID")});
  rows->Failed = [this](const session::DatabaseError& error) {
    RowLabel.Caption = Persons(rows_->Count()) + "; the others could not be read";
    due_ = ReadsAgain(error);
  };
  rows->Arrived = [this] { ShowCount(); };
  rows->Fetch(kFirstPage);
  rows_ = rows;
  Name_List.Rows = rows;
  Name_List.Row = rows->Count() > 0 ? 0 : -1;
  Name_List.SortColumn = Name_List.ColumnIndex(sort_key_);
  Name_List.SortDescending = sort_descending_;
  ShowCount();
  return rows->Count();
}

void frmDatabaseSearch::Sort(int column) {
  const std::string before = std::exchange(sort_key_, Name_List.Columns.get()[static_cast<std::size_t>(column)].key);
  const bool descended = std::exchange(sort_descending_, Name_List.SortDescending);
  if (!Attempt([this] { Search(); })) {
    sort_key_ = before;
    sort_descending_ = descended;
    Name_List.SortColumn = Name_List.ColumnIndex(before);
    Name_List.SortDescending = descended;
  }
}

void frmDatabaseSearch::ShowCount() {
  if (rows_ != nullptr) {
    RowLabel.Caption = Persons(rows_->Count()) + (rows_->Complete() ? "" : " so far ...");
  }
}

void frmDatabaseSearch::OnLoad() {
  layout_.Restore(Name());
  if (rows_ == nullptr && !Attempt([this] { Search(); })) {
    Close();
  }
}

bool frmDatabaseSearch::OnIdle() {
  if (std::exchange(due_, false)) {
    Attempt([this] { Search(); });
  }
  return Name_List.FetchMore();
}

void frmDatabaseSearch::Choose() {
  if (const int row = Name_List.Row; row >= 0) {
    SelectedID = session::ToId(session::Value(std::string(Name_List.Cell(row, Name_List.ColumnIndex("pID")))));
    Close();
  }
}

}  // namespace people
