#include "database/dialect/prepare_sql.h"
#include "session/connection.h"

namespace host {
namespace {

using Cases = std::vector<std::pair<std::string, std::string>>;

void ExpectTranslated(const Cases& cases) {
  for (const auto& [statement, expected] : cases) {
    EXPECT_EQ(PreparePostgres(statement), expected);
  }
}

// The range beside a prefix ends with the last character there is.
std::string Like(const std::string& column, const std::string& pattern, const std::string& prefix) {
  return "(" + column + " Like '" + pattern + "' AND " + column + " >= '" + prefix + "' AND " + column + " < '" +
         prefix + "\U0010FFFF')";
}

TEST(PreparePostgres, WritesLiteralsAndNames) {
  ExpectTranslated({
      {"x=#1/2/1980 2:05:00 pm#", "x=TIMESTAMP '1980-01-02 14:05:00'"},
      {R"(x="O'Brien ""Bob"" TRUE")", R"(x='O''Brien "Bob" TRUE')"},
      {R"(x='\''; --')", R"(x=E'\\''; --')"},
      {"a=TRUE or b<>FALSE", "a=1 or b<>0"},
      {"SELECT [CovTable].[CovOrd], [Group #], [Order] FROM CovTable",
       "SELECT covtable.covord, \"Group #\", \"order\" FROM CovTable"},
      {"SELECT EmpNam AS [Employer Name], EmpCIT AS City, EmpInd AS elID FROM dbo.EmpTable AS e WHERE E.EmpInd=1 ORDER "
       "BY [employer name], city",
       "SELECT EmpNam AS \"Employer Name\", EmpCIT AS \"City\", EmpInd AS elID FROM EmpTable AS \"e\" WHERE "
       "\"e\".EmpInd=1 ORDER BY \"Employer Name\" NULLS FIRST, \"City\" NULLS FIRST"},
      {"SELECT pID AS [Left], pID AS [a\"]]; --] FROM PATable LEFT JOIN ELTable ON left(elEndWho, 1)='x'",
       "SELECT pID AS \"Left\", pID AS \"a\"\"]; --\" FROM PATable LEFT JOIN ELTable ON left(elEndWho, 1)='x'"},
      {"SELECT x.key FROM (SELECT pID AS [Key] FROM PATable) x, T WHERE T.key=1",
       "SELECT x.\"Key\" FROM (SELECT pID AS \"Key\" FROM PATable) x, T WHERE T.key=1"},
  });
}

TEST(PreparePostgres, MatchesPatterns) {
  ExpectTranslated({
      {"pCIT Like 'Smi%'", Like("pCIT", "Smi%", "Smi")},
      {"((P.pCIT)) Like 'Mü_[%]'",
       "(((P.pCIT)) Like E'Mü_\\\\%' AND ((P.pCIT)) >= 'Mü' AND ((P.pCIT)) < 'Mü\U0010FFFF')"},
      {R"(pCIT Like '%5[%]\')", R"(pCIT Like E'%5\\%\\\\')"},
      {"pCIT not Like 'Smi%'", "pCIT not Like 'Smi%'"},
      {"upper(pCIT) Like 'Smi%'", "upper(pCIT) Like 'Smi%'"},
      {"pCIT Like '[a-f]_.%'", R"(pCIT ~ E'^[a-f].\\..*$')"},
      {"pCIT not Like '[^a%]%' and pZIP Like 'x!%' ESCAPE '!'",
       R"(pCIT !~ E'^[^a\\%].*$' and pZIP Like 'x!%' ESCAPE '!')"},
      {"pCIT Like '[f-a]x'", "pCIT ~ '^$.x$'"},
      {"pCIT Like pLASNAM+'%' and 1=1", "pCIT Like pLASNAM || '%' ESCAPE '' and 1=1"},
      {"pID Like '1%' and CovYTD Like '5%'",
       "CAST(pID AS citext) Like '1%' and CAST(trim_scale(CovYTD) AS citext) Like "
       "'5%'"},
      {"pBIRDAT Like '1980%'", "replace(CAST(pBIRDAT AS citext), ' 00:00:00', '') Like '1980%'"},
  });
}

TEST(PreparePostgres, FitsLiteralsToColumns) {
  ExpectTranslated({
      {"pZIP=5 and 5<pZIP and pZIP<>-1", "pZIP='5' and '5'<pZIP and pZIP<>'-1'"},
      {"pZIP IN (1, 'x') and pZIP BETWEEN 1 AND 5", "pZIP IN ('1', 'x') and pZIP BETWEEN '1' AND '5'"},
      {"pID='5' and pID='' and pID<>'x'", "pID='5' and pID=NULL and pID IS NOT NULL"},
      {"pBIRDAT='' or pBIRDAT>'' or pBIRDAT<='1/2/1980'",
       "pBIRDAT=NULL or pBIRDAT IS NOT NULL or pBIRDAT<=TIMESTAMP '1980-01-02'"},
      {"PWMUseNam=PWMID and EmpInd=(SELECT pZIP FROM PATable)",
       "PWMUseNam=CAST(PWMID AS citext) and CAST(EmpInd AS citext)=(SELECT pZIP FROM PATable)"},
      {"UPDATE PATable SET pBIRDAT='', pID='x', pZIP=5 WHERE pID=''",
       "UPDATE PATable SET pBIRDAT=NULL, pID='x', pZIP='5' WHERE pID=NULL"},
      {"INSERT INTO PATable (pBIRDAT, pPROIND, pZIP) VALUES ('', '', ''), ('1/2/1980', GLOBAL, 5)",
       "INSERT INTO PATable (pBIRDAT, pPROIND, pZIP) VALUES (NULL, NULL, ''), (TIMESTAMP '1980-01-02', 'GLOBAL', 5)"},
      {"INSERT INTO PATable (pBIRDAT, pZIP) SELECT '', 'x' FROM T",
       "INSERT INTO PATable (pBIRDAT, pZIP) SELECT NULL, 'x' "
       "FROM T"},
  });
}

TEST(PreparePostgres, JoinsTextsAndAddsNumbers) {
  ExpectTranslated({
      {"PATABLE.pLASNAM+', '+PATABLE.pFIRNAM", "PATABLE.pLASNAM || ', ' || PATABLE.pFIRNAM"},
      {"CovOrd+1 + (emsPer+2)", "CovOrd+1 + (emsPer+2)"},
      {"cast(emsPer as nvarchar(5)) + emsPerTyp", "cast(emsPer as citext) || emsPerTyp"},
      {"pLASNAM+pID+pFIRNAM", "pLASNAM || CAST(pID AS citext) || pFIRNAM"},
      {"pBIRDAT+7 < #1/1/1990# - 1", "pBIRDAT+ INTERVAL '1 day' * 7 < TIMESTAMP '1990-01-01' - INTERVAL '1 day' * 1"},
      {"ISNULL(pLASNAM, '') + char(10) + LEN(trim(pCIT))",
       "COALESCE(pLASNAM, '') || CAST(chr(10) AS citext) || CAST(length(btrim(pCIT)) AS citext)"},
      {"cast(CovYTD as nvarchar), cast('5' as money), group_concat(pID)",
       "cast(CAST(trim_scale(CovYTD) AS citext) as citext), cast('5' as numeric(19,4)), string_agg(CAST(pID AS "
       "citext), "
       "',')"},
  });
}

TEST(PreparePostgres, Selects) {
  ExpectTranslated({
      {"Select Top 5 a from T where b in (select top 1 c from S order by d desc) order by 1, f(a, b)",
       "Select a from T where b in (select c from S order by d desc NULLS LAST LIMIT 1) order by 1 NULLS FIRST, f(a, "
       "b) "
       "NULLS FIRST LIMIT 5"},
      {"SELECT pFAMHEAIND=pID AS Head, 'x', EXISTS (SELECT 'y') FROM PATable",
       "SELECT CAST((pFAMHEAIND=pID) AS int) AS \"Head\", 'x'::citext, CAST((EXISTS (SELECT 'y'::citext)) AS int) FROM "
       "PATable"},
      {"SELECT CASE WHEN a=1 THEN 'x' ELSE b END FROM T", "SELECT CASE WHEN a=1 THEN 'x'::citext ELSE b END FROM T"},
      {"SELECT DISTINCTROW T.a, b+1 AS c FROM T ORDER BY a, c, T.a",
       "SELECT DISTINCT T.a, b+1 AS \"c\" FROM T ORDER BY a "
       "NULLS FIRST, \"c\" NULLS FIRST, T.a NULLS FIRST"},
      {"SELECT DISTINCT a, b AS c FROM T ORDER BY d DESC, a",
       "SELECT a, b AS \"c\" FROM T GROUP BY 1, 2 ORDER BY MAX(d) DESC NULLS LAST, a NULLS FIRST"},
      {"SELECT a FROM T UNION SELECT 'x' FROM S ORDER BY a DESC",
       "SELECT a FROM T UNION SELECT 'x'::citext FROM S ORDER BY a DESC NULLS LAST"},
      {"SELECT * FROM (SELECT a FROM T) WHERE a=1", "SELECT * FROM (SELECT a FROM T) AS derived_1 WHERE a=1"},
      {"SELECT * FROM T outer apply (select * from S where S.a=T.a) s cross apply (select 1) AS r",
       "SELECT * FROM T LEFT JOIN LATERAL (select * from S where S.a=T.a) s ON TRUE CROSS JOIN LATERAL (select 1) AS "
       "\"r\""},
      {"SELECT @@IDENTITY, newid(), GETDATE()", "SELECT practice_identity(), gen_random_uuid(), LOCALTIMESTAMP(0)"},
  });
  const std::string columns = PreparePostgres("Select * FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME='EmmTable'");
  EXPECT_TRUE(columns.starts_with("Select * FROM (SELECT c.relname::citext AS table_name, a.attname::citext AS "));
  EXPECT_TRUE(columns.ends_with(") AS derived_1 WHERE TABLE_NAME='EmmTable'"));
}

TEST(PreparePostgres, Writes) {
  ExpectTranslated({
      {"delete * from T where a=1", "delete from T where a=1"},
      {"DELETE T.* FROM T INNER JOIN S ON S.a=T.a WHERE S.b=1", "DELETE FROM T USING S WHERE ( S.a=T.a) AND ( S.b=1)"},
      {"DELETE FROM T FROM T AS t1 INNER JOIN S ON S.a=t1.a",
       "DELETE FROM T AS \"t1\" USING S WHERE ( "
       "S.a=\"t1\".a)"},
      {"update TAVOWIN.DBO.rsTable set rsTable.a=b", "update rsTable set a=b"},
      {"UPDATE T SET T.a=S.a FROM T INNER JOIN T AS S ON S.b=T.b WHERE T.c=1",
       "UPDATE T SET a=\"S\".a FROM T AS \"S\" WHERE ( \"S\".b=T.b) AND ( T.c=1)"},
      {"UPDATE x SET x.a=1 FROM T AS x INNER JOIN S ON S.b=x.b",
       "UPDATE T AS \"x\" SET a=1 FROM S WHERE ( "
       "S.b=\"x\".b)"},
      {"INSERT INTO T (a) OUTPUT inserted.UniqueID VALUES (1)", "INSERT INTO T (a) VALUES (1) RETURNING UniqueID"},
      {"INSERT INTO T (a) VALUES (1); SELECT @@IDENTITY", "INSERT INTO T (a) VALUES (1); SELECT practice_identity()"},
      {"create table T (a int not null, b nvarchar(65), c ntext, d datetime, e money, f uniqueidentifier, g bit)",
       "create table T (a int not null, b citext CHECK (length(b) <= 65), c citext, d timestamp(0), e numeric(19,4), f "
       "uuid, g smallint)"},
      {"if not exists (select * from S where pCIT='a') create table T (a nvarchar(5))",
       "DO 'BEGIN if not exists (select * from S where pCIT=''a'') THEN create table T (a citext CHECK (length(a) <= "
       "5)); END IF; END'"},
  });
}

TEST(PreparePostgres, RowGuidBatchHasOneGuid) {
  const std::string batch = PreparePostgres(
      "SET NOCOUNT ON; declare @UniqueID uniqueidentifier; set @UniqueID = newid(); INSERT INTO ELTable (elFla, "
      "UniqueID) OUTPUT inserted.UniqueID VALUES (0, @UniqueID); SELECT @UniqueID, @@IDENTITY");
  const std::string guid = batch.substr(batch.find('{'), 38);
  EXPECT_EQ(batch, "INSERT INTO ELTable (elFla, UniqueID) VALUES (0, '" + guid + "'); SELECT '" + guid +
                       "'::citext, practice_identity()");
}

TEST(PreparePostgres, RefusesZeros) {
  using std::string_literals::operator""s;
  for (const std::string& statement : {"DELETE * FROM T \0 WHERE a=1"s, "x='a\0b'"s, "SELECT [a\0b] FROM T"s}) {
    EXPECT_THROW(PreparePostgres(statement), session::DatabaseError);
  }
}

}  // namespace
}  // namespace host
