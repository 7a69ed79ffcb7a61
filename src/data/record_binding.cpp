#include "data/record_binding.h"

#include <algorithm>
#include <charconv>

#include "data/literal.h"
#include "forms/text.h"

namespace data {
namespace {

// As the column takes a typed number; what is no number goes as text, for the database to judge.
std::string NumberLiteral(const std::string& text) {
  double number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end ? text : Literal(text);
}

}  // namespace

void RecordBinding::Bind(forms::TextBox& box, std::string column) {
  bindings_.push_back({&box, nullptr, std::move(column), session::FieldType::Text, 0});
}

void RecordBinding::Bind(forms::Label& label, std::string column) {
  bindings_.push_back({nullptr, &label, std::move(column), session::FieldType::Text, 0});
}

bool RecordBinding::Read(std::int32_t id) {
  const auto record =
      statements_.Select("SELECT * FROM " + table_ + " WHERE " + key_ + "=" + Literal(id) + statements_.Office());
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
    if (const int field = record->FieldIndex(binding.column); field >= 0) {
      binding.type = record->Fields()[static_cast<std::size_t>(field)].type;
      binding.defined_size = record->Fields()[static_cast<std::size_t>(field)].defined_size;
    }
    if (binding.box != nullptr) {
      binding.box->MaxLength = binding.defined_size;
    }
    binding.SetText(session::ToText(Column(binding.column)));
  }
  MarkWritten();
  return true;
}

bool RecordBinding::Changed() const {
  return std::ranges::any_of(bindings_, &Binding::Changed);
}

std::int32_t RecordBinding::Insert() {
  Assignments values;
  for (const Binding& binding : bindings_) {
    if (binding.box != nullptr || !binding.Text().empty()) {
      values.emplace_back(binding.column, binding.Literal());
    }
  }
  id_ = statements_.Insert(table_, std::move(values));
  MarkWritten();
  return id_;
}

void RecordBinding::Update() {
  Assignments values;
  for (const Binding& binding : bindings_) {
    if (binding.Changed()) {
      values.emplace_back(binding.column, binding.Literal());
    }
  }
  statements_.Update(table_, values, key_, id_);
  MarkWritten();
}

void RecordBinding::MarkWritten() {
  for (const Binding& binding : bindings_) {
    binding.MarkWritten();
  }
}

session::Value RecordBinding::Column(std::string_view name) const {
  const auto found =
      std::ranges::find_if(row_, [&](const auto& field) { return forms::EqualsIgnoringCase(field.first, name); });
  return found == row_.end() ? session::Value() : found->second;
}

void RecordBinding::Binding::SetText(std::string text) const {
  if (box != nullptr) {
    box->Text = std::move(text);
  } else {
    label->Caption = std::move(text);
  }
}

void RecordBinding::Binding::MarkWritten() const {
  (box != nullptr ? box->DataChanged : label->DataChanged) = false;
}

std::string RecordBinding::Binding::Literal() const {
  using session::FieldType;
  const std::string& text = Text();
  if (type == FieldType::Text) {
    return data::Literal(defined_size > 0 ? forms::Left(text, static_cast<std::size_t>(defined_size)) : text);
  }
  if (text.empty()) {
    return "Null";
  }
  if (type == FieldType::DateTime) {
    const auto time = forms::ParseIso(text);
    return time ? data::Literal(*time) : data::Literal(text);
  }
  return type == FieldType::Integer || type == FieldType::Double || type == FieldType::Currency ? NumberLiteral(text)
                                                                                                : data::Literal(text);
}

}  // namespace data
