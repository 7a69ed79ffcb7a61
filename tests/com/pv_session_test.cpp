#include "com/pv_session.h"

#include <gmock/gmock.h>

#include "scripted_object.h"

namespace com {
namespace {

using automation::ComPtr;
using automation::ToInt;
using automation::ToText;
using automation::Variant;
using test_support::Holding;
using test_support::ScriptedObject;
using testing::ElementsAre;
using testing::HasSubstr;

// How a call fails, empty when it does not.
struct Failure {
  std::string what;
  std::string statement;
};
template <typename Call>
Failure FailureIn(Call call) {
  try {
    call();
  } catch (const session::DatabaseError& error) {
    return {error.what(), error.Statement()};
  }
  return {};
}
template <typename Call>
std::string FailureOf(Call call) {
  return FailureIn(call).what;
}

class PvSessionTest : public testing::Test {
 protected:
  ComPtr<ScriptedObject> pv = ScriptedObject::Make();
  PvSession session{ComPtr<IDispatch>(pv.Get())};
};

TEST_F(PvSessionTest, CallsTheHostByName) {
  pv->Answer("DatabaseKind", Variant::Of("7"));
  pv->Answer("CurrentOfficeID", Variant::Of(3));
  pv->Add("PrepareSQL", [](const automation::CallArguments& arguments) {
    return Variant::Of("prepared " + ToText(arguments.At(0)));
  });
  for (const char* silent : {"RecordHandOff", "CurrentPersonType", "Log", "SetUserOption"}) {
    pv->Answer(silent, Variant());
  }
  EXPECT_EQ(session.DatabaseKind(), 7);
  EXPECT_EQ(session.CurrentOfficeID(), 3);
  EXPECT_EQ(session.PrepareSQL("SELECT 'O''Hara'", 1), "prepared SELECT 'O''Hara'");
  session.RecordHandOff("pID", "PaTable", 12);
  session.SetCurrentPersonType("pTypDoc");
  session.Log({session::LogKind::Insurance, "LogEmp", 4, "text"});
  session.SetUserOption("SESC_LUL", "key", "");
  EXPECT_THAT(pv->calls, ElementsAre("DatabaseKind", "CurrentOfficeID", "PrepareSQL [SELECT 'O''Hara'] [1]",
                                     "RecordHandOff [pID] [PaTable] [12]", "CurrentPersonType [pTypDoc]",
                                     "Log [INS_LOG] [LogEmp] [4] [text]", "SetUserOption [SESC_LUL] [key] []"));
}

TEST_F(PvSessionTest, NamesTheMemberThatTheHostLacks) {
  EXPECT_EQ(FailureOf([&] { session.HasRight("EDIT-EMP-INS"); }),
            "The session object (PV) of the host does not offer \"HasRight\".");
  pv->Answer("DatabaseKind", Variant::Of("seven"));
  EXPECT_EQ(FailureOf([&] { session.DatabaseKind(); }),
            "The session object (PV) of the host gives no whole number for \"DatabaseKind\".");
  pv->Add("UserName",
          [](const automation::CallArguments&) -> Variant { throw session::DatabaseError("nobody is here", {}, 0); });
  EXPECT_EQ(FailureOf([&] { session.UserName(); }), "nobody is here");
}

Variant ArrayOf(std::vector<Variant> given) {
  Variant array;
  V_ARRAY(&array) = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(given.size()));
  V_VT(&array) = VT_ARRAY | VT_VARIANT;
  LONG at = 0;
  for (Variant& value : given) {
    SafeArrayPutElement(V_ARRAY(&array), &at, &value);
    ++at;
  }
  return array;
}

TEST_F(PvSessionTest, NamesWhoHoldsARecordWhereTheHostTells) {
  pv->Answer("HoldRecord", Variant::Of(false));
  ASSERT_TRUE(session.HoldRecord("PATABLE", 5));
  EXPECT_EQ(session.HoldRecord("PATABLE", 5)->user, "");
  EXPECT_TRUE(session.KeepsRecord("PATABLE", 5)) << "this host takes nothing from its holder";
  pv->Answer("RecordHolder", ArrayOf({Variant::Of("ANN"), Variant::Of("FRONT-DESK"), Variant::Of(true)}));
  const auto holder = session.HoldRecord("PATABLE", 5);
  EXPECT_EQ(holder->user, "ANN");
  EXPECT_EQ(holder->machine, "FRONT-DESK");
  EXPECT_TRUE(holder->silent);
  pv->Answer("TakeRecordOver", Variant::Of(true));
  EXPECT_FALSE(session.TakeRecordOver("PATABLE", 5));
  pv->Answer("KeepsRecord", Variant::Of(false));
  EXPECT_FALSE(session.KeepsRecord("PATABLE", 5));
}

TEST_F(PvSessionTest, ReadsTheFiguresOfAnAccount) {
  pv->Answer("AccountOf", ArrayOf({Variant::Of("-12.34"), Variant::Of(5), Variant::Of(2)}));
  const session::AccountFigures read = session.AccountOf(9);
  EXPECT_EQ(read.balance, forms::Currency::FromTenThousandths(-123400));
  EXPECT_EQ(read.plan_balance, forms::Currency::FromWhole(5));
  EXPECT_EQ(read.plan, session::BudgetPlan::Family);
  pv->Answer("AccountOf", Variant::Of(5));
  EXPECT_THAT(FailureOf([&] { session.AccountOf(9); }), HasSubstr("\"AccountOf\""));
}

TEST_F(PvSessionTest, ASuiteMayLeaveOutWhatItKnowsOfItsStaff) {
  EXPECT_TRUE(session.RightsCatalogue().empty());
  EXPECT_FALSE(session.StorablePassword("s3cret"));
  EXPECT_EQ(session.DefaultSchedule(), session::WorkSchedule());
  const auto right = [](std::int32_t product) {
    return ArrayOf({ArrayOf({Variant::Of("ZEP"), Variant::Of("Clock"), Variant::Of(product), Variant::Of(true)})});
  };
  pv->Answer("RightsCatalogue", right(1));
  ASSERT_EQ(session.RightsCatalogue().size(), 1U);
  EXPECT_EQ(session.RightsCatalogue()[0].keyword, "ZEP");
  EXPECT_EQ(session.RightsCatalogue()[0].product, session::Product::TimeClock);
  pv->Answer("RightsCatalogue", right(2));
  EXPECT_THAT(FailureOf([&] { session.RightsCatalogue(); }), HasSubstr("\"RightsCatalogue\""));
  pv->Answer("DefaultSchedule", ArrayOf({Variant::Of("tue, thu"), Variant::Of("07:30"), Variant::Of("12:00")}));
  EXPECT_EQ(session.DefaultSchedule(),
            (session::WorkSchedule{0b0001010, std::chrono::minutes(450), std::chrono::hours(12)}));
  pv->Answer("DefaultSchedule", ArrayOf({Variant::Of("weekends"), Variant::Of("07:30"), Variant::Of("12:00")}));
  EXPECT_THAT(FailureOf([&] { session.DefaultSchedule(); }), HasSubstr("\"DefaultSchedule\""));
}

// A connection and its recordset as ADO shapes them: two columns, and as many rows as a test wants.
class AdoTest : public PvSessionTest {
 protected:
  AdoTest() {
    pv->Add("Connection", [this](const automation::CallArguments&) { return Holding(connection); });
    connection->Add("Execute", [this](const automation::CallArguments&) { return Holding(recordset); });
    recordset->Add("State", [this](const automation::CallArguments&) { return Variant::Of(state); });
    recordset->Add("EOF", [this](const automation::CallArguments&) { return Variant::Of(given == rows); });
    recordset->Add("Fields", [this](const automation::CallArguments&) { return Holding(fields); });
    recordset->Add("GetRows",
                   [this](const automation::CallArguments& arguments) { return Block(ToInt(arguments.At(0))); });
    fields->Answer("Count", Variant::Of(2));
    fields->Add("Item", [](const automation::CallArguments& arguments) {
      const bool first = ToInt(arguments.At(0)) == 0;
      const auto field = ScriptedObject::Make();
      field->Answer("Name", Variant::Of(first ? "pID" : "UniqueID"));
      field->Answer("Type", Variant::Of(first ? 3 : 72));
      field->Answer("DefinedSize", Variant::Of(first ? 4 : 16));
      return Holding(field);
    });
  }

