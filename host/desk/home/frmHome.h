#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "editing/kept_layout.h"
#include "editing/recordset_rows.h"
#include "editing/rules.h"
#include "forms/button.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/panels.h"
#include "forms/text_box.h"
#include "home/desk_commands.h"
#include "session/screens.h"

namespace host {

// The desk as a receptionist opens it: patients are found while he types, the chosen one's card stands beside them,
// and what became of the last one that was opened is told. What takes time is done when he pauses.
class frmHome : public forms::Form, private editing::Rules {
 public:
  // `practice` is its name.
  frmHome(const session::ScreenContext& context, std::string practice);

  // Calls a public method of the suite for a patient.
  std::function<void(std::string_view method, std::int32_t patient)> CallMethod;

  forms::Label lblSearch;
  forms::TextBox txtSearch;
  forms::Label lblHint;
  forms::Panel pnlList;
  forms::Label lblResults;  // what is listed below, or why nothing is
  forms::Grid grdPatients;
  forms::Panel pnlFirst;  // in place of the list while the practice has no patient
  forms::Label lblFirst;
  forms::Button cmdFirst;
  forms::Panel pnlCard;
  forms::Label lblName;
  forms::Label lblFacts;
  forms::Panel pnlAlert;
  forms::Label lblAlert;
  forms::Label lblPhones;
  forms::Label lblAddress;
  forms::Label lblFamily;
  forms::Label lblCoverage;
  forms::Label lblComing;  // the screens of the card that are still to come
  forms::Label lblNoCard;
  forms::Label lblStatus;   // what happened last
  forms::Button cmdStatus;  // the same, where it leads to a patient
  forms::Label lblWho;

  struct CardButton {
    explicit CardButton(const DeskCommand& given) : command(given) {}

    const DeskCommand& command;
    forms::Button button;
  };
  std::list<CardButton> CardButtons;

  // Why the command cannot be given in this session; empty where it can.
  std::string Obstacle(const DeskCommand& command) const;
  // Gives the command, or tells why not.
  void Do(const DeskCommand& command);

  // 0 for none.
  std::int32_t Chosen() const;
  void FindPatient();
  void NewPatient(session::Opening::Mode mode);
  void OpenPatient(std::int32_t patient);
  void OpenFamily();
  void ShowList(session::LookUpListTypes type);
  // The coverage that plans start from.
  void ShowGlobalPlan();
  void Call(std::string_view method);
  void ShowReminderOptions();
  void ShowOpenedLast();
  // Reads everything anew.
  void Refresh();
  // A list closed for a command of the suite's ("Patient"), on the record of that ID. Carried out when the list has
  // returned.
  void GoTo(std::string command, std::int32_t id) { going_to_ = {std::move(command), id}; }
  // A screen saved a patient.
  void PatientSaved(std::int32_t patient) { saved_ = patient; }

 protected:
  void OnLoad() override;
  bool OnKey(forms::Key key) override;
  bool OnIdle() override;
  void OnClose() override { layout_.Keep(); }

 private:
  static constexpr std::string_view kIdColumn = "pID";

  // Enter acts on what was typed before it, which may not have been looked for yet.
  bool OnSearchKey(forms::Key key);
  bool OpenSoon();
  bool HasRight(const DeskCommand& command) const;
  void MoveBy(int rows);

  void Search();
  void ListFound(std::string_view typed);
  void ListOpenedLast();
  void List(std::shared_ptr<forms::GridRows> rows, int chosen);
  void CountFound();
  int RowOf(std::int32_t patient) const;
  void ShowEmptiness();
  void ShowCard();
  void AddButtons();

  void Arrive(const std::string& command, std::int32_t id);
  // Back from a screen: the list begins anew, with the patient chosen.
  void Return(std::int32_t patient);
  void Tell(std::string text, std::int32_t patient = 0);

  editing::KeptLayout layout_{context_.session, grdPatients};
  std::string practice_;
  std::shared_ptr<editing::RecordsetRows> found_;
  bool search_due_ = true;
  bool card_due_ = false;
  bool open_due_ = false;
  bool has_patients_ = true;
  std::pair<std::string, std::int32_t> going_to_;  // a command and its record; empty for none
  std::int32_t wanted_ = 0;                        // the patient to choose in the next list
  std::int32_t saved_ = 0;                         // by the screen that is open
  std::int32_t told_ = 0;                          // the patient that the status leads to
};

}  // namespace host
