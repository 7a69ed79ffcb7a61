#include "practice/accounts.h"

#include "data/literal.h"
#include "data/statements.h"

namespace host {
namespace {

using data::Literal;

// A budget plan as "AccPla" keeps it.
constexpr std::int32_t kOwnPlan = 1;
constexpr std::int32_t kFamilyPlan = 2;

forms::Currency AmountOf(const session::Value& value) {
  const auto* amount = std::get_if<forms::Currency>(&value);
  return amount != nullptr ? *amount : forms::Currency();
}

std::int32_t CodeOf(session::BudgetPlan plan) {
  switch (plan) {
    case session::BudgetPlan::Own:
      return kOwnPlan;
    case session::BudgetPlan::Family:
      return kFamilyPlan;
    case session::BudgetPlan::None:
      break;
  }
  return 0;
}

session::BudgetPlan PlanOf(std::int32_t code) {
  return code == kOwnPlan      ? session::BudgetPlan::Own
         : code == kFamilyPlan ? session::BudgetPlan::Family
                               : session::BudgetPlan::None;
}

}  // namespace

session::AccountFigures ReadAccount(session::Database& database, std::int32_t person) {
  const data::Statements statements(database);
  const auto row =
      statements.Select("SELECT AccBal, AccPlaBal, AccPla FROM AccountTable WHERE (AccPid=" + Literal(person) + ")" +
                        statements.Office());
  if (row->Eof()) {
    return {};
  }
  return {AmountOf(row->Get(0)), AmountOf(row->Get(1)), PlanOf(session::ToId(row->Get(2)))};
}

void WriteAccount(session::Database& database, std::int32_t person, const session::AccountFigures& figures) {
  const data::Statements statements(database);
  statements.Execute("DELETE * FROM AccountTable WHERE (AccPid=" + Literal(person) + ")" + statements.Office());
  statements.Insert("AccountTable", {{"AccPid", Literal(person)},
                                     {"AccBal", Literal(figures.balance)},
                                     {"AccPlaBal", Literal(figures.plan_balance)},
                                     {"AccPla", Literal(CodeOf(figures.plan))}});
}

}  // namespace host
