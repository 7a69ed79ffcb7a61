#pragma once

#include <array>
#include <cstdint>
#include <list>
#include <map>
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
    std::int32_t primary = 0;  // the lowest location where none is stored
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
  void ShowPrimary();
  bool TDBG_CellEdited();
  std::string NameOfLocation(std::int32_t location) const;

  void TakeAffected();
  void WriteLocations();
  void WriteLocationsOf(std::int32_t owner, std::int32_t primary) const;
  bool PrimaryChanged() const { return PrimaryLocationID != stored_primary_; }
  void WritePrimaryOfLogin() const;
  void WritePrimary();
  void NotePrimary(const Patient& patient);

  std::shared_ptr<forms::TableRows> rows_ = std::make_shared<forms::TableRows>();
  std::int32_t stored_primary_ = 0;
  std::int32_t lowest_ = 0;                     // the location of whoever has no primary one
  std::vector<Patient> affected_;               // by the save; the screen's own patient is the last
  std::list<editing::RecordHold> held_;         // the others among them
  std::map<std::int32_t, std::int32_t> noted_;  // by patient, the location of a change that is still due
  editing::KeptLayout layout_;
};

}  // namespace locations
