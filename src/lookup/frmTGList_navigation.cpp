#include <array>

#include "data/literal.h"
#include "data/persons.h"
#include "editing/record_hold.h"
#include "lookup/frmTGList.h"

namespace lookup {
namespace {

constexpr std::array kCommands = {"Patient", "Trans",    "TransHis", "FamTab", "Aging",
                                  "Notes",   "PrintEnv", "Label",    "LtrQ",   "Image"};
constexpr std::string_view kDeferred = "GOTO,";

}  // namespace

void frmTGList::ShowNavigation() {
  for (const char* command : kCommands) {
    ToolStrip[command].Visible = Options.show_patient_buttons;
  }
}

void frmTGList::EnableNavigation() {
  for (const char* command : kCommands) {
    ToolStrip[command].Enabled = DotNetGrid.Row >= 0;
  }
}

// The list does not close within the click: the command waits for the timer, with the record that it was clicked on.
void frmTGList::GoTo(const std::string& command) {
  const std::int32_t id = CurrentID();
  if (!MakePatient(id, command)) {
    return;
  }
  Designation_String = std::to_string(id);
  Timer1.Tag = std::string(kDeferred) + command;
  Timer1.Enabled = true;
}

bool frmTGList::MakePatient(std::int32_t id, const std::string& command) {
  bool patient = false;
  Attempt([&] {
    std::string name;
    {
      const auto person = statements_.Select(
          "SELECT pTypPat, pLASNAM, pFIRNAM FROM PATable WHERE pID=" + data::Literal(id) + statements_.Office());
      if (person->Eof()) {
        Tell("Person " + std::to_string(id) + " was not found in the database.", forms::Icon::Information);
        return;
      }
      patient = session::ToText(person->Get(0)) >= "1";
      name = data::LastFirst(person->Get(1), person->Get(2));
    }
    if (patient || !WantsPatient(name, command)) {
      return;
    }
    const editing::RecordHold hold(context_.session, "PATABLE", id);
    hold.Require();
    statements_.Update("PATable", {{"pTypPat", data::Literal("1")}}, "pID", id);
    patient = true;
  });
  return patient;
}

bool frmTGList::WantsPatient(const std::string& name, const std::string& command) const {
  const std::string screen = command == "Trans" ? "Patient Transaction Screen" : "Patient Information Screen";
  return Confirm(name + " is not a patient and has no " + screen + ". Do you want to make " + name + " a patient now?");
}

void frmTGList::Timer1_Elapsed() {
  Timer1.Enabled = false;
  if (Timer1.Tag.starts_with(kDeferred)) {
    Whereto = Timer1.Tag.substr(kDeferred.size());
    Close();
  }
}

}  // namespace lookup
