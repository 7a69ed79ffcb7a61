#include "insurance/ucPlanDetails.h"

#include <algorithm>

#include "data/global_plan.h"
#include "data/literal.h"
#include "editing/record_hold.h"
#include "forms/form.h"
#include "forms/text.h"

namespace insurance {
namespace {

struct Tool {
  const char* key;
  const char* caption;
  const char* tip;
};
constexpr std::array kTools = {
    Tool{"NEW", "&New", "NEW CODE, Left mouse - New"},
    Tool{"EDIT", "&Edit", "EDIT CODE, Left mouse - Edit"},
    Tool{"DELETE", "&Delete", "DELETE CODE, Left mouse - Delete"},
    Tool{"COPYCODES", "Copy &Service Codes...", "COPY SERVICE CODES, Left mouse - Copy service codes"},
    Tool{"COPYPLAN", "Copy Insurance &Plan From...",
         "COPY AN EXISTING INSURANCE PLAN, Left mouse - Copy insurance plan"},
    Tool{"HELP", "&Help", "HELP, Left mouse - Contents"},
    Tool{"CLOSE", "Cl&ose", "CLOSE, Left mouse - Exit Insurance Plan"}};

constexpr std::string_view kHelp =
    "Each row tells what the plan covers of one treatment code, first as the primary and then as the secondary "
    "coverage.\r\n\r\n"
    "Type into a cell to change it. A row is saved when you go on to another one, with Ctrl+S, or when you close the "
    "screen; Esc takes back what you have changed in it.\r\n\r\n"
    "Elig.Fee, Pln.Fee, S.Fee, S.Max: amounts of money\r\n"
    "Cov %, UCR %: how much of a fee is covered, 100 for all of it\r\n"
    "Ded: Y where the deductible applies, N where it does not\r\n"
    "Per, #/Per: a period (6M, 1Y), and how many times in it the plan pays\r\n"
    "St.Date: from when on\r\n"
    "Category: codes that are covered alike; a new percentage can be applied to all of them\r\n\r\n"
    "New (Insert) adds a code, and Delete takes the selected ones away. A code that you enter gets the percentage of "
    "the Global Insurance Plan. Type into the cells under the captions to find codes.";

}  // namespace

HelpPanel::HelpPanel() {
  Add("Label3", Label3);
  Label3.Caption = std::string(kHelp);
  Label3.Click = [this] { Visible = false; };
}

ucPlanDetails::ucPlanDetails(const session::ScreenContext& context)
    : Rules(context),
      rows_(std::make_shared<PlanDetailRows>(list_, std::vector<std::size_t>())),
      layout_(context.session, TDBG) {
  Register();
  Wire();
}

void ucPlanDetails::Register() {
  for (const Tool& tool : kTools) {
    TB.Add(tool.key, tool.caption, {});
  }
  TB["HELP"].CausesValidation = TB["CLOSE"].CausesValidation = false;
  Add("lblPlan", lblPlan);
  Add("TB", TB);
  Add("lblReadOnly", lblReadOnly);
  Add("lblCodes", lblCodes);
  Add("TDBG", TDBG);
  Add("SB", SB);
  Add("PictureBox1", PictureBox1);
  lblCodes.Caption = "&Codes";
  lblReadOnly.Visible = false;
  TDBG.Heading = &lblCodes;
  TDBG.Columns = PlanDetailColumns(true);
  TDBG.FilterBar = true;
  TDBG.TypingField = "Code";
  TDBG.MultiSelect = true;
  TDBG.EmptyText = "This plan has no codes.";
}

void ucPlanDetails::Wire() {
  TDBG.RowColChange = [this] { TDBG_RowColChange(); };
  TDBG.CellEdited = [this](int column, const std::string& text) {
    bool taken = false;
    Attempt([&] { taken = TakeCell(column, text); });
    return taken;
  };
  KeyDown = [this](forms::Key key) {
    const bool hides = key == forms::Key::Esc && PictureBox1.Visible;
    PictureBox1.Visible = PictureBox1.Visible && !hides;
    return hides;
  };
  TDBG.KeyDown = [this](forms::Key key) { return OnGridKey(key); };
  TDBG.DblClick = [this] { EditCode(); };
  TDBG.HeadClick = [this](int /*column*/) { Arrange(Current()); };
  TDBG.FilterChanged = [this] { Arrange(Current()); };
  TB.ItemClicked = [this](const std::string& key) { TB_Click(key); };
}

bool ucPlanDetails::FindPlan() {
  plan_ = {.key = data::PlanKey::Global()};
  names_ = {};
  if (GroupID == 0 && CarrierID != 0 && !GroupNumber.empty()) {
    const auto plans = data::PlansWithDetails(context_.session, {.carrier = CarrierID, .group_number = GroupNumber});
    GroupID = plans.empty() ? 0 : plans.front();
  }
  if (GroupID != 0) {
    const auto found = data::ReadGroupPlan(context_.session, GroupID);
    if (!found) {
      Tell("Group plan " + std::to_string(GroupID) + " was not found in the database.", forms::Icon::Information);
      return false;
    }
    plan_ = *found;
    CarrierID = plan_.key.carrier != 0 ? plan_.key.carrier : CarrierID;
    GroupNumber = plan_.key.group_number;
  } else if ((CarrierID != 0 || EmployerID != 0) && GroupNumber.empty()) {
    Tell("Please choose the group plan whose details are wanted.", forms::Icon::Information);
    return false;
  }
  if (CarrierID != 0 || !GroupNumber.empty()) {
    plan_.key = {.carrier = CarrierID, .group_number = GroupNumber};
    names_.group_number = GroupNumber;
    names_.carrier = session::ToText(statements_.SelectValue(
        "SELECT InsCoNam FROM InsCoTable WHERE InsCoInd=" + data::Literal(CarrierID) + statements_.Office()));
  }
  return true;
}

void ucPlanDetails::OnLoad() {
  ShowTips();
  const bool has_right = context_.session.HasRight(kRight);
  const bool read_only = !has_right || editing::EditingForm::ReadOnly(*this);
  lblReadOnly.Visible = read_only;
  lblReadOnly.Caption = has_right ? std::string("Read only, cannot modify.")
                                  : "Read only: user [" + context_.session.UserName() +
                                        "] does not have the rights to modify " + std::string(kGuarded) + ".";
  TDBG.Columns = PlanDetailColumns(!read_only);
  Load();
  layout_.Restore("ucPlanDetails");  // when the captions, and the widths that they need, are those of the plan
  Activate();
}

void ucPlanDetails::ShowTips() {
  const bool shows = forms::IsOn(context_.session.OfficeSetting("DEFAULT_OFFICE_SETUP", "POPUP_HELP_FLAG"));
  for (const Tool& tool : kTools) {
    TB[tool.key].ToolTip = shows ? tool.tip : "";
  }
  TB["HELP"].Visible = !HideHelp;
  TB["CLOSE"].Visible = !HideClose;
}

void ucPlanDetails::Load() {
  draft_.reset();
  loaded_ = false;
  EndMerging();
  list_.Take({});
  try {
    ResetGlobalPlan();
    const forms::WaitText wait(context_.user, "  Loading Insurance Plan - Please Wait  ");
    ShowPlan();
    ReadDetails();
    loaded_ = true;
  } catch (const session::DatabaseError&) {
    Tell("Problem while loading coverage details data.", forms::Icon::Critical);
  }
  Arrange(list_.Count() == 0 ? std::optional<std::size_t>() : 0);
}

void ucPlanDetails::ReadDetails() {
  auto found = Details().Read();
  list_.carrier_name = names_.carrier;
  list_.group_number = plan_.key.group_number;
  rooms_ = found.rooms;
  list_.Take(std::move(found.details));
}

// Whichever plan is opened first. Who finds another user at it leaves it to him.
void ucPlanDetails::ResetGlobalPlan() {
  const data::GlobalPlan global(context_.session);
  if (context_.session.Connection().ReadOnly() || !global.IsEmpty()) {
    return;
  }
  Attempt([&] {
    const editing::RecordHold hold(context_.session, "IPTABLE", 0);
    if (hold.Holder()) {
      return;
    }
    Tell(
        "TAVO Windows has found that all information in the Global Insurance Plan has been removed. The Global "
        "Insurance Plan will be reset to default values.",
        forms::Icon::Information);
    if (global.IsEmpty()) {
      global.Reset();
    }
  });
}

void ucPlanDetails::ShowPlan() {
  if (IsGlobal()) {
    lblPlan[0].Caption = "Global Insurance Plan";
    lblPlan[1].Visible = false;
    lblPlan[2].Visible = false;
    return;
  }
  names_.employer = session::ToText(statements_.SelectValue(
      "SELECT EmpNam FROM EmpTable WHERE EmpInd=" + data::Literal(EmployerID) + statements_.Office()));
  lblPlan[0].Caption = "Employer: " + names_.employer;
  lblPlan[0].Visible = EmployerID != 0;
  lblPlan[1].Caption = "Insurance: " + names_.carrier;
  lblPlan[2].Caption = "Group #: " + plan_.key.group_number;
  if (forms::EqualsIgnoringCase(forms::Trim(plan_.category), "PPO")) {
    Setup_PPO_Info();
  }
}

void ucPlanDetails::Setup_PPO_Info() {
  auto columns = TDBG.Columns.get();
  for (forms::GridColumn& column : columns) {
    if (column.cell == Column::kFee) {
      column.caption = "P.Approved/ Accepted";
      column.width = std::max(column.width, 150);
    } else if (column.cell == Column::kMaximum) {
      column.caption = "P.Allowed/ Plan Calculation Fee";
      column.width = std::max(column.width, 210);
    }
  }
  TDBG.Columns = std::move(columns);
}

void ucPlanDetails::Activate() {
  TDBG.SetFocus();
}

void ucPlanDetails::Arrange(std::optional<std::size_t> current) {
  rows_ = std::make_shared<PlanDetailRows>(list_,
                                           list_.Arranged(TDBG, draft_ ? std::optional(draft_->place) : std::nullopt));
  TDBG.Rows = rows_;
  const int row = current ? rows_->RowOf(*current) : -1;
  TDBG.Row = row < 0 && rows_->Count() > 0 ? 0 : row;
  ShowCount();
}

void ucPlanDetails::ShowCount() {
  const auto told = [](std::size_t count) {
    return forms::WithThousands(static_cast<int>(count)) + (count == 1 ? " code" : " codes");
  };
  const auto shown = static_cast<std::size_t>(rows_->Count());
  SB.Caption = shown == list_.Count() ? told(shown)
                                      : forms::WithThousands(static_cast<int>(shown)) + " of " + told(list_.Count());
}

std::optional<std::size_t> ucPlanDetails::Current() const {
  return TDBG.Row >= 0 && TDBG.Row < rows_->Count() ? std::optional(rows_->PlaceAt(TDBG.Row)) : std::nullopt;
}

void ucPlanDetails::TB_Click(const std::string& key) {
  if (key == "NEW") {
    AddCode();
  } else if (key == "EDIT") {
    EditCode();
  } else if (key == "DELETE") {
    DeleteCodes();
  } else if (key == "COPYCODES") {
    MergeServiceCodes();
  } else if (key == "COPYPLAN") {
    CopyPlan();
  } else if (key == "HELP") {
    ShowHelp();
  } else if (!merging_) {
    Owner()->DoClose();
  } else if (SaveEdit()) {
    LeaveRow();
    EndMerging();
    Arrange(Current());
  }
}

void ucPlanDetails::ShowHelp() {
  if (PictureBox1.Visible) {
    PictureBox1.Visible = false;
  } else {
    PictureBox1.Drop(TB["HELP"]);
  }
}

}  // namespace insurance
