#include "people/payroll_status.h"

namespace people {
namespace {

constexpr std::array kCaptions = {"E&ffective Date",
                                  "De&partment",
                                  "Annua&l Salary",
                                  "&Vacation Hours",
                                  "S&ick Hours",
                                  "Pe&rsonal Hours",
                                  "Rene&wal Date",
                                  "Reason for Chan&ge",
                                  "From",
                                  "To"};

std::string Indexed(const std::string& name, std::size_t index) {
  return name + "(" + std::to_string(index) + ")";
}

}  // namespace

// In the order in which the page is read.
void PayrollStatus::Register() {
  const auto label = [this](std::size_t index) { Add(Indexed("Ben_LBL", index), Ben_LBL.at(index)); };
  const auto field = [&](Field index) {
    label(index);
    Add(Indexed("Ben_Txt", index), Ben_Txt.at(index));
    Ben_LBL.at(index).Caption = kCaptions.at(index);
    Ben_Txt.at(index).Heading = &Ben_LBL.at(index);
  };
  const auto command = [this](Command index, const std::string& caption) {
    Add(Indexed("Ben_CMD", index), Ben_CMD.at(index));
    Ben_CMD.at(index).Caption = caption;
  };
  const auto calendar = [&](Command index, const std::string& name) {
    command(index, "...");
    Ben_CMD.at(index).AccessibleName = name;
    Ben_CMD.at(index).ToolTip = "Pick the day from a calendar (F9)";
    Ben_CMD.at(index).TabStop = false;
  };
  const auto on = [](forms::Panel& panel, auto& controls) {
    for (auto& control : controls) {
      control.Container = &panel;
    }
  };
  on(BenPic[0], Ben_Opt);
  on(PayBy_Pic, PayBy_Opt);
  on(BenPic[1], Ben_Chk);
  cboStart.Container = cboEnd.Container = &BenPic[1];

  label(kLockedBecause);
  Add("Ben_TDBG", Ben_TDBG);
  command(kNew, "&New");
  command(kRemove, "Re&move");
  field(kEffective);
  Add("EffectiveDate", EffectiveDate);
  calendar(kPickEffective, "Calendar of the effective date");
  Add("BenPic", BenPic);
  Add("Ben_Opt", Ben_Opt);
  field(kDepartment);
  Add("PayBy_Pic", PayBy_Pic);
  Add("PayBy_Opt", PayBy_Opt);
  field(kAmount);
  Add("RenewalDate", RenewalDate);
  field(kRenewal);
  calendar(kPickRenewal, "Calendar of the renewal date");
  field(kReason);
  field(kVacation);
  field(kSick);
  field(kPersonal);
  Add("Ben_Chk", Ben_Chk);
  label(kOtherDays);
  for (const auto& [text, box, name] :
       {std::tuple(kStart, &cboStart, "cboStart"), std::tuple(kEnd, &cboEnd, "cboEnd")}) {
    label(text);
    Add(name, *box);
    Ben_LBL.at(text).Caption = kCaptions.at(text);
    box->Heading = &Ben_LBL.at(text);
  }
  label(kStamps);

  Ben_TDBG.AccessibleName = "Payroll statuses";
  Ben_TDBG.EmptyText = "No payroll status has been entered.";
  Ben_Opt[kFullTime].Caption = "Full time";
  Ben_Opt[kPartTime].Caption = "Part time";
  PayBy_Opt[kByYear].Caption = "By the year";
  PayBy_Opt[kByHour].Caption = "By the hour";
}

void PayrollStatus::AddColumns() {
  using enum forms::GridColumn::Kind;
  using enum forms::GridColumn::Align;
  Ben_TDBG.Columns = {{.key = "EBID", .caption = "ID", .visible = false},
                      {.key = "EBPid", .caption = "PID", .visible = false},
                      {.key = "EBAPPDAT", .caption = "Effective Date", .width = 100},
                      {.key = "EBDatCre", .caption = "Create", .width = 85},
                      {.key = "EBWhoCre", .caption = "Create by", .width = 80},
                      {.key = "EBDatMod", .caption = "Modify", .width = 85},
                      {.key = "EBWhoMod", .caption = "Modify by", .width = 80},
                      {.key = "EBDep", .caption = "Department", .width = 110},
                      {.key = "EBAnnSalAmt", .caption = "Salary", .width = 95, .align = Right},
                      {.key = "EBAnnVacHou", .caption = "Vacation", .width = 70, .align = Right},
                      {.key = "EBAnnSicHou", .caption = "Sick", .width = 50, .align = Right},
                      {.key = "EBAnnPerHou", .caption = "Personal", .width = 70, .align = Right},
                      {.key = "EBFulTimFla", .caption = "FT", .width = 40, .kind = Check, .align = Center}};
}

}  // namespace people
