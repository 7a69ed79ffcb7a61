#include <array>
#include <charconv>

#include "data/literal.h"
#include "data/persons.h"
#include "editing/record_hold.h"
#include "forms/text.h"
#include "lookup/frmTGList.h"

namespace lookup {
namespace {

constexpr std::array kCommands = {"Patient", "Trans",    "TransHis", "FamTab", "Aging",
                                  "Notes",   "PrintEnv", "Label",    "LtrQ",   "Image"};
constexpr std::string_view kDeferred = "GOTO,";

}  // namespace

void frmTGList::ShowNavigation() {
  const bool patients = Options.show_patient_buttons && !Options.select_mode;
  for (const char* command : kCommands) {
    ToolStrip[command].Visible = patients;
  }
  // Where nobody hears of it a record's envelope and labels are not offered.
  const bool heard = Events.SwapModuleCalled != nullptr && !Options.select_mode;
  ToolStrip["PrintEnv"].Visible = patients || (heard && Commands.prints_envelopes);
  ToolStrip["Label"].Visible = patients || (heard && Commands.prints_labels);
}

void frmTGList::EnableNavigation() {
  for (const char* command : kCommands) {
    ToolStrip[command].Enabled = DotNetGrid.Row >= 0;
  }
}

// The list does not close within the click: the command waits for the timer, with the record that it was clicked on.
void frmTGList::GoTo(const std::string& command) {
  const std::int32_t id = CurrentID();
  std::string designation = std::to_string(id);
  if (Options.show_patient_buttons && !MakePatient(id, command)) {
    return;
  }
  if (command == "Label" && Commands.prints_labels) {
    const auto labels = AskLabels();
    if (!labels) {
      return;
    }
    designation += "," + std::to_string(*labels);
  }
  Designation_String = designation;
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
    if (!patient && !MayEdit()) {
      Tell(name + " is not a patient.", forms::Icon::Information);
      return;
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

std::optional<int> frmTGList::AskLabels() const {
  constexpr int kMost = 999;
  std::string typed;
  while (
      const auto answer = context_.user.Input(
          {.prompt = "How many labels would you like to print?", .title = "Label Quantity Selection", .text = typed})) {
    typed = *answer;
    const std::string_view digits = forms::Trim(typed);
    int labels = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), labels);
    if (error == std::errc() && end == digits.data() + digits.size() && labels >= 1 && labels <= kMost) {
      return labels;
    }
    context_.user.Tell(ToldBack(typed) + " is not a number of labels. Please enter a whole number from 1 to " +
                           std::to_string(kMost) + ".",
                       "Label Quantity Selection", forms::Icon::Information);
  }
  return std::nullopt;
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
