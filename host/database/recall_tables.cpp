#include "database/tables.h"

namespace host::tables {
namespace {

constexpr int kPeriodCode = 5;

Table RecallMasters() {
  return {
      .name = "RSTable",
      .key = "RCRecNum",
      .columns = {Int("RCRecNum"),          Text("RCTtl", 65),         Text("RCRecPer", kPeriodCode),
                  Text("RCCod", 100),       Text("RCExcCod", 100),     Text("RCDuePer", kPeriodCode),
                  Text("RCDuePerLet", 30),  Text("RCDuePerMsg", 255),  Text("RCLatPer1", kPeriodCode),
                  Text("RCLatPer1Let", 30), Text("RCLatPer1Msg", 255), Text("RCLatPer2", kPeriodCode),
                  Text("RCLatPer2Let", 30), Text("RCLatPer2Msg", 255), Text("RCLatPer3", kPeriodCode),
                  Text("RCLatPer3Let", 30), Text("RCLatPer3Msg", 255), Text("RCLatPer4", kPeriodCode),
                  Text("RCLatPer4Let", 30), Text("RCLatPer4Msg", 255), Text("RCLatPer5", kPeriodCode),
                  Text("RCLatPer5Let", 30), Text("RCLatPer5Msg", 255), Text("RCLatPer6", kPeriodCode),
                  Text("RCLatPer6Let", 30), Text("RCLatPer6Msg", 255), Text("RCCutOff", kPeriodCode),
                  Text("RCCutOffLet", 30),  Text("RCCutOffMsg", 255),  SmallInt("RCDonPriDay"),
                  SmallInt("RCSetupFlag"),  SmallInt("RCIncSamDay"),   SmallInt("RCShoOnToDo"),
                  Int("OffLocID")},
      .indexes = {{"RCTtl"}},
      .row_guid = true,
  };
}

// The contact methods that a person must not be reached by, in a row that is no part of his order.
Column ExcludedMethods() {
  Column column = SmallInt("ebcExc");
  column.since = 7;
  return column;
}

}  // namespace

// Recalls, reminders and their texts.
std::vector<Table> Recall() {
  return {
      RecallMasters(),
      {.name = "RecTable",
       .key = "rRecNum",
       .columns = {Int("rRecNum"), Int("rPid"), Int("rRCRecNum"), Text("rRecDoc", 2 * kName), Int("rRecDocID"),
                   Moment("rLasDat"), Moment("rDueDat")},
       .indexes = {{"rPid"}, {"rRCRecNum"}, {"rRecDocID"}}},
      {.name = "emmTable",
       .key = "emmID",
       // A location of -1 is all of them.
       .columns = {Int("emmID"), Text("emmDes", 60), Flag("emmHasCutOff"), Flag("emmEna"), SmallInt("emmAppDefTyp"),
                   Int("OffLocID")},
       .row_guid = true},
      {.name = "emsTable",
       .key = "emsID",
       .columns = {Int("emsID"), SmallInt("emsLinTyp"), Int("emsLinID"), Int("emsSeq"), Int("emsPer"),
                   Text("emsPerTyp", 1), Int("emsPID")},
       .indexes = {{"emsLinID, emsLinTyp"}},
       .row_guid = true},
      {.name = "ReminderMessageTable",
       .key = "rmtID",
       .columns = {Int("rmtID"), Int("rmtEMMID"), Int("rmtLinID"), Text("rmtLetFil", kFile), Memo("rmtCarMes"),
                   Memo("rmtTexMes"), Memo("rmtEMaMes"), Memo("rmtVoiMes"), Memo("rmtVoiMesSpanish"),
                   Memo("rmtTexAutRetMes"), Memo("rmtEmaAutRetMes")},
       .indexes = {{"rmtLinID"}},
       .row_guid = true},
      {.name = "eBusContactSequence",
       .key = "ebcID",
       .columns = {Int("ebcID"), Int("ebcLinID"), SmallInt("ebcLinTyp"), Int("ebcpID"), Int("ebcSeq"), Int("ebcPer"),
                   SmallInt("ebcConMet"), ExcludedMethods()},
       .indexes = {{"ebcpID"}, {"ebcLinID"}},
       .row_guid = true},
  };
}

}  // namespace host::tables
