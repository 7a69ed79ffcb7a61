#include "database/schema_writer.h"

namespace host {

std::string IndexedExpression(const Index& index) {
  std::string digits(index.columns);
  for (const char separator : std::string_view("()- ./")) {
    digits = "REPLACE(" + digits + ", '" + separator + "', '')";
  }
  switch (index.of) {
    case Index::Of::PhoneDigits:
      return digits;
    case Index::Of::LocalDigits:
      return "SUBSTRING(" + digits + ", 4, 20)";
    case Index::Of::Values:
      break;
  }
  return {};
}

std::string IndexName(const Table& table, const Index& index) {
  std::string name = std::string(table.name) + "_";
  for (const char c : index.columns) {
    if (c != ' ') {
      name += c == ',' ? '_' : c;
    }
  }
  switch (index.of) {
    case Index::Of::PhoneDigits:
      return name + "_digits";
    case Index::Of::LocalDigits:
      return name + "_local";
    case Index::Of::Values:
      break;
  }
  return name;
}

}  // namespace host
