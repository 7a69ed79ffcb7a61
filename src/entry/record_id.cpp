#include "entry/record_id.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "forms/text.h"

namespace entry {
namespace {

using session::Opening;
using session::Outcome;
using session::RecordKind;

constexpr std::string_view kEmergency = "EMERGENCY";
constexpr std::string_view kCancelAndClose = "CANCEL_AND_CLOSE";
constexpr std::string_view kAlreadyOpen = "ALREADY_OPEN";

constexpr std::array kPersonKinds = {
    std::pair<std::string_view, RecordKind>{"PTYPPAT", RecordKind::FamilyMember},
    std::pair<std::string_view, RecordKind>{"PTYPDOC", RecordKind::Provider},
    std::pair<std::string_view, RecordKind>{"PTYPPHY1", RecordKind::Physician1},
    std::pair<std::string_view, RecordKind>{"PTYPPHY2", RecordKind::Physician2},
    std::pair<std::string_view, RecordKind>{"PTYPPHYREFOUT", RecordKind::ReferInOut},
    std::pair<std::string_view, RecordKind>{"PTYPREF", RecordKind::Referral},
    std::pair<std::string_view, RecordKind>{"PTYPEMP", RecordKind::Employee},
};

}  // namespace

bool ReadId(std::string_view id, Opening& opening) {
  id = forms::Trim(id);
  opening.id = 0;
  if (id.empty() || forms::EqualsIgnoringCase(id, kNew)) {
    opening.mode = Opening::Mode::New;
    return true;
  }
  if (opening.kind == RecordKind::Patient && forms::EqualsIgnoringCase(id, kEmergency)) {
    opening.mode = Opening::Mode::Emergency;
    return true;
  }
  opening.mode = Opening::Mode::Existing;
  const auto [stop, error] = std::from_chars(id.data(), id.data() + id.size(), opening.id);
  return error == std::errc() && stop == id.data() + id.size();
}

std::string IdText(const Opening& opening) {
  switch (opening.mode) {
    case Opening::Mode::New:
      return std::string(kNew);
    case Opening::Mode::Emergency:
      return std::string(kEmergency);
    case Opening::Mode::Existing:
      break;
  }
  return std::to_string(opening.id);
}

std::optional<std::string> IdText(const Outcome& outcome) {
  switch (outcome.end) {
    case Outcome::End::Saved:
      return std::to_string(outcome.id);
    case Outcome::End::Cancelled:
    case Outcome::End::Deleted:
      return std::string(kCancelAndClose);
    case Outcome::End::AlreadyOpen:
      return std::string(kAlreadyOpen);
    case Outcome::End::Accepted:
    case Outcome::End::NotBuilt:
    case Outcome::End::Instead:
      break;
  }
  return std::nullopt;
}

Outcome ReadOutcome(const std::string& id) {
  if (id == kAlreadyOpen) {
    return {.end = Outcome::End::AlreadyOpen};
  }
  const std::int32_t saved = session::ToId(session::Value(id));
  return {.end = saved != 0 ? Outcome::End::Saved : Outcome::End::Cancelled, .id = saved};
}

std::optional<RecordKind> PersonKind(std::string_view key) {
  const auto* known =
      std::ranges::find_if(kPersonKinds, [&](const auto& kind) { return forms::EqualsIgnoringCase(kind.first, key); });
  return known == kPersonKinds.end() ? std::nullopt : std::optional(known->second);
}

std::string_view PersonKey(RecordKind kind) {
  const auto* known = std::ranges::find(kPersonKinds, kind, &std::pair<std::string_view, RecordKind>::second);
  return known == kPersonKinds.end() ? std::string_view() : known->first;
}

}  // namespace entry
