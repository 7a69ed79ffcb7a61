#include "people/frmDatabaseSearch.h"

#include "data/statements.h"
#include "editing/attempt.h"
#include "forms/text.h"
#include "people/name_entry.h"

namespace people {
namespace {

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

// Persons as they are read from the statement.
class PersonRows : public forms::TableRows {
 public:
  PersonRows(std::unique_ptr<session::Recordset> persons, std::vector<std::int32_t>& ids)
      : persons_(std::move(persons)), ids_(ids) {}

  bool FetchMore() override {
    constexpr int kPage = 100;
    for (int i = 0; i < kPage && !persons_->Eof(); ++i, persons_->MoveNext()) {
      const session::Recordset& person = *persons_;
      const auto text = [&](const char* column) { return session::ToText(person[column]); };
      ids_.push_back(session::ToId(person["pID"]));
      rows.push_back(
          {{text("pFIRNAM") + " " + text("pLASNAM") + " [ " + text("pID") + " ]", text("pHOMPHO"), text("pBUSPHO"),
            text("pSSN"), Address(text("pADD1"), text("pADD2"), text("pCIT"), text("pSTA"), text("pZIP"))}});
    }
    return !persons_->Eof();
  }

 private:
  std::unique_ptr<session::Recordset> persons_;
  std::vector<std::int32_t>& ids_;
};

}  // namespace

frmDatabaseSearch::frmDatabaseSearch(const session::ScreenContext& context)
    : Form("frmDatabaseSearch"), context_(context) {
  Caption = "Database Search";
  Add("Name_List", Name_List);
  Add("DialogButtons1", DialogButtons1);
  Properties["SearchText"] = {[this] { return SearchText; }, [this](const std::string& text) { SearchText = text; }};
  Properties["FamilyHeads"] = {[this] { return std::string(FamilyHeads ? "True" : "False"); },
                               [this](const std::string& text) { FamilyHeads = forms::IsOn(text); }};
  Properties["SelectedID"] = {[this] { return std::to_string(SelectedID); }, nullptr};
  Name_List.Columns = std::vector<forms::GridColumn>{{.key = "Name", .caption = "Name", .width = 220},
                                                     {.key = "pHOMPHO", .caption = "Home", .width = 110},
                                                     {.key = "pBUSPHO", .caption = "Work", .width = 110},
                                                     {.key = "pSSN", .caption = "SSN", .width = 90},
                                                     {.key = "Addr", .caption = "Addr.", .width = 320}};
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
  const data::Statements statements(context_.session);
  ids_.clear();
  auto rows =
      std::make_shared<PersonRows>(statements.Select(NameSearch(context_.session, SearchText, FamilyHeads)), ids_);
  rows->FetchMore();
  Name_List.Rows = rows;
  Name_List.Row = rows->Count() > 0 ? 0 : -1;
  return rows->Count();
}

void frmDatabaseSearch::OnLoad() {
  if (ids_.empty() && !editing::Attempt(context_.user, [this] { Search(); })) {
    Close();
  }
}

void frmDatabaseSearch::Choose() {
  const int row = Name_List.Row;
  if (row >= 0 && row < static_cast<int>(ids_.size())) {
    SelectedID = ids_[static_cast<std::size_t>(row)];
    Close();
  }
}

}  // namespace people
