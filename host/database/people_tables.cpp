#include "database/tables.h"

namespace host::tables {
namespace {

Table Persons() {
  return {
      .name = "PATable",
      .key = "pID",
      .columns = {Int("pID"), Text("pLASNAM", kName), Text("pFIRNAM", kName), Text("pNICNAM", kName), Text("pTTL", 20),
                  Text("pProTTL", 20), Text("pSeaNam", 2 * kName), Text("pADD1", kStreet), Text("pADD2", kStreet),
                  Text("pCIT", kCity), Text("pSTA", kState), Text("pZIP", kZip), Text("pSSN", 11), Text("pSEX", 1),
                  Moment("pBIRDAT"),
                  // The shown value of each side: whichever of its six contacts is chosen, so as wide as the widest.
                  Text("pHOMPHO", kEmail), Text("pBUSPHO", kEmail), Text("pHomPho1", kPhone), Text("pBusPho1", kPhone),
                  Text("pHomPho2", kPhone), Text("pBusPho2", kPhone), Text("pHomFax", kPhone), Text("pBusFax", kPhone),
                  Text("pHomCell", kPhone), Text("pBusCell", kPhone), Text("pHomPag", kPhone), Text("pBusPag", kPhone),
                  Text("pHomEma", kEmail), Text("pBusEma", kEmail), Text("pHomCon", 10), Text("pBusCon", 10),
                  // Person types: "1" or "2" is set.
                  Text("pTypPat", 1), Text("pTypDoc", 1), Text("pTypRef", 1), Text("pTypPhy", 1), Text("pTypEmp", 1),
                  Text("pTypX1", 1), Text("pTypX2", 1), Int("pFAMHEAIND"), Moment("pDatRel"), Int("pEmpID1"),
                  Int("pEmpID2"), Int("pEmpID3"), Int("pEmpID4"), Money("pPriBal"), Money("pPriDed"), Money("pPriYTD"),
                  SmallInt("pPriRenFla"), Money("pSecBal"), Money("pSecDed"), Money("pSecYTD"), SmallInt("pSecRenFla"),
                  Real("pInsPct"), Int("pPROIND"), Int("pREFIND"), Int("pPHY1"), Int("pPHY2"), Text("pDocIni", 5),
                  Text("pDOCLIC", 20), Text("pDOCEIN", 15), Text("pDOCREM1", kRemark), Text("pDOCREM2", kRemark),
                  Text("pDOCREM3", kRemark), Text("pDOCSPE", 40), Text("pDOCTAX", 15), Moment("pDOCDATEMP"),
                  Text("pDOCMEDNUM", 20), SmallInt("pDOCFeeTyp"), Text("pDRILIC", 20), Text("pCRECARTYP", 20),
                  Secret("pCRECARNUM", 25), Text("pBILTTL", 40), Moment("pNEXSTADAT"), Text("pACCTYP", 10),
                  SmallInt("pGPDenFeeTyp"), SmallInt("pGPDenFeeTypPerm"), Text("pCLITYP1", 10), Text("pMEDALE", 255),
                  Moment("pMEDALEUPD"), Int("pPhaID"), SmallInt("pSrtFlg"), SmallInt("pHidZEP"), Int("OffLocID")},
      .indexes = {{"pLASNAM, pFIRNAM"},
                  {"pFIRNAM"},
                  {"pFAMHEAIND"},
                  {"pREFIND"},
                  {"pPROIND"},
                  {"pEmpID1"},
                  {"pPhaID"},
                  {"pSSN"},
                  {"pTypDoc", "pTypDoc IS NOT NULL"},
                  {"pTypRef", "pTypRef IS NOT NULL"},
                  {"pTypPhy", "pTypPhy IS NOT NULL"},
                  {"pTypEmp", "pTypEmp IS NOT NULL"},
                  {"pDocIni", "pDocIni IS NOT NULL"},
                  {.columns = "pFIRNAM, pLASNAM", .since = 5},
                  {.columns = "pBIRDAT", .since = 5},
                  {.columns = "pEmpID2", .where = "pEmpID2 IS NOT NULL", .since = 6},
                  {.columns = "pEmpID3", .where = "pEmpID3 IS NOT NULL", .since = 6},
                  {.columns = "pEmpID4", .where = "pEmpID4 IS NOT NULL", .since = 6},
                  PhoneDigits("pHOMPHO", "pHOMPHO IS NOT NULL"),
                  LocalDigits("pHOMPHO", "pHOMPHO IS NOT NULL"),
                  PhoneDigits("pBUSPHO", "pBUSPHO IS NOT NULL"),
                  LocalDigits("pBUSPHO", "pBUSPHO IS NOT NULL"),
                  PhoneDigits("pHomCell", "pHomCell IS NOT NULL"),
                  LocalDigits("pHomCell", "pHomCell IS NOT NULL"),
                  PhoneDigits("pBusCell", "pBusCell IS NOT NULL"),
                  LocalDigits("pBusCell", "pBusCell IS NOT NULL")},
      .row_guid = true,
      .logged = true,
  };
}

}  // namespace

std::vector<Table> People() {
  return {
      Persons(),
      {.name = "FamTable",
       .key = "fID",
       .columns = {Int("fID"), Int("fMEMID"), Int("fRSPID")},
       .indexes = {{"fRSPID, fMEMID"}, {"fMEMID"}}},
      {.name = "ZipCodTable",
       .key = "ZipCodID",
       .columns = {Int("ZipCodID"), Text("ZipCodZip", kZip), Text("ZipCodCit", kCity), Text("ZipCodSta", kState)},
       .indexes = {{.columns = "ZipCodCit, ZipCodZip", .since = 2}, {.columns = "ZipCodZip, ZipCodCit", .since = 2}}},
      {.name = "IDTypTable",
       .key = "IDTypAutoID",
       .columns = {Int("IDTypAutoID"), Int("IDTypID"), Text("IDTypDes", 60)}},
      {.name = "DrIDTable",
       .key = "DrIDID",
       .columns = {Int("DrIDID"), Int("DrIDpID"), Int("DrIDTypID"), Text("DrIDVal", 30)},
       .indexes = {{"DrIDpID"}}},
      {.name = "PDLTable",
       .key = "pdlID",
       .columns = {Int("pdlID"), Int("pdlPID"), Int("pdlOffLocID"), Flag("pdlShoInLoc")},
       .indexes = {{"pdlPID, pdlOffLocID"}}},
      {.name = "ccTable",
       .key = "ccID",
       .columns = {Int("ccID"), Int("ccPid"), Text("ccTyp", 20), Text("ccLasFou", 4), Text("ccExp", 7),
                   Text("ccTok", 80)},
       .indexes = {{"ccPid"}}},
      {.name = "NoteTable", .key = "nID", .columns = {Int("nID"), Memo("nNote")}},
      {.name = "pNoteTable",
       .key = "pNotID",
       .columns = {Int("pNotID"), Int("pNotPid"), Int("pNotNID"), Text("pNotTyp", 10), Number("pNotTraLinID"),
                   Moment("pNotDat")},
       .indexes = {{"pNotPid"}}},
  };
}

}  // namespace host::tables
