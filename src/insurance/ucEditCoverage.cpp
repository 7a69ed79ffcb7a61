#include "insurance/ucEditCoverage.h"

#include <algorithm>
#include <array>
#include <utility>

#include "data/literal.h"
#include "data/ordered_rows.h"
#include "data/persons.h"
#include "editing/editing_form.h"
#include "editing/recordset_rows.h"
#include "forms/text.h"

namespace insurance {
namespace {

forms::GridColumn Column(const char* key, const char* caption, CoverageField field, int width) {
  return {.key = key, .caption = caption, .width = width, .cell = static_cast<int>(field)};
}

forms::GridColumn Hidden(const char* key, CoverageField field) {
  return {.key = key, .caption = key, .visible = false, .cell = static_cast<int>(field)};
}

std::vector<forms::GridColumn> Columns() {
  forms::GridColumn covered_by = Column(ucEditCoverage::kCoveredBy, "Covered by", kSubscriberFirst, 130);
  forms::GridColumn relationship = Column(ucEditCoverage::kRel, "Rel", kRelationship, 80);
  forms::GridColumn patient_id = Column(ucEditCoverage::kPatientId, "Patient ID", kCarrierPatientId, 100);
  covered_by.editable = relationship.editable = patient_id.editable = true;
  covered_by.kind = relationship.kind = forms::GridColumn::Kind::DropDown;
  for (const forms::ListItem& item : Relationships()) {
    relationship.choices.push_back(item.text);
  }
  return {covered_by,
          relationship,
          patient_id,
          Column("pSSN", "Subscriber SSN", kSubscriberSsn, 105),
          Column("EmpNam", "Employer", kEmployerName, 140),
          Column("InsCoNam", "Insurance Co.", kCarrierName, 140),
          Column("GroPlaGroNum", "Group", kGroupNumber, 80),
          Column("GroPlaNam", "Plan Name", kPlanName, 120),
          Hidden("EmpID", kEmployerId),
          Hidden("InsID", kCarrierId),
          Hidden("GrpID", kPlanId),
          Hidden("StartDate", kStart),
          Hidden("EndDate", kEnd),
          Hidden("elID", kLinkId),
          Hidden("CovID", kCoverageId),
          Hidden("SubID", kSubscriberId),
          Hidden("PatEmpID", kHoldingId)};
}

// As the fields are, but for the subscriber's name, the relationship's, and days without a time.
editing::RecordsetRows::Cells Cells() {
  editing::RecordsetRows::Cells cells;
  for (std::size_t field = 0; field <= kOrder; ++field) {
    cells.emplace_back([field](const session::Recordset& row) { return session::ToText(row.Get(field)); });
  }
  cells[kSubscriberFirst] = [](const session::Recordset& row) {
    return data::FirstLast(row.Get(kSubscriberFirst), row.Get(kSubscriberLast));
  };
  cells[kRelationship] = [](const session::Recordset& row) {
    return RelationshipName(session::ToId(row.Get(kRelationship)));
  };
  return cells;
}

// Not the grid's to move: a row that was moved is read anew in its place.
class CoverageTable : public forms::GridRows {
 public:
  std::vector<std::vector<std::string>> rows;

  int Count() const override { return static_cast<int>(rows.size()); }
  std::string_view Text(int row, int cell) const override {
    return rows.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(cell));
  }
};

std::string TipOf(const forms::GridColumn& column) {
  constexpr std::string_view kDropDown = "Click and then click on drop down arrow to change this patient's ";
  if (column.key == ucEditCoverage::kCoveredBy) {
    return std::string(kDropDown) + "insurance coverage";
  }
  if (column.key == ucEditCoverage::kRel) {
    return std::string(kDropDown) + "relationship to the insurance holder";
  }
  return column.key == ucEditCoverage::kPatientId ? "Click to edit the Insurance Company assigned Patient ID"
                                                  : "Double click to edit " + column.caption + " information";
}

}  // namespace

ucEditCoverage::ucEditCoverage(const session::ScreenContext& context)
    : Rules(context), Link(context), layout_(context.session, TDBG) {
  Register();
  Wire();
}

