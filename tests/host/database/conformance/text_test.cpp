#include "host/database/conformance/tested_engine.h"

namespace host {
namespace {

class Text : public OnEngine {};

TEST_P(Text, ComparesWithoutRegardToCase) {
  Run("INSERT INTO PATable (pLASNAM, pFIRNAM, pNICNAM) VALUES ('Müller-Łoś', 'ÉVA', Null), ('Smith', 'ann', 'Nan'), "
      "('SMITH', 'Ann', ''), ('Mc%Coy', 'a_b', 'C:\\x')");
  for (const auto& [condition, persons] : std::vector<std::pair<std::string, std::string>>{
           // letters of ASCII
           {"pLASNAM='sMITH'", "2 3"},
           {"pLASNAM<>'sMITH'", "1 4"},
           {"pLASNAM>='smith' and pLASNAM<='SMITH'", "2 3"},
           {"pLASNAM<'smith'", "1 4"},
           {"pLASNAM in ('SMITH', 'mc%coy')", "2 3 4"},
           {"pLASNAM not in ('smith', 'MÜLLER')", "1 4"},
           {"pLASNAM between 'sMa' and 'SMz'", "2 3"},
           {"'SMITH'=pLASNAM", "2 3"},
           {"pLASNAM=(SELECT pLASNAM FROM PATable WHERE pID=2)", "2 3"},
           {"pLASNAM in (SELECT upper(pLASNAM) FROM PATable WHERE pID=2)", "2 3"},
           {"exists (SELECT * FROM PATable a WHERE a.pFIRNAM=PATable.pFIRNAM and a.pID<>PATable.pID)", "2 3"},
           {"(case pLASNAM when 'SMITH' then 1 else 0 end)=1", "2 3"},
           {"(case when pLASNAM='smith' then 'YES' else 'no' end)='yes'", "2 3"},
           {"coalesce(pNICNAM, pFIRNAM)='NAN'", "2"},
           {"upper(pLASNAM)='smith' and lower(pLASNAM)='SMITH'", "2 3"},
           {"trim(pLASNAM)='SMITH' and ltrim(rtrim(pLASNAM))='smith'", "2 3"},
           {"substring(pLASNAM, 1, 2)='SM'", "2 3"},
           {"replace(pLASNAM, 'th', 'x')='SMIX'", "2"},
           {"cast(pID as nvarchar)+pFIRNAM='3ANN'", "3"},
           {"pLASNAM+', '+pFIRNAM='SMITH, ANN'", "2 3"},
           {"pLASNAM+' '+pNICNAM IS NULL", "1"},
           // Like
           {"pLASNAM Like 'sMi%'", "2 3"},
           {"pLASNAM not Like 's%'", "1 4"},
           {"pLASNAM Like '%IT%'", "2 3"},
           {"pLASNAM Like 'MC[%]c%'", "4"},
           {"pLASNAM Like 'mc%coy'", "4"},
           {"pLASNAM Like '[a-n]_%'", "1 4"},
           {"pLASNAM Like '[^a-n]%'", "2 3"},
           {"pFIRNAM Like 'A[_]B'", "4"},
           {"pFIRNAM Like 'a_n'", "2 3"},
           {"pNICNAM Like 'c:\\%'", "4"},
           {"pNICNAM Like '%\\x'", "4"},
           {"pNICNAM Like '%'", "2 3 4"},
           {"pNICNAM Like ''", "3"},
           {"(pLASNAM+', '+pFIRNAM) Like 'smith, A%'", "2 3"},
           // letters beyond ASCII
           {"pLASNAM='MÜLLER-ŁOŚ'", "1"},
           {"pLASNAM Like 'mÜ%'", "1"},
           {"pLASNAM Like '%łOŚ'", "1"},
           {"pLASNAM Like '_ü[k-m]%[ś]'", "1"},
           {"pLASNAM not Like 'ä%' and pLASNAM<>'mc%coy'", "1 2 3"},
           {"pLASNAM+', '+pFIRNAM='MÜLLER-ŁOŚ, éva'", "1"},
           {"pFIRNAM>='év' and pFIRNAM<'Évb'", "1"},
           {"pFIRNAM in ('éva')", "1"},
           {"pFIRNAM between 'év' and 'évb'", "1"}}) {
    std::string found;
    for (const std::string& person : Run("SELECT pID FROM PATable WHERE " + condition + " ORDER BY pID")) {
      found += (found.empty() ? "" : " ") + person;
    }
    EXPECT_EQ(found, persons) << condition;
  }
}

TEST_P(Text, GroupsAndSortsWithoutRegardToCase) {
  Run("INSERT INTO EmpTable (EmpNam, EmpCIT) VALUES ('b', 'Rome'), ('B', 'rome'), ('a', 'ROME'), ('C', 'Oslo')");
  EXPECT_EQ(Run("SELECT Count(*) FROM (SELECT DISTINCT EmpCIT FROM EmpTable) t"), Rows({"2"}));
  EXPECT_EQ(Run("SELECT Count(DISTINCT EmpCIT) FROM EmpTable"), Rows({"2"}));
  EXPECT_EQ(Run("SELECT Count(*) FROM EmpTable GROUP BY EmpCIT ORDER BY Count(*)"), Rows({"1", "3"}));
  EXPECT_EQ(Run("SELECT EmpInd FROM EmpTable ORDER BY EmpNam, EmpInd"), Rows({"3", "1", "2", "4"}));
  EXPECT_EQ(Run("SELECT EmpInd FROM EmpTable ORDER BY EmpNam DESC, EmpInd DESC"), Rows({"4", "2", "1", "3"}));
  EXPECT_EQ(Run("SELECT Min(EmpNam), Max(EmpNam) FROM EmpTable"), Rows({"a|C"}));
  EXPECT_EQ(Run("SELECT e.EmpInd FROM EmpTable e INNER JOIN EmpTable f ON e.EmpNam=f.EmpNam WHERE f.EmpInd=2 ORDER BY "
                "e.EmpInd"),
            Rows({"1", "2"}));
  EXPECT_EQ(Run("SELECT EmpNam+', '+EmpCIT AS Name FROM EmpTable ORDER BY Name"),
            Rows({"a, ROME", "b, Rome", "B, rome", "C, Oslo"}));
}

INSTANTIATE_TEST_SUITE_P(Conformance, Text, testing::ValuesIn(EveryEngine()), NameOfEngine);

}  // namespace
}  // namespace host
