#include "lookup/delete_person.h"

#include <gtest/gtest.h>

#include "database/schema.h"
#include "support/practice_host.h"

namespace lookup {
namespace {

constexpr std::int32_t kPerson = 5;
constexpr std::int32_t kProvider = 7;
constexpr std::int32_t kSuccessor = 6;

// Two offices that are alike: a person, who is covered and covers another, and a provider with everything that is
// handed over.
void Fill(session::Connection& practice) {
  for (const std::string office : {"1", "2"}) {
    for (
        const char* row :
        {"PATable (pID, pLASNAM, pFIRNAM, pTypPat, pTypDoc, pPROIND, OfficeID) VALUES (5, 'Roe', 'Jane', '1', null, "
         "7, %), (6, 'Roe', 'Tim', '1', '1', null, %), (7, 'Hall', 'Eve', null, '1', 7, %)",
         "FamTable (fMEMID, fRSPID, OfficeID) VALUES (5, 5, %), (6, 5, %), (5, 7, %)",
         "PDLTable (pdlPID, OfficeID) VALUES (5, %), (6, %)",
         "eBusContactSequence (ebcpID, OfficeID) VALUES (5, %), (6, %)",
         "PatEmpTable (PatEmpID, PatEmpPatID, PatEmpOrd, PatEmpFla, OfficeID) VALUES (1, 5, 1, 0, %), (2, 5, 2, 0, %), "
         "(3, 6, 1, 0, %)",
         "CovTable (CovID, CovPatID, CovSubPatEmpID, CovOrd, CovFla, OfficeID) VALUES (1, 5, 1, 1, 0, %), (2, 5, 3, 2, "
         "0, %), (3, 6, 1, 1, 0, %), (4, 6, 3, 2, 0, %), (5, 6, 2, 3, 0, %)",
         "ATTable (ATDrID, OfficeID) VALUES (7, %)", "TemplateTable (tmpDrID, OfficeID) VALUES (7, %)",
         "opTable (OpPrefDrID, OfficeID) VALUES (7, %)", "AOATable (AOADrID, OfficeID) VALUES (7, %)",
         "ApTable (APDrID, APDat, OfficeID) VALUES (7, '2027-01-01 00:00:00', %)",
         "RecTable (rRecDoc, rRecDocID, OfficeID) VALUES ('Hall, Eve', 7, %)"}) {
      std::string statement = "INSERT INTO " + std::string(row);
      for (std::size_t at = 0; (at = statement.find('%')) != std::string::npos;) {
        statement.replace(at, 1, office);
      }
      practice.Execute(statement);
    }
  }
}

class Desk {
 public:
  Desk() : host_(host::CreatePractice("sqlite::memory:", {.kind = session::kOfficeScoped, .office = 2, .offices = 2})) {
    Fill(host_.session.Connection());
    host_.user.answers = [](const forms::Message& message) {
      return message.buttons == forms::kOkCancel ? forms::Answer::OK : message.Default();
    };
  }

  void Delete(DeleteFlow flow, std::int32_t id) { flow({host_.session, host_.user, screens_}, {}, {id, "Roe"}); }
  void Refuse(int number) {
    host_.session.hear = [this, left = number](const std::string& sql) mutable {
      if (--left == 0) {
        refused_ = sql;
        throw session::DatabaseError("refused", sql, 1);
      }
    };
  }
  // The statement of that number; empty when there were not so many.
  const std::string& Refused() const { return refused_; }
  void RefuseNothing() { host_.session.hear = nullptr; }

  std::string Rows() {
    std::string text;
    for (const host::Table& table : host::PracticeTables()) {
      if (table.name == host::kChangeLog) {
        continue;
      }
      text += std::string(table.name) + "\n";
      for (const auto row = host_.session.Connection().Execute("SELECT * FROM " + std::string(table.name)); !row->Eof();
           row->MoveNext()) {
        for (std::size_t i = 0; i < row->Fields().size(); ++i) {
          text += session::ToText(row->Get(i)) + "|";
        }
        text += "\n";
      }
    }
    return text;
  }

 private:
  struct ChoosingScreens : test_support::FakeScreens {
    session::ListOutcome ShowList(session::LookUpListTypes, const session::ListOptions&) override {
      return {.end = session::ListOutcome::End::Chosen, .id = kSuccessor};
    }
  };

  test_support::PracticeHost host_;
  ChoosingScreens screens_;
  std::string refused_;
};

// Whichever statement is refused, the same command then leaves what it leaves at once.
void ExpectFinishedByTheSameCommand(DeleteFlow flow, std::int32_t id, int least_statements) {
  Desk whole;
  const std::string before = whole.Rows();
  whole.Delete(flow, id);
  ASSERT_NE(whole.Rows(), before);
  for (int number = 1;; ++number) {
    Desk desk;
    desk.Refuse(number);
    desk.Delete(flow, id);
    if (desk.Refused().empty()) {
      EXPECT_GE(number, least_statements);
      return;
    }
    desk.RefuseNothing();
    desk.Delete(flow, id);
    ASSERT_EQ(desk.Rows(), whole.Rows()) << desk.Refused();
  }
}

TEST(DeletePerson, IsFinishedByTheSameCommandWhereverItStopped) {
  ExpectFinishedByTheSameCommand(DeleteFamilyHead, kPerson, 20);
}

TEST(DeletePerson, HandsAProvidersWorkOverByTheSameCommandWhereverItStopped) {
  ExpectFinishedByTheSameCommand(DeleteProvider, kProvider, 8);
}

}  // namespace
}  // namespace lookup
