#include "recall/template_sample.h"

#include <algorithm>
#include <utility>

#include "data/literal.h"
#include "data/locations.h"
#include "data/persons.h"
#include "forms/weekdays.h"
#include "recall/confirmation_link.h"

namespace recall {
namespace {

using data::ReminderKind;

// Where the office has no service yet.
constexpr std::string_view kSampleAddress = "https://confirm.example.com";

int DaysOf(forms::PeriodCode period) {
  constexpr std::int32_t kMost = 9999;
  period.number = std::clamp(period.number, -kMost, kMost);
  return period.Days();
}

forms::Date After(forms::Date date, int days) {
  return std::chrono::sys_days(date) + std::chrono::days(days);
}

void SayPatient(forms::Date birthday, TemplateValues& values) {
  constexpr int kAge = 36;  // a leap year before any
  values["{Patient Full Name}"] = "Maria Sample";
  values["{Patient First Name}"] = "Maria";
  values["{Patient Last Name}"] = "Sample";
  values["{Patient Title}"] = "Ms.";
  values["{Patient Insurance Eligibility}"] = "Eligible";
  values["{Patient Premed}"] = "Amoxicillin";
  values["{Patient Birth Date}"] = forms::FormatSlashed(birthday - std::chrono::years(kAge));
}

void SayAppointment(forms::Date day, TemplateValues& values) {
  values["{Appointment Date}"] = forms::FormatSlashed(day);
  values["{Appointment Time}"] = "10:30 am";
  values["{Appointment Day of the Week}"] = forms::kWeekdayNames.at(std::chrono::weekday(day).iso_encoding() - 1);
  values["{Appointment ID}"] = "12345";
}

void SayRecall(forms::Date due, const forms::PeriodCode& period, TemplateValues& values) {
  const std::string day = forms::FormatSlashed(due);
  values["{Recall Title}"] = "Cleaning and Check-up";
  values["{Recall Period}"] = period.Words();
  values["{Last Recall Date}"] = forms::FormatSlashed(After(due, -DaysOf(period)));
  for (const std::string_view variable : {"{Next Recall Appointment Date}", "{Recommended Recall Date}",
                                          "{Preferred Recall Date}", "{Recall Due Date}"}) {
    values[std::string(variable)] = day;
  }
  values["{Next Recall Appointment Time}"] = "10:30 am";
}

// The practice's own, or else an invented one.
void SayProvider(session::Session& session, TemplateValues& values) {
  const data::Statements statements(session);
  const session::Value id(session.OfficeSetting("DEFAULT_OFFICE_SETUP", "OFF_PRA_PRO"));
  const auto rows =
      statements.Select("SELECT pFirNam, pLasNam, pTTL FROM PATable WHERE (pID=" + data::Literal(session::ToId(id)) +
                        ")" + statements.Office());
  const bool found = session::ToId(id) != 0 && !rows->Eof();
  const auto said = [&](std::size_t field, const char* invented) {
    const std::string text = found ? session::ToText(rows->Get(field)) : "";
    return text.empty() ? std::string(invented) : text;
  };
  const std::string first = found ? session::ToText(rows->Get(0)) : "Sam";
  const std::string last = said(1, "Example");
  values["{Provider Full Name}"] = data::FirstLast(session::Value(first), session::Value(last));
  values["{Provider First Name}"] = first;
  values["{Provider Last Name}"] = last;
  values["{Provider Title}"] = said(2, "Dr.");
}

// The office is found where its first location is.
void SayOffice(session::Session& session, TemplateValues& values) {
  const data::LocationAddress address = data::FirstLocation(data::Statements(session));
  for (const std::string whose : {"{Office ", "{Location "}) {
    values[whose + "Name}"] = address.name;
    values[whose + "Phone}"] = address.phone;
    values[whose + "Fax}"] = address.fax;
    values[whose + "Address Line 1}"] = address.line1;
    values[whose + "Address Line 2}"] = address.line2;
    values[whose + "City, State Zip}"] = address.place;
    values[whose + "Address for Map}"] =
        address.line1 + (address.line1.empty() || address.place.empty() ? "" : ", ") + address.place;
  }
  if (std::string name = session.OfficeSetting(kReminderSection, kOfficeName); !name.empty()) {
    values["{Office Name}"] = std::move(name);
  }
  values["{Office Website Address}"] = session.OfficeSetting(kReminderSection, kOfficeWebsite);
}

}  // namespace

TemplateSample::TemplateSample(session::Session& session, const Of& of) : method_(of.method) {
  constexpr forms::PeriodCode kUsualPeriod{.number = 6, .unit = forms::PeriodUnit::Months};
  constexpr int kUsualNotice = 7;
  const forms::Date today = session.Today();
  const int notice = DaysOf(of.stage);
  const std::string address = ConfirmationAddress(session);
  link_ = ConfirmationLink(of.method, address.empty() ? kSampleAddress : address);
  SayOffice(session, values_);
  SayProvider(session, values_);
  SayPatient(of.kind == ReminderKind::Birthday ? today : After(today, -100), values_);
  SayAppointment(After(today, notice > 0 ? notice : kUsualNotice), values_);
  SayRecall(After(today, notice), of.total.number > 0 ? of.total : kUsualPeriod, values_);
  values_["{Current date}"] = forms::FormatSlashed(today);
}

std::string TemplateSample::Merge(std::string_view text) const {
  std::string linked(text);
  for (std::size_t at = linked.find(kConfirmationLink); at != std::string::npos;
       at = linked.find(kConfirmationLink, at + link_.size())) {
    linked.replace(at, kConfirmationLink.size(), link_);
  }
  return Merged(linked, values_, IsHtml(method_));
}

}  // namespace recall
