#include "practice/link_check.h"

#include <utility>
#include <vector>

#include "data/employer_places.h"
#include "data/families.h"
#include "data/holdings.h"
#include "data/literal.h"
#include "data/persons.h"
#include "data/plan_links.h"
#include "data/statements.h"

namespace host {
namespace {

using data::Literal;
using data::Sql;

class LinkCheck {
 public:
  LinkCheck(session::Session& session, bool mend, const std::function<void(const std::string& fault)>& tell)
      : session_(session), statements_(session), mend_(mend), tell_(tell) {}

  // What opens coverages comes before what looks for their holdings, and so on to the orders of all.
  void Run() {
    CheckEndedCoverages();
    CheckEndedHoldings();
    CheckHoldingsOnEndedLinks();
    CheckOrders(data::Holdings::kColumns, "holdings");
    CheckOrders(data::Coverages::kColumns, "coverages");
    for (const data::Words slot : data::kEmployerPlaces) {
      CheckEmployersOfPersons(slot);
    }
    CheckCarriers("GroPlaTable", "GroPlaInd", "GroPlaInsID", "Group plan ");
    CheckCarriers("IPTable", "IPRecNum", "IPInsCoID", "Plan detail ");
    CheckHeads();
    CheckFamilyRows();
  }

 private:
  using Row = std::vector<session::Value>;

  std::vector<Row> Rows(const Sql& select) const {
    std::vector<Row> rows;
    const auto read = statements_.Select(select);
    while (!read->Eof()) {
      auto more = read->GetRows(100);
      std::ranges::move(more, std::back_inserter(rows));
    }
    return rows;
  }

  void Tell(const std::string& what, const std::function<void()>& mending) const {
    if (mend_) {
      mending();
    }
    tell_(what);
  }

  // "Reed, Ann [7]: "
  std::string Of(const session::Value& person) const {
    return data::NameOfPerson(statements_, session::ToId(person)) + " [" + session::ToText(person) + "]: ";
  }

  // Each makes room for another one, which may be there.
  void CheckEndedCoverages() const {
    const data::OrderedRows coverages(session_, data::Coverages::kColumns);
    for (const Row& row : Rows("SELECT CovID, CovPatID, CovOrd, CovRel FROM CovTable WHERE (CovFla=" +
                               Literal(data::OrderedRows::kEnding) + ")" + statements_.Office())) {
      const session::Value successor = statements_.SelectValue(
          "SELECT CovID FROM CovTable WHERE (CovPatID=" + Literal(session::ToId(row[1])) +
          ") AND (CovOrd=" + Literal(session::ToId(row[2])) + ") AND (CovRel=" + Literal(session::ToId(row[3])) +
          ") AND (CovFla=0)" + statements_.Office());
      Tell(Of(row[1]) + "the change of coverage " + session::ToText(row[0]) + " was broken off.", [&] {
        session::IsNull(successor) ? coverages.OpenAgain(session::ToId(row[0]))
                                   : coverages.SetEnded(session::ToId(row[0]));
      });
    }
  }

  void CheckEndedHoldings() const {
    const data::OrderedRows holdings(session_, data::Holdings::kColumns);
    for (const Row& row :
         Rows("SELECT PatEmpID, PatEmpPatID, PatEmpFla FROM PatEmpTable WHERE (PatEmpFla<>0) AND ((PatEmpFla=" +
              Literal(data::OrderedRows::kEnding) +
              ") OR EXISTS (SELECT CovID FROM CovTable WHERE (CovTable.CovSubPatEmpID = PatEmpTable.PatEmpID) AND "
              "(CovTable.CovFla=0)" +
              statements_.OfficeJoin(" and (CovTable.OfficeID = PatEmpTable.OfficeID) ") + "))" +
              statements_.Office(" and (PatEmpTable.OfficeID = ", ") "))) {
      const std::string holding = "holding " + session::ToText(row[0]);
      Tell(Of(row[1]) + (session::ToId(row[2]) == data::OrderedRows::kEnding
                             ? "the change of " + holding + " was broken off."
                             : holding + " has ended, but patients are still covered through it."),
           [&] { holdings.OpenAgain(session::ToId(row[0])); });
    }
  }

