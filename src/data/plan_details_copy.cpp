#include "data/plan_details_copy.h"

#include "data/literal.h"

namespace data {
namespace {

// All that a row holds but its key, its GUID, and whose it is.
constexpr Words kCopied =
    "IPCod, IPCodMod, IPDes, IPCodCat, IPPFee, IPPCov, IPPMax, IPPDedApp, IPPUCR, IPPPer, IPPPerNumTim, IPSFee, "
    "IPSCov, "
    "IPSMax, IPSDedApp, IPSUCR, IPSPer, IPSPerNumTim, IPStaDat";

// A row without a modifier holds null or an empty text.
constexpr Words kSameCode =
    "IPTable.IPCod=IPFrom.IPCod and (IPTable.IPCodMod=IPFrom.IPCodMod or ((IPTable.IPCodMod is null or "
    "IPTable.IPCodMod='') and (IPFrom.IPCodMod is null or IPFrom.IPCodMod='')))";

Sql Of(const PlanKey& plan) {
  return "IPInsCoID = " + Literal(plan.carrier) + " and " +
         OrNull("IPGroNum = " + Literal(plan.group_number), "IPGroNum", plan.group_number);
}

Words Assigned(PlanDetailsCopy::Part part) {
  switch (part) {
    case PlanDetailsCopy::Part::Fees:
      return "IPTable.IPPFee=IPFrom.IPPFee, IPTable.IPSFee=IPFrom.IPSFee";
    case PlanDetailsCopy::Part::Maximums:
      return "IPTable.IPPMax=IPFrom.IPPMax, IPTable.IPSMax=IPFrom.IPSMax";
    case PlanDetailsCopy::Part::Percents:
      break;
  }
  return "IPTable.IPPCov=IPFrom.IPPCov, IPTable.IPSCov=IPFrom.IPSCov";
}

}  // namespace

bool PlanDetailsCopy::SourceHasDetails() const {
  return session::ToId(statements_.SelectValue("SELECT Count(IPRecNum) FROM IPTable WHERE " + Of(from_) +
                                               statements_.Office(" and (OfficeID = ", ")"))) > 0;
}

bool PlanDetailsCopy::ShareCodes() const {
  return session::ToId(statements_.SelectValue("SELECT Count(IPTable.IPRecNum) FROM " + Pairs())) > 0;
}

// The new rows stand there before the old ones go; they have higher keys.
void PlanDetailsCopy::CopyAll(const std::string& plan_name) const {
  const session::Value last = statements_.SelectValue("SELECT Max(IPRecNum) FROM IPTable WHERE " + Of(to_) +
                                                      statements_.Office(" and (OfficeID = ", ")"));
  statements_.Execute(
      Sql("INSERT INTO IPTable (IPInsCoID, IPGroNum, IPPlaNam, ") + kCopied +
      (statements_.OfficeScoped() ? Words(", OfficeID") : Words("")) + ") SELECT " + Literal(to_.carrier) + ", " +
      Literal(to_.group_number) + ", " + (plan_name.empty() ? Sql("Null") : Literal(plan_name)) + ", " + kCopied +
      statements_.Office(", ", "") + " FROM IPTable WHERE " + Of(from_) + statements_.Office(" and (OfficeID = ", ")"));
  if (!session::IsNull(last)) {
    statements_.Execute("Delete * from IPTABLE where " + Of(to_) + " and IPRecNum <= " + Literal(session::ToId(last)) +
                        statements_.Office(" and (OfficeID = ", ")"));
  }
}

void PlanDetailsCopy::Copy(Part part) const {
  statements_.Execute(Sql("UPDATE IPTable SET ") + Assigned(part) + " FROM " + Pairs());
}

Sql PlanDetailsCopy::Pairs() const {
  return Sql("IPTable INNER JOIN IPTable as IPFrom on ") + kSameCode +
         statements_.OfficeJoin(" and (IPTable.OfficeID = IPFrom.OfficeID)") +
         " WHERE (IPTable.IPInsCoID=" + Literal(to_.carrier) + " AND " +
         OrNull("IPTable.IPGroNum=" + Literal(to_.group_number), "IPTable.IPGroNum", to_.group_number) +
         ") AND (IPFrom.IPInsCoID=" + Literal(from_.carrier) + " AND " +
         OrNull("IPFrom.IPGroNum=" + Literal(from_.group_number), "IPFrom.IPGroNum", from_.group_number) + ")" +
         statements_.Office(" and (IPTable.OfficeID = ", ")");
}

}  // namespace data
