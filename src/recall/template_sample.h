#pragma once

#include <string>
#include <string_view>

#include "forms/period_code.h"
#include "recall/template_merge.h"
#include "session/session.h"

namespace recall {

// How a message may look when it is sent: to an invented patient, from the real office.
class TemplateSample {
 public:
  struct Of {
    data::ReminderKind kind = data::ReminderKind::Recall;
    data::ContactMethod method = data::ContactMethod::TextMessage;
    forms::PeriodCode stage = {};  // how long the message goes before its appointment, or its stage of a recall
    forms::PeriodCode total = {};  // from the last visit to the stage
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
