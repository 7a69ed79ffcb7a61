#include "people/EmployeeFrm.h"

namespace people {

// The pages behind the first: payroll statuses and schedules, login and rights.
void EmployeeFrm::WirePages() {
  Locations.Switched = [this] {
    Payroll.ShowSchedule();
    Rights.Show();
  };
  Payroll.SaveScreen = [this] { return Save(); };
  Edits(Payroll.Status);
}

// At the location of the login, where it has one.
void EmployeeFrm::ReadPages() {
  Locations.Read();
  if (const std::int32_t location = session::ToId(Login.Record().Column("OffLocID")); location != 0) {
    Locations.Choose(location);
  }
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
  Rights.AskAboutOthers();
  if (Rights.Unsaved()) {
    Login.Propose();
  }
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
