#include "data/plan_details.h"

#include <algorithm>

#include "data/literal.h"
#include "forms/text.h"

namespace data {
namespace {

using session::ToId;
using session::ToText;
using session::Value;

constexpr std::string_view kGlobalNumber = "GLOBAL";

// In the order of `PlanDetail::Column`.
constexpr std::array<Words, PlanDetail::kColumns> kColumns = {
    "IPCod",  "IPCodMod", "IPDes",        "IPPFee",   "IPPCov",  "IPPMax", "IPPDedApp",
    "IPPUCR", "IPPPer",   "IPPPerNumTim", "IPSFee",   "IPSCov",  "IPSMax", "IPSDedApp",
    "IPSUCR", "IPSPer",   "IPSPerNumTim", "IPStaDat", "IPCodCat"};

// The values that a new row has by default are written with their decimals.
Sql LiteralOf(const Value& value) {
  if (const auto* amount = std::get_if<forms::Currency>(&value); amount != nullptr && amount->IsZero()) {
    return Words("0.00");
  }
  if (const auto* percent = std::get_if<double>(&value); percent != nullptr && *percent == 100) {
    return Words("100.00");
  }
  return session::IsNull(value) ? Sql("NULL") : ValueLiteral(value);
}

std::string_view TextOf(const Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  return text == nullptr ? std::string_view() : *text;
}

// Codes are of plain letters.
int Compare(std::string_view left, std::string_view right) {
  const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
  const auto [in_left, in_right] =
      std::ranges::mismatch(left, right, [&](char a, char b) { return upper(a) == upper(b); });
  if (in_left == left.end() || in_right == right.end()) {
    return (in_left == left.end() ? 0 : 1) - (in_right == right.end() ? 0 : 1);
  }
  return static_cast<unsigned char>(upper(*in_left)) < static_cast<unsigned char>(upper(*in_right)) ? -1 : 1;
}

std::int32_t LocationOf(const Statements& statements, std::string_view login) {
  const std::int32_t location = ToId(
      statements.SelectValue("SELECT OffLocID FROM PWMTable WHERE PWMUseNam=" + Literal(login) + statements.Office()));
  return location != 0 ? location
                       : ToId(statements.SelectValue("SELECT Min(OffLocID) FROM OffLocTable WHERE OffLocID>0" +
                                                     statements.Office()));
}

}  // namespace

PlanKey PlanKey::Global() {
  return {.carrier = 0, .group_number = std::string(kGlobalNumber)};
}

bool PlanKey::IsGlobal() const {
  return carrier == 0 && forms::EqualsIgnoringCase(group_number, kGlobalNumber);
}

Sql OrNull(const Sql& is_number, Words column, std::string_view number) {
  return number.empty() ? "(" + is_number + " or " + column + " is null)" : is_number;
}

Words DetailColumn(PlanDetail::Column column) {
  return kColumns.at(column);
}

bool CodeComesBefore(const PlanDetail& left, const PlanDetail& right) {
  const int order = Compare(TextOf(left.values[PlanDetail::kCode]), TextOf(right.values[PlanDetail::kCode]));
  return order != 0
             ? order < 0
             : Compare(TextOf(left.values[PlanDetail::kModifier]), TextOf(right.values[PlanDetail::kModifier])) < 0;
}

Sql PlanDetails::OfPlan() const {
  return "(IPInsCoID = " + Literal(plan_.carrier) + " and " +
         OrNull("IPGroNum = " + Literal(plan_.group_number), "IPGroNum", plan_.group_number) + ")";
}

PlanDetails::Found PlanDetails::Read() const {
  const auto rows = statements_.Select("SELECT * FROM IPTable WHERE " + OfPlan() + statements_.Office());
  Found found;
  const auto field = [&rows](Words column) {
    const int index = rows->FieldIndex(column.Text());
    if (index < 0) {
      throw session::DatabaseError("There is no column " + std::string(column.Text()) + ".", "SELECT * FROM IPTable",
                                   0);
    }
    return static_cast<std::size_t>(index);
  };
  std::array<std::size_t, PlanDetail::kColumns> fields{};
  for (std::size_t column = 0; column < fields.size(); ++column) {
    fields.at(column) = field(kColumns.at(column));
    const session::Field& shape = rows->Fields()[fields.at(column)];
    found.rooms.at(column) = shape.type == session::FieldType::Text ? shape.defined_size : 0;
  }
  const std::size_t id = field("IPRecNum");
  const std::size_t name = field("IPPlaNam");
  for (; !rows->Eof(); rows->MoveNext()) {
    PlanDetail& detail = found.details.emplace_back();
    detail.id = ToId(rows->Get(id));
    detail.plan_name = ToText(rows->Get(name));
    for (std::size_t column = 0; column < fields.size(); ++column) {
      detail.values[column] = rows->Get(fields[column]);
    }
  }
  std::ranges::stable_sort(found.details, CodeComesBefore);
  return found;
}

std::int32_t PlanDetails::Insert(const PlanDetail& detail) const {
  Assignments values = {{"IPInsCoID", Literal(plan_.carrier)},
                        {"IPGroNum", Literal(plan_.group_number)},
                        {"IPPlaNam", Literal(detail.plan_name)}};
  for (std::size_t column = 0; column < kColumns.size(); ++column) {
    values.emplace_back(kColumns.at(column), LiteralOf(detail.values.at(column)));
  }
  return statements_.Insert("IPTABLE", std::move(values));
}

bool PlanDetails::Update(const PlanDetail& before, const PlanDetail& detail) const {
  const Sql row = " WHERE ((IPTABLE.IPRecNum)=" + Literal(detail.id) + ")" + statements_.Office();
  if (statements_.Select("SELECT IPRecNum FROM IPTABLE" + row)->Eof()) {
    return false;
  }
  Sql set;
  for (std::size_t column = 0; column < kColumns.size(); ++column) {
    if (before.values.at(column) != detail.values.at(column)) {
      set += (set.Empty() ? Sql() : Sql(", ")) + kColumns.at(column) + "=" + LiteralOf(detail.values.at(column));
    }
  }
  if (!set.Empty()) {
    statements_.Execute("UPDATE IPTABLE SET " + set + row);
  }
  return true;
}

void PlanDetails::Delete(std::int32_t id) const {
  statements_.Execute("DELETE * FROM IPTABLE WHERE ((IPTABLE.IPRecNum)=" + Literal(id) + ")" + statements_.Office());
}

void PlanDetails::ChangeCategory(std::string_view category, PlanDetail::Column column,
                                 const session::Value& value) const {
  statements_.Execute(Sql("UPDATE IPTABLE SET ") + DetailColumn(column) + "=" + LiteralOf(value) + " WHERE " +
                      OfPlan() + " and (IPCodCat = " + Literal(category) + ")" + statements_.Office());
}

std::optional<GroupPlan> ReadGroupPlan(session::Database& database, std::int32_t plan) {
  const Statements statements(database);
  const auto row = statements.Select(
      "SELECT GroPlaInsID, GroPlaGroNum, GroPlaNam, GroPlaCat FROM GroPlaTable WHERE "
      "GroPlaInd=" +
      Literal(plan) + statements.Office());
  if (row->Eof()) {
    return std::nullopt;
  }
  return GroupPlan{.key = {.carrier = ToId(row->Get(0)), .group_number = ToText(row->Get(1))},
                   .name = ToText(row->Get(2)),
                   .category = ToText(row->Get(3))};
}

std::vector<std::int32_t> PlansWithDetails(session::Database& database, const PlanKey& plan) {
  const Statements statements(database);
  std::vector<std::int32_t> plans;
  for (const auto rows =
           statements.Select("SELECT GroPlaInd FROM GroPlaTable WHERE GroPlaInsID=" + Literal(plan.carrier) + " AND " +
                             OrNull("GroPlaGroNum=" + Literal(plan.group_number), "GroPlaGroNum", plan.group_number) +
                             statements.Office() + " ORDER BY GroPlaInd");
       !rows->Eof(); rows->MoveNext()) {
    plans.push_back(ToId(rows->Get(0)));
  }
  return plans;
}

std::vector<ServiceCode> ServiceCodesOf(session::Database& database, std::string_view login) {
  const Statements statements(database);
  std::vector<ServiceCode> codes;
  for (const auto rows = statements.Select("SELECT SevCodID, SevCodCod, SevCodDes " +
                                           FromServiceCodes(statements, login) + " ORDER BY SevCodCod");
       !rows->Eof(); rows->MoveNext()) {
    codes.push_back({ToId(rows->Get(0)), ToText(rows->Get(1)), ToText(rows->Get(2))});
  }
  return codes;
}

Sql FromServiceCodes(const Statements& statements, std::string_view login) {
  return "FROM SevCodTable WHERE (OffLocID=" + Literal(LocationOf(statements, login)) +
         ") AND (SevCodTyp='1 - Charge')" + statements.Office();
}

}  // namespace data
