#include "database/postgres/office_connection.h"

#include <memory>
#include <mutex>
#include <set>
#include <utility>
#include <vector>

#include "database/postgres/office_directory.h"
#include "database/postgres/office_tables.h"
#include "database/postgres/postgres_error.h"

namespace host {
namespace {

using session::DatabaseError;

// What offices' connections have in common.
struct Entrance {
  PostgresUrl url;
  OpenAlone open;
  OfficeDirectory directory;
  std::set<std::int32_t> own;  // the offices that a desk's login may enter; empty for the tables' owner

  bool MayEnter(std::int32_t office) const { return own.empty() || own.contains(office); }

  // Asks the server that was entered by or, where it does not answer, the others.
  void ReadAgain() {
    if (Read(UrlText(url))) {
      return;
    }
    for (const auto& [name, server] : std::map(directory.servers)) {
      if (Read(UrlText(WithLoginOf(server, url)))) {
        return;
      }
    }
  }
  void ReadAgainAt(const std::string& server) { Read(UrlText(WithLoginOf(directory.servers.at(server), url))); }
  bool Read(const std::string& known) {
    try {
      const auto read = ReadOfficeDirectory(*open(known).connection);
      if (read) {
        Take(*read);
      }
      return read.has_value();
    } catch (const DatabaseError&) {
      return false;
    }
  }
  void Take(const OfficeDirectory& read) {
    if (read.version > directory.version) {
      directory = read;
    }
  }
  std::string UrlOf(std::int32_t office, const std::string& server) const {
    return UrlText(WithLoginOf(directory.servers.at(server), url), OfficeSchema(office));
  }
};

// An office's connection, and where it leads to.
struct Place {
  PracticeDatabase database;
  std::string server;
  bool doubtful = false;  // the office may be elsewhere by now
};

std::set<std::int32_t> OwnOffices(session::Connection& connection) {
  std::set<std::int32_t> offices;
  for (const auto rows =
           connection.Execute("SELECT unnest(practice.open_offices()) FROM pg_class "
                              "WHERE oid='practice.schematable'::regclass AND NOT pg_has_role(relowner, 'USAGE')");
       !rows->Eof(); rows->MoveNext()) {
    offices.insert(session::ToId(rows->Get(0)));
  }
  return offices;
}

DatabaseError Moved(std::int32_t office, std::string_view statement) {
  return {"Office " + std::to_string(office) + " was moved to another server.", statement, 0,
          DatabaseError::Origin::Connection};
}

class OfficeConnection final : public session::Connection {
 public:
  explicit OfficeConnection(Entrance entrance) : entrance_(std::move(entrance)) {}
  // For statements that would not notice that an office has moved: each asks for one of its tables first.
  OfficeConnection(Entrance entrance, std::int32_t office)
      : entrance_(std::move(entrance)),
        office_(office),
        before_("SELECT FROM " + OfficeSchema(office) + ".schematable LIMIT 0; ") {}

  void EnterOffice(std::int32_t office) {
    // Nobody changes the office within a transaction.
    office_ = office;
  }
  void WriteAs(const ChangeAuthor* author) { author_ = author; }
  std::vector<std::int32_t> Offices() {
    entrance_.ReadAgain();
    std::vector<std::int32_t> offices;
    for (const auto& [office, server] : entrance_.directory.homes) {
      if (entrance_.MayEnter(office)) {
        offices.push_back(office);
      }
    }
    return offices;
  }

  bool ReadOnly() const override {
    const auto place = places_.find(office_);
    return place != places_.end() && place->second->database.connection->ReadOnly();
  }
  std::unique_ptr<session::Recordset> Execute(const std::string& sql) override {
    Place& place = Here(sql);
    try {
      return place.database.connection->Execute(before_ + sql);
    } catch (const DatabaseError& error) {
      Explain(place, error);
      throw;
    }
  }
  void BeginTrans() override {
    Place& place = Here("BEGIN");
    try {
      place.database.connection->BeginTrans();
    } catch (const DatabaseError& error) {
      Explain(place, error);
      throw;
    }
    transaction_ = &place;
  }
  void CommitTrans() override {
    if (transaction_ == nullptr) {
      throw DatabaseError("There is no transaction.", "COMMIT", 0);
    }
    Place& place = *std::exchange(transaction_, nullptr);
    ended_ = &place;
    try {
      place.database.connection->CommitTrans();
      ended_ = nullptr;
    } catch (const DatabaseError& error) {
      Explain(place, error);
      throw;
    }
  }
  void RollbackTrans() override {
    // After a commit that failed, too.
    Place* place = transaction_ != nullptr ? transaction_ : ended_;
    transaction_ = nullptr;
    ended_ = nullptr;
    if (place != nullptr) {
      place->database.connection->RollbackTrans();
    }
  }
  void Cancel() override {
    const std::lock_guard guard(choosing_);
    if (const auto place = places_.find(office_); place != places_.end()) {
      place->second->database.connection->Cancel();
    }
  }

 private:
  // Where the next statement runs.
  Place& Here(std::string_view statement) {
    if (transaction_ == nullptr) {
      LeaveIfMoved();
    }
    auto place = places_.find(office_);
    if (place == places_.end()) {
      std::unique_ptr<Place> entered = Enter(statement);
      entered->database.connection->WhileBusy = [this](session::Busy busy) { return WhileBusy && WhileBusy(busy); };
      const std::lock_guard guard(choosing_);
      place = places_.try_emplace(office_).first;
      place->second = std::move(entered);
    }
    place->second->database.write_as(author_);
    place->second->database.enter_office(office_);
    return *place->second;
  }

