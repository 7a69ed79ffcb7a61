#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "database/database.h"

namespace host {

// A place for one practice of an engine, gone with the test.
class TestedPlace {
 public:
  virtual ~TestedPlace() = default;
  // Where a practice can be made, or is.
  virtual std::string Url() = 0;
  virtual PracticeDatabase MakePractice(const CreationOptions& options) { return CreateDatabase(Url(), options); }
};

// A kind of databases, and in what its nature differs where the suite lets engines differ.
struct TestedEngine {
  std::string name;
  std::function<std::unique_ptr<TestedPlace>()> fresh;
  std::string explain;  // before a statement: answers its plan, in each row's last field
  // Has it go by indexes however little the tables hold, and by those of an order before it sorts.
  std::string plans_by_indexes = {};
  std::string plans_by_order = {};
  bool shared = true;             // several connections may have one practice open
  bool one_writer = false;        // a transaction keeps every other one waiting, not only those of its rows
  bool whole_batches = false;     // a batch of which a statement fails leaves nothing
  bool refuses_misfits = true;    // a text beyond its column's size, a number beyond its range
  bool stores_any_bytes = false;  // a zero character within a text, and text of other programs that is not UTF-8
};

// The engines that the suite runs on; `Shared` leaves out those that live within one connection.
std::vector<TestedEngine> EveryEngine();
std::vector<TestedEngine> SharedEngines();
std::string NameOfEngine(const testing::TestParamInfo<TestedEngine>& engine);

// A test on an engine, with a practice of its own.
class OnEngine : public testing::TestWithParam<TestedEngine> {
 protected:
  OnEngine() : place_(GetParam().fresh()) {}

  // Another one in place of that before.
  void MakePractice(const CreationOptions& options = {});
  PracticeDatabase& Database();
  std::string Url() { return place_->Url(); }

  // Runs a statement in the screens' dialect and reads its rows, their fields parted by "|".
  std::vector<std::string> Run(const std::string& statement) { return Run(Database(), statement); }
  static std::vector<std::string> Run(const PracticeDatabase& practice, const std::string& statement);
  // What the engine says to the statement; empty when it runs.
  std::string Refusal(const std::string& statement);
  static std::vector<std::string> Rows(std::initializer_list<std::string> rows) { return rows; }

  // How the engine sets about a statement, in its own words but in small letters.
  std::string Plan(const std::string& statement) { return Plan(Database(), statement); }
  std::string Plan(const PracticeDatabase& practice, const std::string& statement) const;

  // `count` rows of employers, named "Employer 0" and so on.
  void AddEmployers(int count);

 private:
  std::unique_ptr<TestedPlace> place_;
  std::optional<PracticeDatabase> practice_;
};

// A text as a statement writes it.
std::string Quoted(std::string_view text);
// The first field of the first row; null when there is none.
session::Value FirstValue(session::Recordset& rows);

}  // namespace host
