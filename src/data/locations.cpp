#include "data/locations.h"

#include "data/literal.h"
#include "forms/text.h"

namespace data {

std::string LocationName(std::int32_t location, const session::Value& name) {
  std::string text(forms::Trim(session::ToText(name)));
  return text.empty() ? "Location #" + std::to_string(location) : text;
}

std::optional<forms::Color> LocationColor(const session::Value& color) {
  return session::ToText(color).empty() ? std::nullopt : forms::ColorOfNumber(session::ToId(color));
}

LocationAddress FirstLocation(const Statements& statements) {
  const auto rows = statements.Select(
      "SELECT TOP 1 OffLocID, OffLocNam, OffLocPho, OffLocFax, OffLocAd1, OffLocAd2, OffLocCit, OffLocSta, OffLocZip "
      "FROM "
      "OffLocTable WHERE (OffLocID>0)" +
      statements.Office() + " ORDER BY OffLocID");
  if (rows->Eof()) {
    return {};
  }
  const auto text = [&rows](std::size_t field) { return std::string(forms::Trim(session::ToText(rows->Get(field)))); };
  const std::string city = text(6);
  const std::string rest(forms::Trim(text(7) + " " + text(8)));
  return {.name = LocationName(session::ToId(rows->Get(0)), rows->Get(1)),
          .phone = text(2),
          .fax = text(3),
          .line1 = text(4),
          .line2 = text(5),
          .place = city + (city.empty() || rest.empty() ? "" : ", ") + rest};
}

GrantedLocations::GrantedLocations(session::Database& database, Of of)
    : database_(database),
      statements_(database),
      columns_(of == Of::Patient ? Columns{"pdlTable", "pdlID", "pdlPID", "pdlOffLocID", "pdlShoInLoc"}
                                 : Columns{"ealTable", "ealID", "ealPWMID", "ealOffLocID", "ealAccLoc"}) {}

// The file database has no "outer apply". There the owner stands in the join: in the condition he would lose the
// locations at which only others have a row.
Sql GrantedLocations::Granting(std::int32_t owner) const {
  const auto& [table, key, owner_column, location, granted] = columns_;
  const auto of_table = [&table = table](Words column) { return Sql(table) + "." + column; };
  const Sql of_owner = of_table(owner_column) + "=" + Literal(owner);
  const Sql columns = Words("SELECT OffLocID, OffLocNam, OffLocForClr, OffLocBacClr, ");
  if (database_.DatabaseKind() == session::kFileDatabase) {
    return columns + granted + ", " + key + " FROM (OffLocTable LEFT JOIN " + table +
           " on (OffLocTable.OffLocID=" + of_table(location) + " AND " + of_owner + ")) ORDER BY OffLocID";
  }
  return columns + "a." + granted + ", a." + key + " From OffLocTable outer apply (select * from " + table + " WHERE " +
         of_table(location) + " = OffLocTable.OffLocID" +
         (statements_.OfficeScoped() ? " AND " + of_table("OfficeID") + " = OffLocTable.OfficeID" : Sql()) + " AND (" +
         of_owner + ")) a" + statements_.Office(" Where (OffLocTable.OfficeID=", ")") + " ORDER BY OffLocID";
}

std::vector<GrantedLocations::Granted> GrantedLocations::Read(std::int32_t owner) const {
  std::vector<Granted> all;
  for (const auto rows = statements_.Select(Granting(owner)); !rows->Eof(); rows->MoveNext()) {
    const std::int32_t location = session::ToId(rows->Get(0));
    if (!all.empty() && all.back().location == location) {  // two rows tell of it
      all.back().granted = all.back().granted || session::ToId(rows->Get(4)) != 0;
      continue;
    }
    all.push_back({.location = location,
                   .name = LocationName(location, rows->Get(1)),
                   .fore = LocationColor(rows->Get(2)),
                   .back = LocationColor(rows->Get(3)),
                   .granted = session::ToId(rows->Get(4)) != 0,
                   .row = session::ToId(rows->Get(5))});
  }
  return all;
}

void GrantedLocations::Grant(std::int32_t row) const {
  statements_.Update(columns_.table, {{columns_.granted, Literal(1)}}, columns_.key, row);
}

void GrantedLocations::Write(std::int32_t owner, std::int32_t location, bool granted) const {
  const auto& [table, key, owner_column, location_column, granted_column] = columns_;
  const Sql value = Literal(granted ? 1 : 0);
  const auto found =
      statements_.Select(Sql("SELECT ") + key + " FROM " + table + " WHERE " + owner_column + "=" + Literal(owner) +
                         " AND " + location_column + "=" + Literal(location) + statements_.Office());
  std::vector<std::int32_t> rows;
  for (; !found->Eof(); found->MoveNext()) {
    rows.push_back(session::ToId(found->Get(0)));
  }
  for (const std::int32_t row : rows) {
    statements_.Update(table, {{granted_column, value}}, key, row);
  }
  if (rows.empty()) {
    statements_.Insert(table,
                       {{owner_column, Literal(owner)}, {location_column, Literal(location)}, {granted_column, value}});
  }
}

}  // namespace data
