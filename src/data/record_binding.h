#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/format.h"
#include "data/statements.h"
#include "forms/field.h"
#include "session/session.h"

namespace data {

// Ties a screen's fields to the columns of one row: reads the row into them, gives them their columns' sizes, and
// writes back the columns whose fields differ from the row.
class RecordBinding {
 public:
  RecordBinding(session::Session& session, Words table, Words key)
      : session_(session), statements_(session), table_(table), key_(key) {}

  void Bind(forms::Field& field, Words column, const Format& format = kPlain);

  // Fills the fields from the row. False when there is no such row: they stay as they are. ID 0 reads no row, only
  // the columns' sizes, and empties them.
  bool Read(std::int32_t id);
  // 0 until a row has been read or inserted.
  std::int32_t Id() const { return id_; }

  // A field shows another value than the row has.
  bool Changed() const;
  bool Changed(const forms::Field& field) const;
  // The first field whose text is no value of its format.
  struct Unreadable {
    forms::Field& field;
    std::string_view what;  // it should be: "date"
  };
  std::optional<Unreadable> FirstUnreadable() const;

  // Inserts a row with every bound field, but for labels that are empty; the row's ID.
  std::int32_t Insert();
  // Updates the columns of the fields that changed; writes nothing when none did.
  void Update();
  // What the fields show counts as the row's from now on.
  void MarkWritten();
  void MarkWritten(const forms::Field& field);

  // A column of the row that was read, whether a field shows it or not. Null before.
  session::Value Column(std::string_view name) const;

 private:
  struct Binding {
    forms::Field* field;
    Words column;
    const Format* format;
    session::FieldType type = session::FieldType::Text;
    int defined_size = 0;
    std::string written = {};  // what the field shows of the row
  };

  bool Differs(const Binding& binding) const;
  Sql LiteralOf(const Binding& binding) const;

  session::Session& session_;
  Statements statements_;
  Words table_;
  Words key_;
  std::int32_t id_ = 0;
  std::vector<Binding> bindings_;
  std::vector<std::pair<std::string, session::Value>> row_;
};

}  // namespace data
