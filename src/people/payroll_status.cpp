#include "people/payroll_status.h"

#include "data/literal.h"
#include "editing/editing_form.h"
#include "forms/text.h"

namespace people {
namespace {

using data::Literal;

constexpr std::string_view kTitle = "Payroll Status Information";
constexpr std::string_view kTerminated = "The current employee has been terminated. Payroll Status cannot be modified.";
constexpr std::string_view kSet = "1";

struct NumberField {
  PayrollStatus::Field field = {};
  data::Words column;
  const data::Format& format;
};
constexpr std::array kNumbers = {NumberField{PayrollStatus::kAmount, "EBAnnSalAmt", data::kCurrency},
                                 NumberField{PayrollStatus::kVacation, "EBAnnVacHou", data::kHours},
                                 NumberField{PayrollStatus::kSick, "EBAnnSicHou", data::kHours},
                                 NumberField{PayrollStatus::kPersonal, "EBAnnPerHou", data::kHours}};

// A cell of the history, by its column's caption.
std::string HistoryCell(const std::string& caption, const session::Value& value) {
  const std::string text = session::ToText(value);
  if (const auto time = session::ToDateTime(value)) {
    return forms::FormatSlashed(forms::DateOf(*time));
  }
  const auto amount = caption == "Salary" ? forms::Currency::Parse(text) : std::nullopt;
  return amount ? forms::FormatCurrency(*amount) : caption == "FT" && text != "0" && !text.empty() ? "1" : text;
}

std::string Stamp(const std::string& what, const forms::Label& who, const forms::Label& when) {
  return when.Caption->empty() ? std::string() : what + " on " + when.Caption.get() + " by " + who.Caption.get() + ". ";
}

}  // namespace

PayrollStatus::PayrollStatus(const session::ScreenContext& context, const EmployeeLocations& locations)
    : Rules(context),
      Status(context.session, "EBTable", "EBID"),
      EffectiveDate(context, {Ben_Txt[kEffective], Ben_CMD[kPickEffective]}),
      RenewalDate(context, {Ben_Txt[kRenewal], Ben_CMD[kPickRenewal]}),
      Hours({Ben_Chk, cboStart, cboEnd, Ben_LBL[kOtherDays]}),
      locations_(locations),
      schedules_(context.session),
      layout_(context.session, Ben_TDBG) {
  Register();
  AddColumns();
  Bind();
  Wire();
}

// The stamps of a change stand last.
void PayrollStatus::Bind() {
  Status.Bind(of_person_, "EBPid");
  Status.Bind(Ben_Txt[kEffective], "EBAPPDAT", data::kDate);
  Status.Bind(full_time_, "EBFulTimFla");
  Status.Bind(Ben_Txt[kDepartment], "EBDep");
  Status.Bind(paid_by_, "EBPayBy");
  for (const NumberField& number : kNumbers) {
    Status.Bind(Ben_Txt.at(number.field), number.column, number.format);
  }
  Status.Bind(Ben_Txt[kRenewal], "EBRenDat", data::kDate);
  Status.Bind(start_, "EBWorStaTim");
  Status.Bind(end_, "EBWorEndTim");
  Status.Bind(times_, "EBWorTim");
  Status.Bind(days_, "EBWorDay");
  Status.Bind(Ben_Txt[kReason], "EBReaCha");
  Status.Bind(created_by_, "EBWhoCre");
  Status.Bind(created_, "EBDatCre", data::kDate);
  Status.Bind(modified_by_, "EBWhoMod");
  Status.Bind(modified_, "EBDatMod", data::kDate);
  for (const forms::Label* repeated : {&start_, &end_, &times_, &days_, &modified_by_, &modified_}) {
    Status.Repeats(*repeated);
  }
  full_time_.AccessibleName = "Full time";
  paid_by_.AccessibleName = "Paid by";
}

void PayrollStatus::Wire() {
  Ben_TDBG.RowColChange = [this] { GoToRow(); };
  Ben_CMD[kNew].Click = [this] { New(); };
  Ben_CMD[kRemove].Click = [this] { Remove(); };
  EffectiveDate.Taken = [this] { AskAboutDate(); };
  Hours.Picked = [this] { TakeHours(); };
  for (const NumberField& number : kNumbers) {
    Ben_Txt.at(number.field).Leave = [this] { TakeNumbers(); };
  }
  for (forms::TextBox& box : Ben_Txt) {
    box.KeyPress = [this](char32_t key) { return terminated_ && !MayModify() ? char32_t{0} : key; };
  }
  for (std::size_t option = 0; option < Ben_Opt.size(); ++option) {
    Ben_Opt.at(option).Click = [this, option] { full_time_.Caption = option == kFullTime ? "1" : "0"; };
    PayBy_Opt.at(option).Click = [this, option] {
      paid_by_.Caption = std::to_string(option);
      ShowOptions();
    };
  }
}

void PayrollStatus::Read(std::int32_t person) {
  person_ = person;
  Lock();
  layout_.Restore("EmployeeFrm_Payroll");
  ShowHistory();
  ReadStatus(StatusIn(0));
}

void PayrollStatus::SetTerminated(bool terminated) {
  terminated_ = terminated;
  Lock();
}

std::int32_t PayrollStatus::StatusIn(int row) const {
  const bool there = row >= 0 && row < Ben_TDBG.RowCount();
  return there ? session::ToId(session::Value(std::string(Ben_TDBG.Rows.get()->Text(row, 0)))) : 0;
}

bool PayrollStatus::MayBeChanged() const {
  return !terminated_ && !editing::EditingForm::ReadOnly(*this);
}

bool PayrollStatus::MayModify() const {
  if (terminated_) {
    Tell(std::string(kTerminated), forms::Icon::Information);
  }
  return !terminated_ && editing::EditingForm::MayModify(*this);
}

void PayrollStatus::Lock() {
  Ben_LBL[kLockedBecause].Caption = terminated_ ? std::string(kTerminated) : std::string();
  Ben_LBL[kLockedBecause].Visible = terminated_;
  for (forms::Panel* panel : {&BenPic[0], &BenPic[1], &PayBy_Pic}) {
    panel->Enabled = MayBeChanged();
  }
  for (const Command calendar : {kPickEffective, kPickRenewal}) {
    Ben_CMD.at(calendar).Enabled = !terminated_;
  }
  for (forms::TextBox& box : Ben_Txt) {
    box.ReadOnly = !MayBeChanged();
  }
}

void PayrollStatus::ShowHistory() {
  auto history = std::make_shared<forms::TableRows>();
  const auto rows = statements_.Select(
      "SELECT EBID as [ID], EBPid as [PID], EBAPPDAT as [Effective Date], EBDatCre as [Create], EBWhoCre as [Create "
      "by], EBDatMod as [Modify], EBWhoMod as [Modify by], EBDep as [Department], EBAnnSalAmt as [Salary], EBAnnVacHou "
      "as [Vacation], EBAnnSicHou as [Sick], EBAnnPerHou as [Personal], EBFulTimFla as [FT] FROM EBTable Where EBPid=" +
      Literal(person_) + statements_.Office() + " Order by EBID Desc");
  for (; !rows->Eof(); rows->MoveNext()) {
    forms::TableRows::Row& row = history->rows.emplace_back();
    for (std::size_t i = 0; i < rows->Fields().size(); ++i) {
      row.cells.push_back(HistoryCell(rows->Fields()[i].name, rows->Get(i)));
    }
  }
  Ben_TDBG.Rows = std::move(history);
  PointAtStatus();
}

// The row of the status that is shown; none for a new one.
void PayrollStatus::PointAtStatus() {
  int current = -1;
  for (int row = 0; row < Ben_TDBG.RowCount(); ++row) {
    if (StatusIn(row) == Status.Id()) {
      current = row;
    }
  }
  Ben_TDBG.Row = current;
}

void PayrollStatus::ReadStatus(std::int32_t status) {
  const std::int32_t location = locations_.Shown();
  inserted_ = false;
  if (status != 0) {
    Status.Read(schedules_.StatusAt(status, location));
  }
  if ((status == 0 || Status.Id() == 0) && !Status.Read(status)) {
    throw editing::Refusal("Another user has removed this payroll status.");
  }
  schedules_.Begin(status, location, [this](std::string_view column) { return Status.Column(column); });
  ShowStatus();
}

void PayrollStatus::ShowStatus() {
  agreed_date_ = Ben_Txt[kEffective].Text;
  Ben_CMD[kRemove].Enabled = !Adding() || Ben_TDBG.RowCount() > 0;
  PointAtStatus();
  ShowOptions();
  ShowStamps();
  ShowSchedule();
}

void PayrollStatus::ShowOptions() {
  Ben_Opt[kFullTime].Value = full_time_.Caption.get() == kSet;
  Ben_Opt[kPartTime].Value = full_time_.Caption.get() == "0";
  const bool by_hour = paid_by_.Caption.get() == kSet;
  PayBy_Opt[kByYear].Value = !by_hour;
  PayBy_Opt[kByHour].Value = by_hour;
  Ben_LBL[kAmount].Caption = by_hour ? "Hour&ly Wage" : "Annua&l Salary";
}

void PayrollStatus::ShowStamps() {
  Ben_LBL[kStamps].Caption = Stamp("Created", created_by_, created_) + Stamp("Modified", modified_by_, modified_);
}

void PayrollStatus::ShowSchedule() {
  Hours.Show(schedules_.At(locations_.Shown()));
}

void PayrollStatus::TakeHours() {
  for (const std::int32_t location : locations_.Chosen()) {
    schedules_.Put(location, Hours.Hours());
    if (location == locations_.All().front()) {
      FollowPrimary();
    }
  }
}

void PayrollStatus::FollowPrimary() {
  const WorkHours& primary = schedules_.At(locations_.All().front());
  const auto time = [this](const std::optional<std::chrono::minutes>& at) {
    return at ? forms::FormatIso(forms::AtMidnight(context_.session.Today()) + *at) : std::string();
  };
  days_.Caption = primary.days;
  times_.Caption = primary.Times();
  start_.Caption = time(primary.start);
  end_.Caption = time(primary.end);
}

void PayrollStatus::GoToRow() {
  const std::int32_t chosen = StatusIn(Ben_TDBG.Row);
  if (chosen == 0 || chosen == Status.Id()) {
    return;
  }
  if (!MayLeave() || !Attempt([&] { ReadStatus(chosen); })) {
    PointAtStatus();
  }
}

bool PayrollStatus::MayLeave() {
  if (!Unsaved()) {
    return true;
  }
  switch (context_.user.Ask({.text = "Do you want to save changes?",
                             .title = std::string(kTitle),
                             .buttons = forms::kYesNoCancel,
                             .icon = forms::Icon::Question})) {
    case forms::Answer::Yes:
      return SaveScreen();
    case forms::Answer::No:
      return true;
    default:
      return false;
  }
}

void PayrollStatus::AskAboutDate() {
  forms::TextBox& box = Ben_Txt[kEffective];
  const auto date = forms::ParseDate(box.Text.get(), context_.session.Today());
  if (Adding() || !date || box.Text == agreed_date_) {
    return;
  }
  if (!Confirm("Are you sure you want to change the Effective Date to " + forms::FormatSlashed(*date) + "?", kTitle)) {
    box.Text = agreed_date_;
  }
  agreed_date_ = box.Text;
}

// It starts from the status that is shown, today.
void PayrollStatus::New() {
  if (!MayModify() || !MayLeave()) {
    return;
  }
  if (Unsaved()) {
    ReadStatus(Adding() ? StatusIn(0) : Status.Id());
  }
  schedules_.BeginFurther(locations_.All());
  const std::vector<forms::Field*> kept = {&full_time_,
                                           &Ben_Txt[kDepartment],
                                           &paid_by_,
                                           &Ben_Txt[kAmount],
                                           &Ben_Txt[kVacation],
                                           &Ben_Txt[kSick],
                                           &Ben_Txt[kPersonal],
                                           &start_,
                                           &end_,
                                           &times_,
                                           &days_};
  std::vector<std::string> texts;
  texts.reserve(kept.size());
  for (const forms::Field* field : kept) {
    texts.push_back(field->FieldText());
  }
  Status.Read(0);
  for (std::size_t i = 0; i < kept.size(); ++i) {
    kept[i]->SetFieldText(texts[i]);
  }
  Ben_Txt[kEffective].Text = forms::FormatDashed(context_.session.Today());
  ShowStatus();
  Ben_Txt[kEffective].SetFocus();
}

// One that is not stored yet is only put aside.
void PayrollStatus::Remove() {
  if (!MayModify() || !Confirm("Remove employee Payroll Status information?", kTitle)) {
    return;
  }
  if (!Adding()) {
    if (!context_.session.KeepsRecord("PATABLE", person_)) {
      throw editing::Refusal("Another user has taken this record over. Nothing was removed.");
    }
    session::Transaction transaction(context_.session.Connection());
    statements_.Execute("Delete from EBTable where EBTable.EBID = " + Literal(Status.Id()) + statements_.Office());
    statements_.Execute("Delete from ESTable where ESTable.EBID = " + Literal(Status.Id()) + statements_.Office());
    transaction.Commit();
  }
  ShowHistory();
  ReadStatus(StatusIn(0));
}

// As it will be read; what that would round stays as it was typed.
bool PayrollStatus::TakeNumbers() {
  for (const auto& [field, column, format] : kNumbers) {
    forms::TextBox& box = Ben_Txt.at(field);
    const std::string typed(forms::Trim(box.Text.get()));
    const auto value = format.take(typed, context_.session.Today());
    if (!typed.empty() && Status.Changed(box) && !value) {
      Tell(ToldBack(typed) + " is not a valid " + std::string(format.what) + ".");
      box.SetFocus();
      return false;
    }
    if (const std::string shown = value ? format.show(*value) : typed;
        format.take(shown, context_.session.Today()) == value) {
      box.Text = shown;
    }
  }
  return true;
}

}  // namespace people
