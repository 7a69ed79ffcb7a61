#include "practice/copy_practice.h"

#include <optional>
#include <vector>

#include "data/literal.h"
#include "practice/copied_table.h"
#include "practice/copy_notes.h"

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
  RowWriter(PracticeDatabase& target, const CopyNotes& notes, const CopiedTable& table)
      : target_(target), notes_(notes), table_(table) {}

  // True when that brought rows to the target.
  bool Add(const CopiedTable::Row& row) {
    rows_.push_back({table_.PlaceOf(row), ValuesOf(row)});
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
    target_.Run("INSERT INTO " + std::string(table_.Of().name) + " (" + table_.Columns() + ") VALUES " + values);
  }
  // Names the first row that the target refuses by itself.
  void ThrowForRow() {
    for (const Written& row : rows_) {
      try {
        session::Transaction tried(*target_.connection);
        Insert(row.values);
      } catch (const session::DatabaseError& error) {
        throw session::DatabaseError("Record " + std::to_string(row.place.key) + " of office " +
                                         std::to_string(row.place.office) + " in " + std::string(table_.Of().name) +
                                         " cannot be copied: " + error.what(),
                                     error.Statement(), error.Code());
      }
    }
  }

  PracticeDatabase& target_;
  const CopyNotes& notes_;
  const CopiedTable& table_;
  std::vector<Written> rows_;
  std::size_t size_ = 0;
};

bool CopyRows(const PracticeDatabase& source, PracticeDatabase& target, const CopyNotes& notes,
              const CopiedTable& table, const WhileCopying& told) {
  CopyProgress progress{.table = table.Of().name};
  RowWriter writer(target, notes, table);
  bool goes_on = told(progress);
  if (goes_on) {
    table.Read(source, notes.Behind(table.Of()), [&](const CopiedTable::Row& row) {
      ++progress.rows;
      goes_on = !writer.Add(row) || told(progress);
      return goes_on;
    });
  }
  writer.Flush();
  progress.step = Step::Copied;
  return goes_on && told(progress);
}

// What both hold of a table. Nothing when it was stopped.
std::optional<bool> Compare(const PracticeDatabase& source, const PracticeDatabase& target, const CopiedTable& table,
                            const WhileCopying& told) {
  CopyProgress progress{.table = table.Of().name, .step = Step::Comparing};
  const auto goes_on = [&](std::int64_t rows) {
    progress.rows = rows;
    return told(progress);
  };
  const auto there = DigestOf(source, table, goes_on);
  const auto here = there ? DigestOf(target, table, goes_on) : std::nullopt;
  if (!here) {
    return std::nullopt;
  }
  progress.rows = here->rows;
  progress.step = Step::Same;
  if (*here != *there) {
    return false;
  }
  return told(progress) ? std::optional(true) : std::nullopt;
}

// Nothing when it was stopped; the tables that are not the same in both otherwise.
std::optional<std::string> Differences(const PracticeDatabase& source, PracticeDatabase& target, const CopyNotes& notes,
                                       const WhileCopying& told) {
  // Nobody writes to a file meanwhile.
  std::optional<session::Transaction> still;
  if (!source.connection->ReadOnly()) {
    still.emplace(*source.connection);
  }
  std::string differ;
  for (const Table& known : PracticeTables()) {
    const auto same = Compare(source, target, CopiedTable(known, source.options), told);
    if (!same) {
      return std::nullopt;
    }
    if (!*same) {
      notes.Forget(known);
      differ += (differ.empty() ? "" : ", ") + std::string(known.name);
    }
  }
  return differ;
}

void RaiseKeys(const PracticeDatabase& source, PracticeDatabase& target) {
  for (const Table& table : PracticeTables()) {
    const std::string last = source.schema->LastKey(table);
    const auto row = last.empty() ? nullptr : source.connection->Execute(last);
    if (row == nullptr || row->Eof() || session::ToId(row->Get(0)) <= 0) {
      continue;
    }
    for (const std::string& statement : target.schema->RaiseKeys(table, session::ToId(row->Get(0)))) {
      target.connection->Execute(statement);
    }
  }
}

}  // namespace

bool CopyPractice(const std::string& from, const std::string& to, const WhileCopying& told) {
  const PracticeDatabase source = OpenDatabase(from);
  CreationOptions options = source.options;
  options.group = source.access == Access::Group;
  PracticeDatabase target = OpenNewDatabase(to, options);
  const CopyNotes notes(target, source.options);
  for (const Table& table : PracticeTables()) {
    if (!CopyRows(source, target, notes, CopiedTable(table, source.options), told)) {
      return false;
    }
  }
  const auto differ = Differences(source, target, notes, told);
  if (!differ) {
    return false;
  }
  if (!differ->empty()) {
    throw session::DatabaseError("Not the same in both: " + *differ +
                                     ". The practice was written to meanwhile, or what was copied is damaged. The same "
                                     "command copies that anew.",
                                 {}, 0);
  }
  session::Transaction transaction(*target.connection);
  RaiseKeys(source, target);
  notes.Finish();
  transaction.Commit();
  return true;
}

}  // namespace host
