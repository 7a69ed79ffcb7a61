#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editing/kept_layout.h"
#include "editing/recordset_rows.h"
#include "editing/rules.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/tool_bar.h"
#include "lookup/list_commands.h"
#include "lookup/list_events.h"
#include "lookup/list_statement.h"
#include "session/screens.h"

namespace lookup {

// The list window: the rows of one statement, to filter, sort and choose from.
class frmTGList : public forms::Form, private editing::Rules {
 public:
  explicit frmTGList(const session::ScreenContext& context);

  // Inputs, set before it is shown.
  std::shared_ptr<void> OwnerForm;
  // The title names the list while it loads and in messages; the caption does where there is none. Nothing is deleted
  // unless that is allowed.
  session::ListOptions Options = {.allow_delete = false};
  data::Sql SortBy;
  bool AllowEdit = true;
  std::string ListName;
  std::string LayoutKey;  // of the columns' layout file, and of the window's place; empty where none is kept

  // "DISTINCTROW" becomes "DISTINCT" unless the database is a file.
  void SetSQL(const data::Sql& sql);
  const data::Sql& SQL() const { return sql_; }

  // How New opens the editing screen; Edit opens it on the current record. Without it New is the caller's to carry
  // out, and nothing can be edited.
  std::optional<session::Opening> Edits;
  // What else can be done with the records.
  ListCommands Commands;
  // The condition for the records of an office location; null where the list is not asked for by location.
  std::function<data::Sql(std::int32_t location)> AtLocation;
  ListEvents Events;

  // Shows the list unless the request skips it, and gives the result. Where it closed for a navigation command the
  // host has heard of it.
  const session::ListOutcome& ShowList();

  void Run(const std::function<void()>& rule) override { Attempt(rule); }
  const std::string& PlaceKey() const override { return LayoutKey.empty() ? Name() : LayoutKey; }

  // How the list was left.
  session::ListOutcome Result;
  // The navigation command that closed the list, empty for none, and the ID of the record that it goes to.
  std::string Whereto;
  std::string Designation_String;
  // A cell of the chosen row.
  std::string Chosen(std::string_view caption) const { return CellOf(DotNetGrid.Row, caption); }

  forms::MenuItem MnuFileSel, MnuFileSort, MnuFileExport, MnuFileResDef, MnuFileExit;
  forms::MenuItem MnuFilterCell;  // filters by the current cell
  forms::ToolBar ToolStrip;
  forms::Panel pnlFacility;  // the location whose records are shown
  forms::Label lblFacility;
  forms::ComboBox cboFacility;
  forms::OptionButton optFiltLeft, optFiltMid;
  forms::CheckBox chkAutoClearFilter;
  forms::Grid DotNetGrid;
  forms::Label RowLabel, SQLLabel;
  forms::Label IDFld, NamFld;  // the captions of the ID and of the name column
  forms::Timer Timer1;         // one-shot; its tag carries a deferred command
  forms::DialogButtons DialogButtons1;

 protected:
  void OnLoad() override;
  // Fetches until every row has arrived.
  bool OnIdle() override;
  // Esc takes the filters away before it closes the window; Ctrl+F leads to them, Ctrl+Shift+F sets one.
  bool OnKey(forms::Key key) override;
  void OnClose() override { layout_.Keep(); }

 private:
  // Where the selection is to be when the rows have been read: on the record, or near this row until and unless the
  // record comes.
  struct Place {
    std::int32_t id = 0;
    int row = -1;
  };

  void RegisterControls();
  void RegisterProperties();
  // The result by its name: the chosen ID as text, "NEW" or "CANCEL_AND_CLOSE".
  std::string ResultText() const;
  void WireHandlers();
  void ReadOptions();
  void WriteOption(std::string_view key, bool set);
  void FilterModeChanged();
  void AutoClearChanged();

  void Setup_ToolBar();
  void ShowToolButtons();
  void ShowSeparators();
  void ToolStrip_ItemClicked(const std::string& key);

  // On the list of carriers: their payer IDs are typed into it, and they are linked to electronic payers.
  bool LinksPayers() const { return Commands.links_payers && MayEdit(); }
  void EnablePayerCommands();
  void LinkPayer();
  void UnLinkPayer();
  bool PayerIdEdited(int column, const std::string& text);
  void ShowInPlace(std::string_view caption, std::string text);