  // They go to a live link to the same plan, which is made where there is none; where its records are gone they end.
  void CheckHoldingsOnEndedLinks() const {
    const data::Holdings holdings(session_);
    const data::PlanLinks links(session_);
    for (const Row& row :
         Rows(Sql("SELECT PatEmpTable.PatEmpID, PatEmpTable.PatEmpPatID, PatEmpTable.PatEmpElID FROM PatEmpTable INNER "
                  "JOIN ELTable ON PatEmpTable.PatEmpElID = ELTable.elID") +
              statements_.OfficeJoin(" and (PatEmpTable.OfficeID = ELTable.OfficeID) ") +
              " WHERE (PatEmpTable.PatEmpFla=0) AND (ELTable.elFla<>0)" +
              statements_.Office(" and (PatEmpTable.OfficeID = ", ") "))) {
      Tell(Of(row[1]) + "holding " + session::ToText(row[0]) + " is of plan link " + session::ToText(row[2]) +
               ", which has ended.",
           [&] {
             const auto link = links.Get(session::ToId(row[2]));
             if (!link || !IsThere(*link)) {
               holdings.Remove(session::ToId(row[0]));
             } else {
               holdings.Change(session::ToId(row[1]), link->id,
                               links.Open(link->employer, link->carrier, link->plan, link->start));
             }
           });
    }
  }

  bool IsThere(data::Words table, data::Words key, std::int32_t id) const {
    return !session::IsNull(statements_.SelectValue(Sql("SELECT ") + key + " FROM " + table + " WHERE (" + key + "=" +
                                                    Literal(id) + ")" + statements_.Office()));
  }
  bool IsThere(const data::PlanLink& link) const {
    return IsThere("EmpTable", "EmpInd", link.employer) &&
           (link.carrier == 0 || IsThere("InsCoTable", "InsCoInd", link.carrier)) &&
           (link.plan == 0 || IsThere("GroPlaTable", "GroPlaInd", link.plan));
  }

  void CheckOrders(const data::OrderedRows::Columns& columns, std::string_view called) const {
    const data::OrderedRows all(session_, columns);
    struct Owner {
      session::Value id;
      std::vector<std::pair<std::int32_t, std::int32_t>> rows;  // ID and order
    };
    std::vector<Owner> wrong;
    Owner owner;
    const auto next = [&](session::Value id) {
      for (std::size_t i = 0; i < owner.rows.size(); ++i) {
        if (owner.rows[i].second != static_cast<std::int32_t>(i) + 1) {
          wrong.push_back(owner);
          break;
        }
      }
      owner = {std::move(id), {}};
    };
    for (const auto row =
             statements_.Select(Sql("SELECT ") + columns.owner + ", " + columns.key + ", " + columns.order + " FROM " +
                                columns.table + " WHERE (" + columns.flag + "=0)" + statements_.Office() +
                                " ORDER BY " + columns.owner + ", " + columns.order + ", " + columns.key);
         !row->Eof(); row->MoveNext()) {
      if (session::ToId(row->Get(0)) != session::ToId(owner.id)) {
        next(row->Get(0));
      }
      owner.rows.emplace_back(session::ToId(row->Get(1)), session::ToId(row->Get(2)));
    }
    next({});
    for (const Owner& counted : wrong) {
      std::string orders;
      for (const auto& [id, order] : counted.rows) {
        orders += (orders.empty() ? "" : ", ") + std::to_string(order);
      }
      Tell(Of(counted.id) + "the " + std::string(called) + " stand in the orders " + orders + ".", [&] {
        std::int32_t order = 0;
        for (const auto& [id, was] : counted.rows) {
          all.SetOrder(id, ++order);
        }
      });
    }
  }

  // To a live link to the same plan, or to the employer's own; nowhere where the employer is gone.
  void CheckEmployersOfPersons(data::Words slot) const {
    const data::PlanLinks links(session_);
    for (const Row& row :
         Rows(Sql("SELECT PATable.pID, ELTable.elID FROM PATable INNER JOIN ELTable ON PATable.") + slot +
              " = ELTable.elID" + statements_.OfficeJoin(" and (PATable.OfficeID = ELTable.OfficeID) ") +
              " WHERE (ELTable.elFla<>0)" + statements_.Office(" and (PATable.OfficeID = ", ") "))) {
      Tell(Of(row[0]) + "works where plan link " + session::ToText(row[1]) + " has ended.", [&] {
        std::int32_t instead = 0;
        if (const auto link = links.Get(session::ToId(row[1])); link && IsThere("EmpTable", "EmpInd", link->employer)) {
          instead = IsThere(*link) ? links.Open(link->employer, link->carrier, link->plan, link->start)
                                   : links.OpenNone(link->employer);
        }
        statements_.Update("PATable", {{slot, Literal(instead)}}, "pID", session::ToId(row[0]));
      });
    }
  }

