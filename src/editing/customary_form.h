#pragma once

#include <string>
#include <string_view>

#include "data/record_binding.h"
#include "forms/text_box.h"
#include "session/session.h"

namespace editing {

// Phones, SSNs and ZIP codes of the office have the form that is customary in the US.
bool UsesUsForms(const session::Settings& settings);

// On leaving the field: what `format` makes of its text, where the office uses US forms and there is room for it.
void TakeCustomaryForm(const session::Settings& settings, forms::TextBox& box, std::string (*format)(std::string_view));
// The same for a record's field. What is stored stays as it is until it is changed.
void TakeCustomaryForm(const session::Settings& settings, const data::RecordBinding& record, forms::TextBox& box,
                       std::string (*format)(std::string_view));

}  // namespace editing
