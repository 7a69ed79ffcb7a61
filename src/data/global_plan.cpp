#include "data/global_plan.h"

#include "data/literal.h"

namespace data {
bool GlobalPlan::IsEmpty() const {
  return session::ToId(statements_.SelectValue("SELECT COUNT(*) FROM IPTable WHERE IPInsCoID = 0 AND "
                                               "IPGroNum = 'GLOBAL'" +
                                               statements_.Office())) == 0;
}

// The group number stands without quotes, as the suite has always stored this statement; `PrepareSQL` makes it a text.
void GlobalPlan::Reset() const {
  session::Transaction transaction(database_.Connection());
  for (const GlobalPlanRow& row : kGlobalPlanRows) {
    statements_.Insert("IPTable", {{"IPInsCoID", Literal(0)},
                                   {"IPGroNum", "GLOBAL"},
                                   {"IPCod", Literal(row.code)},
                                   {"IPDes", Literal(row.description)},
                                   {"IPPCov", Literal(row.coverage)},
                                   {"IPPDedApp", Literal(row.deductible ? "Y" : "N")}});
  }
  transaction.Commit();
}

std::optional<std::string> GlobalPlan::NearestRow(std::string_view code) const {
  const Sql of_global = " and IPInsCoID = 0 and IPGroNum = 'Global'" + statements_.Office();
  for (const Sql& row : {"select ipCod from ipTable where ipCod=" + Literal(code) + of_global,
                         "select ipCod from ipTable where ipCod<" + Literal(code) + of_global + " order by ipCod desc",
                         "select ipCod from ipTable where ipCod>" + Literal(code) + of_global + " order by ipCod"}) {
    if (const auto found = statements_.Select(row); !found->Eof()) {
      return session::ToText(found->Get(0));
    }
  }
  return std::nullopt;
}

std::optional<GlobalPlan::Coverage> GlobalPlan::CoverageOf(std::string_view code) const {
  const auto nearest = NearestRow(code);
  if (!nearest) {
    return std::nullopt;
  }
  const auto row = statements_.Select("select IPPCov, IPSCov from ipTable where ipCod=" + Literal(*nearest) +
                                      " and IPInsCoID = 0 and IPGroNum = 'Global'" + statements_.Office());
  if (row->Eof()) {
    return std::nullopt;
  }
  return Coverage{.primary = row->Get(0), .secondary = row->Get(1)};
}

}  // namespace data
