#include "data/shared_record_texts.h"

#include <stdexcept>
#include <vector>

#include "data/literal.h"
#include "data/plan_links.h"

namespace data {
namespace {

struct Line {
  std::string label;
  std::string value;
};
using Lines = std::vector<Line>;

struct Phrases {
  std::string subject;          // what was replaced or deleted
  std::string category;         // of the log
  std::string heading;          // above the old and the new record
  std::string name_label = {};  // of the name of one that was replaced
  // Of one that was deleted.
  std::string deleted_id_label = {};
  std::string deleted_name_label = {};
};

Phrases PhrasesOf(SharedRecord kind) {
  switch (kind) {
    case SharedRecord::Employer:
      return {"The following employer", "LogEmp", "Employer", "Name : ", "Employer ID Number : ", "Employer Name : "};
    case SharedRecord::Carrier:
      return {"The following insurance company",
              "LogInsCo",
              "Insurance Company",
              "Name : ",
              "ID Number : ",
              "Insurance Company : "};
    case SharedRecord::GroupPlan:
      return {"The following group plan", "LogIP", "Group Plan", "Group Number : ", "ID Number : ", "Group Number : "};
    case SharedRecord::PlanLink:
      return {.subject = "Insurance coverage for the following employer", .category = "LogEmp", .heading = "Plan"};
    case SharedRecord::Pharmacy:
      break;
  }
  throw std::out_of_range("nobody is told of pharmacies");
}

session::LogEntry Entry(session::Session& session, const Phrases& phrases, const std::string& done,
                        const Lines& lines) {
  const forms::DateTime now = session.Now();
  std::string text = phrases.subject + " was " + done + " by user " + session.UserName() + " on " +
                     forms::FormatSlashed(forms::DateOf(now)) + " at " + forms::FormatTime(now) + ".";
  for (const Line& line : lines) {
    text += "\r\n" + line.label + line.value;
  }
  return {session::LogKind::Comment, phrases.category, 0, text};
}

Lines PlanLines(const LinkNames& link) {
  return {{"Insurance Company : ", link.carrier}, {"Group Number : ", link.group_number}};
}

// The one column that a log tells a record by, beside its ID.
std::string ToldName(const Statements& statements, SharedRecord kind, std::int32_t id) {
  const Words column = kind == SharedRecord::Employer  ? Words("EmpNam")
                       : kind == SharedRecord::Carrier ? Words("InsCoNam")
                                                       : Words("GroPlaGroNum");
  const auto [table, key] = TableOf(kind);
  return session::ToText(statements.SelectValue(Sql("SELECT ") + column + " FROM " + table + " WHERE " + key + "=" +
                                                Literal(id) + statements.Office()));
}

// "first [second]", or the one of them that is there.
std::string WithNumber(const std::string& first, const std::string& second) {
  return first.empty() || second.empty() ? first + second : first + " [" + second + "]";
}

}  // namespace

std::optional<std::string> NameOf(session::Session& session, SharedRecord kind, std::int32_t id) {
  if (kind == SharedRecord::PlanLink) {
    const PlanLinks links(session);
    const LinkNames names = links.NamesOf(id);
    return links.Get(id) ? std::optional(WithNumber(names.carrier, names.group_number)) : std::nullopt;
  }
  const Statements statements(session);
  const Words columns = kind == SharedRecord::GroupPlan  ? Words("GroPlaNam, GroPlaGroNum")
                        : kind == SharedRecord::Carrier  ? Words("InsCoNam")
                        : kind == SharedRecord::Employer ? Words("EmpNam")
                                                         : Words("PhaNam");
  const auto [table, key] = TableOf(kind);
  const auto row = statements.Select(Sql("SELECT ") + columns + " FROM " + table + " WHERE " + key + "=" + Literal(id) +
                                     statements.Office());
  if (row->Eof()) {
    return std::nullopt;
  }
  return WithNumber(session::ToText(row->Get(0)),
                    row->Fields().size() > 1 ? session::ToText(row->Get(1)) : std::string());
}

session::LogEntry ReplacedEntry(session::Session& session, SharedRecord kind, std::int32_t old_id,
                                std::int32_t new_id) {
  const Statements statements(session);
  const PlanLinks links(session);
  const Phrases phrases = PhrasesOf(kind);
  Lines lines;
  const auto add = [&](const std::string& which, std::int32_t id) {
    lines.push_back({"---- " + which + " " + phrases.heading + " ----", ""});
    if (kind == SharedRecord::PlanLink) {
      const Lines more = PlanLines(links.NamesOf(id));
      lines.insert(lines.end(), more.begin(), more.end());
      return;
    }
    lines.push_back({"ID Number : ", std::to_string(id)});
    lines.push_back({phrases.name_label, ToldName(statements, kind, id)});
  };
  if (kind == SharedRecord::PlanLink) {
    lines.push_back({"Employer : ", links.NamesOf(old_id).employer});
  }
  add("Original", old_id);
  add("New", new_id);
  return Entry(session, phrases, "replaced", lines);
}

session::LogEntry DeletedEntry(session::Session& session, SharedRecord kind, std::int32_t id) {
  const Phrases phrases = PhrasesOf(kind);
  if (kind == SharedRecord::PlanLink) {
    const LinkNames link = PlanLinks(session).NamesOf(id);
    Lines lines = PlanLines(link);
    lines.insert(lines.begin(), {"Employer : ", link.employer});
    return Entry(session, phrases, "removed", lines);
  }
  return Entry(session, phrases, "deleted",
               {{phrases.deleted_id_label, std::to_string(id)},
                {phrases.deleted_name_label, ToldName(Statements(session), kind, id)}});
}

}  // namespace data
