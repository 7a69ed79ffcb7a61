#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/statements.h"
#include "forms/label.h"
#include "forms/text_box.h"

namespace data {

// Ties a screen's controls to the columns of one row: reads the row into them, takes their maximum lengths from the
// columns' defined sizes, and writes back the columns whose controls changed.
class RecordBinding {
 public:
  RecordBinding(session::Database& database, std::string table, std::string key)
      : statements_(database), table_(std::move(table)), key_(std::move(key)) {}

  void Bind(forms::TextBox& box, std::string column);
  void Bind(forms::Label& label, std::string column);

  // Fills the controls from the row. False when there is no such row: the controls stay as they are. ID 0 reads no
  // row, only the columns' sizes, and empties the controls.
  bool Read(std::int32_t id);
  // 0 until a row has been read or inserted.
  std::int32_t Id() const { return id_; }

  // True from a control's first change until it is read or written.
  bool Changed() const;
  bool Changed(const forms::TextBox& box) const { return box.DataChanged; }

  // Inserts a row with every bound text and every bound label that is not empty; the row's ID.
  std::int32_t Insert();
  // Updates the bound columns that changed; writes nothing when none did.
  void Update();
  // The controls equal the row from now on.
  void MarkWritten();

  // A column that no control shows, of the row that was read. Null before.
  session::Value Column(std::string_view name) const;

 private:
  struct Binding {
    forms::TextBox* box;
    forms::Label* label;
    std::string column;
    session::FieldType type;
    int defined_size;

    const std::string& Text() const { return box != nullptr ? box->Text.get() : label->Caption.get(); }
    void SetText(std::string text) const;
    bool Changed() const { return box != nullptr ? box->DataChanged : label->DataChanged; }
    void MarkWritten() const;
    // As the column takes it: cut to its size; empty is Null but for text.
    std::string Literal() const;
  };

  Statements statements_;
  std::string table_;
  std::string key_;
  std::int32_t id_ = 0;
  std::vector<Binding> bindings_;
  std::vector<std::pair<std::string, session::Value>> row_;
};

}  // namespace data
