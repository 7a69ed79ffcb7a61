#include "database/dialect/prepare_sql.h"

namespace host {
namespace {

TEST(PrepareServer, WritesTheServersOwnWords) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"x>=#11/21/2026# or x=#1/2/1980 2:05:00 pm#", "x>='20261121' or x='19800102 14:05:00'"},
      {R"(x="O'Brien ""Bob""" or x='Smi%')", R"(x=N'O''Brien "Bob"' or x=N'Smi%')"},
      {"delete * from TAVOWIN.DBO.T where a=TRUE or [a]]b]<>FALSE", "delete from T where a=1 or [a]]b]<>0"},
      {"SELECT DISTINCTROW TOP 5 a+b AS [c d] FROM T outer apply (select * from S) s -- all",
       "SELECT DISTINCT TOP 5 a+b AS [c d] FROM T outer apply (select * from S) s"},
      {"UPDATE T SET T.a=S.a FROM T INNER JOIN S ON S.b=T.b", "UPDATE T SET T.a=S.a FROM T INNER JOIN S ON S.b=T.b"},
      {"INSERT INTO T (a, b) VALUES (GLOBAL, NULL); SELECT @@IDENTITY",
       "INSERT INTO T (a, b) VALUES (N'GLOBAL', NULL); SELECT @@IDENTITY"},
      {"SET NOCOUNT ON; declare @UniqueID uniqueidentifier; set @UniqueID = newid(); INSERT INTO T (UniqueID) OUTPUT "
       "inserted.UniqueID VALUES (@UniqueID); SELECT @UniqueID, @@IDENTITY",
       "SET NOCOUNT ON; declare @UniqueID uniqueidentifier; set @UniqueID = newid(); INSERT INTO T (UniqueID) OUTPUT "
       "inserted.UniqueID VALUES (@UniqueID); SELECT @UniqueID, @@IDENTITY"},
      {"if not exists (select * from INFORMATION_SCHEMA.TABLES where TABLE_NAME='T') create table T (a nvarchar(65))",
       "if not exists (select * from INFORMATION_SCHEMA.TABLES where TABLE_NAME=N'T') create table T (a nvarchar(65))"},
  };
  for (const auto& [statement, expected] : cases) {
    EXPECT_EQ(PrepareServer(statement), expected);
  }
}

}  // namespace
}  // namespace host
