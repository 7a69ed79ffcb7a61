#include "session/connection.h"

#include <algorithm>
#include <array>

#include "forms/card_number.h"
#include "forms/text.h"

namespace session {
namespace {

// By the first statement of a batch that does anything to rows.
std::string_view WhatFailed(std::string_view batch) {
  struct Verb {
    std::string_view word;
    std::string_view failed;
  };
  constexpr std::array kVerbs = {
      Verb{"SELECT", "The database could not be read."},
      Verb{"INSERT", "A record could not be added to the database."},
      Verb{"UPDATE", "A record could not be changed in the database."},
      Verb{"DELETE", "A record could not be deleted from the database."},
  };
  for (bool more = true; more;) {
    const std::size_t end = batch.find(';');
    const std::string_view statement = forms::Trim(batch.substr(0, end));
    const auto verb = std::ranges::find_if(kVerbs, [&](const Verb& known) {
      return forms::EqualsIgnoringCase(statement.substr(0, known.word.size()), known.word);
    });
    if (verb != kVerbs.end()) {
      return verb->failed;
    }
    more = end != std::string_view::npos;
    batch.remove_prefix(more ? end + 1 : 0);
  }
  return "The database could not carry out this operation.";
}

}  // namespace

DatabaseError::DatabaseError(const std::string& what, std::string_view statement, int code, Origin origin)
    : std::runtime_error(forms::WithoutCardNumbers(what)),
      statement_(forms::WithoutCardNumbers(statement)),
      code_(code),
      origin_(origin) {}

std::string DatabaseError::Told() const {
  constexpr std::size_t kMost = 60;  // characters
  const std::string_view statement = forms::Trim(statement_);
  if (statement.empty()) {
    return what();
  }
  const std::string first = forms::Left(statement, kMost);
  return (origin_ == Origin::Translation ? "The session could not translate a statement for the database (PrepareSQL)."
                                         : std::string(WhatFailed(statement))) +
         "\r\n\r\n" + what() + "\r\n\r\n[ " + first + (first.size() < statement.size() ? " ... ]" : " ]");
}

DatabaseError DatabaseError::Of(std::string_view statement) const {
  DatabaseError error(what(), statement, code_, origin_);
  error.given_up = given_up;
  return error;
}

Value Recordset::operator[](std::string_view name) const {
  const int index = FieldIndex(name);
  if (index < 0) {
    throw DatabaseError("no column " + std::string(name), {}, 0);
  }
  return Get(static_cast<std::size_t>(index));
}

int Recordset::FieldIndex(std::string_view name) const {
  const auto& fields = Fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (forms::EqualsIgnoringCase(fields[i].name, name)) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

std::vector<std::vector<Value>> Recordset::GetRows(std::size_t count) {
  std::vector<std::vector<Value>> rows;
  for (; rows.size() < count && !Eof(); MoveNext()) {
    std::vector<Value>& row = rows.emplace_back();
    row.reserve(Fields().size());
    for (std::size_t i = 0; i < Fields().size(); ++i) {
      row.push_back(Get(i));
    }
  }
  return rows;
}

bool RunUnless(Connection& connection, const std::function<bool()>& unwanted, const std::function<void()>& work) {
  bool ended = false;
  const WhileBusy before = connection.WhileBusy;
  connection.WhileBusy = [&](Busy busy) {
    if (busy == Busy::Done) {
      return before && before(busy);
    }
    ended = ended || unwanted();
    return ended || (before && before(busy == Busy::Running ? Busy::Reading : busy));
  };
  const std::shared_ptr<void> put_back(nullptr, [&](void*) { connection.WhileBusy = before; });
  try {
    work();
  } catch (const DatabaseError&) {
    if (!ended) {
      throw;
    }
    return false;
  }
  return true;
}

void Insist(Connection& connection, const std::function<void()>& work) {
  while (true) {
    try {
      return work();
    } catch (DatabaseError& error) {
      const auto try_again = connection.TryAgain;
      if (!error.ConnectionLost() || error.Unanswered() || error.given_up || !try_again) {
        throw;
      }
      const Unasked asking(connection);  // once, whatever runs behind the question
      if (!try_again(error)) {
        error.given_up = true;
        throw;
      }
    }
  }
}

Transaction::Transaction(Connection& connection) : connection_(connection) {
  Insist(connection_, [this] { connection_.BeginTrans(); });
  unasked_.emplace(connection_);
}

Transaction::~Transaction() {
  if (open_) {
    try {
      connection_.RollbackTrans();
    } catch (const DatabaseError&) {  // the engine has rolled back by itself
      open_ = false;
    }
  }
}

void Transaction::Commit() {
  connection_.CommitTrans();
  open_ = false;
}

}  // namespace session
