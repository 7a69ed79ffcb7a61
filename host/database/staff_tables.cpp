#include "database/tables.h"

namespace host::tables {

namespace {

// 0 but for logins that had their name with others before names were unique: they keep it and are told apart.
Column Namesake(std::string_view name) {
  Column column = Flag(name);
  column.since = 3;
  column.upgrade =
      "(SELECT COUNT(*) FROM PWMTable AS elder WHERE elder.PWMUseNam=PWMTable.PWMUseNam AND "
      "elder.OfficeID=PWMTable.OfficeID AND elder.PWMID<PWMTable.PWMID)";
  return column;
}

}  // namespace

// Employees, their logins and rights, schedules and clock times.
std::vector<Table> Staff() {
  return {
      {.name = "PWMTable",
       .key = "PWMID",
       .columns = {Int("PWMID"), Text("PWMUseNam", kLogin), Secret("PWMPasWor", 200), Int("PWMPid"), Number("OffLocID"),
                   Namesake("PWMNamesake")},
       .indexes = {{"PWMUseNam"}, {"PWMPid"}, {.columns = "PWMUseNam, PWMNamesake", .unique = true, .since = 3}},
       .logged = true},
      {.name = "PWATable",
       .key = "PWAID",
       .columns = {Int("PWAID"), Int("PWAPWMID"), Text("PWAUseNam", kLogin), Int("OffLocID"), Text("PWAAreOfPro", 40),
                   Flag("PWAReaFla"), Flag("PWAWriFla"), Flag("PWAFla1"), Flag("PWAFla2")},
       .indexes = {{"PWAUseNam, OffLocID"}, {"PWAPWMID, OffLocID"}},
       .logged = true},
      {.name = "ealTable",
       .key = "ealID",
       .columns = {Int("ealID"), Int("ealPWMID"), Int("ealOffLocID"), Flag("ealAccLoc")},
       .indexes = {{"ealPWMID, ealOffLocID"}},
       .logged = true},
      {.name = "EBTable",
       .key = "EBID",
       .columns = {Int("EBID"),
                   Int("EBPid"),
                   Moment("EBAPPDAT"),
                   Flag("EBFulTimFla"),
                   Text("EBDep", 40),
                   SmallInt("EBPayBy"),
                   Money("EBAnnSalAmt"),
                   Real("EBAnnVacHou"),
                   Real("EBAnnSicHou"),
                   Real("EBAnnPerHou"),
                   Moment("EBRenDat"),
                   Moment("EBWorStaTim"),
                   Moment("EBWorEndTim"),
                   Text("EBWorTim", 20),
                   Text("EBWorDay", 20),
                   Text("EBReaCha", 255),
                   Text("EBWhoCre", kLogin),
                   Moment("EBDatCre"),
                   Text("EBWhoMod", kLogin),
                   Moment("EBDatMod")},
       .indexes = {{"EBPid"}}},
      {.name = "ESTable",
       .key = "ESID",
       .columns = {Int("ESID"), Int("EBID"), Int("OffLocID"), Moment("ESWorStaTim"), Moment("ESWorEndTim"),
                   Text("ESWorTim", 20), Text("ESWorDay", 20)},
       .indexes = {{"EBID, OffLocID"}}},
      {.name = "TimTable",
       .key = "TimID",
       .columns = {Int("TimID"), Int("TimPid"), Moment("TimInDat"), Moment("TimOutDat"), SmallInt("TimTyp")},
       .indexes = {{"TimPid, TimInDat"}}},
      {.name = "AbsTable", .key = "AbsID", .columns = {Int("AbsID"), Int("AbsTimID")}, .indexes = {{"AbsTimID"}}},
  };
}

}  // namespace host::tables