  void EditCurrent();
  void DeleteCurrent();
  // Whether the rows are records of this office; names the first that is not.
  bool AreOurs(const std::vector<int>& rows) const;
  bool IsOurs(int row) const;
  // Whether the kind of list gives the rows; says so when it does not.
  bool AreAccepted(const std::vector<int>& rows) const;
  // Whether records may be changed from here.
  bool MayEdit() const { return AllowEdit && Options.show_mode != session::kLookOnly; }

  void ExportList();
  void PrintList();
  bool FetchAll();
  std::vector<forms::GridColumn> ColumnsWithCells() const;
  // Under the printed title: the filter, how many rows, their order.
  std::vector<std::string> Notes() const;
  // "Name begins with "smi" and City begins with "a"", as the filter cells stand.
  std::string FilterInWords() const;

  void ShowNavigation();
  void EnableNavigation();
  void GoTo(const std::string& command);
  // Whether the person is a patient, or is made one because he is wanted as one.
  bool MakePatient(std::int32_t id, const std::string& command);
  bool WantsPatient(const std::string& name, const std::string& command) const;
  // Nothing when it is given up.
  std::optional<int> AskLabels() const;
  void Timer1_Elapsed();

  void ReadFacilities();
  void cboFacility_Click();
  // Of the location that was chosen; empty for all.
  data::Sql FacilityCondition() const;

  void DotNetGrid_AddRecord();
  void DotNetGrid_DblClick();
  void DotNetGrid_FilterChanged();
  void DotNetGrid_RowColChange();
  bool DotNetGrid_KeyDown(forms::Key key);
  void DotNetGrid_HeadClick(int column);

  struct Query {
    std::vector<data::Sql> conditions;
    data::Sql sort;
    Place place;
  };

  // Reads unless the person types on in the filters; false when he did.
  bool ReadUnlessTyping(const std::function<void()>& read);
  bool IsTyping() const { return DotNetGrid.TypingAhead && DotNetGrid.TypingAhead(); }
  // At the location that is chosen, besides.
  data::Sql Statement(std::vector<data::Sql> conditions, const data::Sql& sort) const;
  // The conditions of the rows that are shown, or of those that typing has put off.
  std::vector<data::Sql> Asked() const { return due_ ? due_->conditions : conditions_; }
  // False when they were put off: they are searched for now, and the person looks first.
  bool ShowsWhatIsAsked();
  bool Requery(const std::vector<data::Sql>& conditions, const data::Sql& sort, Place place);
  void RowsArrived();
  void FindAwaited();
  // The statement's columns, where the person left them last.
  void SetGridLayout();
  void ShowCount();
  std::string WhyEmpty() const;
  bool IsFiltered() const;
  void EnableCommands();
  // Nothing when names were filtered in two ways.
  std::optional<std::vector<data::Sql>> FilterConditions() const;
  void ClearFilter();
  void ClearSearched();
  // The current row is one of those that are selected.
  void GoToSelected();
  void Choose();
  // Empty for no row or no such column.
  std::string CellOf(int row, std::string_view caption) const;
  std::int32_t CurrentID() const;
  const std::string& TitleText() const { return Options.title.empty() ? Caption.get() : Options.title; }

  editing::KeptLayout layout_{context_.session, DotNetGrid};
  forms::OptionGroup filter_modes_{&optFiltLeft, &optFiltMid};

  data::Sql sql_;
  ListStatement statement_;
  std::shared_ptr<editing::RecordsetRows> rows_;
  std::vector<data::Sql> conditions_;  // of the rows that are shown
  std::string shown_filter_;           // in words
  data::Sql sort_;
  std::optional<Query> due_;  // typing ended it, and it runs in a pause
  int sort_column_ = -1;      // as the grid stood for the rows that are shown
  bool sort_descending_ = false;
  int facility_ = 0;  // the location whose rows are shown
  Place awaited_;     // no ID when nothing is awaited any more
  int searched_ = 0;  // rows that were compared with the awaited ID
  int all_ = 0;       // rows without a filter: at least so many; 0 when nothing is known
  bool all_known_ = false;
};

}  // namespace lookup
