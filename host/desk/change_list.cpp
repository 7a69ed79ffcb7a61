#include "desk/change_list.h"

#include "data/statements.h"
#include "lookup/frmTGList.h"
#include "practice/logins.h"

namespace host {

void ShowChangeList(const session::ScreenContext& context) {
  if (!context.session.HasRight(kSupervisorRight)) {
    context.user.Tell("Only a supervisor may see the change log.", std::string(forms::kSuiteTitle),
                      forms::Icon::Exclamation);
    return;
  }
  lookup::frmTGList list(context);
  list.Options.title = "Change Log";
  list.Caption = "Change Log";
  list.ListName = "ChangeLog";
  list.LayoutKey = "frmTGList_CHLO";
  list.IDFld.Caption = "No";
  list.NamFld.Caption = "User";
  list.AllowEdit = false;
  list.SortBy = data::Sql("[No] DESC");
  list.SetSQL(
      "SELECT ChangeTable.ChaDat AS [When], ChangeTable.ChaWho AS [User], ChangeTable.ChaWhat AS [What], "
      "ChangeTable.ChaTab AS [Table], ChangeTable.ChaRecID AS [Record], ChangeTable.ChaCol AS [Column], "
      "ChangeTable.ChaOld AS [Before], ChangeTable.ChaNew AS [After], ChangeTable.ChaID AS [No] "
      "FROM ChangeTable WHERE (ChaID>0)" +
      data::Statements(context.session).Office());
  list.ShowList();
}

}  // namespace host
