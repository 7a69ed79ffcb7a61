#include "lookup/delete_person.h"

#include "editing/person_deletion.h"
#include "editing/provider_deletion.h"
#include "editing/record_hold.h"

namespace lookup {

using editing::DeletedPerson;
using editing::PersonDeletion;
using editing::RecordHold;

bool DeleteFamilyHead(const session::ScreenContext& context, const session::ListOptions& options,
                      const DeletedRow& row) {
  const PersonDeletion deletion(context);
  if (!deletion.HasRight("DELETE-PATIENT", "patients", "delete")) {
    return false;
  }
  if (row.id == options.family_head_including) {
    deletion.Tell(
        "You cannot delete the patient you are currently editing, Please delete from the Patient Information "
        "Screen",
        forms::Icon::Exclamation);
    return false;
  }
  bool declined = false;
  deletion.Attempt([&] {
    const RecordHold person_hold(context.session, "PATABLE", row.id);
    const RecordHold transactions_hold(context.session, "DTTABLE", row.id);
    const DeletedPerson person = DeletedPerson::Read(data::Statements(context.session), row.id);
    declined = !deletion.Warn("This action will also delete " + person.name + "'s patient entry.") ||
               !deletion.MayDelete(person);
    if (!declined) {
      person_hold.Require();
      transactions_hold.Require();
      deletion.Delete(person);
    }
  });
  return !declined;
}

bool DeleteProvider(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                    const DeletedRow& row) {
  return editing::DeleteProvider(context, row.id);
}

bool DeleteEmployee(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                    const DeletedRow& row) {
  const editing::Rules rules(context);
  bool opened = false;
  rules.Attempt([&] {
    const DeletedPerson person = DeletedPerson::Read(data::Statements(context.session), row.id);
    if (person.provider) {
      context.user.Tell(person.name +
                            " is a provider and cannot be removed from the employee list. This is because all service "
                            "providers are considered employees in TAVO Windows. If you still want to delete " +
                            person.name + ", please use the provider list instead.",
                        "Delete Provider", forms::Icon::Exclamation);
      return;
    }
    opened = rules.Confirm(
        "For your protection, the ability to delete employees is only available on the Employee Editing Screen. On "
        "this screen, Supervisors have options to Delete and Terminate employment. Would you like to open the Employee "
        "Editing Screen now?",
        "Delete Employee");
  });
  return opened && context.screens.Edit(session::Opening::Existing(session::RecordKind::Employee, row.id)).end !=
                       session::Outcome::End::NotBuilt;
}

}  // namespace lookup
