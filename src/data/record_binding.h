#pragma once

#include <cstdint>
#include <memory>
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
  // The field's column belongs to that of another field, the choice of a number to the number: it is written whenever
  // the other one is, and whoever takes its stored value takes both.
  void Tie(const forms::Field& field, const forms::Field& to);
  // The field's column only repeats what another one holds: it is no conflict of its own.
  void Repeats(const forms::Field& field) { Of(field).repeats = true; }

  // Fills the fields from the row. False when there is no such row: they stay as they are. ID 0 reads no row, only
  // the columns' sizes, and empties them.
  bool Read(std::int32_t id);
  // The same from the first row of a statement of the screen's own; without one as for ID 0.
  void Read(const Sql& statement);
  // The same as `Read(id)` by a statement of the screen's own for that row, which need not give the key.
  bool Read(std::int32_t id, const Sql& statement);
  // What the statement gives of its columns, without a row.
  void ReadNone(const Sql& statement);
  // Reads the row anew for these fields alone; nothing happens when it is gone.
  void Refresh(const std::vector<forms::Field*>& fields);
  // 0 until a row has been read or inserted.
  std::int32_t Id() const { return id_; }

  // A field shows another value than the row has.
  bool Changed() const;
  bool Changed(const forms::Field& field) const;
  // What the row has for a bound field, as the field shows it.
  const std::string& Stored(const forms::Field& field) const;
  // The first field whose text is no value of its format.
  struct Unreadable {
    forms::Field& field;
    std::string_view what;  // it should be: "date"
  };
  std::optional<Unreadable> FirstUnreadable() const;

  // Inserts a row with every bound field, but for labels that are empty; the row's ID.
  std::int32_t Insert();
  // The two halves of it, where a transaction decides whether the row stays.
  std::int32_t WriteNew() const;
  void MarkInserted(std::int32_t id);
  // Updates the columns of the fields that changed; writes nothing when none did.
  void Update();
  // The two halves of it, where a transaction decides whether the update stays.
  void Write() const;
  void MarkUpdated();

  // A column that is about to be updated, and that somebody else has given another value since it was read.
  struct Conflict {
    forms::Field& field;
    std::string stored;  // as the field would show it
  };
  // Reads the row anew where there is anything to update. Nothing when it is gone.
  std::optional<std::vector<Conflict>> Conflicts() const;
  // The next update writes what the fields show over what is stored.
  void Overwrite(const std::vector<Conflict>& conflicts);
  // The fields show what is stored, and what is tied to them too.
  void Take(const std::vector<Conflict>& conflicts);

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
    std::string read = {};     // what the row had, or was given
    std::string written = {};  // what the field shows of that
    const forms::Field* tied_to = nullptr;
    bool repeats = false;
  };

  std::unique_ptr<session::Recordset> Row(std::int32_t id) const;
  void Fill(std::int32_t id, const session::Recordset& record);
  Binding& Of(const forms::Field& field);
  const Binding& Of(const forms::Field& field) const;
  static std::string Shown(const Binding& binding, const session::Recordset& row);
  static void Show(Binding& binding, const session::Recordset& row);
  static void MarkWritten(Binding& binding);
  // Two texts of the field stand for the same value.
  bool Same(const Binding& binding, const std::string& left, const std::string& right) const;
  bool Differs(const Binding& binding) const;
  // The next update writes its column.
  bool Due(const Binding& binding) const;
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
