#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "database/sqlite/sqlite_connection.h"
#include "support/losing_connection.h"
#include "support/practice_host.h"

// Every way in to every screen of the catalogue. A screen that edits a known kind of record, or that one of the
// component's lists opens, is there without a line of its own.
namespace screens_test {

// A folder of its own for as long as it lives.
class Folder {
 public:
  Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { std::filesystem::remove_all(path_); }

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// The rows of each table as text.
using Rows = std::map<std::string, std::multiset<std::string>>;
// How many rows of a table went and came: "PATable -1 +1, ".
std::string Difference(const Rows& before, const Rows& after);

// A person in front of a demo practice of his own: in office 2 of two, or where the database holds one office, there.
class Desk {
 public:
  explicit Desk(std::int32_t kind = session::kOfficeScoped);
  // In front of a practice that stays.
  explicit Desk(const std::filesystem::path& file);

  test_support::FakeUser& User() { return host_.user; }
  // Where the connection can be lost.
  test_support::LosingConnection& Line() { return *line_; }
  test_support::HeardSession& Session() { return host_.session; }
  session::ScreenContext Context() { return {host_.session, host_.user, *screens_}; }
  // The first column of the first row, of a statement in the engine's words.
  std::string Value(const std::string& sql);
  // `condition` is " WHERE OfficeID=1" or empty.
  Rows AllRows(const std::string& condition = {});
  // The records that are held: table and ID.
  std::vector<std::pair<std::string, std::int32_t>> Locks();
  // Another user holds the record from now on.
  void HoldElsewhere(const std::string& table, std::int32_t id);

 private:
  // A practice, and the folder that it goes with.
  struct Place {
    std::unique_ptr<Folder> folder;
    std::filesystem::path file;
  };
  explicit Desk(Place place);
  static Place CopyOfPractice(std::int32_t kind);
  host::Practice Opened(const std::filesystem::path& file);

  std::unique_ptr<Folder> folder_;                  // gone at the end
  test_support::LosingConnection* line_ = nullptr;  // the practice's
  test_support::PracticeHost host_;
  std::unique_ptr<session::Screens> screens_;
  host::RecordLocks other_user_;
  host::SqliteConnection locks_;
};

// The demo practice that every desk of its own gets a copy of. Made once for each kind of database; of few places.
const std::filesystem::path& MadePractice(std::int32_t kind);

bool Offers(const forms::Message& message, forms::Answer answer);
// Yes, where it is offered.
forms::Answer Agree(const forms::Message& message);
// Opens the way and does something in its own window; windows over it are agreed to.
session::Outcome Open(Desk& desk, const std::function<session::Outcome(Desk&)>& open,
                      const std::function<void(forms::Form&)>& act);

struct Way {
  std::string form;
  std::string how;  // "NewPatient", "List3"
  std::function<session::Outcome(Desk&)> open;
  std::optional<session::RecordKind> kind = {};  // of the record that it edits
  bool saves = false;                            // what is typed
  bool holds = false;                            // a record, opened by its name alone
  bool first = true;                             // the others differ by the kind of record alone, in the same screen

  bool OnExisting() const { return how.starts_with("Existing"); }
  // Opens the record again that it saved.
  void OpenAgain(Desk& desk, const session::Outcome& saved) const;
};
void PrintTo(const Way& way, std::ostream* out);

const std::vector<Way>& AllWays();
std::vector<Way> WaysThat(const std::function<bool(const Way&)>& suit);

}  // namespace screens_test
