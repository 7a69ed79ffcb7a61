#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/format.h"
#include "data/record_binding.h"
#include "editing/rules.h"
#include "forms/field.h"

namespace editing {

// A kind of record that many patients share: where its rows are, and what it is called.
struct SharedKind {
  data::Words table;
  data::Words key;
  std::string_view information;  // "Insurance", of "Changing this Insurance Information ..."
  std::string_view record;       // "insurance company"
  std::string_view entry;        // "Insurance Co.", in the change log
  std::string_view category;     // of the change log
};

// Stands before a change to an existing shared record: tells how many it affects, has it confirmed by a typed word, and
// puts it down in the change log. Records that nobody has, and columns that it does not guard, change without a word.
class SharedRecordGuard : private Rules {
 public:
  // A column that identifies the record, and the field that it is edited in.
  struct Guarded {
    forms::Field& field;
    data::Words column;
    const data::Format& format = data::kPlain;
    bool same_line = false;  // of the warning, behind the value before it
  };
  // How many the record's change affects. Throws session::DatabaseError.
  using Count = std::function<int(std::int32_t id)>;

  // `record` is the one that the fields are bound to.
  SharedRecordGuard(const session::ScreenContext& context, const data::RecordBinding& record, const SharedKind& kind,
                    Count count, std::vector<Guarded> guarded)
      : Rules(context), record_(record), kind_(kind), count_(std::move(count)), guarded_(std::move(guarded)) {}

  // Whether the record may be written as its fields stand; what the person left alone is not compared, for it is not
  // written. A change that was agreed to is not asked about again while it is not written. Throws
  // session::DatabaseError, and Refusal when the row is gone.
  bool Agrees();
  // Right behind the record's update: the change that was agreed to is one to log.
  void Written();
  // When a save begins: a change was agreed to that the change log does not have yet. Its step comes behind the update.
  bool MustLog() const { return agreed_.has_value() || !written_.empty(); }
  void Log();

 private:
  using Values = std::vector<std::string>;
  struct Change {
    std::int32_t id = 0;
    Values from;
    Values to;
    friend bool operator==(const Change&, const Change&) = default;
  };

  Values Stored() const;
  // What is stored, with what the person changed in its place.
  Values OnScreen(const Values& stored) const;
  // One below the other, without what is empty.
  std::string Lines(const Values& values) const;
  bool Confirmed(const Change& change, int count) const;
  std::string Entry(const Change& change) const;

  const data::RecordBinding& record_;
  SharedKind kind_;
  Count count_;
  std::vector<Guarded> guarded_;
  std::optional<Change> agreed_;
  std::vector<Change> written_;  // and not logged
};

}  // namespace editing
