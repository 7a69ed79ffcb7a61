#include "home/frmHome.h"

#include <algorithm>
#include <utility>

#include "data/literal.h"
#include "data/persons.h"
#include "forms/phone.h"
#include "forms/text.h"
#include "home/patient_card.h"
#include "home/patient_search.h"
#include "home/recent_patients.h"
#include "home/suite_commands.h"
#include "practice/logins.h"

namespace host {
namespace {

using forms::Key;
using session::Opening;
using session::RecordKind;

constexpr int kFirstRows = 40;

std::string BirthText(const session::Recordset& patient) {
  const auto birth = session::ToDateTime(patient.Get(kPatientBirth));
  return birth ? forms::FormatDashed(forms::DateOf(*birth)) : std::string();
}

std::string PhoneText(const session::Recordset& patient) {
  const std::string home = session::ToText(patient.Get(kPatientPhone));
  return forms::FormatPhone(home.empty() ? session::ToText(patient.Get(kPatientCell)) : home);
}

// In the order of the grid's columns.
editing::RecordsetRows::Cells PatientCells(forms::Date today) {
  return {
      [](const session::Recordset& patient) {
        return data::LastFirst(patient.Get(kPatientLast), patient.Get(kPatientFirst));
      },
      BirthText,
      [today](const session::Recordset& patient) {
        const auto birth = session::ToDateTime(patient.Get(kPatientBirth));
        const auto age = birth ? forms::AgeAt(forms::DateOf(*birth), today) : std::nullopt;
        return age ? std::to_string(age->years) : std::string();
      },
      PhoneText,
      [](const session::Recordset& patient) { return session::ToText(patient.Get(kPatientCity)); },
      [](const session::Recordset& patient) {
        return data::LastFirst(patient.Get(kProviderLast), patient.Get(kProviderFirst));
      },
      [](const session::Recordset& patient) { return data::MaskedSsn(patient.Get(kPatientSsn)); },
      [](const session::Recordset& patient) { return session::ToText(patient.Get(kPatientId)); },
  };
}

std::string Counted(int patients) {
  return std::to_string(patients) + (patients == 1 ? " patient" : " patients");
}

std::string Missing(const DeskCommand& command) {
  const auto& rights = RightsCatalogue();
  const auto found = std::ranges::find(rights, command.right, &session::Right::keyword);
  return "needs the right \"" + (found == rights.end() ? std::string(command.right) : found->label) + "\"";
}

}  // namespace

bool frmHome::HasRight(const DeskCommand& command) const {
  return command.right.empty() || context_.session.HasRight(command.right);
}

std::string frmHome::Obstacle(const DeskCommand& command) const {
  if (!command.IsBuilt()) {
    return "still to come";
  }
  return HasRight(command) ? std::string() : Missing(command);
}

void frmHome::Do(const DeskCommand& command) {
  std::string obstacle = Obstacle(command);
  if (obstacle.empty() && command.of_patient) {
    if (std::exchange(search_due_, false)) {
      Search();
    }
    obstacle = Chosen() == 0 ? "choose a patient first" : "";
  }
  if (obstacle.empty()) {
    command.run(*this);
  } else {
    Tell(command.Name() + ": " + obstacle);
  }
}

void frmHome::OnLoad() {
  layout_.Restore(Name());
  Search();
}

bool frmHome::OnKey(Key key) {
  if (key == Key::Esc) {
    txtSearch.SetFocus();
    ShowOpenedLast();
  }
  return key == Key::Esc;
}

bool frmHome::OnIdle() {
  if (std::exchange(search_due_, false)) {
    Search();
  } else if (std::exchange(open_due_, false)) {
    OpenPatient(Chosen());
  } else if (std::exchange(card_due_, false)) {
    ShowCard();
  } else if (!going_to_.first.empty()) {
    const auto [command, id] = std::exchange(going_to_, {});
    Arrive(command, id);
  }
  return search_due_ || open_due_ || card_due_ || !going_to_.first.empty();
}

bool frmHome::OnSearchKey(Key key) {
  constexpr int kPage = 10;
  switch (key) {
    case Key::Enter:
      return OpenSoon();
    case Key::Down:
      MoveBy(1);
      return true;
    case Key::Up:
      MoveBy(-1);
      return true;
    case Key::PageDown:
      MoveBy(kPage);
      return true;
    case Key::PageUp:
      MoveBy(-kPage);
      return true;
    default:
      return false;
  }
}

bool frmHome::OpenSoon() {
  open_due_ = true;
  return true;
}

// The focus stays in the box.
void frmHome::MoveBy(int rows) {
  if (grdPatients.RowCount() > 0) {
    grdPatients.Row = std::clamp(grdPatients.Row + rows, 0, grdPatients.RowCount() - 1);
    card_due_ = true;
  }
}

std::int32_t frmHome::Chosen() const {
  const int row = grdPatients.Row;
  if (row < 0 || row >= grdPatients.RowCount()) {
    return 0;
  }
  return session::ToId(session::Value(std::string(grdPatients.Cell(row, grdPatients.ColumnIndex(kIdColumn)))));
}

void frmHome::Search() {
  const std::string typed(forms::Trim(txtSearch.Text.get()));
  try {
    if (typed.empty()) {
      ListOpenedLast();
    } else {
      ListFound(typed);
    }
  } catch (const session::DatabaseError& error) {
    found_.reset();
    List(std::make_shared<forms::TableRows>(), -1);
    lblResults.Caption = std::string("The practice database cannot be read: ") + error.what();
  }
  ShowEmptiness();
}

void frmHome::ListFound(std::string_view typed) {
  auto searches = PatientSearch(statements_, typed, context_.session.Today());
  if (searches.empty()) {
    List(std::make_shared<forms::TableRows>(), -1);
    lblResults.Caption = "Please type on: a whole birth date, or three digits of a phone number.";
    return;
  }
  found_ = std::make_shared<editing::RecordsetRows>(InTurn(statements_, std::move(searches)),
                                                    PatientCells(context_.session.Today()));
  found_->Failed = [this](const session::DatabaseError& error) { search_due_ = ReadsAgain(error); };
  found_->Arrived = [this] { CountFound(); };
  found_->Fetch(kFirstRows);
  has_patients_ = has_patients_ || found_->Count() > 0;
  List(found_, found_->Count() > 0 ? 0 : -1);
}

void frmHome::CountFound() {
  const int count = found_->Count();
  if (count > 0) {
    lblResults.Caption =
        found_->Complete() ? Counted(count) : "The first " + Counted(count) + ". Type on to find fewer.";
    return;
  }
  const std::string name = TypedName(txtSearch.Text.get());
  lblResults.Caption = name.empty() ? "No patient found." : "No patient found. Ctrl+N adds \"" + name + "\".";
}

void frmHome::ListOpenedLast() {
  found_.reset();
  auto rows = std::make_shared<forms::TableRows>();
  const std::vector<std::int32_t> recent = RecentPatients(context_.session);
  if (!recent.empty()) {
    editing::RecordsetRows read(statements_.Select(PatientsById(statements_, recent)),
                                PatientCells(context_.session.Today()));
    read.Fetch(static_cast<int>(recent.size()));
    for (const std::int32_t patient : recent) {
      for (int row = 0; row < read.Count(); ++row) {
        std::vector<std::string> cells;
        cells.reserve(grdPatients.Columns->size());
        for (int cell = 0; cell < static_cast<int>(grdPatients.Columns->size()); ++cell) {
          cells.emplace_back(read.Text(row, cell));
        }
        if (cells.back() == std::to_string(patient)) {
          rows->rows.push_back({.cells = std::move(cells)});
        }
      }
    }
  }
  const bool none = rows->rows.empty();
  has_patients_ =
      !none ||
      !statements_.Select("SELECT TOP 1 pID FROM PATABLE WHERE (pTypPat >= '1')" + statements_.Office())->Eof();
  List(std::move(rows), -1);
  lblResults.Caption = none ? "Type to find a patient." : "Patients opened last";
}

void frmHome::List(std::shared_ptr<forms::GridRows> rows, int chosen) {
  grdPatients.Rows = std::move(rows);
  const int wanted = RowOf(std::exchange(wanted_, 0));
  grdPatients.Row = wanted >= 0 ? wanted : chosen;
  card_due_ = true;
}

int frmHome::RowOf(std::int32_t patient) const {
  const std::string id = std::to_string(patient);
  const int column = grdPatients.ColumnIndex(kIdColumn);
  for (int row = 0; patient != 0 && row < grdPatients.RowCount(); ++row) {
    if (grdPatients.Cell(row, column) == id) {
      return row;
    }
  }
  return -1;
}

void frmHome::ShowEmptiness() {
  pnlFirst.Visible = !has_patients_;
  pnlList.Visible = has_patients_;
  lblNoCard.Visible = has_patients_ && !pnlCard.Visible;
}

void frmHome::ShowCard() {
  const std::int32_t patient = Chosen();
  std::optional<PatientCard> card;
  try {
    card = patient == 0 ? std::nullopt : ReadPatientCard(statements_, patient, context_.session.Today());
  } catch (const session::DatabaseError& error) {
    Tell(std::string("The patient cannot be read: ") + error.what());
  }
  if (card) {
    lblName.Caption = card->name;
    lblFacts.Caption = card->facts;
    lblAlert.Caption = "\u26A0  Medical alert: " + card->alert;
    pnlAlert.Visible = !card->alert.empty();
    lblPhones.Caption = card->phones;
    lblAddress.Caption = card->address;
    lblFamily.Caption = card->family;
    lblCoverage.Caption = card->coverage;
  }
  pnlCard.Visible = card.has_value();
  lblNoCard.Visible = has_patients_ && !card;
  Caption = (card ? card->name + " - " : "") + practice_ + " - Practice Desk";
}

void frmHome::FindPatient() {
  txtSearch.SetFocus();
}

void frmHome::NewPatient(Opening::Mode mode) {
  const session::Outcome outcome = context_.screens.Edit(
      {.kind = RecordKind::Patient, .mode = mode, .typed_name = TypedName(txtSearch.Text.get()), .may_book = true});
  if (!outcome.Saved()) {
    Tell("No patient was added");
    return;
  }
  Attempt([&] {
    Tell("Added " + data::NameOfPerson(statements_, outcome.id) + (outcome.save_and_book ? ", to be booked" : ""),
         outcome.id);
    Return(outcome.id);
  });
}

void frmHome::OpenPatient(std::int32_t patient) {
  if (patient == 0) {
    return;
  }
  saved_ = 0;
  Opening opening = Opening::Existing(RecordKind::Patient, patient);
  opening.may_book = true;
  const session::Outcome outcome = context_.screens.Edit(opening);
  Attempt([&] {
    const std::string name = data::NameOfPerson(statements_, patient);
    const bool saved = saved_ == patient;
    Tell((saved ? "Saved " : "Closed ") + name + (outcome.save_and_book ? ", to be booked" : ""), patient);
    if (saved) {
      Return(patient);
    } else {
      RememberPatient(context_.session, patient);
    }
  });
}

void frmHome::OpenFamily() {
  context_.screens.Edit(Opening::Existing(RecordKind::FamilyMember, Chosen()));
  Refresh();
}

void frmHome::ShowList(session::LookUpListTypes type) {
  context_.screens.ShowList(type, {.show_patient_buttons = true});
  Refresh();
}

void frmHome::ShowGlobalPlan() {
  context_.screens.ShowPlanDetails({});
  Refresh();
}

void frmHome::Arrive(const std::string& command, std::int32_t id) {
  if (command == "Patient") {
    OpenPatient(id);
    return;
  }
  context_.user.Tell(ToldOfSuite(command), std::string(forms::kSuiteTitle), forms::Icon::Information);
}

void frmHome::Call(std::string_view method) {
  CallMethod(method, Chosen());
  Refresh();
}

void frmHome::ShowReminderOptions() {
  if (!context_.session.ShowReminderOptions()) {
    Tell("Reminder Sending: cannot be shown here");
  }
}

void frmHome::ShowOpenedLast() {
  txtSearch.Text = std::string();
  search_due_ = true;
}

void frmHome::Refresh() {
  wanted_ = Chosen();
  search_due_ = true;
}

void frmHome::Return(std::int32_t patient) {
  RememberPatient(context_.session, patient);
  wanted_ = patient;
  ShowOpenedLast();
  txtSearch.SetFocus();
}

void frmHome::Tell(std::string text, std::int32_t patient) {
  told_ = patient;
  lblStatus.Caption = patient == 0 ? text : std::string();
  cmdStatus.Caption = patient == 0 ? std::string() : std::move(text);
  cmdStatus.Visible = patient != 0;
}

}  // namespace host
