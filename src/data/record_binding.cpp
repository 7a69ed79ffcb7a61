#include "data/record_binding.h"

#include <algorithm>
#include <charconv>

#include "data/literal.h"
#include "forms/label.h"
#include "forms/text.h"

namespace data {
namespace {

bool IsNumber(session::FieldType type) {
  using session::FieldType;
  return type == FieldType::Integer || type == FieldType::Double || type == FieldType::Currency;
}

}  // namespace

void RecordBinding::Bind(forms::Field& field, Words column, const Format& format) {
  field.DataField = column.Text();
  bindings_.push_back({.field = &field, .column = column, .format = &format});
}

bool RecordBinding::Read(std::int32_t id) {
  const auto record =
      statements_.Select(Sql("SELECT * FROM ") + table_ + " WHERE " + key_ + "=" + Literal(id) + statements_.Office());
  if (record->Eof() && id != 0) {
    return false;
  }
  id_ = id;
  row_.clear();
  if (!record->Eof()) {
    for (std::size_t i = 0; i < record->Fields().size(); ++i) {
      row_.emplace_back(record->Fields()[i].name, record->Get(i));
    }
  }
  for (Binding& binding : bindings_) {
    if (const int index = record->FieldIndex(binding.column.Text()); index >= 0) {
      const session::Field& column = record->Fields()[static_cast<std::size_t>(index)];
      binding.type = column.type;
      binding.defined_size = column.defined_size;
    }
    binding.field->SetRoom(binding.defined_size);
    const session::Value value = Column(binding.column.Text());
    binding.field->SetFieldText(session::IsNull(value) ? std::string() : binding.format->show(value));
  }
  MarkWritten();
  return true;
}

bool RecordBinding::Differs(const Binding& binding) const {
  const std::string shown = binding.field->FieldText();
  if (shown == binding.written || shown.empty() || binding.written.empty()) {
    return shown != binding.written;
  }
  const forms::Date today = session_.Today();
  const auto now = binding.format->take(shown, today);
  return !now || now != binding.format->take(binding.written, today);
}

bool RecordBinding::Changed() const {
  return std::ranges::any_of(bindings_, [this](const Binding& binding) { return Differs(binding); });
}

bool RecordBinding::Changed(const forms::Field& field) const {
  return std::ranges::any_of(bindings_,
                             [&](const Binding& binding) { return binding.field == &field && Differs(binding); });
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
  Assignments values;
  for (const Binding& binding : bindings_) {
    if (dynamic_cast<const forms::Label*>(binding.field) == nullptr || !binding.field->FieldText().empty()) {
      values.emplace_back(binding.column, LiteralOf(binding));
    }
  }
  id_ = statements_.Insert(table_, std::move(values));
  MarkWritten();
  return id_;
}

void RecordBinding::Update() {
  Assignments values;
  for (const Binding& binding : bindings_) {
    if (Differs(binding)) {
      values.emplace_back(binding.column, LiteralOf(binding));
    }
  }
  statements_.Update(table_, values, key_, id_);
  MarkWritten();
}

void RecordBinding::MarkWritten() {
  for (Binding& binding : bindings_) {
    binding.written = binding.field->FieldText();
  }
}

void RecordBinding::MarkWritten(const forms::Field& field) {
  for (Binding& binding : bindings_) {
    if (binding.field == &field) {
      binding.written = field.FieldText();
    }
  }
}

session::Value RecordBinding::Column(std::string_view name) const {
  const auto found =
      std::ranges::find_if(row_, [&](const auto& field) { return forms::EqualsIgnoringCase(field.first, name); });
  return found == row_.end() ? session::Value() : found->second;
}

// As the column takes it: cut to its size; empty is Null but for text. What is no number goes as text, for the database
// to judge.
Sql RecordBinding::LiteralOf(const Binding& binding) const {
  const std::string text = binding.field->FieldText();
  if (text.empty() && binding.type != session::FieldType::Text) {
    return Words("Null");
  }
  session::Value value = text;
  if (auto taken = text.empty() ? std::nullopt : binding.format->take(text, session_.Today())) {
    value = *std::move(taken);
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
