// What a host's objects make of a connection, read by the component's adapters of them.
#include <gmock/gmock.h>

#include <numeric>

#include "automation/connection_object.h"
#include "automation/module.h"
#include "automation/session_object.h"
#include "com/ado_connection.h"
#include "com/pv_session.h"
#include "practice/accounts.h"
#include "practice/host_session.h"

namespace {

using automation::DispatchObject;
using automation::Variant;
using forms::Currency;
using session::DatabaseError;
using session::FieldType;
using session::Value;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kEngineCode = 19;

class MemoryRecordset final : public session::Recordset {
 public:
  MemoryRecordset(std::vector<session::Field> fields, std::vector<std::vector<Value>> rows, std::function<void()> reach)
      : fields_(std::move(fields)), rows_(std::move(rows)), reach_(std::move(reach)) {}

  const std::vector<session::Field>& Fields() const override { return fields_; }
  bool Eof() const override { return at_ == rows_.size(); }
  void MoveNext() override {
    reach_();
    ++at_;
  }
  Value Get(std::size_t field) const override { return rows_[at_][field]; }

 private:
  std::vector<session::Field> fields_;
  std::vector<std::vector<Value>> rows_;
  std::function<void()> reach_;
  std::size_t at_ = 0;
};

// Gives the rows that a test sets, and nothing for a statement after them; "BAD" is refused. While it is `lost` every
// call finds that.
class MemoryConnection final : public session::Connection {
 public:
  std::vector<session::Field> fields;
  std::vector<std::vector<Value>> rows;
  std::vector<std::string> calls;
  std::optional<DatabaseError::Origin> lost;

  void Reach() const {
    if (lost) {
      throw DatabaseError("The server has gone.", {}, kEngineCode, *lost);
    }
  }
  std::unique_ptr<session::Recordset> Execute(const std::string& sql) override {
    Reach();
    if (sql == "BAD") {
      throw DatabaseError("UNIQUE constraint failed", sql, kEngineCode);
    }
    return std::make_unique<MemoryRecordset>(std::exchange(fields, {}), std::exchange(rows, {}), [this] { Reach(); });
  }
  void BeginTrans() override { calls.emplace_back("BeginTrans"); }
  void CommitTrans() override {
    Reach();
    throw DatabaseError("no transaction is active", {}, 1);
  }
  void RollbackTrans() override { calls.emplace_back("RollbackTrans"); }
  void Cancel() override { calls.emplace_back("Cancel"); }
};

class AdoRoundTrip : public testing::Test {
 protected:
  void TearDown() override {
    read = com::AdoConnection();
    connection = DispatchObject({}, {});
    EXPECT_FALSE(automation::ModuleInUse());
    EXPECT_EQ(memory.use_count(), 1);
  }

  // One column of one type.
  void Fill(FieldType type, std::vector<Value> values) {
    memory->fields = {{"column", type, 0}};
    for (Value& value : values) {
      memory->rows.push_back({std::move(value)});
    }
  }
  // What comes back when all of it is read.
  std::vector<Value> Read() {
    std::vector<Value> values;
    for (const auto rows = read.Execute("SELECT"); !rows->Eof(); rows->MoveNext()) {
      values.push_back(rows->Get(0));
    }
    return values;
  }
  DispatchObject Execute(const char* sql = "SELECT") const {
    return connection.Object("Execute", "rows", {Variant::Of(sql)});
  }

