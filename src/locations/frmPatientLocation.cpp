#include "locations/frmPatientLocation.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "data/family_members.h"
#include "data/literal.h"
#include "data/persons.h"

namespace locations {
namespace {

using data::Literal;

// Of a row of the grid.
enum Cell : std::size_t { kDisplay, kLocation, kColLinkID, kDummy };

constexpr std::string_view kChangePrimary = "Change Primary Location";

std::int32_t LocationOf(const forms::TableRows::Row& row) {
  return session::ToId(session::Value(row.cells[kDummy]));
}

}  // namespace

frmPatientLocation::frmPatientLocation(const session::ScreenContext& context)
    : EditingForm("frmPatientLocation", context), layout_(context.session, TDBG) {
  Register();
  Wire();
}

void frmPatientLocation::Register() {
  Add("lblName", lblName);
  Add("lblPatName", lblPatName);
  Add("lblPriLoc", lblPriLoc);
  Add("cboPriLoc", cboPriLoc);
  Add("lblExplain", lblExplain);
  Add("lblLocations", lblLocations);
  Add("TDBG", TDBG);
  Add("chkFam", chkFam);
  Add("cmdOK", cmdOK);
  Add("cmdCancel", cmdCancel);
  SetDefaultButton(&cmdOK);
  SetCancelButton(&cmdCancel);
  lblPatName.Heading = &lblName;
  lblPriLoc.Caption = "&Primary Location :";
  cboPriLoc.Heading = &lblPriLoc;
  lblLocations.Caption = "&Locations";
  TDBG.Heading = &lblLocations;
  TDBG.Columns =
      std::vector<forms::GridColumn>{{.key = "Display",
                                      .caption = "Display",
                                      .width = 70,
                                      .kind = forms::GridColumn::Kind::Check,
                                      .align = forms::GridColumn::Align::Center,
                                      .editable = true},
                                     {.key = "OffLocNam", .caption = "Location", .width = 390, .keeps_colors = true},
                                     {.key = "ColLinkID", .caption = "ColLinkID", .visible = false},
                                     {.key = "Dummy", .caption = "Dummy", .visible = false}};
  chkFam.Caption = "Apply to the whole &family";
  cmdOK.Caption = "&OK";
  cmdCancel.Caption = "Cancel";
  cmdCancel.CausesValidation = false;
  const auto number = [](std::int32_t& property) {
    return forms::Form::NamedProperty{
        [&property] { return std::to_string(property); },
        [&property](const std::string& text) { property = session::ToId(session::Value(text)); }};
  };
  Properties["PatientID"] = number(PatientID);
  Properties["PasswordID"] = number(PasswordID);
  Properties["PrimaryLocationID"] = number(PrimaryLocationID);
  Properties["ChangeMade"] = {[this] { return ChangeMade ? "True" : "False"; }, nullptr};
}

void frmPatientLocation::Wire() {
  cboPriLoc.Click = [this] { cboPriLoc_Click(); };
  cboPriLoc.Leave = cboPriLoc.Click;
  TDBG.CellEdited = [this](int /*column*/, const std::string& /*text*/) { return TDBG_CellEdited(); };
  chkFam.Click = [this] {
    if (MayModify()) {
      ChangeMade = true;
    } else {
      chkFam.Value = forms::CheckState::Off;
    }
  };
  cmdOK.Click = [this] {
    if (!Unsaved() || Save_Data()) {
      Close();
    }
  };
  cmdCancel.Click = [this] { Close(); };

  const auto changed = [this] { return ChangeMade; };
  OnSave(changed, [this] { Write(); });
  OnSave(changed, [this] { LogNotes(); });
}

void frmPatientLocation::Read() {
  Caption = OfLogin() ? "Login Name Location Setup" : "Patient Location Setup";
  lblName.Caption = OfLogin() ? "Login Name :" : "Patient Name :";
  lblExplain[0].Caption = OfLogin() ? "This login name will always be granted access to the location specified above. "
                                    : "This patient will always be displayed in the location specified above.";
  lblExplain[1].Caption =
      OfLogin() ? "Below, you may select additional locations that should grant access to this login name."
                : "Below, you may select additional locations that should display this patient.";
  chkFam.Visible = !OfLogin();
  const bool may_edit = !OfLogin() || RequireRight(session::kSupervisorRight, "login name locations");
  if (Owner() != 0 && may_edit) {
    Hold(OfLogin() ? "PWMTABLE" : "PATABLE", Owner());
  }
  const auto locations = Locations().Read(Owner());
  lowest_ = locations.empty() ? 0 : locations.front().location;
  if (Owner() == 0 || !ReadOwner()) {
    Tell((OfLogin() ? "Login " : "Patient ") + std::to_string(Owner()) + " was not found in the database.",
         forms::Icon::Information);
    Close();
    return;
  }
  ShowLocations(locations);
}

bool frmPatientLocation::ReadOwner() {
  if (OfLogin()) {
    const auto row = statements_.Select("SELECT PWMUseNam, OffLocID FROM PWMTable WHERE PWMID=" + Literal(PasswordID) +
                                        statements_.Office());
    if (row->Eof()) {
      return false;
    }
    lblPatName.Caption = session::ToText(row->Get(0));
    stored_primary_ = session::ToId(row->Get(1));
  } else {
    const auto patient = ReadPatient(PatientID);
    if (!patient) {
      return false;
    }
    lblPatName.Caption = patient->name;
    stored_primary_ = patient->primary;
  }
  stored_primary_ = stored_primary_ == 0 ? lowest_ : stored_primary_;
  PrimaryLocationID = stored_primary_;
  return true;
}

// The primary location is granted, whatever its row says so far.
void frmPatientLocation::ShowLocations(const std::vector<data::GrantedLocations::Granted>& locations) {
  std::vector<forms::ListItem> items;
  for (const auto& location : locations) {
    const bool primary = location.location == PrimaryLocationID;
    if (primary && location.row != 0 && !location.granted && !ReadOnly()) {
      Locations().Grant(location.row);
    }
    const forms::Color back = location.back.value_or(forms::kWhite);
    rows_->rows.push_back({.cells = {primary || location.granted ? "1" : "0", location.name,
                                     std::to_string(location.row), std::to_string(location.location)},
                           .fore = forms::ReadableOn(back, location.fore.value_or(forms::kBlack)),
                           .back = back,
                           .colored_cell = kLocation});
    items.push_back({.text = location.name, .data = location.location});
  }
  cboPriLoc.Items = std::move(items);
  ShowPrimary();
  TDBG.Rows = rows_;
  TDBG.Row = rows_->rows.empty() ? -1 : 0;
  layout_.Restore("frmPatientLocation");
}

data::GrantedLocations frmPatientLocation::Locations() const {
  return {context_.session, OfLogin() ? data::GrantedLocations::Of::Login : data::GrantedLocations::Of::Patient};
}

std::optional<frmPatientLocation::Patient> frmPatientLocation::ReadPatient(std::int32_t id) const {
  const auto row = statements_.Select(
      "SELECT pLASNAM, pFIRNAM, pBIRDAT, OffLocID FROM PATable WHERE pID=" + Literal(id) + statements_.Office());
  if (row->Eof()) {
    return std::nullopt;
  }
  const std::int32_t primary = session::ToId(row->Get(3));
  return Patient{.id = id,
                 .name = data::LastFirst(row->Get(0), row->Get(1)),
                 .birth_date = ToldDay(session::ToText(row->Get(2))),
                 .stored_primary = primary,
                 .primary = primary == 0 ? lowest_ : primary};
}

void frmPatientLocation::ShowPrimary() {
  cboPriLoc.ListIndex = cboPriLoc.IndexOfData(PrimaryLocationID);
}

// What is not agreed to is put back.
void frmPatientLocation::cboPriLoc_Click() {
  const forms::ListItem* chosen = cboPriLoc.Current();
  if (chosen != nullptr && chosen->data != PrimaryLocationID && MayChangePrimary()) {
    TakePrimary(chosen->data);
  }
  ShowPrimary();
}

// The check that came with a choice goes with it.
void frmPatientLocation::TakePrimary(std::int32_t location) {
  const auto check = [this](std::int32_t of) -> std::string& {
    return std::ranges::find(rows_->rows, of, LocationOf)->cells[kDisplay];
  };
  if (own_check_ != 0) {
    check(own_check_) = "0";
  }
  std::string& display = check(location);
  own_check_ = display == "1" ? 0 : location;
  display = "1";
  PrimaryLocationID = location;
  ChangeMade = true;
  TDBG.Refresh();
}

bool frmPatientLocation::MayChangePrimary() const {
  if (!context_.session.HasRight(session::kSupervisorRight)) {
    context_.user.Tell("User " + context_.session.UserName() +
                           " does not have sufficient rights to change primary locations.\r\n"
                           "Changing a primary location requires supervisor rights.",
                       std::string(kChangePrimary), forms::Icon::Exclamation);
    return false;
  }
  return MayModify() &&
         context_.user.Ask({.text = "Changing the primary location can affect billing and the accounts receivable in "
                                    "both offices.\r\nAre you sure you want to change the primary location?",
                            .title = std::string(kChangePrimary),
                            .buttons = forms::kYesNo,
                            .icon = forms::Icon::Exclamation,
                            .default_answer = forms::Answer::No}) == forms::Answer::Yes;
}

bool frmPatientLocation::TDBG_CellEdited() {
  if (!MayModify()) {
    return false;
  }
  if (LocationOf(rows_->rows.at(static_cast<std::size_t>(TDBG.Row.get()))) == PrimaryLocationID) {
    Tell(std::string("The Primary Location for this ") + (OfLogin() ? "login name" : "patient") + " cannot be editied.",
         forms::Icon::Information);
    return false;
  }
  ChangeMade = true;
  return true;
}

bool frmPatientLocation::Agreed() {
  if (!ChangeMade) {  // only notes are left to be written
    return true;
  }
  if (OfLogin()) {
    return Warn("This change will affect the locations at which this login name may be used to open TAVO Software.",
                "Login Location Modified");
  }
  TakeAffected();
  std::string text = affected_.size() == 1
                         ? "This change will affect where the following patient record is displayed:"
                         : "This change will affect where the following patient records are displayed:";
  for (const Patient& patient : affected_) {
    text += "\r\n" + patient.name + (patient.birth_date.empty() ? "" : " - " + patient.birth_date);
  }
  const bool agrees = Warn(std::move(text), "Patient Location Modified");
  if (!agrees) {
    held_.clear();
  }
  return agrees;
}

// The patient of the screen, who is held all along, comes last.
void frmPatientLocation::TakeAffected() {
  affected_.clear();
  std::list<editing::RecordHold> others;
  std::vector<std::int32_t> members = chkFam.Value == forms::CheckState::On
                                          ? data::FamilyMembers(statements_, PatientID)
                                          : data::OneMember(statements_, PatientID);
  std::erase(members, PatientID);
  members.push_back(PatientID);
  for (const std::int32_t id : members) {
    const auto* held = id == PatientID ? nullptr : &others.emplace_back(context_.session, "PATABLE", id);
    const auto patient = ReadPatient(id);
    if (patient && held != nullptr && held->Holder()) {
      throw editing::Refusal(patient->name + ": " + editing::HeldText(*held->Holder()) + " Nothing was changed.");
    }
    if (patient) {
      affected_.push_back(*patient);
    } else if (id == PatientID) {
      throw editing::Refusal(std::string(editing::kDeletedMeanwhile));
    }
  }
  held_ = std::move(others);
}

// All or nothing: a family is not left at two places.
void frmPatientLocation::Write() {
  const auto held = std::exchange(held_, {});
  for (const editing::RecordHold& hold : held) {
    hold.Require();
  }
  std::vector<session::LogEntry> notes;
  session::Transaction transaction(context_.session.Connection());
  if (OfLogin()) {
    WriteLogin();
  } else {
    for (const Patient& patient : affected_) {
      const bool moves = PrimaryChanged() || patient.id == PatientID;
      const std::int32_t primary = moves ? PrimaryLocationID : patient.primary;
      WritePatient(patient, primary);
      if (patient.primary != primary) {
        notes.push_back(NoteOf(patient, primary));
      }
    }
  }
  transaction.Commit();
  std::ranges::move(notes, std::back_inserter(notes_));
  ChangeMade = false;
  stored_primary_ = PrimaryLocationID;
  own_check_ = 0;
}

void frmPatientLocation::WriteLogin() const {
  WriteLocationsOf(PasswordID, PrimaryLocationID);
  statements_.Execute("Update PWMTable set OffLocID = " + Literal(PrimaryLocationID) +
                      " WHERE PWMID=" + Literal(PasswordID) + statements_.Office());
}

void frmPatientLocation::WritePatient(const Patient& patient, std::int32_t primary) const {
  WriteLocationsOf(patient.id, primary);
  if (patient.stored_primary != primary) {
    statements_.Update("PATable", {{"OffLocID", Literal(primary)}}, "pID", patient.id);
  }
}

void frmPatientLocation::WriteLocationsOf(std::int32_t owner, std::int32_t primary) const {
  const data::GrantedLocations locations = Locations();
  for (const auto& row : rows_->rows) {
    const std::int32_t location = LocationOf(row);
    locations.Write(owner, location, row.cells[kDisplay] == "1" || location == primary);
  }
}

session::LogEntry frmPatientLocation::NoteOf(const Patient& patient, std::int32_t primary) const {
  const forms::DateTime now = context_.session.Now();
  return {.kind = session::LogKind::Comment,
          .category = "CM",
          .person = patient.id,
          .text = "The primary location was changed from '" + NameOfLocation(patient.primary) + "' to '" +
                  NameOfLocation(primary) + "' by user " + context_.session.UserName() + " on " +
                  forms::FormatShortDate(forms::DateOf(now)) + " at " + forms::FormatTime(now) + "."};
}

void frmPatientLocation::LogNotes() {
  while (!notes_.empty()) {
    context_.session.Log(notes_.front());
    notes_.erase(notes_.begin());
  }
}

std::string frmPatientLocation::NameOfLocation(std::int32_t location) const {
  const int index = cboPriLoc.IndexOfData(location);
  return index < 0 ? data::LocationName(location, {}) : cboPriLoc.Items.get()[static_cast<std::size_t>(index)].text;
}

}  // namespace locations
