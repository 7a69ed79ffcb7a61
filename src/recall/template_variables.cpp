#include "recall/template_variables.h"

#include <algorithm>
#include <array>

namespace recall {
namespace {

constexpr std::array kVariables = {
    TemplateVariable{"Patient", "{Patient Full Name}"},
    TemplateVariable{"Patient", "{Patient Last Name}"},
    TemplateVariable{"Patient", "{Patient First Name}"},
    TemplateVariable{"Patient", "{Patient Title}"},
    TemplateVariable{"Patient", "{Patient Insurance Eligibility}"},
    TemplateVariable{"Patient", "{Patient Premed}"},
    TemplateVariable{"Patient", "{Patient Birth Date}"},
    TemplateVariable{"Provider", "{Provider Full Name}"},
    TemplateVariable{"Provider", "{Provider Last Name}"},
    TemplateVariable{"Provider", "{Provider First Name}"},
    TemplateVariable{"Provider", "{Provider Title}"},
    TemplateVariable{"Office", "{Office Name}"},
    TemplateVariable{"Office", "{Office Phone}"},
    TemplateVariable{"Office", "{Office Fax}"},
    TemplateVariable{"Office", "{Office Website Address}"},
    TemplateVariable{"Office", "{Office Address Line 1}"},
    TemplateVariable{"Office", "{Office Address Line 2}"},
    TemplateVariable{"Office", "{Office City, State Zip}"},
    TemplateVariable{"Office", "{Office Address for Map}"},
    TemplateVariable{"Location", "{Location Name}"},
    TemplateVariable{"Location", "{Location Phone}"},
    TemplateVariable{"Location", "{Location Fax}"},
    TemplateVariable{"Location", "{Location Address Line 1}"},
    TemplateVariable{"Location", "{Location Address Line 2}"},
    TemplateVariable{"Location", "{Location City, State Zip}"},
    TemplateVariable{"Location", "{Location Address for Map}"},
    TemplateVariable{"Date", "{Current date}"},
    TemplateVariable{"Appointment", "{Appointment Date}"},
    TemplateVariable{"Appointment", "{Appointment Time}"},
    TemplateVariable{"Appointment", "{Appointment Day of the Week}"},
    TemplateVariable{"Appointment", "{Appointment Confirmation Link}"},
    TemplateVariable{"Appointment", "{Appointment ID}"},
    TemplateVariable{"Recall", "{Recall Title}"},
    TemplateVariable{"Recall", "{Last Recall Date}"},
    TemplateVariable{"Recall", "{Recall Period}"},
    TemplateVariable{"Recall", "{Next Recall Appointment Date}"},
    TemplateVariable{"Recall", "{Next Recall Appointment Time}"},
    TemplateVariable{"Recall", "{Recommended Recall Date}"},
    TemplateVariable{"Recall", "{Preferred Recall Date}"},
    TemplateVariable{"Recall", "{Recall Due Date}"},
};

struct Renamed {
  std::string_view older;
  std::string_view current;
};
// In the order in which they are replaced.
constexpr std::array kRenamed = {
    Renamed{"{Appointment Patient First,Middle,Last Name}", "{Patient Full Name}"},
    Renamed{"{Recall Patient First,Middle,Last Name}", "{Patient Full Name}"},
    Renamed{"{Birthday Patient First,Middle,Last Name}", "{Patient Full Name}"},
    Renamed{"{Appointment Patient Last Name}", "{Patient Last Name}"},
    Renamed{"{Recall Patient Last Name}", "{Patient Last Name}"},
    Renamed{"{Birthday Patient Last Name}", "{Patient Last Name}"},
    Renamed{"{Appointment Patient First Name}", "{Patient First Name}"},
    Renamed{"{Recall Patient First Name}", "{Patient First Name}"},
    Renamed{"{Birthday Patient First Name}", "{Patient First Name}"},
    Renamed{"{Appointment Patient Title}", "{Patient Title}"},
    Renamed{"{Recall Patient Title}", "{Patient Title}"},
    Renamed{"{Birthday Patient Patient Title}", "{Patient Title}"},
    Renamed{"{Appointment Provider First and Last Name}", "{Provider Full Name}"},
    Renamed{"{Recall Provider First and Last Name}", "{Provider Full Name}"},
    Renamed{"{Birthday Patient Provider First and Last Name}", "{Provider Full Name}"},
    Renamed{"{Appointment Provider Last Name}", "{Provider Last Name}"},
    Renamed{"{Recall Provider Last Name}", "{Provider Last Name}"},
    Renamed{"{Birthday Patient Provider Last Name}", "{Provider Last Name}"},
    Renamed{"{Appointment Provider First Name}", "{Provider First Name}"},
    Renamed{"{Recall Provider First Name}", "{Provider First Name}"},
    Renamed{"{Birthday Patient Provider First Name}", "{Provider First Name}"},
    Renamed{"{Appointment Provider Title}", "{Provider Title}"},
    Renamed{"{Recall Provider Title}", "{Provider Title}"},
    Renamed{"{Birthday Patient Provider Title}", "{Provider Title}"},
    Renamed{"{Appointment Provider Business Phone}", "{Office Phone}"},
    Renamed{"{Recall Provider Business Phone}", "{Office Phone}"},
    Renamed{"{Birthday Patient Provider Business Phone}", "{Office Phone}"},
    Renamed{"{Appointment Start Time}", "{Appointment Time}"},
    Renamed{"{Appointment Provider Business Name}", "{Office Name}"},
    Renamed{"{Appointment Provider Business Address}", "{Office Address for Map}"},
    Renamed{"{Appointment Provider Business Fax}", "{Office Fax}"},
    Renamed{"{Appointment Provider Business Website Address}", "{Office Website Address}"},
    Renamed{"{Appointment Provider Business Address,city,state,zip}", "{Office City, State Zip}"},
    Renamed{"{Appointment Provider Address line 1}", "{Office Address Line 1}"},
    Renamed{"{Appointment Provider Address line 2}", "{Office Address Line 2}"},
    Renamed{"{Appointment Provider city,state,zip}", "{Office City, State Zip}"},
    Renamed{"{Appointment Provider Business Address for Map}", "{Office Address for Map}"},
};

std::string Replaced(const std::string& text, const Renamed& name) {
  std::string replaced;
  std::size_t begin = 0;
  for (std::size_t at = text.find(name.older); at != std::string::npos; at = text.find(name.older, begin)) {
    replaced.append(text, begin, at - begin).append(name.current);
    begin = at + name.older.size();
  }
  return begin == 0 ? text : replaced.append(text, begin);
}

}  // namespace

std::span<const TemplateVariable> TemplateVariables() {
  return kVariables;
}

bool IsTemplateVariable(std::string_view text) {
  return text == kNoVariable || std::ranges::find(kVariables, text, &TemplateVariable::text) != kVariables.end();
}

std::string WithCurrentVariables(std::string text) {
  for (const Renamed& name : kRenamed) {
    text = Replaced(text, name);
  }
  return text;
}

std::vector<TextRange> UnknownVariables(std::string_view text) {
  std::vector<TextRange> unknown;
  std::size_t begin = std::string_view::npos;
  for (std::size_t at = text.find_first_of("{}\r\n"); at != std::string_view::npos;
       at = text.find_first_of("{}\r\n", at + 1)) {
    const std::size_t size = at + 1 - begin;
    if (text[at] == '}' && begin != std::string_view::npos && !IsTemplateVariable(text.substr(begin, size))) {
      unknown.push_back({.begin = begin, .size = size});
    }
    begin = text[at] == '{' ? at : std::string_view::npos;
  }
  return unknown;
}

}  // namespace recall