  std::shared_ptr<MemoryConnection> memory = std::make_shared<MemoryConnection>();
  DispatchObject connection{host::MakeConnectionObject(memory), "connection"};
  com::AdoConnection read = [this] {
    com::AdoConnection made;
    made.Use(connection);
    return made;
  }();
};

// The number with which a call is refused, 0 when it is not.
template <typename Call>
unsigned RefusalOf(Call call) {
  try {
    call();
  } catch (const DatabaseError& error) {
    return static_cast<unsigned>(error.Code());
  }
  return 0;
}

TEST_F(AdoRoundTrip, LosesNothingOfAValue) {
  const auto at = [](const char* text) { return Value(*forms::ParseIso(text)); };
  session::Guid guid;
  std::iota(guid.bytes.begin(), guid.bytes.end(), std::uint8_t{0xF5});
  session::Blob bytes(256);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes[i] = static_cast<std::byte>(i);
  }
  const std::vector<std::pair<FieldType, std::vector<Value>>> columns = {
      {FieldType::Integer,
       {std::int64_t{0}, std::int64_t{-1}, std::int64_t{INT32_MIN}, std::int64_t{INT32_MAX} + 1, INT64_MAX, {}}},
      {FieldType::Double, {0.1, -1e300, 5e-324, {}}},
      {FieldType::Currency,
       {Currency::FromTenThousandths(INT64_MAX),
        Currency::FromTenThousandths(INT64_MIN),
        Currency::FromTenThousandths(-1),
        Currency(),
        {}}},
      {FieldType::DateTime,
       {at("1899-12-29 23:59:59"),
        at("1899-12-29"),
        at("1899-12-30"),
        at("1899-12-30 00:00:01"),
        at("1899-12-31 06:00:00"),
        at("1752-09-14 12:34:56"),
        at("0100-01-01 00:00:01"),
        at("9999-12-31 23:59:59"),
        at("2024-02-29 23:59:59"),
        "13/45/2020",
        {}}},
      {FieldType::Text,
       {"",
        std::string("a\0b", 3),
        "O'Hara; 100 %\r\n\t",
        "\xC3\xA9\xE2\x82\xAC\xF0\x9F\xA6\xB7",
        std::string(10000, 'x'),
        "{01234567-89AB-CDEF-0123-456789ABCDEF}",
        {}}},
      {FieldType::Guid, {guid, session::Guid(), "no GUID", {}}},
      {FieldType::Blob, {session::Blob(), bytes, {}}}};
  for (const auto& [type, values] : columns) {
    Fill(type, values);
    EXPECT_EQ(Read(), values) << "of type " << static_cast<int>(type);
  }
}

TEST_F(AdoRoundTrip, KeepsWhatAColumnIs) {
  const std::vector<session::Field> fields = {{"pID", FieldType::Integer},   {"Fee", FieldType::Currency},
                                              {"Name", FieldType::Text, 40}, {"Notes", FieldType::Text},
                                              {"When", FieldType::DateTime}, {"Share", FieldType::Double},
                                              {"UniqueID", FieldType::Guid}, {"Picture", FieldType::Blob}};
  memory->fields = fields;
  const auto rows = read.Execute("SELECT");
  EXPECT_TRUE(rows->Eof());
  ASSERT_EQ(rows->Fields().size(), fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    EXPECT_EQ(rows->Fields()[i].name, fields[i].name);
    EXPECT_EQ(rows->Fields()[i].type, fields[i].type) << fields[i].name;
    if (fields[i].type != FieldType::Text) {  // what is typed into its field is as long as it is
      EXPECT_EQ(rows->Fields()[i].defined_size, 0) << fields[i].name;
    }
  }
  EXPECT_EQ(rows->Fields()[2].defined_size, 40);
  EXPECT_EQ(rows->Fields()[3].defined_size, 0);
}

TEST_F(AdoRoundTrip, ReadsEveryRowAtTheEdgesOfABlock) {
  for (const std::size_t count : {0U, 1U, 63U, 64U, 65U, 128U, 129U}) {
    std::vector<Value> values(count);
    std::iota(values.begin(), values.end(), std::int64_t{1});
    Fill(FieldType::Integer, values);
    EXPECT_EQ(Read(), values);
  }
}

TEST_F(AdoRoundTrip, GivesRowsOneByOneOrAtOnce) {
  memory->fields = {{"pID", FieldType::Integer}, {"Name", FieldType::Text}};
  memory->rows = {{std::int64_t{1}, "one"}, {std::int64_t{2}, "two"}, {std::int64_t{3}, "three"}};
  const DispatchObject rows = Execute();
  EXPECT_FALSE(rows.Bool("BOF"));
  const DispatchObject name = rows.Object("Fields", "field", {Variant::Of("NAME")});
  EXPECT_EQ(name.Text("Value"), "one");
  rows.Call("MoveNext");
  EXPECT_EQ(name.Text("Value"), "two");
  EXPECT_EQ(rows.Object("Fields", "fields").Object("Item", "field", {Variant::Of(0)}).Int("Value"), 2);
  EXPECT_EQ(RefusalOf([&] { rows.Call("Fields", {Variant::Of("Nobody")}); }), 0x800A0CC1);
  EXPECT_EQ(RefusalOf([&] { rows.Call("Fields", {Variant::Of(2)}); }), 0x800A0CC1);
  const Variant rest = rows.Call("GetRows");
  std::array<LONG, 2> last{};
  SafeArrayGetUBound(V_ARRAY(&rest), 1, &last[0]);
  SafeArrayGetUBound(V_ARRAY(&rest), 2, &last[1]);
  EXPECT_THAT(last, ElementsAre(1, 1));
  EXPECT_TRUE(rows.Bool("EOF"));
  for (const char* member : {"MoveNext", "GetRows"}) {
    EXPECT_EQ(RefusalOf([&] { rows.Call(member); }), 0x800A0BCD) << member;
  }
  EXPECT_EQ(RefusalOf([&] { name.Call("Value"); }), 0x800A0BCD);
  rows.Call("Close");
  EXPECT_EQ(RefusalOf([&] { name.Call("Value"); }), 0x800A0E78);
}

