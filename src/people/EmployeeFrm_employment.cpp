#include "people/EmployeeFrm.h"

namespace people {

bool EmployeeFrm::IsProvider() const {
  return session::ToText(Employee.Column("pTypDoc")) >= "1";
}

void EmployeeFrm::Terminate() {
  if (!MayModify()) {
    return;
  }
  const auto day =
      employment_.AskTermination({.id = pID,
                                  .name = Gen_Txt[kFirstName].Text.get() + " " + Gen_Txt[kLastName].Text.get(),
                                  .provider = IsProvider(),
                                  .employed = DateIn(kEmployed),
                                  .terminated = DateIn(kTerminated)});
  if (day && Terminated()) {
    Gen_Txt[kTerminated].Text = forms::FormatDashed(*day);
    ShowEmployment();
  } else if (day && SaveLast()) {
    RequireHold();
    employment_.Terminate(pID, *day);
    Saved = true;
    context_.session.RecordHandOff("pID", "PaTable", pID);
    Close();
  }
}

bool EmployeeFrm::SaveLast() {
  terminating_ = true;
  const bool saved = !Unsaved() || Save();
  terminating_ = false;
  return saved;
}

void EmployeeFrm::Reactivate() {
  if (MayModify() && employment_.AgreesToReactivate() && (!Unsaved() || Save())) {
    RequireHold();
    employment_.Reactivate(pID);
    Saved = true;
    Employee.Refresh({&lblTypEmp, &Gen_Txt[kTerminated], &Gen_Txt[kInitials]});
    ShowEmployment();
    context_.session.RecordHandOff("pID", "PaTable", pID);
  }
}

void EmployeeFrm::Delete() {
  if (MayModify() && employment_.MayDelete(pID)) {
    RequireHold();
    employment_.Delete(pID);
    deleted_ = true;
    Close();
  }
}

}  // namespace people
