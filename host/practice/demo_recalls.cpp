#include "practice/demo_recalls.h"

#include <array>
#include <string>

#include "data/reminders.h"
#include "forms/rich_text.h"
#include "practice/demo_texts.h"

namespace host::demo {
namespace {

struct Stage {
  std::int32_t sequence = data::kDueStage;
  std::int32_t number = 0;
  std::string_view unit;
  Tone tone = Tone::Due;

  std::string Period() const { return std::to_string(number) + std::string(unit); }
};

struct Master {
  std::string_view title;
  std::string_view period;
  int months;
  std::string_view codes;
  std::vector<Stage> stages;
};

const std::vector<Master>& Masters() {
  static const std::vector<Master> masters = {{"Cleaning and examination",
                                               "6M",
                                               6,
                                               "D0101,D1001",
                                               {{data::kDueStage, 30, "D", Tone::Due},
                                                {1, 30, "D", Tone::Missed},
                                                {2, 3, "M", Tone::Overdue},
                                                {3, 6, "M", Tone::Overdue},
                                                {4, 9, "M", Tone::LongOverdue},
                                                {5, 12, "M", Tone::LongOverdue},
                                                {6, 18, "M", Tone::LongOverdue},
                                                {data::kStopTrackingStage, 2, "Y", Tone::Last}}},
                                              {"Children's cleaning",
                                               "6M",
                                               6,
                                               "D1002,D1003",
                                               {{data::kDueStage, 14, "D", Tone::Due},
                                                {1, 30, "D", Tone::Missed},
                                                {2, 60, "D", Tone::Overdue},
                                                {3, 6, "M", Tone::LongOverdue},
                                                {data::kStopTrackingStage, 1, "Y", Tone::Last}}},
                                              {"Gum maintenance",
                                               "3M",
                                               3,
                                               "D4001",
                                               {{data::kDueStage, 14, "D", Tone::Due},
                                                {1, 14, "D", Tone::Missed},
                                                {2, 45, "D", Tone::Overdue},
                                                {data::kStopTrackingStage, 1, "Y", Tone::Last}}},
                                              {"Full mouth X-rays",
                                               "5Y",
                                               60,
                                               "D0202",
                                               {{data::kDueStage, 2, "M", Tone::Due},
                                                {1, 1, "Y", Tone::Missed},
                                                {data::kStopTrackingStage, 8, "Y", Tone::Last}}}};
  return masters;
}

std::string Postcard(const Stage& stage) {
  return "Dear {Patient First Name},\n" + std::string(TextOf(stage.tone).message) + "\n{Office Name}";
}

std::string Html(std::string_view text) {
  return forms::WriteHtml(forms::FromPlainText(text));
}

// A ready-made template stands in the place of the children's first e-mail, one of the practice in that of a text.
std::string Email(std::size_t master, const Stage& stage) {
  if (master == 1 && stage.tone == Tone::Due) {
    return "<PredefinedTemplate=Bright smiles/>";
  }
  return Html("Dear {Patient Full Name},\n" + std::string(TextOf(stage.tone).message) +
              "\nYours sincerely,\n{Provider Full Name}\n{Office Name}, {Office Website Address}");
}

std::string TextMessage(std::size_t master, const Stage& stage) {
  if (master == 3 && stage.tone == Tone::Due) {
    return "TEMPLATE Friendly";
  }
  return "Hello {Patient First Name}. " + std::string(TextOf(stage.tone).message);
}

class MasterMaker {
 public:
  MasterMaker(DemoOffice& office, const ReminderKinds& kinds)
      : recall_kind_(kinds.front()),
        masters_(office.Writer(
            "RSTable",
            "RCRecNum, RCTtl, RCRecPer, RCCod, RCDuePer, RCDuePerLet, RCDuePerMsg, RCLatPer1, RCLatPer1Let, "
            "RCLatPer1Msg, RCLatPer2, RCLatPer2Let, RCLatPer2Msg, RCLatPer3, RCLatPer3Let, RCLatPer3Msg, RCLatPer4, "
            "RCLatPer4Let, RCLatPer4Msg, RCLatPer5, RCLatPer5Let, RCLatPer5Msg, RCLatPer6, RCLatPer6Let, "
            "RCLatPer6Msg, RCCutOff, RCCutOffLet, RCCutOffMsg, RCDonPriDay, RCIncSamDay, RCShoOnToDo, OffLocID")),
        stages_(office.Writer("emsTable", "emsID, emsLinTyp, emsLinID, emsSeq, emsPer, emsPerTyp, emsPID")),
        messages_(office.Writer("ReminderMessageTable",
                                "rmtID, rmtEMMID, rmtLinID, rmtLetFil, rmtCarMes, rmtTexMes, rmtEMaMes, rmtVoiMes, "
                                "rmtVoiMesSpanish, rmtTexAutRetMes, rmtEmaAutRetMes")) {}