TEST_F(AdoRoundTrip, GivesAClosedRecordsetForAStatementWithoutRows) {
  const DispatchObject none = Execute("UPDATE");
  EXPECT_EQ(none.Int("State"), 0);
  EXPECT_EQ(none.Object("Fields", "fields").Int("Count"), 0);
  for (const char* member : {"EOF", "MoveNext", "GetRows", "Close"}) {
    EXPECT_EQ(RefusalOf([&] { none.Call(member); }), 0x800A0E78) << member;
  }
  EXPECT_THAT(read.Execute("UPDATE")->Fields(), IsEmpty());
}

TEST_F(AdoRoundTrip, TellsWhatTheDatabaseSaidUntilACallSucceeds) {
  try {
    read.Execute("BAD");
    FAIL() << "nothing was thrown";
  } catch (const DatabaseError& error) {
    EXPECT_STREQ(error.what(), "UNIQUE constraint failed");
    EXPECT_EQ(error.Statement(), "BAD");
    EXPECT_EQ(error.Code(), kEngineCode);
  }
  EXPECT_EQ(RefusalOf([&] { connection.Call("Execute", {Variant::Of("BAD")}); }), 0x80040E14);
  const DispatchObject errors = connection.Object("Errors", "errors");
  ASSERT_EQ(errors.Int("Count"), 1);
  const DispatchObject error = errors.Object("Item", "error", {Variant::Of(0)});
  EXPECT_EQ(error.Text("Description"), "UNIQUE constraint failed");
  EXPECT_EQ(static_cast<unsigned>(error.Int("Number")), 0x80040E14);
  EXPECT_EQ(error.Int("NativeError"), kEngineCode);
  EXPECT_EQ(RefusalOf([&] { errors.Call("Item", {Variant::Of(1)}); }), 0x800A0CC1);
  Execute();
  EXPECT_EQ(errors.Int("Count"), 0);
  EXPECT_EQ(RefusalOf([&] { read.CommitTrans(); }), 1U);
  EXPECT_EQ(errors.Int("Count"), 1);
  { const session::Transaction dropped(read); }
  read.Cancel();
  EXPECT_THAT(memory->calls, ElementsAre("BeginTrans", "RollbackTrans", "Cancel"));
}

TEST_F(AdoRoundTrip, StaysALossAndWhetherAnythingWasDone) {
  using Origin = DatabaseError::Origin;
  const auto loss = [](const std::function<void()>& call) {
    try {
      call();
    } catch (const DatabaseError& error) {
      EXPECT_STREQ(error.what(), "The server has gone.");
      return std::pair(error.ConnectionLost(), error.Unanswered());
    }
    return std::pair(false, false);
  };
  const auto change = [&] { read.Execute("UPDATE"); };
  memory->lost = Origin::Connection;
  EXPECT_EQ(loss(change), std::pair(true, false)) << "the engine knows better than its caller";
  EXPECT_EQ(connection.Object("Errors", "errors").Object("Item", "error", {Variant::Of(0)}).Text("SQLState"), "08003");
  EXPECT_EQ(loss([&] { connection.Call("Execute", {Variant::Of("UPDATE")}); }), std::pair(true, false));
  memory->lost = Origin::Unanswered;
  EXPECT_EQ(loss(change), std::pair(true, true));
  EXPECT_EQ(loss([&] { read.CommitTrans(); }), std::pair(true, true));
  memory->lost.reset();
  Fill(FieldType::Integer, std::vector<Value>(200, std::int64_t{7}));
  const auto rows = read.Execute("SELECT");
  memory->lost = Origin::Connection;
  EXPECT_EQ(loss([&] { rows->GetRows(200); }), std::pair(true, false));

  // The person tries again.
  int asked = 0;
  read.TryAgain = [&](const DatabaseError&) {
    memory->lost.reset();
    return ++asked == 1;
  };
  session::Insist(read, change);
  EXPECT_EQ(asked, 1);
}

