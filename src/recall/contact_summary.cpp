#include "recall/contact_summary.h"

#include "data/literal.h"
#include "forms/text.h"

namespace recall {

std::string ContactSummary(const data::Statements& statements, std::int32_t patient) {
  const auto row = statements.Select("SELECT pID, pHomCell, pBusCell, pBUSEma, pHomEma FROM PATable WHERE pID=" +
                                     data::Literal(patient) + statements.Office(" and (OfficeID = ", ") "));
  if (row->Eof()) {
    return {};
  }
  const auto told = [&](std::string_view column) {
    std::string value = session::ToText((*row)[column]);
    return forms::Trim(value).empty() ? std::string("N.A.") : value;
  };
  return "Cell Phone: " + told("pHomCell") + " (H) " + told("pBusCell") + " (W)\r\nE-mail: " + told("pHomEma") + ", " +
         told("pBUSEma");
}

}  // namespace recall
