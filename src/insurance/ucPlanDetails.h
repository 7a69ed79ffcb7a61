#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/plan_details.h"
#include "data/plan_links.h"
#include "editing/editing_form.h"
#include "editing/kept_layout.h"
#include "editing/rules.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/tool_bar.h"
#include "forms/user_control.h"
#include "insurance/plan_detail_rows.h"

namespace insurance {

// The text of the screen's help, which drops below the button that asks for it. A click takes it away.
class HelpPanel : public forms::DropPanel {
 public:
  HelpPanel();

  forms::Label Label3;
};

// What one plan covers, a row for each treatment code: a carrier's plan, or the office's global one. Rows are edited in
// place, and each is written when the person leaves it.
class ucPlanDetails : public forms::UserControl, private editing::Rules {
 public:
  static constexpr std::string_view kRight = "Change-Ins-Plan-Detail";
  static constexpr std::string_view kGuarded = "insurance plan details";

  explicit ucPlanDetails(const session::ScreenContext& context);

  // The plan: a group plan, or a carrier's by its number. Without any of these it is the global one.
  std::int32_t GroupID = 0;     // by carrier and number where it is 0 and there is one
  std::int32_t CarrierID = 0;   // the group plan's own where it has one
  std::string GroupNumber;      // the group plan's own where one is given
  std::int32_t EmployerID = 0;  // whose plan it is looked at as; 0 for none
  std::int32_t PatientID = 0;   // kept for screens that tell it; the details are the same for all
  bool HideHelp = false;
  bool HideClose = false;
  // What the window around it is called.
  std::string ParentCaption = "Insurance Plan - Coverage Detail";

  std::array<forms::Label, 3> lblPlan;  // employer, carrier and number; the first alone for the global plan
  forms::ToolBar TB;
  forms::Label lblReadOnly;  // why nothing can be changed
  forms::Label lblCodes;
  forms::Grid TDBG;
  forms::Label SB;
  HelpPanel PictureBox1;

  // Before anything is written: throws editing::Refusal when the screen does not hold the plan any more.
  std::function<void()> RequireHold = [] {};

  // Takes the plan that the inputs tell; false, which the person is told, when there is none. Throws
  // session::DatabaseError.
  bool FindPlan();
  bool IsGlobal() const { return plan_.key.IsGlobal(); }
  const data::PlanKey& Plan() const { return plan_.key; }
  // Reads the details. What the database refuses is told, and leaves the grid empty.
  void Load();
  void Activate();
  // A preferred provider's plan has captions of its own for its fees.
  void Setup_PPO_Info();
  // The current row has been changed and not been written.
  bool EditMode() const;
  // Writes the row that is being edited; false, which the person is told, when that was not possible.
  bool SaveEdit();
  bool Save() { return SaveEdit(); }
  // The same for a rule that tells by itself. Throws session::DatabaseError, and editing::Refusal.
  void Write();
  // Whether the screen may close: the row that is being edited is written, or given up by the person.
  bool QueryUnload();
  void KeepLayout() { layout_.Keep(); }

 protected:
  void OnLoad() override;
  bool QueryClose() override { return QueryUnload(); }

 private:
  using Column = data::PlanDetail::Column;
  // The row that is being edited, as it was.
  struct Draft {
    std::size_t place = 0;
    data::PlanDetail before;
  };

  void Register();
  void Wire();
  void ShowPlan();
  void ShowTips();
  void ReadDetails();
  void ResetGlobalPlan();

  bool MayEdit() const;
  std::optional<std::size_t> Current() const;
  data::PlanDetail Blank() const;
  // Puts the rows into the grid as they are to stand, and goes to that one.
  void Arrange(std::optional<std::size_t> current);
  void ShowCount();

  bool OnGridKey(forms::Key key);
  void TDBG_RowColChange();
  bool TakeCell(int column, const std::string& text);
  void Edit(std::size_t place);
  bool IsNewCode(std::size_t place, const data::PlanDetail& detail) const;
  // The person's answer decides how many rows a coverage changes in.
  void ChangeCoverage(std::size_t place, Column column, const session::Value& percent);
  void TakeGlobalCoverage(data::PlanDetail& detail) const;
  void RevertEdit();
  // Ends the editing of a row; a new one in which nothing was entered goes.
  void LeaveRow();

  void TB_Click(const std::string& key);
  void AddCode();
  void EditCode();
  void DeleteCodes();
  void Delete(std::vector<std::size_t> places);
  void MergeServiceCodes();
  void EndMerging();
  void CopyPlan();
  void ShowHelp();

  data::PlanDetails Details() const { return {context_.session, plan_.key}; }

  data::GroupPlan plan_{.key = data::PlanKey::Global()};
  data::LinkNames names_;  // as the heading tells the plan; none for the global one
  PlanDetailList list_;
  std::shared_ptr<PlanDetailRows> rows_;
  std::array<int, data::PlanDetail::kColumns> rooms_{};
  std::optional<Draft> draft_;
  bool loaded_ = false;
  bool merging_ = false;  // service codes stand in the grid that are not stored
  editing::KeptLayout layout_;
};

}  // namespace insurance
