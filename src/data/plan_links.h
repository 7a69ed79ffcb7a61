#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/shared_record.h"
#include "data/statements.h"

namespace data {

// The column of a link that names a record of the kind. Throws std::out_of_range for pharmacies.
Words LinkColumn(SharedRecord kind);

// The links and what subscribers hold of them, joined for a count.
Sql HoldingsOnLinks(const Statements& statements);

// A plan that an employer offers.
struct PlanLink {
  std::int32_t id = 0;
  std::int32_t employer = 0;
  std::int32_t carrier = 0;
  std::int32_t plan = 0;
  session::Value start = {};
  bool live = true;

  // The one that stands for "No Insurance Coverage".
  bool IsNone() const { return carrier == 0 && plan == 0; }
};

// A link as people know it; what is not there is empty.
struct LinkNames {
  std::string employer;
  std::string carrier;
  std::string group_number;
};

// The links of employers, carriers and group plans: `ELTable`. A link is never deleted, it ends. All throw
// session::DatabaseError.
class PlanLinks {
 public:
  explicit PlanLinks(session::Session& session) : session_(session), statements_(session) {}

  // The live links that use a record of the kind; of a deleted plan or carrier sorted by the other.
  std::vector<PlanLink> Using(SharedRecord kind, std::int32_t id) const;
  // Nothing when there is no such link.
  std::optional<PlanLink> Get(std::int32_t link) const;
  LinkNames NamesOf(std::int32_t link) const;

  // The first live link of the three; a new one that started then where there is none.
  std::int32_t Open(std::int32_t employer, std::int32_t carrier, std::int32_t plan, const session::Value& start) const;
  // The employer's link that stands for "No Insurance Coverage"; a new one where there is none.
  std::int32_t OpenNone(std::int32_t employer) const;
  // Ends the live links that use the record, today and by the user.
  void End(SharedRecord kind, std::int32_t id) const;

  // The employers of persons that hold one link hold another; 0 for none.
  void MoveEmployersOfPersons(std::int32_t from_link, std::int32_t to_link) const;

 private:
  std::vector<PlanLink> Read(const Sql& condition, const Sql& sort) const;

  session::Session& session_;
  Statements statements_;
};

}  // namespace data
