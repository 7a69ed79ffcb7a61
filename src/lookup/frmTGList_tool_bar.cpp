#include <algorithm>
#include <array>

#include "data/literal.h"
#include "data/persons.h"
#include "lookup/frmTGList.h"

namespace lookup {
namespace {

struct Tool {
  const char* key;
  const char* caption;  // empty for a separator
  const char* icon;
};

constexpr std::array<Tool, 21> kTools = {{
    {"New", "&New", "New_32.png"},
    {"Edit", "&Edit", "Edit_32.png"},
    {"Delete", "&Delete", "Delete_32.png"},
    {"TopSep1", "", ""},
    {"RemFilt", "&Remove Filter", "Rem_Filter_32.png"},
    {"TopSep2", "", ""},
    {"Print", "&Print List", "Print_32.png"},
    {"TopSep3", "", ""},
    {"Patient", "Goto Patient", "Pat_Info_32.png"},
    {"Trans", "Goto Transaction", "Trans_32.png"},
    {"TransHis", "Goto Transaction History", "Trans_Hist_32.png"},
    {"FamTab", "Goto Family Table", "Fam_Table_32.png"},
    {"Aging", "Goto Aging Table", "Aging_32.png"},
    {"Notes", "Goto Notes", "Notes_32.png"},
    {"PrintEnv", "Print Envelope", "PrintEnv_32.png"},
    {"Label", "Print Label", "Print_Labels_32.png"},
    {"LtrQ", "Quick Letter", "Q_Letter_32.png"},
    {"Image", "Goto Image", "Image_32.png"},
    {"TopSep4", "", ""},
    {"LinkG", "Link to Electronic Payer", "Link_32.png"},
    {"UnLinkG", "Un-link from Electronic Payer", "Unlink_32.png"},
}};

}  // namespace

void frmTGList::Setup_ToolBar() {
  for (const Tool& tool : kTools) {
    if (*tool.caption == '\0') {
      ToolStrip.AddSeparator(tool.key);
    } else {
      ToolStrip.Add(tool.key, tool.caption, tool.icon).Visible = false;
    }
  }
  ToolStrip.ItemClicked = [this](const std::string& key) { ToolStrip_ItemClicked(key); };
}

// Without an editing screen New is the caller's to carry out; Edit is nobody's.
void frmTGList::ShowToolButtons() {
  ToolStrip["New"].Visible = MayEdit();
  ToolStrip["Edit"].Visible = MayEdit() && Edits.has_value();
  ToolStrip["Delete"].Visible =
      MayEdit() && Options.allow_delete && !Options.select_mode && Commands.deletes != nullptr;
  ToolStrip["RemFilt"].Visible = true;
  ToolStrip["Print"].Visible = true;
  ToolStrip["LinkG"].Visible = LinksPayers();
  ToolStrip["UnLinkG"].Visible = LinksPayers();
  ShowNavigation();
  ShowSeparators();
}

void frmTGList::EditCurrent() {
  if (DotNetGrid.Row >= 0 && Edits) {
    if (Edits->kind == session::RecordKind::FamilyMember && CurrentID() == Options.family_head_including) {
      TellIsBeingEdited();
      return;
    }
    session::Opening opening = *Edits;
    opening.mode = session::Opening::Mode::Existing;
    opening.id = CurrentID();
    if (const session::Outcome outcome = context_.screens.Edit(opening); outcome.Saved() || outcome.Deleted()) {
      Requery(conditions_, sort_, {.id = outcome.id, .row = DotNetGrid.Row});
    }
  } else if (context_.user.Ask({.text = "Nothing to edit. Do you want to add one?",
                                .buttons = forms::kYesNo,
                                .icon = forms::Icon::Question}) == forms::Answer::Yes) {
    DotNetGrid_AddRecord();
  }
}

void frmTGList::DeleteCurrent() {
  const Place place = {.id = CurrentID(), .row = DotNetGrid.Row};
  if (place.row >= 0 && Commands.deletes(context_, Options, {place.id, Chosen(NamFld.Caption.get())})) {
    all_ = 0;  // the filtered rows do not tell how many went
    Requery(conditions_, sort_, place);
  }
}

// The stored statement of the employees reaches into other offices, where an ID is another person's.
bool frmTGList::AreOurs(const std::vector<int>& rows) const {
  const bool reaches = Edits && Edits->kind == session::RecordKind::Employee && statements_.OfficeScoped();
  return !reaches || std::ranges::all_of(rows, [this](int row) { return IsOurs(row); });
}

bool frmTGList::IsOurs(int row) const {
  bool ours = false;
  Attempt([&] {
    const auto person = statements_.Select(
        "SELECT pLASNAM AS [Last Name], pFIRNAM AS [First Name], pProTTL AS Title, pBUSPHO AS [Business Phone], "
        "pHOMPHO AS [Home Phone], pADD1 AS [Home Address 1], pADD2 AS [Home Address 2], pCIT AS [H-City], "
        "pSTA AS [H-State], pZIP AS Zip FROM PATable WHERE pID=" +
        data::Literal(session::ToId(CellOf(row, IDFld.Caption.get()))) + statements_.Office());
    ours = !person->Eof();
    for (std::size_t i = 0; ours && i < person->Fields().size(); ++i) {
      ours = session::ToText(person->Get(i)) == CellOf(row, person->Fields()[i].name);
    }
    if (!ours) {
      Tell(data::LastFirst(CellOf(row, "Last Name"), CellOf(row, "First Name")) +
               " is a person of another office, or has been changed meanwhile. Nothing was done.",
           forms::Icon::Information);
    }
  });
  return ours;
}

// A separator stands only between buttons that are shown.
void frmTGList::ShowSeparators() {
  forms::ToolBar::Item* waiting = nullptr;
  bool button_before = false;
  for (forms::ToolBar::Item& item : ToolStrip.Items()) {
    if (item.separator) {
      item.button.Visible = false;
      if (button_before) {
        waiting = &item;
      }
    } else if (item.button.Visible) {
      if (waiting != nullptr) {
        waiting->button.Visible = true;
        waiting = nullptr;
      }
      button_before = true;
    }
  }
}

// The host hears of every click first, and may carry the command out itself.
void frmTGList::ToolStrip_ItemClicked(const std::string& key) {
  if (key != "New" && key != "RemFilt" && !ShowsWhatIsAsked()) {
    return;
  }
  GoToSelected();
  if (Events.ButtonClicked) {
    Events.ButtonClicked(key, CurrentID());
  }
  bool handled = false;
  if (Events.CheckEvent) {
    Events.CheckEvent(handled);
  }
  if (handled) {
    return;
  }
  if (key == "New") {
    DotNetGrid_AddRecord();
  } else if (key == "RemFilt") {
    ClearFilter();
  } else if (key == "Print") {
    PrintList();
  } else if (DotNetGrid.Row >= 0 && !AreOurs({DotNetGrid.Row})) {
    return;
  } else if (key == "Edit") {
    EditCurrent();
  } else if (key == "Delete") {
    DeleteCurrent();
  } else if (key == "LinkG") {
    LinkPayer();
  } else if (key == "UnLinkG") {
    UnLinkPayer();
  } else {
    GoTo(key);
  }
}

}  // namespace lookup