  void LeaveIfMoved() {
    const auto place = places_.find(office_);
    if (place == places_.end() || !place->second->doubtful) {
      return;
    }
    place->second->doubtful = false;
    entrance_.ReadAgain();
    if (entrance_.directory.HomeOf(office_) != place->second->server) {
      // Somebody may read from it still.
      const std::lock_guard guard(choosing_);
      left_.push_back(std::move(place->second));
      places_.erase(place);
    }
  }

  // The home's own directory has the last word.
  std::unique_ptr<Place> Enter(std::string_view statement) {
    if (office_ == 0) {
      return std::make_unique<Place>(Place{entrance_.open(UrlText(entrance_.url, kAllOffices)), {}});
    }
    if (!entrance_.MayEnter(office_)) {
      throw DatabaseError("This login may not enter office " + std::to_string(office_) + ".", statement, 0);
    }
    std::string home = entrance_.directory.HomeOf(office_);
    for (int tries = 0; tries < 2; ++tries) {
      if (!home.empty()) {
        try {
          PracticeDatabase database = entrance_.open(entrance_.UrlOf(office_, home));
          const auto directory = ReadOfficeDirectory(*database.connection);
          if (directory && directory->HomeOf(office_) == directory->here) {
            entrance_.Take(*directory);
            return std::make_unique<Place>(Place{std::move(database), home});
          }
        } catch (const DatabaseError& error) {
          entrance_.ReadAgain();
          if (entrance_.directory.HomeOf(office_) == home) {
            throw Unreachable(home, error);
          }
        }
      }
      entrance_.ReadAgain();
      home = entrance_.directory.HomeOf(office_);
    }
    if (home.empty()) {
      throw DatabaseError("There is no office " + std::to_string(office_) + " in this group of practices.", statement,
                          0);
    }
    throw DatabaseError("Office " + std::to_string(office_) + " is just being moved to another server.", statement, 0,
                        DatabaseError::Origin::Connection);
  }

  DatabaseError Unreachable(const std::string& server, const DatabaseError& error) const {
    if (!error.ConnectionLost()) {
      return error;
    }
    const DatabaseError unreachable(
        "The server of office " + std::to_string(office_) + " (" + server + ") cannot be reached. " + error.what(),
        error.Statement(), error.Code(), DatabaseError::Origin::Connection);
    return error.Unanswered() ? OfAChange(unreachable) : unreachable;
  }

  // Throws what a failure means in a group, if that is something else.
  void Explain(Place& place, const DatabaseError& error) {
    if (office_ == 0) {
      return;
    }
    if (error.ConnectionLost()) {
      place.doubtful = true;
      throw Unreachable(place.server, error);
    }
    constexpr int kNoTable = CodeOfState("42P01");
    if (error.Code() == kNoTable) {
      // The home that was left knows it first.
      entrance_.ReadAgainAt(place.server);
      if (entrance_.directory.HomeOf(office_) != place.server) {
        place.doubtful = true;
        throw Moved(office_, error.Statement());
      }
    }
  }

  Entrance entrance_;
  std::int32_t office_ = 0;
  std::string before_;
  const ChangeAuthor* author_ = nullptr;
  std::map<std::int32_t, std::unique_ptr<Place>> places_;
  std::vector<std::unique_ptr<Place>> left_;
  Place* transaction_ = nullptr;
  Place* ended_ = nullptr;  // by a commit that failed
  std::mutex choosing_;     // Cancel comes from other threads
};

}  // namespace

PracticeDatabase FollowOffices(PracticeDatabase database, const std::string& url, OpenAlone open) {
  Entrance entrance{ParsePostgresUrl(url), std::move(open), {}, {}};
  auto directory = entrance.url.schema.empty() ? ReadOfficeDirectory(*database.connection) : std::nullopt;
  if (!directory) {
    return database;
  }
  CheckNoReplica(entrance.url);
  entrance.own = OwnOffices(*database.connection);
  std::map<bool, std::int32_t> first;  // at home here, or elsewhere
  for (const auto& [office, home] : directory->homes) {
    if (entrance.MayEnter(office)) {
      first.try_emplace(home == directory->here, office);
    }
  }
  if (!first.empty()) {
    database.options.office = first.rbegin()->second;
  }
  entrance.directory = *std::move(directory);
  static const OfficeTables tables;  // of the office that is entered
  database.schema = &tables;
  database.connect = {};
  database.connect_in = [entrance](const std::string& name, int office) {
    Entrance named = entrance;
    named.url.options["application_name"] = name;
    return std::make_unique<OfficeConnection>(std::move(named), office);
  };
  auto connection = std::make_unique<OfficeConnection>(std::move(entrance));
  auto* offices = connection.get();
  database.write_as = [offices](const ChangeAuthor* author) { offices->WriteAs(author); };
  database.enter_office = [offices](int office) { offices->EnterOffice(office); };
  database.offices = [offices] { return offices->Offices(); };
  database.connection = std::move(connection);
  return database;
}

}  // namespace host
