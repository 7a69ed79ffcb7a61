#include "people/EmployeeFrm.h"

namespace people {

// The pages behind the first: payroll statuses and schedules, login and rights.
void EmployeeFrm::WirePages() {
  Locations.Switched = [this] {
    Payroll.ShowSchedule();
    Rights.Show();
  };
  Login.MayModify = Rights.MayModify = [this] { return MayModifyLogin(); };
  Gen_Txt[kLoginName].KeyPress = [this](char32_t key) { return Terminated() && !MayModifyLogin() ? char32_t{0} : key; };
  TabEBInfo.Switch = [this] { ShowLocations(); };
  Payroll.SaveScreen = [this] { return Save(); };
  Edits(Payroll.Status);
}

// They govern every page but the first.
void EmployeeFrm::ShowLocations() {
  const bool governs = TabEBInfo.CurrTab.get() != kGeneral;
  Locations.lblLocation.Visible = governs;
  Locations.cboLocation.Visible = governs;
}

// At the location of the login, where it has one.
void EmployeeFrm::ReadPages() {
  Locations.Read();
  if (const std::int32_t location = session::ToId(Login.Record().Column("OffLocID")); location != 0) {
    Locations.Choose(location);
  }
  ShowLocations();
  Payroll.Read(pID);
  Rights.Read({Login.Id(), Login.StoredName()});
}

void EmployeeFrm::OnSavePages() {
  const auto pays = [this] { return Payroll.Unsaved(); };
  OnSave([=, this] { return pays() && Payroll.Adding(); }, [this] { Payroll.Insert(pID); });
  OnSave([this] { return Payroll.Updates(); }, [this] { Payroll.Update(); });
  OnSave(pays, [this] { Payroll.WriteSchedules(); });
  OnSave(pays, [this] { Payroll.ShowSaved(); });
}

void EmployeeFrm::GiveDefaults() {
  Payroll.GiveDefaults(DateIn(kEmployed).value_or(context_.session.Today()));
  Rights.GiveDefaults();
}

// Rights belong to a login.
void EmployeeFrm::CompleteRights() {
  if (!terminating_) {
    Rights.AskAboutOthers();
  }
  if (Rights.Unsaved()) {
    Login.Propose();
  }
}

bool EmployeeFrm::MayModifyLogin() const {
  const bool may = MayModify();
  if (may && Terminated()) {
    Tell("The current employee has been terminated. Login name, password and rights cannot be modified.",
         forms::Icon::Information);
  }
  return may && !Terminated();
}

void EmployeeFrm::SaveLogin() {
  Rights.Save([this] {
    Login.Write();
    return LoginRights::Login{Login.Id(), Gen_Txt[kLoginName].Text};
  });
  Login.MarkWritten();
}

bool EmployeeFrm::Differs() const {
  return Employee.Changed() || Login.Pending() || BirthDate.Pending() || Payroll.Unsaved() || Rights.Unsaved();
}

void EmployeeFrm::OnTaken() {
  ShowPerson();
  Payroll.ShowTaken();
}

void EmployeeFrm::OnClose() {
  Payroll.KeepLayout();
  Rights.KeepLayout();
}

}  // namespace people
