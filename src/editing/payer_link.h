#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "editing/record_hold.h"
#include "editing/rules.h"

namespace editing {

// The link of a carrier to the electronic payer that takes its claims; one payer at most.
class PayerLink : private Rules {
 public:
  struct Payer {
    std::int32_t id = 0;  // 0 where no payer is linked
    std::string name = {};

    bool Linked() const { return id != 0; }
  };

  explicit PayerLink(const session::ScreenContext& context) : Rules(context) {}

  // The payer that the carrier's row names; without a name where there is none such any more. Throws
  // session::DatabaseError.
  Payer Of(std::int32_t carrier) const;
  // Nothing when there is no such payer. Throws session::DatabaseError.
  std::optional<std::string> NameOf(std::int32_t payer) const;
  // Before a carrier is linked to it. Throws Refusal when there is no such payer any more, and session::DatabaseError.
  void Require(std::int32_t payer) const;

  // The questions alone: another payer than the current one, nothing when given up; and whether the link goes.
  std::optional<Payer> Choose(const Payer& current) const;
  bool AgreesToRemove() const;

  // The rest is the whole of it, for a carrier that no screen has open: it is held meanwhile, and the right is needed.
  // What could not be done has been told.
  // The payer that the carrier is linked to from then on; nothing when it stays as it was.
  std::optional<Payer> Link(std::int32_t carrier) const;
  bool Remove(std::int32_t carrier) const;
  // Types the carrier's own ID with its payer, of so many characters at most.
  bool EnterId(std::int32_t carrier, const std::string& id, int room) const;

 private:
  bool WhileHeld(std::int32_t carrier, const std::function<void(const RecordHold&)>& change) const;
  void Write(std::int32_t carrier, std::int32_t payer) const;
};

}  // namespace editing
