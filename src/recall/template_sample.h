#pragma once

#include <string>
#include <string_view>

#include "forms/period_code.h"
#include "recall/template_merge.h"
#include "session/session.h"

namespace recall {

// The office's name where it is not that of its first location, and its address of the web: office settings in
// `kReminderSection`.
inline constexpr std::string_view kOfficeName = "OFFICE_NAME";
inline constexpr std::string_view kOfficeWebsite = "OFFICE_WEBSITE";

// How a message may look when it is sent: to an invented patient, from the real office.
class TemplateSample {
 public:
  struct Of {
    data::ReminderKind kind = data::ReminderKind::Recall;
    data::ContactMethod method = data::ContactMethod::TextMessage;
    forms::PeriodCode stage = {};  // before the appointment or the day when a recall is due; negative behind it
    forms::PeriodCode total = {};  // the period of the recall
  };

  // Reads what the office has. Throws session::DatabaseError.
  TemplateSample(session::Session& session, const Of& of);

  // HTML for methods that have it.
  std::string Merge(std::string_view text) const;

 private:
  data::ContactMethod method_;
  std::string link_;
  TemplateValues values_;
};

}  // namespace recall
