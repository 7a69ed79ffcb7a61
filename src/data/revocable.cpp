#include "data/revocable.h"

namespace data {

Revocable::~Revocable() {
  try {
    while (!back_.empty()) {
      statements_.Execute(back_.back());
      back_.pop_back();
    }
  } catch (const session::DatabaseError&) {  // told is what failed first
    back_.clear();
  }
}

void Revocable::Run(const Sql& statement, Sql back) {
  statements_.Execute(statement);
  back_.push_back(std::move(back));
}

}  // namespace data
