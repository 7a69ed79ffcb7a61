#include "practice/copy_practice.h"

#include <optional>
#include <vector>

#include "data/literal.h"
#include "practice/copied_table.h"
#include "practice/copy_extras.h"
#include "practice/copy_notes.h"
#include "practice/record_locks.h"

namespace host {
namespace {

using Step = CopyProgress::Step;

// Statements of this many characters cost little more to run than larger ones.
constexpr std::size_t kStatementSize = 60000;

std::string ValuesOf(const CopiedTable::Row& row) {
  std::string text;
  for (const session::Value& value : row) {
    text += (text.empty() ? "(" : ", ") + data::ValueLiteral(value).Text();
  }
  return text + ")";
}

// Brings rows to the target, many a transaction, each with the note of how far it came.
class RowWriter {
 public:
  RowWriter(const PracticeDatabase& target, const CopyNotes& notes, const CopiedTable& table)
      : target_(target), notes_(notes), table_(table) {}

  // True when that brought rows to the target.
  bool Add(const CopiedTable::Row& row) {
    rows_.push_back({CopiedTable::PlaceOf(row), ValuesOf(row)});
    size_ += rows_.back().values.size();
    return size_ > kStatementSize && Flush();
  }
  bool Flush() {
    if (rows_.empty()) {
      return false;
    }
    std::string values;
    for (const Written& row : rows_) {
      values += (values.empty() ? "" : ", ") + row.values;
    }
    try {
      session::Transaction transaction(*target_.connection);
      Insert(values);
      notes_.Note(table_.Of(), rows_.back().place);
      transaction.Commit();
    } catch (const session::DatabaseError& error) {
      if (!error.ConnectionLost()) {
        ThrowForRow();
      }
      throw;
    }
    rows_.clear();
    size_ = 0;
    return true;
  }

 private:
  struct Written {
    RowPlace place;
    std::string values;
  };

  void Insert(const std::string& values) {
    target_.Run("INSERT INTO " + std::string(table_.Of().name) + " (" + table_.Names() + ") VALUES " + values);
  }
  // Names the first row that the target refuses by itself.
  void ThrowForRow() {
    for (const Written& row : rows_) {
      try {
        session::Transaction tried(*target_.connection);
        Insert(row.values);
      } catch (const session::DatabaseError& error) {
        throw session::DatabaseError(
            std::string(table_.Of().name) + ": " + row.place.Named() + " cannot be copied: " + error.what(),
            error.Statement(), error.Code());
      }
    }
  }