void ucEditCoverage::Register() {
  TB.Add("LINK", "Link", {}).ToolTip = " Select / Link Additional Insurance Plan ";
  TB.Add("EDIT", "Edit", {}).ToolTip = " Edit Insurance Plan ";
  TB.Add("DELETE", "Delete", {}).ToolTip = " Remove the selected Insurance Plan ";
  TB.Add("UNLINK", "UnLink", {}).Visible = false;
  TB.Add("OKAY", "Okay", {}).ToolTip = " Accept highlighted plan and close ";
  TB.Add("CLOSE", "Close", {}).ToolTip = " Close without making a selection ";
  TB["CLOSE"].CausesValidation = false;
  Add("TB", TB);
  Add("lblCaption", lblCaption);
  Add("TDBG", TDBG);
  Add("fraLink", Link);
  TDBG.Heading = &lblCaption;
  TDBG.Columns = Columns();
  TDBG.RowsMove = true;
  TDBG.EmptyText = "No insurance coverage.\nLink adds a plan.";
}

void ucEditCoverage::Wire() {
  TB.ItemClicked = [this](const std::string& key) { Clicked(key); };
  TDBG.KeyDown = [this](forms::Key key) { return OnGridKey(key); };
  TDBG.RowColChange = [this] { Highlighted(); };
  TDBG.DblClick = [this] { OpenRecord(); };
  TDBG.Tip = [this](int /*row*/, int column) { return TipOf(TDBG.Columns.get()[static_cast<std::size_t>(column)]); };
  TDBG.Choices = [this](int row, int column) {
    const forms::GridColumn& shape = TDBG.Columns.get()[static_cast<std::size_t>(column)];
    return shape.key == kCoveredBy ? Choices(row) : shape.choices;
  };
  // What is written is read again, and what is not stays.
  TDBG.CellEdited = [this](int column, const std::string& text) {
    Attempt([&] { EditCell(TDBG.Columns.get()[static_cast<std::size_t>(column)].key, text); });
    return false;
  };
  TDBG.RowMoved = [this](int from, int to) {
    bool moved = false;
    Attempt([&] { moved = Exchange(from, to); });
    return moved;
  };
  Link.Chosen = [this](const CoverageLink::Choice& choice) { return AddChosen(choice); };
  Link.Stopped = [this] { TDBG.SetFocus(); };
}

void ucEditCoverage::Clicked(const std::string& key) {
  if (key == "LINK") {
    StartLink();
  } else if (key == "EDIT") {
    EditPlan();
  } else if (key == "DELETE") {
    Remove();
  } else if (key != "OKAY" || LinkSettled()) {
    Closing(key);
  }
}

// The keys are those of the family screen's employers.
bool ucEditCoverage::OnGridKey(forms::Key key) {
  if (key == forms::Key::F9) {
    StartLink();
  } else if (key == forms::Key::Insert) {
    EditPlan();
  } else if (key == forms::Key::Delete) {
    Remove();
  } else {
    return false;
  }
  return true;
}

void ucEditCoverage::Show() {
  layout_.Restore("frmEditCoverage");
  Read();
}

// The place that was highlighted stays so.
void ucEditCoverage::Read() {
  const int row = std::max(0, TDBG.Row.get());
  family_plans_.reset();
  ReadName();
  const auto read = statements_.Select(CoverageRows(statements_, PatientID));
  room_ = read->Fields().at(kCarrierPatientId).defined_size;
  const auto rows = std::make_shared<CoverageTable>();
  const auto cells = Cells();
  for (; !read->Eof(); read->MoveNext()) {
    std::vector<std::string>& texts = rows->rows.emplace_back();
    for (const auto& cell : cells) {
      texts.push_back(cell(*read));
    }
  }
  // Engines differ in where they put those without an order.
  std::ranges::stable_sort(rows->rows, {}, [](const std::vector<std::string>& coverage) {
    return data::OrderedRows::PlaceOf(session::ToId(session::Value(coverage[kOrder])));
  });
  TDBG.Rows = rows;
  TDBG.Row = std::min(row, rows->Count() - 1);
  Highlighted();
}

