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

std::vector<std::string> GlobalPlan::Codes(const Sql& rows) const {
  std::vector<std::string> codes;
  for (const auto found = statements_.Select(rows); !found->Eof(); found->MoveNext()) {
    codes.push_back(session::ToText(found->Get(0)));
  }
  return codes;
}

std::optional<GlobalPlan::Coverage> GlobalPlan::CoverageOf(std::string_view code) const {
  const Sql of_global = " and IPInsCoID = 0 and IPGroNum = 'Global'" + statements_.Office();
  std::optional<Coverage> coverage;
  for (const Sql& rows : {"select ipCod from ipTable where ipCod=" + Literal(code) + of_global,
                          "select ipCod from ipTable where ipCod<" + Literal(code) + of_global + " order by ipCod desc",
                          "select ipCod from ipTable where ipCod>" + Literal(code) + of_global + " order by ipCod"}) {
    for (const std::string& near : Codes(rows)) {
      for (const auto row =
               statements_.Select("select IPPCov, IPSCov from ipTable where ipCod=" + Literal(near) + of_global);
           !row->Eof(); row->MoveNext()) {
        coverage = coverage ? coverage : Coverage();
        coverage->primary = row->Get(0);
        if (session::IsNull(coverage->secondary)) {
          coverage->secondary = row->Get(1);
        }
        if (!session::IsNull(coverage->primary)) {
          return coverage;
        }
      }
    }
  }
  return coverage;
}

}  // namespace data