  static Variant EmptyBlock(std::int32_t fields, std::int32_t rows) {
    std::array<SAFEARRAYBOUND, 2> bounds = {SAFEARRAYBOUND{static_cast<ULONG>(fields), 0},
                                            SAFEARRAYBOUND{static_cast<ULONG>(rows), 0}};
    Variant block;
    V_ARRAY(&block) = SafeArrayCreate(VT_VARIANT, 2, bounds.data());
    V_VT(&block) = VT_ARRAY | VT_VARIANT;
    return block;
  }
  Variant Block(std::int32_t wanted) {
    const std::int32_t count = wanted < 0 ? rows - given : std::min(wanted, rows - given);
    Variant block = EmptyBlock(2, count);
    for (LONG row = 0; row < count; ++row) {
      std::array<LONG, 2> at = {0, row};
      Variant id = Variant::Of(given++);
      SafeArrayPutElement(V_ARRAY(&block), at.data(), &id);
      at[0] = 1;
      Variant guid = Variant::Of("{01234567-89AB-CDEF-0123-456789ABCDEF}");
      SafeArrayPutElement(V_ARRAY(&block), at.data(), &guid);
    }
    return block;
  }

  ComPtr<ScriptedObject> connection = ScriptedObject::Make();
  ComPtr<ScriptedObject> recordset = ScriptedObject::Make();
  ComPtr<ScriptedObject> fields = ScriptedObject::Make();
  std::int32_t rows = 150;
  std::int32_t given = 0;
  std::int32_t state = 1;
};

TEST_F(AdoTest, ReadsRowsInBlocks) {
  const auto read = session.Connection().Execute("SELECT * FROM PaTable");
  ASSERT_EQ(read->Fields().size(), 2U);
  EXPECT_EQ(read->Fields()[1].type, session::FieldType::Guid);
  std::int64_t sum = 0;
  int count = 0;
  for (; !read->Eof(); read->MoveNext(), ++count) {
    sum += std::get<std::int64_t>(read->Get(0));
    EXPECT_EQ(session::ToText(std::get<session::Guid>(read->Get(1))), "{01234567-89AB-CDEF-0123-456789ABCDEF}");
  }
  EXPECT_EQ(count, 150);
  EXPECT_EQ(sum, 149 * 150 / 2);
}

// A row count, what the insert gives out, and the new key.
TEST_F(AdoTest, GivesTheLastResultOfABatch) {
  state = 0;
  rows = 0;
  recordset->Add("NextRecordset", [this](const automation::CallArguments&) {
    state = 1;
    ++rows;
    return rows <= 2 ? Holding(recordset) : Variant();
  });
  const auto key = session.Connection().Execute("INSERT ... OUTPUT ...; SELECT @@IDENTITY");
  ASSERT_FALSE(key->Eof());
  EXPECT_EQ(std::get<std::int64_t>(key->Get(0)), 1);
  key->MoveNext();
  EXPECT_TRUE(key->Eof());

  state = 0;
  recordset->Add("NextRecordset", [](const automation::CallArguments&) { return Variant(); });
  EXPECT_TRUE(session.Connection().Execute("UPDATE ... SET pNOTE='a;b'")->Eof());
}

// Whatever a host's recordset does, reading it comes to an end.
TEST_F(AdoTest, RefusesARecordsetThatNeverEnds) {
  const auto read_all = [this] {
    const auto failure = FailureIn([&] {
      for (const auto read = session.Connection().Execute("SELECT 1; SELECT 2"); !read->Eof(); read->MoveNext()) {
      }
      for (const auto read = session.Connection().Execute("SELECT 1"); !read->Eof(); read->MoveNext()) {
      }
    });
    EXPECT_THAT(failure.statement, testing::StartsWith("SELECT 1"));
    return failure.what;
  };
  const auto itself = [this](const automation::CallArguments&) { return Holding(recordset); };
  recordset->Answer("EOF", Variant::Of(false));
  recordset->Answer("GetRows", EmptyBlock(2, 100000));
  EXPECT_THAT(read_all(), HasSubstr("rows without an end"));
  recordset->Answer("GetRows", EmptyBlock(2, 0));
  EXPECT_THAT(read_all(), HasSubstr("gives no rows"));
  recordset->Add("NextRecordset", itself);
  state = 0;
  EXPECT_THAT(read_all(), HasSubstr("results without an end"));
  // It answers itself for whatever is asked.
  recordset->AddDefault("Value", itself);
  recordset->Add("Fields", itself);
  recordset->Add("Count", itself);
  state = 1;
  EXPECT_THAT(read_all(), HasSubstr("\"Count\""));
  recordset->Add("State", itself);
  EXPECT_THAT(read_all(), HasSubstr("\"State\""));
}

TEST_F(AdoTest, RefusesFieldsThatAreNotSo) {
  const auto failure = [this] {
    return FailureOf([&] { static_cast<void>(session.Connection().Execute("SELECT")->Get(0)); });
  };
  for (const std::int32_t count : {-1, 1'000'000'000}) {
    fields->Answer("Count", Variant::Of(count));
    EXPECT_THAT(failure(), HasSubstr(std::to_string(count) + " fields"));
  }
  for (const std::int32_t count : {1, 3}) {
    fields->Answer("Count", Variant::Of(count));
    EXPECT_THAT(failure(), HasSubstr("other fields"));
    given = 0;
  }
  recordset->Answer("GetRows", Variant::Of("no rows"));
  EXPECT_THAT(failure(), HasSubstr("\"GetRows\""));
}

TEST_F(AdoTest, TellsWhatTheProviderSaid) {
  connection->Add("Execute", [](const automation::CallArguments&) -> Variant {
    throw session::DatabaseError("Syntax error", {}, 0);
  });
  const Failure told = FailureIn([&] { session.Connection().Execute("SELEKT"); });
  EXPECT_EQ(told.what, "Syntax error");
  EXPECT_EQ(told.statement, "SELEKT");
  const auto errors = ScriptedObject::Make();
  const auto error = ScriptedObject::Make();
  errors->Answer("Count", Variant::Of(1));
  errors->Answer("Item", Holding(error));
  error->Answer("Description", Variant::Of("Incorrect syntax near 'SELEKT'."));
  error->Answer("NativeError", Variant::Of(102));
  error->Answer("Number", Variant::Of(static_cast<std::int32_t>(E_FAIL)));
  connection->Answer("Errors", Holding(errors));
  try {
    session.Connection().Execute("SELEKT");
    FAIL() << "nothing was thrown";
  } catch (const session::DatabaseError& failure) {
    EXPECT_STREQ(failure.what(), "Incorrect syntax near 'SELEKT'.");
    EXPECT_EQ(failure.Code(), 102);
  }
  // What is left of an earlier call.
  error->Answer("Number", Variant::Of(static_cast<std::int32_t>(E_ACCESSDENIED)));
  EXPECT_EQ(FailureOf([&] { session.Connection().Execute("SELEKT"); }), "Syntax error");
  // A warning.
  error->Answer("Number", Variant::Of(0));
  connection->Answer("Execute", Variant::Of(5));
  EXPECT_THAT(FailureOf([&] { session.Connection().Execute("SELEKT"); }), HasSubstr("no recordset"));
}

// A provider's own words of a loss, and a host that connects again.
TEST_F(AdoTest, KnowsALossByItsState) {
  const auto errors = ScriptedObject::Make();
  errors->Answer("Count", Variant::Of(2));
  std::string state;
  errors->Add("Item", [&state](const automation::CallArguments& arguments) {
    const auto error = ScriptedObject::Make();
    error->Answer("Description", Variant::Of("Communication link failure"));
    error->Answer("NativeError", Variant::Of(10054));
    error->Answer("Number", Variant::Of(static_cast<std::int32_t>(E_FAIL)));
    error->Answer("SQLState", Variant::Of(ToInt(arguments.At(0)) == 0 ? std::string("01000") : state));
    return Holding(error);
  });
  const auto lost = ScriptedObject::Make();
  lost->Answer("Errors", Holding(errors));
  lost->Answer("BeginTrans", Variant::Of(1));
  for (const char* member : {"Execute", "CommitTrans", "RollbackTrans"}) {
    lost->Add(member, [](const automation::CallArguments&) -> Variant {
      throw session::DatabaseError("Communication link failure", {}, static_cast<int>(E_FAIL));
    });
  }
  const auto* handed_out = &lost;
  pv->Add("Connection", [&handed_out](const automation::CallArguments&) { return Holding(*handed_out); });
  session::Connection& used = session.Connection();
  const auto failed = [&](const std::string& told, const std::function<void()>& call) {
    state = told;
    try {
      call();
    } catch (const session::DatabaseError& error) {
      return error.Unanswered() ? "unanswered" : error.ConnectionLost() ? "lost" : "refused";
    }
    return "done";
  };
  const auto execute = [&](const char* sql) { return [&used, sql] { used.Execute(sql); }; };
  EXPECT_STREQ(failed("42000", execute("UPDATE")), "refused");
  EXPECT_STREQ(failed("57P01", execute("SELECT")), "lost");
  EXPECT_STREQ(failed("08S01", execute("UPDATE")), "unanswered");
  EXPECT_STREQ(failed("08S01", execute("SELECT 1; UPDATE")), "unanswered");
  EXPECT_STREQ(failed("08003", execute("UPDATE")), "lost");
  {
    session::Transaction transaction(used);
    EXPECT_STREQ(failed("08S01", execute("UPDATE")), "lost");
    handed_out = &connection;
    EXPECT_STREQ(failed("08S01", execute("UPDATE")), "lost") << "not outside the transaction";
    EXPECT_STREQ(failed("08S01", [&] { transaction.Commit(); }), "lost");
  }
  handed_out = &lost;
  used.BeginTrans();
  EXPECT_STREQ(failed("08S01", [&] { used.CommitTrans(); }), "unanswered");
  EXPECT_STREQ(failed("08S01", [&] { used.RollbackTrans(); }), "done");
  handed_out = &connection;
  EXPECT_STREQ(failed("08S01", execute("UPDATE")), "done") << "by the connection that the host has now";
}

// As an object of the host says it that is no connection.
TEST_F(PvSessionTest, KnowsALossByItsNumber) {
  for (const auto& [number, unanswered, given_up] :
       {std::tuple(0x800704CD, false, false), {0x800704D4, true, false}, {0x800704C7, false, true}}) {
    pv->Add("HoldRecord", [number = number](const automation::CallArguments&) -> Variant {
      throw session::DatabaseError("gone", {}, static_cast<int>(number));
    });
    try {
      session.HoldRecord("PaTable", 1);
      ADD_FAILURE() << "held";
    } catch (const session::DatabaseError& error) {
      EXPECT_TRUE(error.ConnectionLost());
      EXPECT_EQ(error.Unanswered(), unanswered);
      EXPECT_EQ(error.given_up, given_up);
    }
  }
}

TEST_F(AdoTest, RefusesWhatIsNoRecordset) {
  connection->Answer("Execute", Variant::Of(5));
  EXPECT_THAT(FailureOf([&] { session.Connection().Execute("UPDATE ..."); }), HasSubstr("no recordset"));
  connection->Answer("Execute", Variant());
  EXPECT_THAT(FailureOf([&] { session.Connection().Execute("SELECT ..."); }), HasSubstr("no recordset"));
  EXPECT_TRUE(session.Connection().Execute("UPDATE ...")->Eof());
}

TEST_F(AdoTest, RunsTransactionsAndLetsEverythingGo) {
  for (const char* member : {"BeginTrans", "CommitTrans", "RollbackTrans"}) {
    connection->Answer(member, Variant::Of(1));
  }
  {
    session::Transaction kept(session.Connection());
    kept.Commit();
    const session::Transaction dropped(session.Connection());
  }
  EXPECT_THAT(connection->calls, ElementsAre("BeginTrans", "CommitTrans", "BeginTrans", "RollbackTrans"));
  { const auto read = session.Connection().Execute("SELECT"); }
  EXPECT_EQ(recordset->References(), 1U);
}

}  // namespace
}  // namespace com
