#include "recall/recall_stage_store.h"

#include <algorithm>
#include <array>
#include <set>

#include "data/literal.h"
#include "data/reminder_kinds.h"
#include "forms/rich_text.h"
#include "forms/text.h"

namespace recall {
namespace {

using data::Literal;
using data::Sql;
using data::Words;
using session::ToId;
using session::ToText;

constexpr std::int32_t kRecallLink = static_cast<std::int32_t>(data::ReminderLink::Recall);
constexpr std::int32_t kRecallKind = static_cast<std::int32_t>(data::ReminderKind::Recall);
// Of the recall's own columns.
constexpr int kPeriodRoom = 5;
constexpr int kLetterRoom = 30;
constexpr int kMessageRoom = 255;

// The columns of the recall's own row for a stage, and how they are set from its rows.
struct FlatColumns {
  Words period;
  Words letter;
  Words message;
  Words refill;
};
constexpr std::array kFlat = {
    FlatColumns{"RCDuePer", "RCDuePerLet", "RCDuePerMsg",
                "rcDuePer=tbl.Period, rcDuePerMsg=tbl.rmtCarMes, rcDuePerLet=tbl.rmtLetFil"},
    FlatColumns{"RCLatPer1", "RCLatPer1Let", "RCLatPer1Msg",
                "rcLatPer1=tbl.Period, rcLatPer1Msg=tbl.rmtCarMes, rcLatPer1Let=tbl.rmtLetFil"},
    FlatColumns{"RCLatPer2", "RCLatPer2Let", "RCLatPer2Msg",
                "rcLatPer2=tbl.Period, rcLatPer2Msg=tbl.rmtCarMes, rcLatPer2Let=tbl.rmtLetFil"},
    FlatColumns{"RCLatPer3", "RCLatPer3Let", "RCLatPer3Msg",
                "rcLatPer3=tbl.Period, rcLatPer3Msg=tbl.rmtCarMes, rcLatPer3Let=tbl.rmtLetFil"},
    FlatColumns{"RCLatPer4", "RCLatPer4Let", "RCLatPer4Msg",
                "rcLatPer4=tbl.Period, rcLatPer4Msg=tbl.rmtCarMes, rcLatPer4Let=tbl.rmtLetFil"},
    FlatColumns{"RCLatPer5", "RCLatPer5Let", "RCLatPer5Msg",
                "rcLatPer5=tbl.Period, rcLatPer5Msg=tbl.rmtCarMes, rcLatPer5Let=tbl.rmtLetFil"},
    FlatColumns{"RCLatPer6", "RCLatPer6Let", "RCLatPer6Msg",
                "rcLatPer6=tbl.Period, rcLatPer6Msg=tbl.rmtCarMes, rcLatPer6Let=tbl.rmtLetFil"},
    FlatColumns{"RCCutOff", "RCCutOffLet", "RCCutOffMsg",
                "rcCutOff=tbl.Period, rcCutOffMsg=tbl.rmtCarMes, rcCutOffLet=tbl.rmtLetFil"}};

Stage FromColumns(const FlatColumns& columns, int place, const RecallStageStore::Column& column) {
  Stage stage{.period = StagePeriod::Parse(column(columns.period.Text())), .sequence = RecallStages::SequenceOf(place)};
  stage.notices.letter = column(columns.letter.Text());
  stage.notices.postcard = forms::WriteHtml(forms::FromPlainText(column(columns.message.Text())));
  return stage;
}

bool IsFilled(Words name, const RecallStageStore::Column& column) {
  return !forms::Trim(column(name.Text())).empty();
}

RecallStages FromColumns(const RecallStageStore::Column& column) {
  const RecallStages usual = RecallStages::Default();
  const bool none = std::ranges::none_of(kFlat, [&](const auto& columns) { return IsFilled(columns.period, column); });
  RecallStages stages;
  for (int place = RecallStages::kDue; place <= RecallStages::kStop; ++place) {
    const FlatColumns& columns = kFlat.at(static_cast<std::size_t>(place));
    Stage stage = FromColumns(columns, place, column);
    const bool has_period = IsFilled(columns.period, column);
    const bool there = has_period || IsFilled(columns.letter, column) || IsFilled(columns.message, column) ||
                       (none && usual.At(place) != nullptr);
    if (!has_period && usual.At(place) != nullptr) {
      stage.period = usual.At(place)->period;
      stage.assumed = true;
    }
    if (place == RecallStages::kStop) {
      stages.stop = std::move(stage);
    } else if (there && place == RecallStages::kDue) {
      stages.due = std::move(stage);
    } else if (there) {
      stages.late.push_back(std::move(stage));
    }
  }
  return stages;
}

// A period that was never given has neither part, and 0 for its number.
StagePeriod PeriodOf(const session::Value& number, const session::Value& unit) {
  const auto parsed = forms::ParsePeriodUnit(ToText(unit));
  const bool given = parsed || ToId(number) != 0;
  return {.number = given ? std::optional(ToId(number)) : std::nullopt, .unit = parsed};
}

}  // namespace

std::string_view RecallStageStore::PeriodColumn(int place) {
  return kFlat.at(static_cast<std::size_t>(place)).period.Text();
}

RecallStages RecallStageStore::Read(std::int32_t recall, const Column& column) const {
  RecallStages stages;
  return ReadRows(recall, stages) ? stages : FromColumns(column);
}

bool RecallStageStore::IsThere(std::int32_t recall) const {
  return !session::IsNull(
      statements_.SelectValue("select RCRecNum from RSTable where RCRecNum=" + Literal(recall) + statements_.Office()));
}

// Where two rows claim the same stage, the older one is it.
bool RecallStageStore::ReadRows(std::int32_t recall, RecallStages& stages) const {
  const std::int32_t kind = data::FindReminderKindRow(database_, data::ReminderKind::Recall);
  std::set<std::int32_t> known;
  for (const auto rows = statements_.Select(
           "Select emsID, emsSeq, emsPer, emsPerTyp, rmtID, rmtLetFil, rmtCarMes, rmtTexMes, rmtEMaMes, rmtVoiMes, "
           "rmtVoiMesSpanish, rmtTexAutRetMes, rmtEmaAutRetMes From emsTable left join ReminderMessageTable on "
           "rmtLinID=emsID and rmtEMMID=" +
           Literal(kind) + statements_.OfficeJoin(" AND emsTable.OfficeID=ReminderMessageTable.OfficeID") +
           " Where emsLinTyp=" + Literal(kRecallLink) + " and emsLinID=" + Literal(recall) +
           statements_.Office(" AND (emsTable.OfficeID=", ")") + " Order by emsSeq, emsID, rmtID");
       !rows->Eof(); rows->MoveNext()) {
    const std::int32_t sequence = ToId(rows->Get(1));
    const bool is_late = sequence > data::kDueStage && sequence <= RecallStages::kMostLate;
    if (session::IsNull(rows->Get(1)) ||
        (!is_late && sequence != data::kDueStage && sequence != data::kStopTrackingStage) ||
        !known.insert(sequence).second) {
      continue;
    }
    Stage stage{.period = PeriodOf(rows->Get(2), rows->Get(3)),
                .notices = {.letter = ToText(rows->Get(5)),
                            .postcard = ToText(rows->Get(6)),
                            .text_message = ToText(rows->Get(7)),
                            .email = ToText(rows->Get(8)),
                            .voice = ToText(rows->Get(9)),
                            .voice_spanish = ToText(rows->Get(10)),
                            .text_reply = ToText(rows->Get(11)),
                            .email_reply = ToText(rows->Get(12))},
                .sequence = sequence,
                .row = ToId(rows->Get(0)),
                .message_row = ToId(rows->Get(4))};
    if (is_late) {
      stages.late.push_back(std::move(stage));
    } else if (sequence == data::kDueStage) {
      stages.due = std::move(stage);
    } else {
      stages.stop = std::move(stage);
    }
  }
  return !known.empty();
}

void RecallStageStore::Write(std::int32_t recall, const RecallStages& stored, RecallStages& stages) const {
  std::set<std::int32_t> kept;
  Sql rows = Literal(0);
  for (const int place : stages.Places()) {
    const Stage& stage = *stages.At(place);
    rows += ", " + Literal(stage.row);
    if (stage.sequence) {
      kept.insert(*stage.sequence);
    }
  }
  Sql sequences;
  for (const int place : stored.Places()) {
    if (const auto& sequence = stored.At(place)->sequence) {
      sequences += (sequences.Empty() ? Sql() : Sql(", ")) + Literal(*sequence);
      if (!kept.contains(*sequence)) {
        RemoveOrders(recall, *sequence);
      }
    }
  }
  if (!sequences.Empty()) {
    RemoveRows("emsLinTyp=" + Literal(kRecallLink) + " and emsLinID=" + Literal(recall) + " and emsSeq in (" +
               sequences + ") and emsID not in (" + rows + ")" + statements_.Office());
  }
  const std::int32_t kind = data::ReminderKindRow(database_, data::ReminderKind::Recall);
  for (const int place : stages.Places()) {  // from the front: where a stage moves to is free by then
    Stage& stage = *stages.At(place);
    const std::int32_t sequence = RecallStages::SequenceOf(place);
    if (stage.sequence && *stage.sequence != sequence) {
      MoveOrders(recall, *stage.sequence, sequence);
    }
    stage.sequence = sequence;
    stage.assumed = false;
    WriteStage(recall, kind, place, stage);
  }
}

Sql RecallStageStore::OrdersOf(std::int32_t recall, std::int32_t sequence) const {
  return " Where ebcLinTyp=" + Literal(kRecallLink) + " and ebcLinID=" + Literal(recall) +
         " and ebcPer=" + Literal(sequence) + statements_.Office();
}

void RecallStageStore::RemoveOrders(std::int32_t recall, std::int32_t sequence) const {
  statements_.Execute("Delete from eBusContactSequence" + OrdersOf(recall, sequence));
}

void RecallStageStore::RemoveRows(const Sql& stages) const {
  statements_.Execute("Delete from ReminderMessageTable Where rmtLinID in (select emsID from emsTable where " + stages +
                      ")" + statements_.Office());
  statements_.Execute("Delete from emsTable Where " + stages);
}

// What stands at the new place belongs to no stage.
void RecallStageStore::MoveOrders(std::int32_t recall, std::int32_t from, std::int32_t to) const {
  RemoveOrders(recall, to);
  statements_.Execute("update eBusContactSequence set ebcPer=" + Literal(to) + OrdersOf(recall, from));
}

void RecallStageStore::WriteStage(std::int32_t recall, std::int32_t kind, int place, Stage& stage) const {
  const data::Assignments of_stage = {
      {"emsLinTyp", Literal(kRecallLink)},
      {"emsLinID", Literal(recall)},
      {"emsPer", Literal(stage.period.number.value_or(0))},
      {"emsPerTyp", Literal(stage.period.unit ? std::string(1, static_cast<char>(*stage.period.unit)) : std::string())},
      {"emsPID", Literal(0)},
      {"emsSeq", Literal(RecallStages::SequenceOf(place))}};
  const auto write = [this](Words table, const data::Assignments& values, Words key, std::int32_t& row) {
    if (row == 0) {
      row = statements_.Insert(table, values);
      return;
    }
    Sql set;
    for (const auto& [column, literal] : values) {
      set += (set.Empty() ? Sql() : Sql(", ")) + column + "=" + literal;
    }
    statements_.Execute("UPdate " + Sql(table) + " Set " + set + " Where " + key + "=" + Literal(row) +
                        statements_.Office());
  };
  write("emsTable", of_stage, "emsID", stage.row);
  const Notices& notices = stage.notices;
  write("ReminderMessageTable",
        {{"rmtemmID", Literal(kind)},
         {"rmtLinID", Literal(stage.row)},
         {"rmtLetFil", Literal(notices.letter)},
         {"rmtCarMes", Literal(notices.postcard)},
         {"rmtTexMes", Literal(notices.text_message)},
         {"rmtEMaMes", Literal(notices.email)},
         {"rmtVoiMes", Literal(notices.voice)},
         {"rmtVoiMesSpanish", Literal(notices.voice_spanish)},
         {"rmtTexAutRetMes", Literal(notices.text_reply)},
         {"rmtEmaAutRetMes", Literal(notices.email_reply)}},
        "rmtID", stage.message_row);
}

// Every office's, whichever saves first. One that is there is left as it is, whatever columns it has.
void RecallStageStore::BackUp() const {
  constexpr Words kColumns =
      "OffLocID, RCCod, RCCutOff, RCCutOffLet, RCCutOffMsg, RCDonPriDay, RCDuePer, RCDuePerLet, RCDuePerMsg, RCExcCod, "
      "RCIncSamDay, RCLatPer1, RCLatPer1Let, RCLatPer1Msg, RCLatPer2, RCLatPer2Let, RCLatPer2Msg, RCLatPer3, "
      "RCLatPer3Let, RCLatPer3Msg, RCLatPer4, RCLatPer4Let, RCLatPer4Msg, RCLatPer5, RCLatPer5Let, RCLatPer5Msg, "
      "RCLatPer6, RCLatPer6Let, RCLatPer6Msg, RCRecNum, RCRecPer, RCSetupFlag, RCShoOnToDo, RCTtl";
  if (!statements_.Select(Sql("select * from INFORMATION_SCHEMA.TABLES where TABLE_NAME='RSTableBackup'"))->Eof()) {
    return;
  }
  const bool scoped = statements_.OfficeScoped();
  statements_.Execute(
      "if not exists (select * from INFORMATION_SCHEMA.TABLES where TABLE_NAME='RSTableBackup') create table "
      "RSTableBackup (OffLocID int, RCCod nvarchar(100), RCCutOff nvarchar(5), RCCutOffLet nvarchar(30), RCCutOffMsg "
      "nvarchar(255), RCDonPriDay smallint, RCDuePer nvarchar(5), RCDuePerLet nvarchar(30), RCDuePerMsg nvarchar(255), "
      "RCExcCod nvarchar(100), RCIncSamDay smallint, RCLatPer1 nvarchar(5), RCLatPer1Let nvarchar(30), RCLatPer1Msg "
      "nvarchar(255), RCLatPer2 nvarchar(5), RCLatPer2Let nvarchar(30), RCLatPer2Msg nvarchar(255), RCLatPer3 "
      "nvarchar(5), RCLatPer3Let nvarchar(30), RCLatPer3Msg nvarchar(255), RCLatPer4 nvarchar(5), RCLatPer4Let "
      "nvarchar(30), RCLatPer4Msg nvarchar(255), RCLatPer5 nvarchar(5), RCLatPer5Let nvarchar(30), RCLatPer5Msg "
      "nvarchar(255), RCLatPer6 nvarchar(5), RCLatPer6Let nvarchar(30), RCLatPer6Msg nvarchar(255), RCRecNum int not "
      "null, RCRecPer nvarchar(5), RCSetupFlag smallint, RCShoOnToDo smallint, RCTtl nvarchar(65)" +
      (scoped ? Sql(", OfficeID int)") : Sql(")")));
  const Sql columns = Sql(kColumns) + (scoped ? Sql(", OfficeID") : Sql());
  statements_.Execute("Insert into RSTableBackup (" + columns + ") select " + columns + " from RSTABLE");
}

void RecallStageStore::Mirror(std::int32_t recall, const RecallStages& stages) const {
  BackUp();
  const Sql of_recall = Literal(recall) + statements_.Office();
  Sql cleared;
  for (const FlatColumns& columns : kFlat) {
    cleared += (cleared.Empty() ? Sql() : Sql(", ")) + columns.period + "='', " + columns.letter + "='', " +
               columns.message + "=''";
  }
  statements_.Execute("Update RSTable set " + cleared + " where RCRecNum=" + of_recall);
  for (const int place : stages.Places()) {
    MirrorStage(recall, place, *stages.At(place));
  }
}

// From the stage's rows, but for what the recall's own columns have no room for, or no form.
void RecallStageStore::MirrorStage(std::int32_t recall, int place, const Stage& stage) const {
  const FlatColumns& columns = kFlat.at(static_cast<std::size_t>(place));
  const Sql of_recall = Literal(recall) + statements_.Office();
  const std::string period = stage.period.Text();
  const std::string& letter = stage.notices.letter;
  const std::string& card = stage.notices.postcard;
  const std::string fitting_period = forms::Fitting(period, kPeriodRoom);
  const std::string fitting_letter = forms::Fitting(letter, kLetterRoom);
  const std::string fitting_card = forms::Fitting(forms::PlainText(forms::ReadHtml(card)), kMessageRoom);
  if (period.empty() || fitting_period != period || fitting_letter != letter || fitting_card != card) {
    statements_.Execute("Update RSTable set " + Sql(columns.period) + "=" + Literal(fitting_period) + ", " +
                        columns.letter + "=" + Literal(fitting_letter) + ", " + columns.message + "=" +
                        Literal(fitting_card) + " where RCRecNum=" + of_recall);
    return;
  }
  const std::int32_t kind = data::FindReminderKindRow(database_, data::ReminderKind::Recall);
  statements_.Execute(
      "update TAVOWIN.DBO.rsTable set " + Sql(columns.refill) +
      " From (select emsLinID, cast(emsPer as nvarchar) + emsPerTyp as Period, emsSeq, rmtLetFil, rmtCarMes From "
      "emmTable left join emsTable on emsLinTyp=" +
      Literal(kRecallLink) + statements_.OfficeJoin(" AND emmTable.OfficeID=emsTable.OfficeID") +
      " left join ReminderMessageTable on rmtLinID=emsID and rmtEmmID=emmID" +
      statements_.OfficeJoin(" AND emmTable.OfficeID=ReminderMessageTable.OfficeID") +
      " Where emmAppDefTyp=" + Literal(kRecallKind) + " and emsSeq=" + Literal(RecallStages::SequenceOf(place)) +
      " and emsLinID = " + Literal(recall) + " and emmID=" + Literal(kind) + " and emsID=" + Literal(stage.row) +
      statements_.Office(" AND (emmTable.OfficeID=", ")") + ") as TBL Where RCRecNum = " + of_recall);
}

}  // namespace recall