  // They go with the carrier that they belong to.
  void CheckCarriers(data::Words table, data::Words key, data::Words carrier, std::string_view called) const {
    for (const Row& row :
         Rows(Sql("SELECT ") + table + "." + key + ", " + table + "." + carrier + " FROM " + table +
              " LEFT JOIN InsCoTable ON " + table + "." + carrier + " = InsCoTable.InsCoInd" +
              (statements_.OfficeScoped() ? Sql(" and (") + table + ".OfficeID = InsCoTable.OfficeID) " : Sql()) +
              " WHERE (InsCoTable.InsCoInd Is Null) AND (" + table + "." + carrier + "<>0)" +
              (statements_.OfficeScoped()
                   ? Sql(" and (") + table + ".OfficeID = " + Literal(session_.CurrentOfficeID()) + ") "
                   : Sql()))) {
      Tell(std::string(called) + session::ToText(row[0]) + ": its carrier " + session::ToText(row[1]) + " is gone.",
           [&] {
             statements_.Execute(Sql("DELETE * FROM ") + table + " WHERE " + key + "=" +
                                 Literal(session::ToId(row[0])) + statements_.Office());
           });
    }
  }

  // A family whose head is gone gets another; one who is named by others heads himself.
  void CheckHeads() const {
    const data::Families families(session_);
    for (const Row& row :
         Rows(Sql("SELECT Member.pID, Member.pFAMHEAIND, Head.pID FROM PATable AS Member LEFT JOIN PATable AS Head ON "
                  "Member.pFAMHEAIND = Head.pID") +
              statements_.OfficeJoin(" and (Member.OfficeID = Head.OfficeID) ") +
              " WHERE (Member.pFAMHEAIND<>0) AND ((Head.pID Is Null) OR ((Head.pFAMHEAIND<>0) AND "
              "(Head.pFAMHEAIND<>Head.pID)))" +
              statements_.Office(" and (Member.OfficeID = ", ") ") + " ORDER BY Member.pID")) {
      const std::int32_t head = session::ToId(row[1]);
      const bool gone = session::IsNull(row[2]);
      Tell(Of(row[0]) + "the head of the family, " + session::ToText(row[1]) + ", is " +
               (gone ? "gone." : "a member of another one."),
           [&] {
             if (families.HeadOf(session::ToId(row[0])) == head) {  // one before may have put it right
               families.Make(gone ? families.MakingHead(session::ToId(row[0])) : data::Families::HeadingHimself(head));
             }
           });
    }
  }

  void CheckFamilyRows() const {
    const data::Families families(session_);
    for (const Row& row :
         Rows(Sql("SELECT DISTINCT PATable.pID FROM PATable LEFT JOIN FamTable ON PATable.pID = FamTable.fMEMID") +
              statements_.OfficeJoin(" and (PATable.OfficeID = FamTable.OfficeID) ") +
              " WHERE ((FamTable.fRSPID<>PATable.pFAMHEAIND) AND (PATable.pFAMHEAIND<>0) OR "
              "(FamTable.fRSPID<>PATable.pID) AND ((PATable.pFAMHEAIND Is Null) OR (PATable.pFAMHEAIND=0)) OR "
              "(FamTable.fRSPID Is Null) AND (PATable.pFAMHEAIND<>0) AND (PATable.pTypPat>='1'))" +
              statements_.Office(" and (PATable.OfficeID = ", ") "))) {
      Tell(Of(row[0]) + "the family row is missing or tells another family.",
           [&] { families.Make(families.Adding(session::ToId(row[0]), session::ToId(row[0]))); });
    }
    for (const Row& row :
         Rows(Sql("SELECT DISTINCT FamTable.fMEMID FROM FamTable LEFT JOIN PATable ON FamTable.fMEMID "
                  "= PATable.pID") +
              statements_.OfficeJoin(" and (FamTable.OfficeID = PATable.OfficeID) ") + " WHERE (PATable.pID Is Null)" +
              statements_.Office(" and (FamTable.OfficeID = ", ") "))) {
      Tell("Person " + session::ToText(row[0]) + " is gone, but has a family row.",
           [&] { families.Remove(session::ToId(row[0])); });
    }
  }

  session::Session& session_;
  data::Statements statements_;
  bool mend_;
  const std::function<void(const std::string& fault)>& tell_;
};

}  // namespace

void CheckLinks(session::Session& session, bool mend, const std::function<void(const std::string& fault)>& tell) {
  LinkCheck(session, mend, tell).Run();
}

}  // namespace host
