#include "editing/payer_link.h"

#include "data/literal.h"
#include "editing/record_hold.h"
#include "forms/text.h"

namespace editing {
namespace {

using data::Literal;

constexpr const char* kTable = "INSCOTABLE";
constexpr std::string_view kRight = "EDIT-EMP-INS";
constexpr std::string_view kRightWhat = "insurance companies";

}  // namespace

PayerLink::Payer PayerLink::Of(std::int32_t carrier) const {
  const auto row = statements_.Select(
      "SELECT InsCoTable.InsCoInd, InsCoTable.epPayID, ePayerTable.epNam FROM InsCoTable LEFT JOIN ePayerTable ON "
      "InsCoTable.epPayID = ePayerTable.epPayID" +
      statements_.OfficeJoin(" and (InsCoTable.OfficeID = ePayerTable.OfficeID)") + " WHERE (InsCoTable.InsCoInd=" +
      Literal(carrier) + ")" + statements_.Office(" and (InsCoTable.OfficeID = ", ")"));
  if (row->Eof()) {
    throw Refusal("Another user has deleted this insurance company. Nothing was changed.");
  }
  return {session::ToId(row->Get(1)), session::ToText(row->Get(2))};
}

std::optional<std::string> PayerLink::NameOf(std::int32_t payer) const {
  const auto row =
      statements_.Select("SELECT epNam FROM ePayerTable WHERE epPayID=" + Literal(payer) + statements_.Office());
  return row->Eof() ? std::nullopt : std::optional(session::ToText(row->Get(0)));
}

void PayerLink::Require(std::int32_t payer) const {
  if (!NameOf(payer)) {
    throw Refusal("This electronic payer is not there any more. Nothing was changed.");
  }
}

std::optional<PayerLink::Payer> PayerLink::Choose(const Payer& current) const {
  constexpr const char* kTitle = "Link Electronic Payer";
  if (!current.Linked() &&
      context_.user.Ask(
          {.text = "Linking an Electronic Payer allows you to submit claims and verify coverage for your patients "
                   "electronically.\r\nPlease make sure that the selected Electronic Payer matches the current "
                   "Insurance Company.\r\nPlease note: Use of this feature requires an Electronic Claims account with "
                   "Change Healthcare and internet access.",
           .buttons = forms::kOkCancel,
           .icon = forms::Icon::Information}) != forms::Answer::OK) {
    return std::nullopt;
  }
  const auto chosen = context_.screens.ShowPayers({.title = kTitle, .selected = current.id});
  if (!chosen.Chosen() || chosen.id == current.id ||
      (current.Linked() &&
       !Confirm("Are you sure you want to change the Electronic Payer for this Insurance Company?\r\nPlease note: This "
                "change will be affect ALL patients with coverage through this insurance company."))) {
    return std::nullopt;
  }
  return Payer{chosen.id, chosen.text};
}

bool PayerLink::AgreesToRemove() const {
  return Confirm(
      "Are you sure you want to remove the link to this Electronic Payer?\r\nPlease note: Online Eligibility and "
      "Electronic Claims WILL NOT BE AVAILABLE for any patients with coverage through this insurance company if you "
      "select [Yes].",
      "Un-Link Electronic Payer");
}

bool PayerLink::WhileHeld(std::int32_t carrier, const std::function<void(const RecordHold&)>& change) const {
  return HasRight(kRight, kRightWhat) && Attempt([&] {
           const RecordHold hold(context_.session, kTable, carrier);
           hold.Require();
           change(hold);
         });
}

std::optional<PayerLink::Payer> PayerLink::Link(std::int32_t carrier) const {
  std::optional<Payer> linked;
  WhileHeld(carrier, [&](const RecordHold& hold) {
    if (const auto payer = Choose(Of(carrier))) {
      hold.Require();
      Require(payer->id);
      Write(carrier, payer->id);
      linked = payer;
    }
  });
  return linked;
}

bool PayerLink::Remove(std::int32_t carrier) const {
  bool removed = false;
  WhileHeld(carrier, [&](const RecordHold& hold) {
    if (!Of(carrier).Linked()) {  // another user was first
      removed = true;
    } else if (AgreesToRemove()) {
      hold.Require();
      Write(carrier, 0);
      removed = true;
    }
  });
  return removed;
}

void PayerLink::Write(std::int32_t carrier, std::int32_t payer) const {
  statements_.Update("InsCoTable", {{"epPayID", Literal(payer)}}, "InsCoInd", carrier);
}

bool PayerLink::EnterId(std::int32_t carrier, const std::string& id, int room) const {
  if (!HasRight(kRight, kRightWhat)) {
    return false;
  }
  if (forms::Fitting(id, room) != id) {
    Tell("A payer ID has room for " + std::to_string(room) + " characters. " + ToldBack(id) +
             " is longer; nothing was changed.",
         forms::Icon::Exclamation);
    return false;
  }
  return WhileHeld(carrier, [&](const RecordHold& /*hold*/) {
    Of(carrier);  // it is still there
    statements_.Execute("update insCoTable set InsCoAccID=" + Literal(id) + " where insCoInd =" + Literal(carrier) +
                        statements_.Office());
  });
}

}  // namespace editing
