#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/coverage_changes.h"
#include "editing/kept_layout.h"
#include "editing/rules.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/tool_bar.h"
#include "forms/user_control.h"
#include "insurance/coverage_link.h"

namespace insurance {

// A patient's insurance coverages in their order. Whatever is changed is asked and written at once; the screen holds
// the patient.
class ucEditCoverage : public forms::UserControl, private editing::Rules {
 public:
  // The keys of the columns that are edited.
  static constexpr const char* kCoveredBy = "CoveredBy";
  static constexpr const char* kRel = "CovRel";
  static constexpr const char* kPatientId = "CovInsCoPatID";
  // Offered among the holdings: the coverage is removed.
  static constexpr std::string_view kNone = "{none}";

  explicit ucEditCoverage(const session::ScreenContext& context);

  forms::ToolBar TB;  // "LINK", "EDIT", "DELETE", "UNLINK", "OKAY", "CLOSE"
  forms::Label lblCaption;
  forms::Grid TDBG;
  CoverageLink Link;

  std::int32_t PatientID = 0;

  // The screen's own. Throws editing::Refusal when nothing may be written any more.
  std::function<void()> BeforeWriting;
  // Whether what was typed about the highlighted coverage is dealt with, so that another one may be shown.
  std::function<bool()> MayLeave;
  std::function<void()> Highlighted;
  std::function<void()> Changed;
  // "OKAY" or "CLOSE" was clicked.
  std::function<void(const std::string& key)> Closing;

  // Shows the patient of the ID. Throws session::DatabaseError.
  void Show();
  forms::Button& Buttons(std::string_view key) { return TB[key]; }
  forms::Property<bool>& ShowToolBar() { return TB.Visible; }
  forms::Property<bool>& ShowCaption() { return lblCaption.Visible; }
  void KeepLayout() { layout_.Keep(); }

  bool Lists(std::int32_t coverage) const { return RowOf(coverage) >= 0; }
  // False when the coverage is not shown.
  bool Highlight(std::int32_t coverage);
  // Of the highlighted coverage; 0 for none.
  std::int32_t CoverageID() const { return Id(kCoverageId); }
  std::int32_t CarrierID() const { return Id(kCarrierId); }
  std::int32_t GroupID() const { return Id(kPlanId); }

  // Asks for a plan that the chosen holder is to hold, and covers the patient through it. Where no holder is being
  // chosen yet, it begins with that.
  void AddInsuranceHolder();

 private:
  void Register();
  void Wire();
  void Clicked(const std::string& key);
  bool OnGridKey(forms::Key key);

  void Read();
  void ReadName();
  // The patient's, as it is now; empty for one without a digit.
  std::string Ssn() const;
  int RowOf(std::int32_t coverage) const;
  std::int32_t Id(CoverageField field) const { return IdAt(TDBG.Row, field); }
  std::int32_t IdAt(int row, CoverageField field) const;
  std::vector<std::int32_t> Covered() const;
  // What the family holds, but for what the row's coverage goes through. Throws session::DatabaseError.
  std::vector<HeldPlan> OtherPlans(int row);
  std::vector<std::string> Choices(int row);

  // Whether the person may change coverages now.
  bool MayChange() const;
  // False, and the person is told, where a holding covers the patient already.
  bool IsNew(std::int32_t holding) const;
  // Writes, shows what there is then, and tells when the coverage has ended meanwhile. Throws session::DatabaseError.
  bool Write(const std::function<bool(const data::CoverageChanges&)>& change);
  bool MayAdd() const;
  void StartLink();
  // Whether a link that was begun is dealt with.
  bool LinkSettled();
  bool AddChosen(const CoverageLink::Choice& choice);
  void EditCell(const std::string& key, const std::string& text);
  void ChangeHolding(const std::string& choice);
  void ChangeRelationship(const std::string& name);
  void ChangeCarrierId(const std::string& text);
  void Remove();
  bool Exchange(int from, int to);
  // In its own screen, where this one is not only looked at.
  void Edit(session::RecordKind kind, std::int32_t id);
  void EditPlan();
  void OpenRecord();

  std::optional<std::vector<HeldPlan>> family_plans_;  // once they were asked for
  std::string name_;
  int room_ = 0;  // of a carrier's ID for the patient, in characters; 0 is unlimited
  editing::KeptLayout layout_;
};

}  // namespace insurance
