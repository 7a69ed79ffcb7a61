#include "host/database/conformance/tested_engine.h"

namespace host {
namespace {

// Statements of the screens, with values put in, one after another on one practice.
class Screens : public OnEngine {
 protected:
  Screens() { MakePractice({.kind = 7, .row_guids = true}); }
};

TEST_P(Screens, PeopleStatementsRun) {
  Run("INSERT INTO PATable (pLASNAM, pFIRNAM, pTypPat, pTypEmp, pFAMHEAIND, pBIRDAT, pPROIND) "
      "VALUES ('Smith', 'John', '1', '1', Null, #01/02/1980#, 9)");
  EXPECT_EQ(Run("INSERT INTO PATable (pLASNAM, pFIRNAM, pTypPat) VALUES ('O''Neill', 'Ann', '2'); SELECT @@IDENTITY"),
            Rows({"2"}));
  EXPECT_EQ(Run("Select * from Patable where pLASNAM Like \"smi%\" and pFIRNAM Like \"j%\"AND (OfficeID=1) and "
                "((pFAMHEAIND = pID or pFAMHEAIND is Null or pFAMHEAIND = 0) and pTypPat >= '1') order by pLasNam, "
                "pFirNam")
                .size(),
            1U);
  EXPECT_EQ(Run("SELECT pID FROM PATABLE WHERE (((PATABLE.pLASNAM) like 'o''n%') AND ((PATABLE.pFIRNAM) like 'A%'))"),
            Rows({"2"}));
  Run("UPDATE PATABLE SET pNICNAM='Jack' WHERE pID=1 and (OfficeID = 1) ");
  Run("UPDATE PATable SET pHomCon='Pho1', pHomPho1='555-0100' WHERE pID=1 AND (OfficeID = 1)");
  Run("update paTable set pTypEmp='1', pDocIni='', pDatRel = Null where pID=1");
  Run("Update Patable set pPROIND = 2 where pPROIND = 9");
  EXPECT_EQ(Run("SELECT pNICNAM, pBIRDAT, pPROIND FROM PATable WHERE pID=1"), Rows({"Jack|1980-01-02|2"}));
  EXPECT_EQ(Run("SELECT DISTINCT Count(pID) FROM PATable WHERE pPhaID=1"), Rows({"0"}));
  Run("Update RecTable set rRecDoc = 'Ann O''Neill', rRecDocID = 2 where rRecDocID = 1");
  Run("Update opTable set OpPrefDrID = 2 where OpPrefDrID = 1");
  Run("Update ApTable Set APTable.APDrID=2 where APTable.APDrID=1 and APDat>=#11/21/2026#");
  Run("DELETE * FROM TemplateSetupTable WHERE tstStaDat >=#11/21/2026#");
  Run("INSERT INTO DTTable (TrapID, traTyp) VALUES (1, 2)");
  EXPECT_EQ(Run("Select top 1 traID from DTTable where TrapID=1 and ((traTyp=1) or (traTyp=2)) AND (OfficeID=1);"),
            Rows({"1"}));
  Run("UPDATE IDTypTable SET IDTypTable.IDTypDes='National Provider ID' WHERE IDTypTable.IDTypID = 2");
  Run("SELECT IDTypTable.IDTypAutoID, IDTypTable.IDTypDes, IDTypTable.IDTypID, DrIDTable.DrIDTypID, DrIDTable.DrIDVal, "
      "DrIDTable.DrIDID, DrIDTable.DrIDpID FROM IDTypTable LEFT OUTER JOIN DrIDTable ON IDTypTable.IDTypAutoID = "
      "DrIDTable.DrIDTypID and (IDTypTable.OfficeID = DrIDTable.OfficeID) WHERE (DrIDTable.DrIDpID = 1) ORDER BY "
      "IDTypTable.IDTypAutoID");
  Run("UPDATE DrIDTable SET DrIDVal='12' WHERE Dridid=1");
}

TEST_P(Screens, ZipStatementsRun) {
  Run("INSERT INTO ZipCodTable (ZipCodCit, ZipCodSta, ZipCodZip) VALUES ('Springfield', 'IL', '62701')");
  Run("INSERT INTO ZipCodTable (ZipCodCit, ZipCodSta, ZipCodZip) VALUES ('Boston', 'MA', '02108')");
  EXPECT_EQ(Run("SELECT ZipCodID FROM ZipCodTable WHERE (ZipCodCit='SPRINGFIELD') AND (ZipCodSta='il') AND "
                "(ZipCodZip='62701');"),
            Rows({"1"}));
  EXPECT_EQ(Run("Select Top 200 * from ZipCodTable where ZipCodCit>='Spr' order by ZipCodCit,ZipCodZip;").size(), 1U);
  EXPECT_EQ(Run("Select Top 1 ZipCodCit from ZipCodTable where ZipCodZip>='0' order by ZipCodZip,ZipCodCit;"),
            Rows({"Boston"}));
  Run("DELETE * FROM ZipCodTable WHERE ZipCodID=1;");
  EXPECT_EQ(Run("SELECT ZipCodID FROM ZipCodTable"), Rows({"2"}));
}

TEST_P(Screens, EmployeeStatementsRun) {
  Run("INSERT INTO PATable (pLASNAM, pFIRNAM, pTypEmp) VALUES ('Doe', 'Jane', '2'); "
      "INSERT INTO PATable (pLASNAM, pTypEmp) VALUES ('Nameless', '1'); "
      "INSERT INTO PATable (pLASNAM, pFIRNAM, pTypEmp) VALUES ('de Boer', 'Al', '1')");
  EXPECT_EQ(Run("SELECT DISTINCTROW PATABLE.pLASNAM+', '+PATABLE.pFIRNAM AS Name, PATABLE.pID AS [ID Num], "
                "EmpTable.EmpAdd1 AS [Business Address 1], EmpTable.EmpCIT AS [B-City] FROM (PATABLE LEFT JOIN ELTable "
                "ON PATABLE.pEmpID1 = ELTable.elID and (PATABLE.OfficeID = ELTable.OfficeID) ) LEFT JOIN EmpTable ON "
                "ELTable.elEmpID = ELTable.EmpInd and (ELTable.OfficeID = ELTable.OfficeID) WHERE "
                "(PATABLE.pTypEmp='1') OR (PATABLE.pTypEmp='2') and (PATABLE.OfficeID = 1) ORDER BY Name"),
            Rows({"(null)|2|(null)|(null)", "de Boer, Al|3|(null)|(null)", "Doe, Jane|1|(null)|(null)"}));
  Run("INSERT INTO EBTable (EBPid, EBAPPDAT, EBAnnSalAmt) VALUES (1, #11/21/2026 14:05:00#, 52000.125)");
  Run("INSERT INTO ESTable (EBID, OffLocID) VALUES (1, 1)");
  EXPECT_EQ(Run("SELECT EBTable.*, ESTable.* from (EBTable LEFT JOIN ESTable ON EBTable.EBID = ESTable.EBID and "
                "(EBTable.OfficeID = ESTable.OfficeID) ) WHERE ESTable.OffLocID=1 AND EBTable.EBID=1")
                .size(),
            1U);
  EXPECT_EQ(Run("SELECT EBID as [ID], EBAPPDAT as [Effective Date], EBAnnSalAmt as [Salary] FROM EBTable Where EBPid=1 "
                "Order by EBID Desc"),
            Rows({"1|2026-11-21 14:05:00|52000.125"}));
  EXPECT_EQ(Run("SELECT Count(ESTable.EBID) from ESTable WHERE ESTable.OffLocID=1 AND ESTable.EBID=1"), Rows({"1"}));
  Run("UPDATE EBTable SET EBWhoMod='admin', EBDatMod=#11/21/2026# WHERE EBID=1");
  Run("Delete from EBTable where EBTable.EBID = 1");
  EXPECT_EQ(Run("INSERT INTO PWMTable (PWMUseNam) VALUES ('Jane'); SELECT @@IDENTITY"), Rows({"1"}));
  Run("UPDATE PWMTABLE SET OffLocID=3 WHERE (PWMID=1) AND (OffLocID=0)");
  EXPECT_EQ(Run("SELECT OffLocID FROM PWMTable WHERE (PWMUSENAM = 'jANE')"), Rows({"3"}));
  EXPECT_EQ(Run("SELECT Count(*) FROM PWMTable WHERE (PWMUSENAM = 'jane') AND (PWMPid<>5) AND (PWMID<>5)"),
            Rows({"0"}));
  Run("SELECT * FROM PWATable WHERE ((OffLocID) = 1) AND PWAUseNam='jane'");
  Run("delete * from PWATable where PWAUseNam='jane'");
  Run("Select * from paTable where pID=0");
  Run("SELECT TOP 5 OffLocID, OffLocNam FROM OffLocTable ORDER BY OffLocID");
}

TEST_P(Screens, InsuranceStatementsRun) {
  Run("INSERT INTO InsCoTable (InsCoNam) VALUES ('Acme Dental'); INSERT INTO EmpTable (EmpNam) VALUES ('Mill')");
  Run("INSERT INTO GroPlaTable (GroPlaInsID, GroPlaGroNum, GroPlaNam, GroPlaCat) VALUES (1, '77', 'Gold', "
      "'CAPITATION')");
  Run("INSERT INTO ELTable (elEmpID, elInsID, elGroID, elStaDat, elEndDat, elFla) VALUES (1, 1, 1, #11/21/2026#, NULL, "
      "0)");
  const std::string joins =
      "FROM ((ELTable INNER JOIN EmpTable ON ELTable.elEmpID = EmpTable.EmpInd and (ELTable.OfficeID = "
      "EmpTable.OfficeID) "
      ") INNER JOIN InsCoTable ON ELTable.elInsID = InsCoTable.InsCoInd and (ELTable.OfficeID = InsCoTable.OfficeID) ) "
      "INNER JOIN GroPlaTable ON ELTable.elGroID = GroPlaTable.GroPlaInd and (ELTable.OfficeID = "
      "GroPlaTable.OfficeID) ";
  EXPECT_EQ(
      Run("SELECT DISTINCTROW EmpTable.EmpNam as [Employer Name], InsCoTable.InsCoNam as [Insurance Company], "
          "EmpTable.EmpInd as [Emp ID], ELTable.elID as [Link ID] " +
          joins + "WHERE (((ELTable.elFla)=0)) and (ELTable.OfficeID = 1) ORDER BY [Insurance Company], [Link ID]"),
      Rows({"Mill|Acme Dental|1|1"}));
  EXPECT_EQ(Run("SELECT DISTINCT GroPlaTable.GroPlaNam as [Plan Name] " + joins +
                "WHERE (((ELTable.elFla)=0)) AND ((GroPlaTable.GroPlaCat)='CAPITATION') and (ELTable.OfficeID = 1) "),
            Rows({"Gold"}));
  Run("INSERT INTO PatEmpTable (PatEmpPatID, PatEmpElID, PatEmpOrd) VALUES (1, 1, 2)");
  Run("INSERT INTO CovTable (CovPatID, CovSubPatEmpID, CovOrd) VALUES (1, 1, 2)");
  EXPECT_EQ(Run("SELECT Count([CovTable].[CovID]) FROM (ELTable INNER JOIN PatEmpTable ON ELTable.elID = "
                "PatEmpTable.PatEmpElID and (ELTable.OfficeID = PatEmpTable.OfficeID)) INNER JOIN CovTable ON "
                "PatEmpTable.PatEmpID = CovTable.CovSubPatEmpID WHERE CovTable.CovFla=0 AND elInsID=1"),
            Rows({"1"}));
  Run("UPDATE CovTable SET CovTable.CovOrd = [CovTable].[CovOrd]-1 WHERE CovPatID=1 AND CovFla=0 AND CovOrd>1");
  EXPECT_EQ(Run("SELECT CovOrd FROM CovTable WHERE ((CovTable.CovID)=1) AND ((CovTable.CovFla)=0)"), Rows({"1"}));
  Run("UPDATE elTable SET elEndDat=#11/21/2026#, elEndWho='admin', elFla=1 WHERE elGroID=1");
  Run("update insCoTable set InsCoAccID='A1' where insCoInd =1 AND (OfficeID=1)");
  Run("UPDATE GroPlaTable SET GroPlaTable.GroPlaInsID=2 WHERE GroPlaInsID=1");
  EXPECT_EQ(Run("SELECT GroPlaInsID FROM GroPlaTable"), Rows({"2"}));
  Run("DELETE * FROM GroPlaTable WHERE GroPlaTable.GroPlaInsID=2");
  Run("DELETE * FROM PhaTable WHERE PhaID=1");
  EXPECT_EQ(Run("SELECT * FROM GroPlaTable"), Rows({}));
}

TEST_P(Screens, PlanDetailStatementsRun) {
  EXPECT_EQ(Run("SELECT COUNT(*) FROM IPTable WHERE IPInsCoID = 0 AND IPGroNum = 'GLOBAL'"), Rows({"0"}));
  EXPECT_EQ(Run("INSERT INTO IPTable (IPInsCoID, IPGroNum, IPCod, IPDes, IPPCov, IPPDedApp) OUTPUT inserted.UniqueID "
                "VALUES (0, GLOBAL, 'D1000', 'Preventive', 100, 'N')")
                .size(),
            1U);
  Run("INSERT INTO IPTABLE (IPInsCoID, IPGroNum, IPCod, IPPFee, IPSFee) VALUES (3, '77', 'D1000', 0.00, NULL)");
  Run("UPDATE IPTable SET IPPFee=12.34, IPSFee=5 WHERE ((IPTABLE.IPRecNum)=1)");
  Run("UPDATE IPTable SET IPTable.IPPFee=IPFrom.IPPFee, IPTable.IPSFee=IPFrom.IPSFee FROM IPTable INNER JOIN IPTable "
      "as IPFrom on IPTable.IPCod=IPFrom.IPCod and (IPTable.IPCodMod=IPFrom.IPCodMod or (IPTable.IPCodMod is null and "
      "(IPFrom.IPCodMod is null or IPFrom.IPCodMod=''))) and (IPTable.OfficeID = IPFrom.OfficeID) WHERE "
      "(IPTable.IPInsCoID=3 AND IPTable.IPGroNum='77') AND (IPFrom.IPInsCoID=0 AND IPFrom.IPGroNum='GLOBAL')");
  EXPECT_EQ(Run("SELECT IPPFee, IPSFee FROM IPTable WHERE (IPInsCoID = 3 and IPGroNum = '77')"), Rows({"12.34|5"}));
  EXPECT_EQ(Run("select ipCod from ipTable where ipCod>'D0100' and IPGroNum = 'Global' order by ipCod"),
            Rows({"D1000"}));
  Run("Delete * from IPTABLE where IPInsCoID = 3 and IPGroNum = '77'");
  Run("DELETE * FROM IPTable WHERE (((IPTable.IPInsCoID)=0) AND ((IPTable.IPGroNum)='GLOBAL'))");
  EXPECT_EQ(Run("SELECT IPRecNum FROM IPTable"), Rows({}));
  Run("SELECT SevCodID, SevCodCod, SevCodDes FROM SevCodTable WHERE (OffLocID=1) AND (SevCodTyp='1 - Charge') ORDER BY "
      "SevCodCod");
}

TEST_P(Screens, RecallStatementsRun) {
  Run("INSERT INTO RSTable (RCTtl, RCDuePer) VALUES ('Cleaning', '30D')");
  EXPECT_EQ(
      Run("SELECT DISTINCT RSTable.RCRecNum as [ID #],  RSTable.RCTtl as Title, RSTable.RCDuePer as Due FROM RSTable "
          "WHERE RCRecNum <> 0 and (OfficeID = 1) ORDER BY [ID #]"),
      Rows({"1|Cleaning|30D"}));
  Run("Insert into emmTable (emmDes,emmHasCutOff,emmEna,emmAppDefTyp,OffLocID) values ('Recall', 0, 1, 1, -1)");
  EXPECT_EQ(Run("select emmID from emmTable where emmEna=1 and offLocID=-1 and emmAppDefTyp=1"), Rows({"1"}));
  EXPECT_EQ(Run("Select count(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'EmmTable' and Column_Name = "
                "'UniqueID'"),
            Rows({"1"}));
  Run("INSERT INTO emsTable (emsLinTyp, emsLinID, emsSeq, emsPer, emsPerTyp) VALUES (3, 1, 0, 6, 'M')");
  Run("UPdate emsTable Set emsLinTyp=3, emsLinID=1, emsPer=7, emsPerTyp='M', emsPID=0 Where emsID=1");
  Run("INSERT INTO ReminderMessageTable (rmtEMMID, rmtLinID, rmtLetFil, rmtCarMes) VALUES (1, 1, 'due.rtf', 'See "
      "you')");
  const std::string backup =
      "if not exists (select * from INFORMATION_SCHEMA.TABLES where TABLE_NAME='RSTableBackup') create table "
      "RSTableBackup (RCRecNum int not null, RCTtl nvarchar(65), RCDonPriDay smallint)";
  Run(backup);
  Run(backup);
  Run("insert into RSTableBackup (RCRecNum, RCTtl, RCDonPriDay) select RCRecNum, RCTtl, RCDonPriDay from RSTABLE");
  EXPECT_EQ(Run("SELECT RCTtl FROM RSTableBackup WHERE RCTtl='CLEANING'"), Rows({"Cleaning"}));
  Run("Update RSTable set RCCutOff='',RCCutOffLet='',RCDuePer='' where RCRecNum=1");
  Run("update TAVOWIN.DBO.rsTable set rcDuePer=tbl.Period, rcDuePerMsg=tbl.rmtCarMes, rcDuePerLet=tbl.rmtLetFil From "
      "(select emsLinID, cast(emsPer as nvarchar) + emsPerTyp as Period, emsSeq, rmtLetFil, rmtCarMes From emmTable "
      "left "
      "join emsTable on emsLinTyp=3 AND emmTable.OfficeID=emsTable.OfficeID left join ReminderMessageTable on "
      "rmtLinID=emsID and rmtEmmID=emmID AND emmTable.OfficeID=ReminderMessageTable.OfficeID Where emmAppDefTyp=1 and "
      "emsSeq=0 and emsLinID = 1 AND (emmTable.OfficeID=1)) as TBL Where RCRecNum = 1");
  EXPECT_EQ(Run("SELECT RCDuePer, RCDuePerLet, RCDuePerMsg FROM RSTable"), Rows({"7M|due.rtf|See you"}));
  Run("INSERT INTO eBusContactSequence (ebcLinID, ebcLinTyp, ebcpID, ebcSeq, ebcPer, ebcConMet) VALUES (1, 1, 5, 1, 0, "
      "2)");
  EXPECT_EQ(Run("Select ebcConMet from eBusContactSequence inner join emmTable on emmID=ebcLinID where emmEna=1 and "
                "OffLocID=-1 and emmAppDefTyp=1 and ebcpID=5 AND (EMMTable.OfficeID=1) order by ebcSeq"),
            Rows({"2"}));
  Run("update eBusContactSequence set ebcPer=0, ebcPid=5, ebcSeq=2, ebcConMet=1 Where ebcID=1 AND "
      "(eBusContactSequence.OfficeID=1)");
  Run("Delete from eBusContactSequence where ebcID in (select ebcID from eBusContactSequence inner join RSTable on "
      "RCRecNum=ebcLinID)");
  EXPECT_EQ(Run("Select count(ebcID) from eBusContactSequence"), Rows({"0"}));
  Run("INSERT INTO NoteTable (nNote) VALUES ('No calls'); INSERT INTO pNoteTable (pNotPid, pNotNID) VALUES (5, 1)");
  EXPECT_EQ(
      Run("SELECT pNoteTable.pNotID AS cmID, dbo.NoteTable.nNote AS cmDoc FROM pNoteTable INNER JOIN dbo.NoteTable "
          "ON pNotNID=nID WHERE (pNoteTable.pNotTraLinID=0) AND pNotPid=5"),
      Rows({"1|No calls"}));
}

TEST_P(Screens, LocationStatementsRun) {
  Run("INSERT INTO OffLocTable (OffLocNam) VALUES ('Main'); INSERT INTO OffLocTable (OffLocNam) VALUES ('')");
  Run("INSERT INTO pdlTable (pdlPID, pdlOffLocID, pdlShoInLoc) VALUES (5, 1, 0)");
  Run("UPDATE pdlTable SET pdlShoInLoc=1 WHERE pdlID=1");
  const auto shown = Rows({"1|Main|1|1", "2||(null)|(null)"});
  EXPECT_EQ(
      Run("SELECT TOP 10 OffLocID, OffLocNam, a.pdlShoInLoc, a.pdlID From OffLocTable outer apply (select * from "
          "pdlTable WHERE pdlTable.pdlOffLocID = OffLocTable.OffLocID AND pdlTable.OfficeID = OffLocTable.OfficeID "
          "AND (pdlTable.pdlPID=5)) a Where (OffLocTable.OfficeID=1) ORDER BY OffLocID"),
      shown);
  EXPECT_EQ(
      Run("SELECT TOP 10 OffLocID, OffLocNam, pdlShoInLoc, pdlID FROM (OffLocTable LEFT JOIN pdlTable on "
          "OffLocTable.OffLocID=pdlTable.pdlOffLocID) WHERE ((pdlTable.pdlPID=5) OR (pdlTable.pdlPID IS NULL)) OR "
          "(pdlTable.pdlID IS NULL) ORDER BY OffLocID"),
      shown);
  EXPECT_EQ(Run("SELECT pdlID FROM pdlTable WHERE pdlShoInLoc=TRUE and pdlShoInLoc<>0"), Rows({"1"}));
  Run("INSERT INTO FamTable (fMEMID, fRSPID) VALUES (6, 5)");
  EXPECT_EQ(Run("SELECT FAMTABLE.fMEMID from FAMTABLE where fRSPID=5"), Rows({"6"}));
  Run("SELECT pID as fMEMID, pID as fRSPID FROM PATable WHERE pID=5");
}

TEST_P(Screens, EveryNamedColumnIsThere) {
  for (
      const std::string statement :
      {"SELECT DISTINCTROW PATABLE.pLASNAM+', '+PATABLE.pFIRNAM AS Name, PATABLE.pLASNAM AS [Last Name], "
       "PATABLE.pProTTL AS Title, PATABLE.pBUSPHO AS [Business Phone], PATABLE.pHOMPHO AS [Home Phone], PATABLE.pADD1 "
       "AS [Home Address 1], PATABLE.pADD2 AS [Home Address 2], PATABLE.pSTA AS [H-State], PATABLE.pZIP AS Zip FROM "
       "PATABLE",
       "SELECT pMEDALE, pMEDALEUPD, pREFIND, pPHY1, pPHY2, pGPDenFeeTyp, pGPDenFeeTypPerm, pACCTYP, pDRILIC, "
       "pCRECARTYP, pCRECARNUM, pBILTTL, pNEXSTADAT, pEmpID1, pEmpID2, pEmpID3, pEmpID4, pSeaNam, pSrtFlg, pCLITYP1, "
       "pInsPct, pTypX1, pTypX2, pDocIni, pDOCEIN, pDOCDATEMP, pDOCFeeTyp, pDOCLIC, pDOCREM1, pDOCREM2, pDOCREM3, "
       "pDOCSPE, pDOCMEDNUM, pDatRel, OffLocID FROM PATable",
       "SELECT pPriBal, pPriDed, pPriYTD, pPriRenFla, pSecBal, pSecDed, pSecYTD, pSecRenFla FROM PATable",
       "SELECT pHomCell, pHomEma, pHomPho1, pHomPho2, pHomFax, pHomPag, pHomCon, pBusCell, pBUSEma, pBusPho1, "
       "pBusPho2, "
       "pBusFax, pBusPag, pBusCon, pHomPho, pBusPho, pFirNam, pLasNam, pTTL FROM PATable WHERE pID=1 AND (OfficeID = "
       "1)",
       "UPDATE PATABLE SET pHomPho='1', pBusPho='2' WHERE (pID=1 AND (OfficeID=1))",
       "SELECT EBRenDat, EBWorStaTim, EBWorEndTim, EBWorTim, EBWorDay, EBReaCha, EBFulTimFla, EBAnnSicHou, "
       "EBAnnPerHou, "
       "EBWhoCre, EBDatCre FROM EBTable",
       "Delete from ESTable where ESTable.EBID = 1",
       "SELECT TimID, TimPid, TimInDat, TimTyp, AbsTimID FROM TimTable LEFT JOIN AbsTable ON AbsTimID=TimID",
       "SELECT PWMUseNam FROM PWMTable WHERE PWMID=1 and (OfficeID = 1) ",
       "Update PWMTable set OffLocID = 2, PWMPID=3, PWMPasWor='x' WHERE PWMID=1",
       "SELECT PWAAreOfPro, PWAReaFla, PWAWriFla, PWAFla1, PWAFla2 FROM PWATable WHERE PWAPWMID=1",
       "SELECT ealID, ealAccLoc FROM ealTable WHERE ealPWMID=1 AND ealOffLocID=1",
       "select EmpNam, EmpAdd1, EmpAdd2, EmpCIT, EmpSTA, EmpZIP, EmpTEL from empTable where EMPIND = 1",
       "Select InsCoNam, InsCoAdd1, InsCoAdd2, InsCoCit, InsCoSta, InsCoZip, InsCoTel, InsCoTel2, InsCoFax, InsCoRem1, "
       "InsCoRem2, InsCoEma, InsCoPreFix, InsCoAccID, InsCoSWChr, epPayID from InsCoTable where InsCoInd=1",
       "SELECT epNam, epAddInf FROM ePayerTable WHERE epPayID=1",
       "Select PhaNam, PhaAdd, PhaAdd1, PhaAdd2, PhaCit, PhaSta, PhaZip, PhaTel, PhaTel2, PhaFax, PhaEma, PhaRem, "
       "PhaRem1, PhaRem2 from PhaTable",
       "SELECT GroPlaEffDat, GroPlaMax1, GroPlaMax2, GroPlaMax3, GroPlaMax4, GroPlaDed1, GroPlaDed2, GroPlaForTyp, "
       "GroPlaPayTyp, GroPlaPreAutReq, GroPlaChiCovTil, GroPlaStuCovTil, GroPlaRem1, GroPlaRem2, GroPlaDedPct, "
       "GroPlaAppDedLas, GroPlaUseOffFee, GroPlaSubOffFee, GroPlaCOB FROM GroPlaTable",
       "SELECT CovInsCoPatID, CovRel, CovYTD, CovRemBal, CovRemDed, CovLastRenewalYear, CovStaDat, CovEndDat, "
       "CovEndWho, "
       "PatEmpStaDat, PatEmpEndDat, PatEmpEndWho FROM CovTable, PatEmpTable",
       "SELECT IPCodMod, IPPlaNam, IPPMax, IPPDEDAPP, IPPUCR, IPPPer, IPPPerNumTim, IPSFee, IPSCov, IPSMax, IPSDedApp, "
       "IPSUCR, IPSPer, IPSPerNumTim, IPStaDat, IPCodCat FROM IPTable",
       "Select sevcodFee, sevcodFee1, sevcodFee4, sevcodOffCod from SevCodTable WHERE SevCodCod='D0120' AND "
       "(OfficeID=1)",
       "SELECT rmtTexMes, rmtEMaMes, rmtVoiMes, rmtVoiMesSpanish, rmtTexAutRetMes, rmtEmaAutRetMes FROM "
       "ReminderMessageTable WHERE rmtID=1",
       "SELECT RCExcCod, RCLatPer6, RCLatPer6Let, RCLatPer6Msg, RCCutOffMsg, RCSetupFlag, RCIncSamDay, RCShoOnToDo "
       "FROM "
       "RSTable",
       "SELECT OffLocAd1, OffLocAd2, OffLocCit, OffLocSta, OffLocZip, OffLocPho, OffLocPho2, OffLocFax, OffLocEma, "
       "OffLocFacID, OffLocTIN, OffLocNPI, OffLocBanAccNum, OffLocBacClr, OffLocForClr FROM OffLocTable WHERE "
       "OffLocID=1 "
       "AND (OfficeID=1)",
       "SELECT rRecNum FROM RecTable WHERE rRCRecNum=1",
       "SELECT fMEMID, fRSPID FROM FamTable WHERE fRSPID=1",
       "DELETE * FROM ATTable WHERE ATDrID=1",
       "DELETE * FROM AOATable WHERE AOADrID=1",
       "SELECT * FROM ccTable",
       "DELETE * FROM TemplateTable WHERE tmpDrID=1 AND tmpTyp<>3"}) {
    EXPECT_NO_THROW(Run(statement)) << statement;
  }
}

INSTANTIATE_TEST_SUITE_P(Conformance, Screens, testing::ValuesIn(EveryEngine()), NameOfEngine);

}  // namespace
}  // namespace host
