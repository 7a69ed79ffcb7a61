#pragma once

#include <string>

#include "session/connection.h"

namespace host {

// The numbers with which ADO's objects refuse a call.
enum class AdoError : unsigned {
  NoCurrentRow = 0x800A0BCD,
  NotAllowed = 0x800A0C93,
  FeatureNotAvailable = 0x800A0CB3,
  ItemNotFound = 0x800A0CC1,
  ObjectClosed = 0x800A0E78,
  ObjectOpen = 0x800A0E79,
  StatementRefused = 0x80040E14,
  Failed = 0x80004005
};

// For a caller by automation, who gets the number and the text.
inline session::DatabaseError Refusal(AdoError number, const std::string& text) {
  return {text, {}, static_cast<int>(number)};
}

}  // namespace host
