#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The tables of a practice database, as data. Engines make them from here; nothing else lists them.
namespace host {

enum class ColumnType { Int, SmallInt, Money, Real, Text, Memo, DateTime, Guid };

struct Column {
  std::string_view name;
  ColumnType type = ColumnType::Int;
  int size = 0;                         // characters of a Text column
  std::string_view default_value = {};  // as a statement writes it; empty is null
  int since = 1;                        // the schema version that brought it
  std::string_view upgrade = {};        // what rows of an older version are given, as SQLite writes it
  bool secret = false;                  // the change log says that it changed, not from what to what
};

struct Index {
  // What of its columns an index holds.
  enum class Of {
    Values,
    PhoneDigits,  // of one telephone column, without what separates them
    LocalDigits,  // the same from the fourth digit on, behind the area code
  };

  std::string_view columns;     // "pLASNAM, pFIRNAM"
  std::string_view where = {};  // the rows that stand in it; empty is all
  bool unique = false;          // within an office
  int since = 1;
  Of of = Of::Values;
};

// Every table also has `OfficeID`, and `UniqueID` where the practice keeps row GUIDs and `row_guid` is set. An insert
// that leaves the key out is given the next one; keys are unique within an office and are never handed out twice.
struct Table {
  std::string_view name;
  std::string_view key;
  std::vector<Column> columns;  // the key is the first
  std::vector<Index> indexes = {};
  bool row_guid = false;
  int since = 1;
  bool logged = false;  // what a session writes to it stands in the change log
};

// The version that a new database has.
inline constexpr int kSchemaVersion = 7;

// What sessions wrote to the tables that are `logged`, and who logged in.
inline constexpr std::string_view kChangeLog = "ChangeTable";

const std::vector<Table>& PracticeTables();
// By name without regard to case; null when there is none.
const Table* FindTable(std::string_view name);
const Column* FindColumn(const Table& table, std::string_view name);
// A column's name, which means the same in every table, as the schema writes it; what is none as it is.
std::string InCapitals(std::string_view name);
// Of the column of this name, if there is one.
std::optional<ColumnType> TypeOfColumn(std::string_view name);

// Tables that only the host reads and writes:
//
// SchemaTable         one row: SchVersion, and what the database was made with: SchKind, SchOffice, SchOffices,
//                     SchRowGuids (0 or 1)
// IdentityTable       on SQLite, the last key handed out: TableName, LastID
// DeskTable           on PostgreSQL, who may work in it: DeskLogin, DeskOffice (null for all)
// OfficeSettingTable  OSID; OSSection, OSKey, OSValue
// UserOptionTable     UOID; UOUseNam (the login name), UOSection, UOKey, UOValue
// PickListTable       PLID; PLKind ("SEXTITLE", "FEESCHED", "MEDALERT", "MEDSPEC", "BILTTL", "PROTITLE"), PLCode, PLDes
// LogTable            LogID; LogKind ("CM", "CHANGE", "INS_LOG"), LogCat, LogPid, LogText, LogWho, LogDat
// ChangeTable         ChaID; ChaDat, ChaWho (the login name), ChaWhat ("added", "changed", "deleted", "login",
// "refused"),
//                     ChaTab, ChaRecID, ChaCol, ChaOld, ChaNew: a row for each column that a statement changed
// AccountTable        AccID; AccPid, AccBal, AccPlaBal, AccPla (0 none, 1 own, 2 family budget plan)
//
// `SchemaTable`, `IdentityTable` and `DeskTable` have no `OfficeID`.

}  // namespace host
