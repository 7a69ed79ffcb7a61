#pragma once

#include "data/sql.h"

namespace data {

// A record that many patients point at.
enum class SharedRecord { Employer, Carrier, GroupPlan, PlanLink, Pharmacy };

// Where records of a kind stand.
struct SharedTable {
  Words table;
  Words key;
};

constexpr SharedTable TableOf(SharedRecord kind) {
  switch (kind) {
    case SharedRecord::Employer:
      return {"EmpTable", "EmpInd"};
    case SharedRecord::Carrier:
      return {"InsCoTable", "InsCoInd"};
    case SharedRecord::GroupPlan:
      return {"GroPlaTable", "GroPlaInd"};
    case SharedRecord::PlanLink:
      return {"ELTable", "elID"};
    case SharedRecord::Pharmacy:
      break;
  }
  return {"PhaTable", "PhaID"};
}

}  // namespace data
