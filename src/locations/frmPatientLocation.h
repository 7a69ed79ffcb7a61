#pragma once

#include <array>
#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/locations.h"
#include "editing/editing_form.h"
#include "editing/kept_layout.h"
#include "editing/record_hold.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/list_box.h"

namespace locations {

// At which locations a patient is shown, or a login may be used: the primary one always, and those that are checked.
class frmPatientLocation : public editing::EditingForm {
 public:
  explicit frmPatientLocation(const session::ScreenContext& context);

  std::int32_t PatientID = 0;
  std::int32_t PasswordID = 0;  // of a login; its locations are set up where it is not 0
  std::int32_t PrimaryLocationID = 0;
  // A check or the primary location was changed.
  bool ChangeMade = false;

  forms::Label lblName;
  forms::Label lblPatName;
  forms::Label lblPriLoc;
  forms::ComboBox cboPriLoc;
  std::array<forms::Label, 2> lblExplain;
  forms::Label lblLocations;
  forms::Grid TDBG;
  forms::CheckBox chkFam;  // the whole family of the patient
  forms::Button cmdOK;
  forms::Button cmdCancel;

  // Writes the settings; false when something kept them from being written whole.
  bool Save_Data() { return Save(); }

 protected:
  void Read() override;
  bool Differs() const override { return ChangeMade; }
  bool Agreed() override;
  void OnClose() override { layout_.Keep(); }

 private:
  // A patient as he is stored.
  struct Patient {
    std::int32_t id = 0;
    std::string name = {};
    std::string birth_date = {};
    std::int32_t stored_primary = 0;  // 0 where none is
    std::int32_t primary = 0;         // the lowest location where none is stored
  };

  void Register();
  void Wire();
  bool OfLogin() const { return PasswordID != 0; }
  std::int32_t Owner() const { return OfLogin() ? PasswordID : PatientID; }
  data::GrantedLocations Locations() const;

  // False when there is none of that ID.
  bool ReadOwner();
  void ShowLocations(const std::vector<data::GrantedLocations::Granted>& locations);
  std::optional<Patient> ReadPatient(std::int32_t id) const;

  void cboPriLoc_Click();
  bool MayChangePrimary() const;
  void TakePrimary(std::int32_t location);
  void ShowPrimary();
  bool TDBG_CellEdited();
  std::string NameOfLocation(std::int32_t location) const;

  void TakeAffected();
  void Write();
  void WriteLogin() const;
  void WritePatient(const Patient& patient, std::int32_t primary) const;
  void WriteLocationsOf(std::int32_t owner, std::int32_t primary) const;
  bool PrimaryChanged() const { return PrimaryLocationID != stored_primary_; }
  session::LogEntry NoteOf(const Patient& patient, std::int32_t primary) const;
  void LogNotes();

  std::shared_ptr<forms::TableRows> rows_ = std::make_shared<forms::TableRows>();
  std::int32_t stored_primary_ = 0;
  std::int32_t lowest_ = 0;               // the location of whoever has no primary one
  std::int32_t own_check_ = 0;            // the location that was checked only for becoming the primary one; 0 for none
  std::vector<Patient> affected_;         // by the save
  std::list<editing::RecordHold> held_;   // the others among them
  std::vector<session::LogEntry> notes_;  // of what was written
  editing::KeptLayout layout_;
};

}  // namespace locations