  RecallMaster Make(std::size_t which, std::int32_t location) {
    const Master& master = Masters()[which];
    RecallMaster made{WriteMaster(master, location), master.months, {}};
    for (const Stage& stage : master.stages) {
      const std::int32_t id = stages_.Row(static_cast<std::int32_t>(data::ReminderLink::Recall), made.number,
                                          stage.sequence, stage.number, stage.unit, 0);
      WriteTexts(which, id, stage);
      made.stages.push_back(stage.sequence);
    }
    return made;
  }

  void Flush() {
    for (TableWriter* writer : {&masters_, &stages_, &messages_}) {
      writer->Flush();
    }
  }

 private:
  // The ladder once more, in the record itself: a postcard as plain text.
  std::int32_t WriteMaster(const Master& master, std::int32_t location) {
    std::array<std::array<std::string, 3>, data::kMostPastDueStages + 2> flat;
    for (const Stage& stage : master.stages) {
      const std::size_t place =
          stage.sequence == data::kStopTrackingStage ? flat.size() - 1 : static_cast<std::size_t>(stage.sequence);
      flat.at(place) = {stage.Period(), std::string(TextOf(stage.tone).letter_file),
                        forms::PlainText(forms::FromPlainText(Postcard(stage)))};
    }
    const auto in = [&](std::size_t place, std::size_t part) { return OrNull{flat.at(place).at(part)}; };
    return masters_.Row(master.title, master.period, master.codes, in(0, 0), in(0, 1), in(0, 2), in(1, 0), in(1, 1),
                        in(1, 2), in(2, 0), in(2, 1), in(2, 2), in(3, 0), in(3, 1), in(3, 2), in(4, 0), in(4, 1),
                        in(4, 2), in(5, 0), in(5, 1), in(5, 2), in(6, 0), in(6, 1), in(6, 2), in(7, 0), in(7, 1),
                        in(7, 2), 14, 1, 1, location);
  }

  void WriteTexts(std::size_t which, std::int32_t stage_id, const Stage& stage) {
    const RecallText& text = TextOf(stage.tone);
    messages_.Row(
        recall_kind_, stage_id, text.letter_file, Html(Postcard(stage)), TextMessage(which, stage), Email(which, stage),
        "Hello. This is {Office Name} with a reminder for {Patient First Name}. " + std::string(text.message),
        "Hola. Le llama {Office Name} con un recordatorio para {Patient First Name}. " + std::string(text.spanish),
        "Thank you. We will call you to find a day.", Html("Thank you. We will call you to find a day."));
  }

  std::int32_t recall_kind_;
  TableWriter masters_;
  TableWriter stages_;
  TableWriter messages_;
};

}  // namespace

std::vector<RecallMaster> MakeRecallMasters(DemoOffice& office, std::int32_t location, const ReminderKinds& kinds) {
  MasterMaker maker(office, kinds);
  std::vector<RecallMaster> made;
  for (std::size_t i = 0; i < Masters().size(); ++i) {
    made.push_back(maker.Make(i, location));
  }
  maker.Flush();
  return made;
}

}  // namespace host::demo
