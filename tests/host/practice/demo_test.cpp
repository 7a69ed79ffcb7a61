#include "practice/demo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "data/reminders.h"
#include "host/practice/practice_fixture.h"
#include "practice/demo_files.h"
#include "practice/link_check.h"

namespace host {
namespace {

constexpr std::int32_t kPatients = 150;

Practice Make(std::uint64_t seed, PracticeOptions options = {}) {
  return MakeDemo("sqlite::memory:", {kPatients, seed, options, HashCost::Least});
}

// Every row of every table, but for the passwords' hashes, which are salted.
std::string Contents(const Practice& practice) {
  std::string text;
  for (const Table& table : PracticeTables()) {
    const auto rows = practice.Database().connection->Execute("SELECT * FROM " + std::string(table.name) +
                                                              " ORDER BY OfficeID, " + std::string(table.key));
    text += std::string(table.name) + "\n";
    const int password = rows->FieldIndex("PWMPasWor");
    for (; !rows->Eof(); rows->MoveNext()) {
      for (std::size_t i = 0; i < rows->Fields().size(); ++i) {
        text += static_cast<int>(i) == password ? "|" : session::ToText(rows->Get(i)) + "|";
      }
      text += "\n";
    }
  }
  return text;
}

TEST(Demo, RowsFollowFromSeedAndSize) {
  const std::string contents = Contents(Make(1));
  EXPECT_TRUE(contents == Contents(Make(1)));
  EXPECT_FALSE(contents == Contents(Make(2)));
}

// What must hold in every office: each query counts the rows that break a rule.
void ExpectSound(const Practice& practice) {
  const auto none = [&](const std::string& sql) {
    EXPECT_EQ(Ask(practice, "SELECT COUNT(*) FROM (" + sql + ")"), "0") << sql;
  };
  // Orders are dense, and every live coverage runs through live rows of its own office.
  none(
      "SELECT CovPatID FROM CovTable WHERE CovFla=0 GROUP BY OfficeID, CovPatID "
      "HAVING MIN(CovOrd)<>1 OR MAX(CovOrd)<>COUNT(*) OR COUNT(DISTINCT CovOrd)<>COUNT(*)");
  none(
      "SELECT PatEmpPatID FROM PatEmpTable WHERE PatEmpFla=0 GROUP BY OfficeID, PatEmpPatID "
      "HAVING MIN(PatEmpOrd)<>1 OR MAX(PatEmpOrd)<>COUNT(*) OR COUNT(DISTINCT PatEmpOrd)<>COUNT(*)");
  none(
      "SELECT CovID FROM CovTable c WHERE CovFla=0 AND NOT EXISTS (SELECT 1 FROM PatEmpTable h JOIN ELTable l ON "
      "l.elID=h.PatEmpElID AND l.OfficeID=h.OfficeID JOIN GroPlaTable g ON g.GroPlaInd=l.elGroID AND "
      "g.GroPlaInsID=l.elInsID AND g.OfficeID=l.OfficeID WHERE h.PatEmpID=c.CovSubPatEmpID AND h.OfficeID=c.OfficeID "
      "AND h.PatEmpFla=0 AND l.elFla=0)");
  none(
      "SELECT CovID FROM CovTable c JOIN PatEmpTable h ON h.PatEmpID=c.CovSubPatEmpID "
      "WHERE (CovRel=1) <> (CovPatID=PatEmpPatID)");
  none("SELECT CovPatID FROM CovTable WHERE CovFla=0 GROUP BY OfficeID, CovPatID, CovSubPatEmpID HAVING COUNT(*)>1");
  none(
      "SELECT CovID FROM CovTable c JOIN PatEmpTable h ON h.PatEmpID=c.CovSubPatEmpID AND h.OfficeID=c.OfficeID JOIN "
      "ELTable l ON l.elID=h.PatEmpElID AND l.OfficeID=h.OfficeID JOIN GroPlaTable g ON g.GroPlaInd=l.elGroID AND "
      "g.OfficeID=l.OfficeID WHERE CovFla=0 AND CovYTD+CovRemBal<>GroPlaMax1");
  // What has ended ended behind its beginning; what it ran through may have ended then as well.
  none(
      "SELECT CovID FROM CovTable c JOIN PatEmpTable h ON h.PatEmpID=c.CovSubPatEmpID AND h.OfficeID=c.OfficeID JOIN "
      "ELTable l ON l.elID=h.PatEmpElID AND l.OfficeID=h.OfficeID WHERE CovFla<>0 AND (CovEndDat<=CovStaDat OR "
      "CovEndDat>h.PatEmpEndDat OR h.PatEmpEndDat>l.elEndDat OR CovEndWho IS NULL)");
  // Plans have what the plan screen asks for, and details a code once for each modifier.
  none(
      "SELECT GroPlaInd FROM GroPlaTable WHERE GroPlaGroNum IS NULL OR GroPlaEffDat IS NULL OR GroPlaMax1 IS NULL OR "
      "GroPlaDed1 IS NULL OR GroPlaForTyp IS NULL OR GroPlaPayTyp NOT IN ('1','2','3') OR "
      "GroPlaStuCovTil<GroPlaChiCovTil");
  none("SELECT IPCod FROM IPTable GROUP BY OfficeID, IPInsCoID, IPGroNum, IPCod, IPCodMod HAVING COUNT(*)>1");
  none(
      "SELECT IPCod FROM IPTable d WHERE IPGroNum<>'GLOBAL' AND NOT EXISTS (SELECT 1 FROM SevCodTable s WHERE "
      "s.sevcodCod=d.IPCod AND s.sevcodDes=d.IPDes AND s.OfficeID=d.OfficeID)");
  none("SELECT sevcodCod FROM SevCodTable GROUP BY OfficeID, sevcodCod HAVING COUNT(*)>1");
  // One "No Insurance Coverage" link for an employer, and a plan at most once.
  none(
      "SELECT EmpInd FROM EmpTable e WHERE (SELECT COUNT(*) FROM ELTable l WHERE l.elEmpID=e.EmpInd AND "
      "l.OfficeID=e.OfficeID AND elInsID=0 AND elGroID=0 AND elFla=0)<>1");
  none("SELECT elID FROM ELTable WHERE elFla=0 GROUP BY OfficeID, elEmpID, elInsID, elGroID HAVING COUNT(*)>1");
  none(
      "SELECT pID FROM PATable p WHERE pEmpID1<>0 AND NOT EXISTS "
      "(SELECT 1 FROM ELTable l WHERE l.elID=p.pEmpID1 AND l.OfficeID=p.OfficeID AND elFla=0)");
  // Everybody's family head is his own head, and heads the family rows.
  none(
      "SELECT pID FROM PATable p WHERE NOT EXISTS (SELECT 1 FROM PATable h WHERE h.pID=p.pFAMHEAIND AND "
      "h.pFAMHEAIND=h.pID AND h.OfficeID=p.OfficeID)");
  none(
      "SELECT pID FROM PATable p WHERE pTypPat='1' AND NOT EXISTS (SELECT 1 FROM FamTable f WHERE f.fMEMID=p.pID AND "
      "f.fRSPID=p.pFAMHEAIND AND f.OfficeID=p.OfficeID)");
  none(
      "SELECT pID FROM PATable p WHERE pTypPat='1' AND NOT EXISTS "
      "(SELECT 1 FROM PATable d WHERE d.pID=p.pPROIND AND d.pTypDoc='1' AND d.OfficeID=p.OfficeID)");
  none("SELECT pDocIni FROM PATable WHERE pDocIni IS NOT NULL GROUP BY OfficeID, pDocIni HAVING COUNT(*)>1");
  // Nobody's child is older than himself, and everybody's working life is whole.
  none(
      "SELECT CovID FROM CovTable c JOIN PatEmpTable h ON h.PatEmpID=c.CovSubPatEmpID AND h.OfficeID=c.OfficeID "
      "JOIN PATable s ON s.pID=h.PatEmpPatID AND s.OfficeID=c.OfficeID JOIN PATable p ON p.pID=c.CovPatID AND "
      "p.OfficeID=c.OfficeID WHERE CovRel=3 AND p.pBIRDAT<s.pBIRDAT");
  none(
      "SELECT pID FROM PATable p WHERE pTypEmp IS NOT NULL AND ((pTypEmp='0')<>(pDocIni IS NULL) OR "
      "(pTypEmp='0')<>(pDatRel IS NOT NULL) OR (SELECT COUNT(*) FROM EBTable s WHERE s.EBPid=p.pID AND "
      "s.OfficeID=p.OfficeID) NOT BETWEEN 2 AND 4)");
  none(
      "SELECT EBID FROM EBTable s WHERE (SELECT COUNT(*) FROM ESTable h WHERE h.EBID=s.EBID AND "
      "h.OfficeID=s.OfficeID)<>3");
  none(
      "SELECT rRecNum FROM RecTable r WHERE NOT EXISTS "
      "(SELECT 1 FROM RSTable m WHERE m.RCRecNum=r.rRCRecNum AND m.OfficeID=r.OfficeID)");
  // A recall's stages climb, and each has a text for every way to send it.
  constexpr const char* kDays =
      "SELECT *, emsPer * CASE emsPerTyp WHEN 'D' THEN 1 WHEN 'M' THEN 30 ELSE 365 END AS Days FROM emsTable WHERE "
      "emsLinTyp=3";
  none("SELECT 1 FROM (" + std::string(kDays) + ") s JOIN (" + kDays +
       ") t ON t.emsLinID=s.emsLinID AND t.OfficeID=s.OfficeID AND t.emsSeq>s.emsSeq AND t.Days<s.Days");
  none(
      "SELECT emsID FROM emsTable s WHERE NOT EXISTS (SELECT 1 FROM ReminderMessageTable JOIN emmTable e ON "
      "e.emmID=rmtEMMID AND emmAppDefTyp=1 WHERE rmtLinID=s.emsID AND e.OfficeID=s.OfficeID AND LENGTH(rmtLetFil)<=30 "
      "AND rmtCarMes LIKE '<%' AND LENGTH(rmtTexMes)>0 AND rmtEMaMes LIKE '<%' AND LENGTH(rmtVoiMes)>0 AND "
      "LENGTH(rmtVoiMesSpanish)>0)");
  none("SELECT RCRecNum FROM RSTable WHERE LENGTH(RCDuePerMsg||RCCutOffMsg)=0 OR LENGTH(RCLatPer1Msg)>255");
  // Orders are dense, and stand for a kind or a recall of their office.
  none(
      "SELECT ebcpID FROM eBusContactSequence WHERE ebcExc IS NULL GROUP BY OfficeID, ebcpID, ebcLinTyp, ebcLinID, "
      "ebcPer HAVING MIN(ebcSeq)<>1 OR MAX(ebcSeq)<>COUNT(*)");
  none(
      "SELECT ebcID FROM eBusContactSequence c WHERE NOT EXISTS (SELECT 1 FROM emmTable e WHERE c.ebcLinTyp=1 AND "
      "e.emmID=c.ebcLinID AND e.OfficeID=c.OfficeID) AND NOT EXISTS (SELECT 1 FROM RSTable r JOIN emsTable s ON "
      "s.emsLinID=r.RCRecNum AND s.OfficeID=r.OfficeID WHERE c.ebcLinTyp=3 AND r.RCRecNum=c.ebcLinID AND "
      "s.emsSeq=c.ebcPer AND r.OfficeID=c.OfficeID)");
}

TEST(Demo, AnOfficeHasWhatTheScreensNeed) {
  Practice practice = Make(3);
  ExpectSound(practice);
  EXPECT_EQ(Ask(practice, "SELECT COUNT(*) FROM PATable WHERE pTypPat='1'"), std::to_string(kPatients));
  EXPECT_GE(std::stoi(Ask(practice, "SELECT COUNT(*) FROM PATable WHERE pTypDoc='1'")), 4);
  EXPECT_GT(std::stoi(Ask(practice, "SELECT COUNT(*) FROM CovTable WHERE CovFla=0 AND CovOrd=2")), 0);
  EXPECT_GT(std::stoi(Ask(practice, "SELECT COUNT(*) FROM CovTable WHERE CovFla<>0")), 0);
  EXPECT_GT(std::stoi(Ask(practice, "SELECT COUNT(*) FROM AccountTable")), 0);
  EXPECT_NE(Ask(practice,
                "SELECT COUNT(*) FROM ELTable JOIN GroPlaTable ON GroPlaInd=elGroID WHERE elFla=0 AND "
                "GroPlaCat='CAPITATION'"),
            "0");
  EXPECT_EQ(Ask(practice, "SELECT ZipCodCit FROM ZipCodTable WHERE ZipCodZip='62701'"), "Springfield");
  for (const char* table : {"RSTable", "emsTable", "emmTable", "IPTable", "SevCodTable", "PhaTable", "ePayerTable",
                            "IDTypTable", "DrIDTable", "EBTable", "ESTable", "DTTable", "PickListTable"}) {
    EXPECT_NE(Ask(practice, "SELECT COUNT(*) FROM " + std::string(table)), "0") << table;
  }
}

TEST(Demo, ShowsWhatIsRare) {
  constexpr const char* kElsewhere =  // covered through somebody of another family
      "CovTable JOIN PatEmpTable ON PatEmpID=CovSubPatEmpID JOIN PATable s ON s.pID=PatEmpPatID JOIN PATable p ON "
      "p.pID=CovPatID WHERE CovFla=0 AND s.pFAMHEAIND<>p.pFAMHEAIND";
  const Practice practice = Make(1);
  for (const char* rare :
       {"PATable WHERE pTypPat='1' AND pBIRDAT>='2025-11-20'",
        "PATable WHERE pBIRDAT<'1950-01-01'",
        "CovTable WHERE CovRel=4",
        "PATable WHERE pTypEmp='0'",
        "PATable WHERE pCRECARNUM IS NOT NULL",
        "PATable p JOIN PATable q ON p.pID<q.pID AND p.pLASNAM=q.pLASNAM AND p.pFIRNAM=q.pFIRNAM AND q.pBIRDAT IS NULL",
        "PDLTable WHERE pdlShoInLoc=1",
        "TimTable JOIN AbsTable ON AbsTimID=TimID WHERE TimInDat>'2026-11-20'",
        "CovTable WHERE CovFla=0 AND CovOrd=3",
        "PatEmpTable WHERE PatEmpFla=0 AND PatEmpOrd=2",
        "PATable JOIN CovTable ON CovPatID=pID WHERE pPriBal IS NOT NULL AND CovFla=0 AND CovRemBal IS NULL",
        kElsewhere,
        "PatEmpTable JOIN ELTable ON elID=PatEmpElID WHERE PatEmpFla<>0 AND elFla<>0",
        "(SELECT 1 FROM ELTable WHERE elFla=0 GROUP BY elEmpID HAVING COUNT(*)>12)",
        "InsCoTable WHERE epPayID=0",
        "InsCoTable JOIN ePayerTable USING (epPayID)",
        "IPTable WHERE IPCodMod IS NOT NULL",
        "RSTable WHERE RCLatPer6<>''",
        "eBusContactSequence WHERE ebcLinTyp=1 AND ebcSeq=2",
        "eBusContactSequence WHERE ebcLinTyp=3 AND ebcPer>0",
        "eBusContactSequence WHERE ebcExc>0",
        "pNoteTable JOIN NoteTable ON nID=pNotNID WHERE pNotTyp='ERM'",
        "ApTable WHERE APDat>'2027-01-15'",
        "PWATable a JOIN PWATable b USING (PWAPWMID, PWAAreOfPro) WHERE a.PWAWriFla<>b.PWAWriFla"}) {
    EXPECT_NE(Ask(practice, "SELECT COUNT(*) FROM " + std::string(rare)), "0") << rare;
  }
}

TEST(Demo, OnePlanOfEachTypeCoversEveryService) {
  const Practice practice = Make(1);
  EXPECT_EQ(Ask(practice, "SELECT COUNT(*) FROM IPTable WHERE IPInsCoID=0 AND IPGroNum='GLOBAL'"), "15");
  const std::string services = Ask(practice, "SELECT COUNT(*) FROM SevCodTable");
  EXPECT_GT(std::stoi(services), 250);
  for (const char* type : {"INDEMNITY", "PPO", "CAPITATION", "MEDICAID", "DISCOUNT"}) {
    EXPECT_EQ(Ask(practice,
                  "SELECT COUNT(DISTINCT IPCod) FROM IPTable JOIN GroPlaTable ON GroPlaGroNum=IPGroNum AND "
                  "GroPlaInsID=IPInsCoID WHERE GroPlaCat='" +
                      std::string(type) + "'"),
              services)
        << type;
  }
}

TEST(Demo, ItsFilesAreThoseThatItsRecallsName) {
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("demo_test" + std::to_string(ThisProcess().number));
  std::filesystem::create_directories(folder / "WP");
  std::ofstream(folder / "WP" / "Birthday.rtf") << "mine";
  WriteDemoFiles(folder.string());
  const auto text_of = [&](std::string file) {
    std::ranges::replace(file, '\\', '/');
    std::ifstream stream(folder / file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
  };
  EXPECT_EQ(text_of("WP/Birthday.rtf"), "mine");
  const Practice practice = Make(1);
  const auto letters = practice.Database().connection->Execute("SELECT DISTINCT rmtLetFil FROM ReminderMessageTable");
  for (; !letters->Eof(); letters->MoveNext()) {
    const std::string letter = text_of("WP/" + session::ToText(letters->Get(0)));
    EXPECT_TRUE(letter.starts_with("{\\rtf1") && letter.ends_with("}\r\n")) << session::ToText(letters->Get(0));
    EXPECT_NE(letter.find("\\{Patient Full Name\\}"), std::string::npos);
  }
  for (const data::ReminderKind kind : data::kReminderKinds) {
    const std::string templates =
        std::string(data::kTemplatesFolder) + "/" + std::string(TemplateFolderOf(kind)) + "/{Ready-made}/";
    const std::string list = text_of(templates + "Parameters.ini");
    EXPECT_TRUE(list.starts_with("[TAVO EMAIL TEMPLATE]\r\nFile="));
    const std::size_t file = list.find('=') + 1;
    EXPECT_NE(text_of(templates + list.substr(file, list.find('\r', file) - file)), "");
  }
  std::filesystem::remove_all(folder);
}

TEST(Demo, NoLinkIsBroken) {
  Practice practice = Make(2);
  HostSession session(practice, practice.Office(), LoginRights("x"), StandingStill());
  CheckLinks(session, false, [](const std::string& fault) { ADD_FAILURE() << fault; });
}

TEST(Demo, ItsLoginsOpen) {
  Practice practice = Make(1);
  HostSession session(practice, practice.Office(), LoginRights("x"), StandingStill());
  const auto admin = LogIn(session.Office(), "admin", "admin", session.Now());
  const auto front = LogIn(session.Office(), "front", "front", session.Now());
  ASSERT_TRUE(admin && front);
  EXPECT_TRUE(admin.login->rights.Supervisor());
  EXPECT_TRUE(front.login->rights.Has("EDIT-EMP-INS"));
  EXPECT_FALSE(front.login->rights.Has("CHANGE-PRO-NAME"));
  EXPECT_FALSE(front.login->rights.Has("CHANGE-REF-NAME"));
  EXPECT_EQ(Ask(practice, "SELECT pTypDoc FROM PATable WHERE pID=" +
                              session.OfficeSetting("DEFAULT_OFFICE_SETUP", "OFF_DEF_PRO")),
            "1");
}

TEST(Demo, OfficesAreFilledAlikeAndApart) {
  const Practice practice = Make(1, {.kind = session::kOfficeScoped, .offices = 3, .row_guids = true});
  ExpectSound(practice);
  EXPECT_EQ(practice.Offices(), (std::vector<std::int32_t>{1, 2, 3}));
  EXPECT_EQ(Ask(practice,
                "SELECT COUNT(*) FROM (SELECT OfficeID FROM PATable WHERE pTypPat='1' GROUP BY OfficeID "
                "HAVING COUNT(*)=" +
                    std::to_string(kPatients) + ")"),
            "3");
  EXPECT_EQ(Ask(practice, "SELECT COUNT(DISTINCT UniqueID)=COUNT(*) FROM PATable"), "1");
  EXPECT_EQ(Ask(practice, "SELECT COUNT(*) FROM PATable WHERE UniqueID IS NULL"), "0");
}

}  // namespace
}  // namespace host
