#include "recall/frmEreminderContact.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "data/literal.h"
#include "editing/customary_form.h"
#include "forms/text.h"
#include "forms/us_numbers.h"

namespace recall {
namespace {

using data::ContactMethod;
using data::Literal;
using data::Sql;
using data::Words;
using editing::Side;
using Field = frmEreminderContact::Field;

constexpr std::string_view kTitle = "eReminder Contact Information";

struct Column {
  Words name;
  Side side;
  std::string_view code;
  char mnemonic;
};
// In the order of `txtContact`, which is that of the update.
constexpr std::array kColumns = {
    Column{"pHomCell", Side::Home, "Cell", 'c'}, Column{"pHomEma", Side::Home, "Ema", 'e'},
    Column{"pBusCell", Side::Work, "Cell", 'l'}, Column{"pBUSEma", Side::Work, "Ema", 'i'},
    Column{"pHomPho1", Side::Home, "Pho1", 'm'}, Column{"pHomPho2", Side::Home, "Pho2", '2'},
    Column{"pBusPho1", Side::Work, "Pho1", 'w'}, Column{"pBusPho2", Side::Work, "Pho2", 'n'}};

std::string LabelOf(const Column& column) {
  return std::string(editing::SideLabel(column.side)) + std::string(editing::LabelOfContact(column.code));
}

}  // namespace

frmEreminderContact::frmEreminderContact(const session::ScreenContext& context)
    : EditingForm("frmEreminderContact", context),
      contacts_(context.session),
      record_(context.session, "PATable", "pID") {
  Register();
  AddProperties();
  ContactSelection.ContactSelection = true;
  ContactSelection.Change = [this] { chosen_ = static_cast<std::size_t>(ContactSelection.GetSelectedItemData(0)) - 1; };
  for (std::size_t field = 0; field < txtContact.size(); ++field) {
    const Column& column = kColumns.at(field);
    forms::TextBox& box = txtContact.at(field);
    record_.Bind(box, column.name);
    lblContact.at(field).Caption = forms::WithMnemonic(LabelOf(column), column.mnemonic);
    box.Heading = &lblContact.at(field);
    box.Change = [this] { ShowChoices(); };
    if (editing::IsNumber(editing::ContactOf(column.code))) {
      box.Leave = [this, &box] {
        editing::TakeCustomaryForm(context_.session, record_, box, forms::FormatTenDigits);
        ShowChoices();
      };
    }
  }
  db.Help.Visible = false;
  db.OK.Click = [this] { OK_Click(); };
  db.Cancel.Click = [this] { DoClose(); };
  Edits(record_);
  OnSave([this] { return Differs(); }, [this] { Write(); });
  OnSave([] { return true; }, [this] { context_.session.RecordHandOff("pID", "PaTable", PatientID); });
}

void frmEreminderContact::Register() {
  Add("lblHeader", lblHeader);
  for (const Side side : editing::kSides) {
    for (std::size_t field = 0; field < txtContact.size(); ++field) {
      if (kColumns.at(field).side == side) {
        Add("lblContact(" + std::to_string(field) + ")", lblContact.at(field));
        Add("txtContact(" + std::to_string(field) + ")", txtContact.at(field));
      }
    }
  }
  Add("ContactSelection", ContactSelection);
  Add("db", db);
}

void frmEreminderContact::AddProperties() {
  const auto text = [](std::string& property) {
    return NamedProperty{[&property] { return property; }, [&property](const std::string& value) { property = value; }};
  };
  const auto flag = [](bool& property) {
    return NamedProperty{[&property] { return property ? "True" : "False"; },
                         [&property](const std::string& value) { property = forms::IsOn(value); }};
  };
  Properties["PatientID"] = {[this] { return std::to_string(PatientID); },
                             [this](const std::string& id) { PatientID = session::ToId(session::Value(id)); }};
  Properties["SendMethod"] = {[this] { return std::to_string(static_cast<std::int32_t>(SendMethod)); },
                              [this](const std::string& method) {
                                SendMethod = static_cast<ContactMethod>(session::ToId(session::Value(method)));
                              }};
  Properties["EditOnly"] = flag(EditOnly);
  Properties["SaveAndConinue"] = flag(SaveAndConinue);
  Properties["SelectedValue"] = text(SelectedValue);
  Properties["Header"] = text(Header);
  Properties["Modified"] = {[this] { return Modified() ? "True" : "False"; }, nullptr};
}

void frmEreminderContact::Read() {
  Caption = std::string(kTitle);
  if (OnlyLook) {
    MakeReadOnly();
  } else {
    Hold("PATABLE", PatientID);
  }
  if (ReadOnly()) {
    contacts_.Read(PatientID);
  } else {
    contacts_.Setup(PatientID);
  }
  if (!record_.Read(PatientID,
                    "SELECT pHomCell, pHomEma, pHomPho1, pHomPho2, pBusCell, pBUSEma, pBusPho1, pBusPho2, "
                    "pFirNam, pLasNam, pTTL FROM PATable WHERE pID=" +
                        Literal(PatientID) + statements_.Office(" AND (OfficeID = ", ")"))) {
    Tell("Patient " + std::to_string(PatientID) + " was not found in the database.", forms::Icon::Information);
    Close();
    return;
  }
  std::string name;
  for (const std::string_view column : {"pTTL", "pFirNam", "pLasNam"}) {
    const std::string part = session::ToText(record_.Column(column));
    name += name.empty() || part.empty() ? part : " " + part;
  }
  Caption = std::string(kTitle) + " for " + name + Caption.get().substr(kTitle.size());
  if (ReadOnly()) {  // only looked at, a side that was never prepared keeps its number elsewhere
    txtContact[kHomePhone].Text = contacts_.FirstPhone(Side::Home);
    txtContact[kWorkPhone].Text = contacts_.FirstPhone(Side::Work);
  }
  lblHeader.Caption = Header;
  ContactSelection.Visible = Chooses();
  ContactSelection.Text = forms::WithMnemonic("Select a Contact for " + std::string(data::NameOf(SendMethod)), 's');
  if (SaveAndConinue) {
    db.OK.Caption = "Save and C&ontinue";
  }
  SaveAndConinue = false;
  const std::string wanted = std::exchange(SelectedValue, {});
  for (std::size_t field = 0; field < txtContact.size() && !wanted.empty(); ++field) {
    if (Fits(field) && txtContact.at(field).Text == wanted) {
      chosen_ = field;
    }
  }
  ShowChoices();
}

editing::EditingForm::ClosingQuestion frmEreminderContact::OnClosing() const {
  ClosingQuestion question = EditingForm::OnClosing();
  if (!question.offers_to_save) {
    question.text = "Are you sure you want to close without saving changes?";
  }
  return question;
}

void frmEreminderContact::OK_Click() {
  if (!HasChoice() || (Unsaved() && !Save()) || !HasChoice()) {
    return;
  }
  SelectedValue = Chosen();
  SaveAndConinue = true;
  Close();
}

bool frmEreminderContact::Chooses() const {
  return !EditOnly && (SendMethod == ContactMethod::TextMessage || SendMethod == ContactMethod::Email ||
                       SendMethod == ContactMethod::Phone || SendMethod == ContactMethod::Voice);
}

bool frmEreminderContact::Fits(std::size_t field) const {
  switch (SendMethod) {
    case ContactMethod::TextMessage:
      return field == kHomeCell || field == kWorkCell;
    case ContactMethod::Email:
      return field == kHomeEmail || field == kWorkEmail;
    default:
      return field != kHomeEmail && field != kWorkEmail;
  }
}

// An entry's number is its field's position and 1. What was chosen waits for its field to be filled in again.
void frmEreminderContact::ShowChoices() {
  std::vector<std::size_t> offered;
  for (std::size_t field = 0; field < txtContact.size(); ++field) {
    if (Chooses() && Fits(field) && !txtContact.at(field).Text->empty()) {
      offered.push_back(field);
    }
  }
  const bool kept = std::ranges::find(offered, chosen_) != offered.end();
  ContactSelection.ClearList();
  for (const std::size_t field : offered) {
    ContactSelection.addList(LabelOf(kColumns.at(field)) + ": " + txtContact.at(field).Text.get(),
                             static_cast<std::int32_t>(field) + 1, field == (kept ? chosen_ : offered.front()));
  }
}

bool frmEreminderContact::HasChoice() {
  if (!Chooses() || ContactSelection.SelectCount() > 0) {
    return true;
  }
  Tell("There is no contact for " + std::string(data::NameOf(SendMethod)) + " yet. Enter one first.");
  for (std::size_t field = 0; field < txtContact.size(); ++field) {
    if (Fits(field)) {
      txtContact.at(field).SetFocus();
      break;
    }
  }
  return false;
}

std::string frmEreminderContact::Chosen() const {
  const std::int32_t chosen = ContactSelection.GetSelectedItemData(0);
  return chosen == 0 ? std::string() : txtContact.at(static_cast<std::size_t>(chosen) - 1).Text.get();
}

// What nobody changed here stays as another program may have left it meanwhile.
void frmEreminderContact::Write() {
  session::Transaction transaction(context_.session.Connection());
  std::vector<forms::Field*> untouched;
  for (forms::TextBox& box : txtContact) {
    if (!record_.Changed(box)) {
      untouched.push_back(&box);
    }
  }
  record_.Refresh(untouched);
  Sql values;
  for (std::size_t field = 0; field < txtContact.size(); ++field) {
    const forms::TextBox& box = txtContact.at(field);
    values += (field == 0 ? Sql() : Sql(", ")) + Sql(kColumns.at(field).name) + "=" +
              Literal(forms::Fitting(box.Text.get(), box.MaxLength));
  }
  statements_.Execute("update paTable set " + values + " where pID=" + Literal(PatientID) +
                      statements_.Office(" AND (OfficeID = ", ")"));
  MirrorShown();
  transaction.Commit();
  record_.MarkWritten();
}

void frmEreminderContact::MirrorShown() {
  contacts_.Read(PatientID);
  for (std::size_t field = 0; field < txtContact.size(); ++field) {
    const Column& column = kColumns.at(field);
    if (record_.Changed(txtContact.at(field)) && contacts_.Selected(column.side) == column.code) {
      contacts_.Mirror(PatientID, column.side, column.code);
    }
  }
}

}  // namespace recall