void ucEditCoverage::ReadName() {
  const auto patient = statements_.Select("SELECT pFIRNAM, pLASNAM FROM PATable WHERE pID=" + data::Literal(PatientID) +
                                          statements_.Office());
  name_ = patient->Eof() ? std::string() : data::FirstLast(patient->Get(0), patient->Get(1));
  if (name_.empty()) {
    name_ = data::PersonByNumber(PatientID);
  }
  lblCaption.Caption = "Insurance Coverage for " + name_;
}

std::string ucEditCoverage::Ssn() const {
  const std::string ssn = session::ToText(
      statements_.SelectValue("SELECT pSSN FROM PATable WHERE pID=" + data::Literal(PatientID) + statements_.Office()));
  return ssn.find_first_of("0123456789") == std::string::npos ? std::string() : std::string(forms::Trim(ssn));
}

int ucEditCoverage::RowOf(std::int32_t coverage) const {
  int row = TDBG.RowCount() - 1;
  while (row >= 0 && IdAt(row, kCoverageId) != coverage) {
    --row;
  }
  return row;
}

bool ucEditCoverage::Highlight(std::int32_t coverage) {
  const int row = RowOf(coverage);
  if (row >= 0) {
    TDBG.Row = row;
  }
  return row >= 0;
}

std::int32_t ucEditCoverage::IdAt(int row, CoverageField field) const {
  return row < 0 || row >= TDBG.RowCount()
             ? 0
             : session::ToId(session::Value(std::string(TDBG.Rows.get()->Text(row, static_cast<int>(field)))));
}

std::vector<std::int32_t> ucEditCoverage::Covered() const {
  std::vector<std::int32_t> holdings;
  holdings.reserve(static_cast<std::size_t>(TDBG.RowCount()));
  for (int row = 0; row < TDBG.RowCount(); ++row) {
    holdings.push_back(IdAt(row, kHoldingId));
  }
  return holdings;
}

std::vector<HeldPlan> ucEditCoverage::OtherPlans(int row) {
  if (!family_plans_) {
    family_plans_ = PlansOf(statements_, FamilyOf(statements_, PatientID));
  }
  std::vector<HeldPlan> others = *family_plans_;
  std::erase_if(others, [own = IdAt(row, kHoldingId)](const HeldPlan& held) { return held.holding == own; });
  return others;
}

// What stands in the cell leaves it as it is.
std::vector<std::string> ucEditCoverage::Choices(int row) {
  std::vector<std::string> choices = {std::string(TDBG.Rows.get()->Text(row, kSubscriberFirst))};
  Attempt([&] {
    const std::vector<std::string> told = ToldPlans(OtherPlans(row), choices.front());
    choices.insert(choices.end(), told.begin(), told.end());
  });
  choices.emplace_back(kNone);
  return choices;
}

void ucEditCoverage::Edit(session::RecordKind kind, std::int32_t id) {
  if (editing::EditingForm::MayModify(TDBG)) {
    if (context_.screens.Edit(session::Opening::Existing(kind, id)).Saved()) {
      Changed();
    }
    Read();
  }
}

void ucEditCoverage::EditPlan() {
  if (GroupID() == 0) {
    Tell("Please select an insurance plan and try again.", forms::Icon::Information);
  } else {
    Edit(session::RecordKind::GroupPlan, GroupID());
  }
}

// What the column tells of; a cell that is edited opens nothing.
void ucEditCoverage::OpenRecord() {
  using session::RecordKind;
  struct Opened {
    CoverageField column;
    RecordKind kind;
    CoverageField id;
  };
  constexpr std::array kOpened = {
      Opened{kSubscriberSsn, RecordKind::FamilyMember, kSubscriberId},
      Opened{kEmployerName, RecordKind::Employer, kEmployerId}, Opened{kCarrierName, RecordKind::Carrier, kCarrierId},
      Opened{kGroupNumber, RecordKind::GroupPlan, kPlanId}, Opened{kPlanName, RecordKind::GroupPlan, kPlanId}};
  const int cell = TDBG.Col < 0 ? -1 : TDBG.CellOf(TDBG.Col);
  const auto opened =
      std::ranges::find_if(kOpened, [&](const Opened& one) { return static_cast<int>(one.column) == cell; });
  if (opened != kOpened.end() && Id(opened->id) != 0) {
    Edit(opened->kind, Id(opened->id));
  }
}

}  // namespace insurance
