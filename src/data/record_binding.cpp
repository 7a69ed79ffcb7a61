#include "data/record_binding.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

#include "data/literal.h"
#include "forms/label.h"
#include "forms/text.h"

namespace data {
namespace {

bool IsNumber(session::FieldType type) {
  using session::FieldType;
  return type == FieldType::Integer || type == FieldType::Double || type == FieldType::Currency;
}

auto& Find(auto& bindings, const forms::Field& field) {
  const auto found = std::ranges::find_if(bindings, [&](const auto& binding) { return binding.field == &field; });
  if (found == bindings.end()) {
    throw std::out_of_range("the field " + field.Name() + " is not bound");
  }
  return *found;
}

}  // namespace

void RecordBinding::Bind(forms::Field& field, Words column, const Format& format) {
  field.DataField = column.Text();
  bindings_.push_back({.field = &field, .column = column, .format = &format});
}

void RecordBinding::Tie(const forms::Field& field, const forms::Field& to) {
  Of(field).tied_to = &to;
}

std::unique_ptr<session::Recordset> RecordBinding::Row(std::int32_t id) const {
  return statements_.Select(Sql("SELECT * FROM ") + table_ + " WHERE " + key_ + "=" + Literal(id) +
                            statements_.Office());
}

RecordBinding::Binding& RecordBinding::Of(const forms::Field& field) {
  return Find(bindings_, field);
}

const RecordBinding::Binding& RecordBinding::Of(const forms::Field& field) const {
  return Find(bindings_, field);
}

std::string RecordBinding::Shown(const Binding& binding, const session::Recordset& row) {
  const int index = row.Eof() ? -1 : row.FieldIndex(binding.column.Text());
  const session::Value value = index < 0 ? session::Value() : row.Get(static_cast<std::size_t>(index));
  return session::IsNull(value) ? std::string() : binding.format->show(value);
}

void RecordBinding::Show(Binding& binding, const session::Recordset& row) {
  binding.read = Shown(binding, row);
  binding.field->SetFieldText(binding.read);
  binding.written = binding.field->FieldText();
}

bool RecordBinding::Read(std::int32_t id) {
  const auto record = Row(id);
  if (record->Eof() && id != 0) {
    return false;
  }
  Fill(id, *record);
  return true;
}

void RecordBinding::Read(const Sql& statement) {
  const auto record = statements_.Select(statement);
  Fill(record->Eof() ? 0 : session::ToId((*record)[key_.Text()]), *record);
}

bool RecordBinding::Read(std::int32_t id, const Sql& statement) {
  const auto record = statements_.Select(statement);
  if (record->Eof()) {
    return false;
  }
  Fill(id, *record);
  return true;
}

void RecordBinding::ReadNone(const Sql& statement) {
  const auto record = statements_.Select(statement);
  while (!record->Eof()) {
    record->MoveNext();
  }
  Fill(0, *record);
}

void RecordBinding::Fill(std::int32_t id, const session::Recordset& record) {
  id_ = id;
  row_.clear();
  if (!record.Eof()) {
    for (std::size_t i = 0; i < record.Fields().size(); ++i) {
      row_.emplace_back(record.Fields()[i].name, record.Get(i));
    }
  }
  for (Binding& binding : bindings_) {
    if (const int index = record.FieldIndex(binding.column.Text()); index >= 0) {
      const session::Field& column = record.Fields()[static_cast<std::size_t>(index)];
      binding.type = column.type;
      binding.defined_size = column.defined_size;
    }
    binding.field->SetRoom(binding.defined_size);
    Show(binding, record);
  }
}

void RecordBinding::Refresh(const std::vector<forms::Field*>& fields) {
  const auto record = Row(id_);
  if (record->Eof()) {
    return;
  }
  for (forms::Field* field : fields) {
    Show(Of(*field), *record);
  }
}

bool RecordBinding::Same(const Binding& binding, const std::string& left, const std::string& right) const {
  if (left == right || left.empty() || right.empty()) {
    return left == right;
  }
  const forms::Date today = session_.Today();
  const auto value = binding.format->take(left, today);
  return value && value == binding.format->take(right, today);
}

bool RecordBinding::Differs(const Binding& binding) const {
  return !Same(binding, binding.field->FieldText(), binding.written);
}

bool RecordBinding::Due(const Binding& binding) const {
  return Differs(binding) || (binding.tied_to != nullptr && Differs(Of(*binding.tied_to)));
}

bool RecordBinding::Changed() const {
  return std::ranges::any_of(bindings_, [this](const Binding& binding) { return Differs(binding); });
}

bool RecordBinding::Changed(const forms::Field& field) const {
  return std::ranges::any_of(bindings_,
                             [&](const Binding& binding) { return binding.field == &field && Differs(binding); });
}

const std::string& RecordBinding::Stored(const forms::Field& field) const {
  return Of(field).written;
}

std::optional<RecordBinding::Unreadable> RecordBinding::FirstUnreadable() const {
  const auto found = std::ranges::find_if(bindings_, [this](const Binding& binding) {
    const std::string text = binding.field->FieldText();
    return !text.empty() && Differs(binding) && !binding.format->take(text, session_.Today());
  });
  if (found == bindings_.end()) {
    return std::nullopt;
  }
  return Unreadable{*found->field, found->format->what};
}

std::int32_t RecordBinding::Insert() {
  MarkInserted(WriteNew());
  return id_;
}

void RecordBinding::MarkInserted(std::int32_t id) {
  id_ = id;
  MarkWritten();
}

std::int32_t RecordBinding::WriteNew() const {
  Assignments values;
  for (const Binding& binding : bindings_) {
    if (dynamic_cast<const forms::Label*>(binding.field) == nullptr || !binding.field->FieldText().empty()) {
      values.emplace_back(binding.column, LiteralOf(binding));
    }
  }
  return statements_.Insert(table_, std::move(values));
}

void RecordBinding::Update() {
  Write();
  MarkUpdated();
}

void RecordBinding::Write() const {
  Assignments values;
  for (const Binding& binding : bindings_) {
    if (Due(binding)) {
      values.emplace_back(binding.column, LiteralOf(binding));
    }
  }
  statements_.Update(table_, values, key_, id_);
}

void RecordBinding::MarkUpdated() {
  std::vector<Binding*> due;
  for (Binding& binding : bindings_) {
    if (Due(binding)) {
      due.push_back(&binding);
    }
  }
  for (Binding* binding : due) {
    MarkWritten(*binding);
  }
}

std::optional<std::vector<RecordBinding::Conflict>> RecordBinding::Conflicts() const {
  std::vector<Conflict> conflicts;
  if (id_ == 0 || std::ranges::none_of(bindings_, [this](const Binding& binding) { return Due(binding); })) {
    return conflicts;
  }
  const auto record = Row(id_);
  if (record->Eof()) {
    return std::nullopt;
  }
  for (const Binding& binding : bindings_) {
    std::string stored = Shown(binding, *record);
    if (Due(binding) && !binding.repeats && !Same(binding, stored, binding.read) &&
        !Same(binding, stored, binding.field->FieldText())) {
      conflicts.push_back({*binding.field, std::move(stored)});
    }
  }
  return conflicts;
}

void RecordBinding::Overwrite(const std::vector<Conflict>& conflicts) {
  for (const Conflict& conflict : conflicts) {
    Of(conflict.field).read = conflict.stored;
  }
}

void RecordBinding::Take(const std::vector<Conflict>& conflicts) {
  std::vector<forms::Field*> taken;
  for (const Conflict& conflict : conflicts) {
    taken.push_back(&conflict.field);
    if (const forms::Field* to = Of(conflict.field).tied_to) {
      taken.push_back(Of(*to).field);
    }
  }
  Refresh(taken);
}

void RecordBinding::MarkWritten() {
  for (Binding& binding : bindings_) {
    MarkWritten(binding);
  }
}

void RecordBinding::MarkWritten(const forms::Field& field) {
  MarkWritten(Of(field));
}

void RecordBinding::MarkWritten(Binding& binding) {
  binding.read = binding.written = binding.field->FieldText();
}

session::Value RecordBinding::Column(std::string_view name) const {
  const auto found =
      std::ranges::find_if(row_, [&](const auto& field) { return forms::EqualsIgnoringCase(field.first, name); });
  return found == row_.end() ? session::Value() : found->second;
}

// As the column takes it: cut to its size; empty is Null but for text. What is no number goes as text, for the database
// to judge; a form that has no room where what was typed has it, goes as typed.
Sql RecordBinding::LiteralOf(const Binding& binding) const {
  const std::string text = binding.field->FieldText();
  if (text.empty() && binding.type != session::FieldType::Text) {
    return Words("Null");
  }
  session::Value value = text;
  if (auto taken = text.empty() ? std::nullopt : binding.format->take(text, session_.Today())) {
    const auto* form = std::get_if<std::string>(&*taken);
    if (form == nullptr || forms::Fitting(*form, binding.defined_size) == *form) {
      value = *std::move(taken);
    }
  }
  if (const auto* words = std::get_if<std::string>(&value)) {
    if (binding.type == session::FieldType::Text) {
      return Literal(forms::Fitting(*words, binding.defined_size));
    }
    if (IsNumber(binding.type)) {
      return NumberLiteral(*words);
    }
    if (const auto time = forms::ParseIso(*words); time && binding.type == session::FieldType::DateTime) {
      return Literal(*time);
    }
  }
  return ValueLiteral(value);
}

}  // namespace data
