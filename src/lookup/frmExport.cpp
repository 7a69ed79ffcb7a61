#include "lookup/frmExport.h"

#include "editing/delimited_text.h"
#include "editing/file_to_write.h"
#include "forms/text.h"

namespace lookup {
namespace {

constexpr const char* kTitle = "Export List";
constexpr std::size_t kPiece = 1U << 16U;  // bytes that go to the file together
constexpr int kRowsAtOnce = 1000;          // before the person may give up

}  // namespace

frmExport::frmExport(const session::ScreenContext& context) : Form("frmExport"), Rules(context) {
  Caption = kTitle;
  optColumnsShown.Caption = "As &shown in the list";
  optColumnsAll.Caption = "&All, hidden ones too";
  optRowsShown.Caption = "As &filtered";
  optRowsAll.Caption = "All &rows";
  optComma.Caption = "&Comma";
  optSemicolon.Caption = "Se&micolon";
  optTab.Caption = "&Tab";
  chkHeadings.Caption = "Head&ings in the first line";
  DialogButtons1.OK.Caption = "&Export ...";
  DialogButtons1.Help.Visible = false;
  for (forms::OptionButton* chosen : {&optColumnsShown, &optRowsShown, &optComma}) {
    chosen->Value = true;
  }
  chkHeadings.Value = forms::CheckState::On;

  Add("optColumnsShown", optColumnsShown);
  Add("optColumnsAll", optColumnsAll);
  Add("optRowsShown", optRowsShown);
  Add("optRowsAll", optRowsAll);
  Add("optComma", optComma);
  Add("optSemicolon", optSemicolon);
  Add("optTab", optTab);
  Add("chkHeadings", chkHeadings);
  Add("DialogButtons1", DialogButtons1);
  Properties["SQL"] = {[this] { return SQL.Text(); },
                       [this](const std::string& text) { UnfilteredSQL = SQL = data::Sql::OfHost(text); }};
  Properties["ListTitle"] = {[this] { return ListTitle; }, [this](const std::string& text) { ListTitle = text; }};

  DialogButtons1.OK.Click = [this] { Export(); };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
}

void frmExport::OnLoad() {
  if (!ListTitle.empty()) {
    Caption = std::string(kTitle) + " - " + ListTitle;
  }
}

char frmExport::Separator() const {
  return optTab.Value ? '\t' : optSemicolon.Value ? ';' : ',';
}

void frmExport::Export() {
  const std::string ending = optTab.Value ? ".txt" : ".csv";
  const auto file =
      editing::PickFileToWrite(context_.user, {.title = kTitle, .name = ListTitle, .pattern = "*" + ending}, ending);
  if (!file) {
    return;
  }
  const auto written = Write(*file);
  if (!written) {
    Tell("The export was given up. No file was written.", forms::Icon::Information);
    return;
  }
  Tell(forms::WithThousands(*written) + (*written == 1 ? " row was" : " rows were") + " written to [ " + *file + " ].",
       forms::Icon::Information);
  Close();
}

std::optional<int> frmExport::Write(const std::string& path) {
  int written = 0;
  const forms::WaitText wait(context_.user, "  Exporting " + ListTitle + " - Please Wait  ");
  try {
    editing::FileToWrite file(path);
    const auto rows = statements_.Select(optRowsAll.Value ? UnfilteredSQL : SQL);
    const std::vector<forms::GridColumn> columns = ColumnsToWrite(*rows);
    std::string text(editing::kByteOrderMark);
    std::vector<std::string> cells(columns.size());
    if (chkHeadings.Value == forms::CheckState::On) {
      std::ranges::transform(columns, cells.begin(), &forms::GridColumn::caption);
      editing::AddDelimitedRow(text, cells, Separator());
    }
    for (; !rows->Eof(); rows->MoveNext()) {
      for (std::size_t i = 0; i < columns.size(); ++i) {
        cells[i] = session::ToText(rows->Get(static_cast<std::size_t>(columns[i].cell)));
      }
      editing::AddDelimitedRow(text, cells, Separator());
      if (text.size() > kPiece) {
        file.Write(text);
        text.clear();
      }
      if (++written % kRowsAtOnce == 0 && GivesUp(written)) {
        return std::nullopt;
      }
    }
    file.Write(text);
    file.Finish();
  } catch (const session::DatabaseError&) {
    if (!GivesUp(written)) {
      throw;
    }
    return std::nullopt;  // a statement that he ended is no failure
  }
  return written;
}

std::vector<forms::GridColumn> frmExport::ColumnsToWrite(const session::Recordset& rows) const {
  std::vector<forms::GridColumn> columns = Columns;
  if (columns.empty()) {
    for (const session::Field& field : rows.Fields()) {
      columns.push_back({.key = field.name, .caption = field.name, .cell = static_cast<int>(columns.size())});
    }
  }
  if (optColumnsShown.Value) {
    std::erase_if(columns, [](const forms::GridColumn& column) { return !column.visible; });
  }
  return columns;
}

bool frmExport::GivesUp(int written) {
  const bool known = ShownRows > 0 && !optRowsAll.Value;
  return context_.user.WaitOrGiveUp(
      "  Exporting " + ListTitle + ": " + forms::WithThousands(written) + " rows so far  ",
      known ? std::min(1.0, static_cast<double>(written) / ShownRows) : -1);
}

}  // namespace lookup
