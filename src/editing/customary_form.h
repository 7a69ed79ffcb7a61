#pragma once

#include <string>
#include <string_view>

#include "data/record_binding.h"
#include "forms/text_box.h"
#include "session/session.h"

namespace editing {

// Phones, SSNs and ZIP codes of the office have the form that is customary in the US.
bool UsesUsForms(const session::Settings& settings);

// On leaving a record's field: what `format` makes of its text, where the office uses US forms and there is room for
// it. What is stored stays as it is until something else is typed.
void TakeCustomaryForm(const session::Settings& settings, const data::RecordBinding& record, forms::TextBox& box,
                       std::string (*format)(std::string_view));

}  // namespace editing
