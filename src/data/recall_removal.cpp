#include "data/recall_removal.h"

#include "data/literal.h"
#include "data/reminders.h"
#include "data/statements.h"

namespace data {
namespace {

Sql LinksToRecalls() {
  return Literal(static_cast<std::int32_t>(ReminderLink::Recall));
}

// The contact orders of a recall's patients; the links of other kinds of reminders count from 1 as well.
Sql ContactOrders(const Statements& statements, std::int32_t recall, const session::Value& location) {
  return "select ebcID from eBusContactSequence inner join RSTable on RCRecNum=ebcLinID and ebcLinTyp=" +
         LinksToRecalls() + statements.OfficeJoin(" and RSTable.OfficeID=eBusContactSequence.OfficeID") +
         " where RCRecNum=" + Literal(recall) +
         (session::IsNull(location) ? Sql() : " and OffLocID=" + ValueLiteral(location)) +
         statements.Office(" AND (RSTable.OfficeID=", ")");
}

Sql StageTexts(const Statements& statements, std::int32_t recall) {
  return "select rmtID from ReminderMessageTable inner join emsTable on rmtLinID=emsID" +
         statements.OfficeJoin(" and ReminderMessageTable.OfficeID=emsTable.OfficeID") +
         " where emsLinTyp=" + LinksToRecalls() + " and emsLinID=" + Literal(recall) +
         statements.Office(" AND (emsTable.OfficeID=", ")");
}

Sql Stages(const Statements& statements, std::int32_t recall) {
  return "select emsID from emsTable where emsLinTyp=" + LinksToRecalls() + " and emsLinID=" + Literal(recall) +
         statements.Office();
}

}  // namespace

bool RemoveRecallMaster(session::Database& database, std::int32_t recall) {
  const Statements statements(database);
  const auto master = statements.Select("select RCRecNum, OffLocID from RSTable where RCRecNum=" + Literal(recall) +
                                        statements.Office());
  if (master->Eof()) {
    return false;
  }
  statements.Execute("Delete from eBusContactSequence where ebcID in (" +
                     ContactOrders(statements, recall, (*master)["OffLocID"]) + ")" + statements.Office());
  statements.Execute("Delete from ReminderMessageTable where rmtID in (" + StageTexts(statements, recall) + ")" +
                     statements.Office());
  statements.Execute("Delete from emsTable where emsID in (" + Stages(statements, recall) + ")" + statements.Office());
  statements.Execute("Delete from RSTable where RCRecNum=" + Literal(recall) + statements.Office());
  return true;
}

std::int32_t PatientsOfRecall(session::Database& database, std::int32_t recall) {
  const Statements statements(database);
  return session::ToId(statements.SelectValue("select count(rRecNum) from RECTABLE where rRCRecNum=" + Literal(recall) +
                                              statements.Office()));
}

}  // namespace data
