#pragma once

#include "database/schema.h"

// How the schema's tables are written down, and their parts by subject.
namespace host::tables {

inline Column Int(std::string_view name) {
  return {.name = name};
}
// Statements compare it with 0 for "none", so it is never null.
inline Column Number(std::string_view name) {
  return {.name = name, .default_value = "0"};
}
inline Column SmallInt(std::string_view name) {
  return {.name = name, .type = ColumnType::SmallInt};
}
// 0 for a live row, or for no; never null either.
inline Column Flag(std::string_view name) {
  return {.name = name, .type = ColumnType::SmallInt, .default_value = "0"};
}
inline Column Money(std::string_view name) {
  return {.name = name, .type = ColumnType::Money};
}
inline Column Real(std::string_view name) {
  return {.name = name, .type = ColumnType::Real};
}
inline Column Text(std::string_view name, int size) {
  return {.name = name, .type = ColumnType::Text, .size = size};
}
// The change log says that it changed, not from what to what.
inline Column Secret(std::string_view name, int size) {
  return {.name = name, .type = ColumnType::Text, .size = size, .secret = true};
}
inline Column Memo(std::string_view name) {
  return {.name = name, .type = ColumnType::Memo};
}
inline Column Moment(std::string_view name) {
  return {.name = name, .type = ColumnType::DateTime};
}

// Sizes that fields of a kind share.
inline constexpr int kName = 40;
inline constexpr int kCompany = 60;
inline constexpr int kStreet = 40;
inline constexpr int kCity = 30;
inline constexpr int kState = 2;
inline constexpr int kZip = 10;
inline constexpr int kPhone = 20;
inline constexpr int kEmail = 80;
inline constexpr int kRemark = 80;
inline constexpr int kLogin = 40;
inline constexpr int kServiceCode = 10;
inline constexpr int kGroupNumber = 30;
inline constexpr int kFile = 255;

inline Index PhoneDigits(std::string_view column, std::string_view where) {
  return {.columns = column, .where = where, .since = 5, .of = Index::Of::PhoneDigits};
}
inline Index LocalDigits(std::string_view column, std::string_view where) {
  return {.columns = column, .where = where, .since = 5, .of = Index::Of::LocalDigits};
}

std::vector<Table> People();
std::vector<Table> Staff();
std::vector<Table> Insurance();
std::vector<Table> Recall();
std::vector<Table> Office();
std::vector<Table> Host();

}  // namespace host::tables