TEST_F(AdoRoundTrip, KeepsAConnectionForAsLongAsItsRowsAreHeld) {
  const std::weak_ptr<MemoryConnection> watched = memory;
  Fill(FieldType::Text, {"kept"});
  {
    const DispatchObject rows = Execute();
    read = com::AdoConnection();
    connection = DispatchObject({}, {});
    memory.reset();
    EXPECT_EQ(rows.Object("Fields", "field", {Variant::Of(0)}).Text("Value"), "kept");
    EXPECT_FALSE(watched.expired());
  }
  EXPECT_TRUE(watched.expired());
  memory = std::make_shared<MemoryConnection>();
}

// A session that writes down what it is told.
class ToldSession final : public host::HostSession {
 public:
  using HostSession::HostSession;
  std::vector<session::LogEntry> logged;
  void Log(const session::LogEntry& entry) override { logged.push_back(entry); }
};

TEST(SessionRoundTrip, PassesOnWhatNoScenarioReaches) {
  host::Practice practice = host::CreatePractice("sqlite::memory:");
  std::string started;
  session::ReminderMessage sent;
  ToldSession session(practice, 1, host::LoginRights("USER"),
                      {.clock = [] { return *forms::ParseIso("2026-11-21 09:00:01"); },
                       .data_folder = "C:\\Daten \xC3\xA9",
                       .program_folder = "C:\\Programs",
                       .start_program = [&](host::OfficeDatabase&,
                                            const std::string& line) { return started.assign(line) != "refused"; },
                       .send_reminder =
                           [&](const session::ReminderMessage& message) {
                             sent = message;
                             return message.method == session::ReminderMessage::Method::Email;
                           }});
  const session::AccountFigures figures{Currency::FromTenThousandths(-12345), Currency::FromWhole(7),
                                        session::BudgetPlan::Family};
  host::WriteAccount(session.Office(), 4, figures);
  {
    com::PvSession pv(host::MakeSessionObject(session));
    EXPECT_EQ(pv.AccountOf(4).balance, figures.balance);
    EXPECT_EQ(pv.AccountOf(4).plan_balance, figures.plan_balance);
    EXPECT_EQ(pv.AccountOf(4).plan, figures.plan);
    EXPECT_EQ(pv.Now(), *forms::ParseIso("2026-11-21 09:00:01"));
    EXPECT_EQ(pv.DataFolder(), "C:\\Daten \xC3\xA9");
    EXPECT_EQ(pv.ProgramFolder(), "C:\\Programs");
    EXPECT_TRUE(pv.StartProgram("\"A B.EXE\" 1"));
    EXPECT_EQ(started, "\"A B.EXE\" 1");
    EXPECT_FALSE(pv.StartProgram("refused"));
    EXPECT_TRUE(pv.SendReminder({session::ReminderMessage::Method::Email, "a@b.example", "Subject", "<p>\u00e9</p>"}));
    EXPECT_EQ(sent.to + "|" + sent.subject + "|" + sent.text, "a@b.example|Subject|<p>\u00e9</p>");
    EXPECT_FALSE(pv.SendReminder({session::ReminderMessage::Method::TextMessage, "5551234567", "", "Hello"}));
    EXPECT_EQ(sent.method, session::ReminderMessage::Method::TextMessage);
    EXPECT_FALSE(pv.ShowReminderOptions());
    EXPECT_THROW(pv.SetOfficeSetting("RECALL_SETUP", "KEY", "1"), session::DatabaseError);
    EXPECT_EQ(pv.RightsCatalogue().size(), session.RightsCatalogue().size());
    EXPECT_EQ(pv.RightsCatalogue().back().label, session.RightsCatalogue().back().label);
    EXPECT_EQ(pv.RightsCatalogue().back().product, session::Product::TimeClock);
    EXPECT_TRUE(pv.RightsCatalogue()[1].by_default);
    EXPECT_TRUE(host::PasswordMatches(pv.StorablePassword("s3cret").value(), "s3cret"));
    EXPECT_EQ(pv.DefaultSchedule(), session.DefaultSchedule());
    for (const auto kind : {session::LogKind::Comment, session::LogKind::Change, session::LogKind::Insurance}) {
      pv.Log({kind, "LogEmp", 4, "text"});
      EXPECT_EQ(session.logged.back().kind, kind);
      EXPECT_EQ(session.logged.back().person, 4);
    }
  }
  EXPECT_FALSE(automation::ModuleInUse());
}

}  // namespace