  const PracticeDatabase& target_;
  const CopyNotes& notes_;
  const CopiedTable& table_;
  std::vector<Written> rows_;
  std::size_t size_ = 0;
};

bool CopyRows(const PracticeDatabase& source, const PracticeDatabase& target, const CopyNotes& notes,
              const CopiedTable& table, const WhileCopying& told) {
  CopyProgress progress{.table = table.Of().name};
  RowWriter writer(target, notes, table);
  bool goes_on = told(progress);
  if (goes_on) {
    auto rows = table.Read(source, notes.Behind(table.Of()));
    for (auto row = rows.Next(); goes_on && row; row = rows.Next()) {
      ++progress.rows;
      goes_on = !writer.Add(*row) || told(progress);
    }
  }
  writer.Flush();
  progress.step = Step::Copied;
  return goes_on && told(progress);
}

// Nothing when it was stopped; otherwise where the tables that are not the same in both first differ.
std::optional<std::string> Differences(const PracticeDatabase& source, const PracticeDatabase& target,
                                       const CopyNotes& notes, std::optional<std::int32_t> office,
                                       const WhileCopying& told) {
  // Nobody writes to a file meanwhile; a server, where many work, is read as it is.
  std::optional<session::Transaction> still;
  if (!source.connection->ReadOnly() && !source.connect && !source.connect_in) {
    still.emplace(*source.connection);
  }
  std::string differ;
  for (const Table& known : PracticeTables()) {
    CopyProgress progress{.table = known.name, .step = Step::Comparing};
    const auto compared = Compare(source, target, CopiedTable(known, source.options, office), [&](std::int64_t rows) {
      progress.rows = rows;
      return told(progress);
    });
    if (!compared) {
      return std::nullopt;
    }
    if (!compared->difference.empty()) {
      notes.Forget(known);
      differ += (differ.empty() ? "" : ", ") + std::string(known.name) + " (" + compared->difference + ")";
      continue;
    }
    progress.rows = compared->rows;
    progress.step = Step::Same;
    if (!told(progress)) {
      return std::nullopt;
    }
  }
  return differ;
}

struct HandedOut {
  const Table& table;
  std::int32_t last;
};

// The last keys that the source has handed out, which its owner alone may see. Others do not see all rows either.
std::vector<HandedOut> LastKeys(const PracticeDatabase& source) {
  std::vector<HandedOut> keys;
  for (const Table& table : PracticeTables()) {
    const std::string last = source.schema->LastKey(table);
    try {
      const auto row = last.empty() ? nullptr : source.connection->Execute(last);
      if (row != nullptr && !row->Eof() && session::ToId(row->Get(0)) > 0) {
        keys.push_back({table, session::ToId(row->Get(0))});
      }
    } catch (const session::DatabaseError& error) {
      if (error.ConnectionLost()) {
        throw;
      }
      throw session::DatabaseError(
          std::string("This practice can be copied by the owner of its tables alone: ") + error.what(),
          error.Statement(), error.Code());
    }
  }
  return keys;
}

void RaiseKeys(const PracticeDatabase& source, const PracticeDatabase& target) {
  for (const auto& [table, last] : LastKeys(source)) {
    for (const std::string& statement : target.schema->RaiseKeys(table, last)) {
      target.connection->Execute(statement);
    }
  }
}

// What is made of it has no other office.
void EnterOffice(PracticeDatabase& source, std::int32_t office) {
  if (source.options.kind != session::kOfficeScoped) {
    throw session::DatabaseError("The practice has one office. Please name none.", {}, 0);
  }
  if (source.enter_office) {
    source.enter_office(office);
  }
  if (source.Run("SELECT OfficeID FROM OffLocTable WHERE OfficeID=" + std::to_string(office))->Eof()) {
    throw session::DatabaseError("The practice has no office " + std::to_string(office) + ".", {}, 0);
  }
  source.options.office = office;
  source.options.offices = 0;
}

}  // namespace

bool CopyPractice(const std::string& from, const std::string& to, const WhileCopying& told,
                  std::optional<std::int32_t> office) {
  PracticeDatabase source = OpenDatabase(from);
  if (office) {
    EnterOffice(source, *office);
  } else if (source.connect_in) {
    throw session::DatabaseError("A group of practices is copied office by office. Please name one (--office N).", {},
                                 0);
  }
  (void)LastKeys(source);
  for (const std::string& left : LeftBehind(source)) {
    if (!told({.table = left, .step = Step::LeftBehind})) {
      return false;
    }
  }
  CreationOptions options = source.options;
  options.group = source.access == Access::Group;
  Practice practice(OpenNewDatabase(to, options));
  const OfficeDatabase copy(practice, options.office);
  RecordLocks locks(copy, "copy");
  if (locks.Hold("CopyTable", 1)) {
    throw session::DatabaseError("Another copy into this database is under way.", {}, 0);
  }
  const PracticeDatabase& target = practice.Database();
  const CopyNotes notes(target, source.options);
  for (const Table& table : PracticeTables()) {
    if (!CopyRows(source, target, notes, CopiedTable(table, source.options, office), told)) {
      return false;
    }
  }
  const auto differ = Differences(source, target, notes, office, told);
  if (!differ) {
    return false;
  }
  if (!differ->empty()) {
    throw session::DatabaseError(
        "Not the same in both: " + *differ +
            ". The practice was written to meanwhile, or holds a value there that the other "
            "database keeps as another, such as a date that is none. The same command copies "
            "these tables anew; where it names the same records again, please mend them first.",
        {}, 0);
  }
  session::Transaction transaction(*target.connection);
  CopyRecallBackup(source, target, office);
  RaiseKeys(source, target);
  notes.Finish();
  transaction.Commit();
  return true;
}

}  // namespace host
