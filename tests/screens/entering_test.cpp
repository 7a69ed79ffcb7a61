// Who comes to a screen that is open already, to a record that another user holds, or without a right.

#include <algorithm>

#include "database/schema.h"
#include "editing/editing_form.h"
#include "entry/editing_screen.h"
#include "entry/form_catalog.h"
#include "entry/record_id.h"
#include "forms/text.h"
#include "screens/trying.h"
#include "screens/visits.h"

namespace screens_test {
namespace {

using forms::Form;
using session::Opening;
using session::Outcome;

class NewRecord : public Screen {};
class HeldRecord : public Screen {};

INSTANTIATE_TEST_SUITE_P(Every, NewRecord, testing::ValuesIn(WaysThat([](const Way& way) {
                           return way.kind && way.how.starts_with("New");
                         })),
                         WayName);
INSTANTIATE_TEST_SUITE_P(Every, HeldRecord, testing::ValuesIn(WaysThat([](const Way& way) {
                           return way.holds || (way.saves && way.OnExisting());
                         })),
                         WayName);
// Every way in to the open screen leads nowhere, and is told by who can tell it best.
void TryToOpenAgain(Desk& desk, const Way& way) {
  const int shown = desk.User().shown;
  desk.User().told.clear();
  EXPECT_EQ(entry::EditRecord(desk.Context(), Opening::New(*way.kind)).end, Outcome::End::AlreadyOpen);
  if (!entry::PersonKey(*way.kind).empty()) {
    entry::EditingScreen second(desk.User());
    second.SetPV({std::shared_ptr<void>(), &desk.Session()});
    std::string id = "NEW";
    second.PaTable_Edit_Start(std::string(entry::PersonKey(*way.kind)), id);
    second.SetPV(nullptr);
    EXPECT_EQ(id, "ALREADY_OPEN");
  }
  EXPECT_THAT(desk.User().told, testing::IsEmpty());
  EXPECT_EQ(desk.Context().screens.Edit(Opening::Existing(*way.kind, 1)).end, Outcome::End::AlreadyOpen);
  const auto by_name = entry::MakeForm(way.form, desk.Context());
  by_name->Load();
  EXPECT_TRUE(by_name->Closed());
  EXPECT_THAT(desk.User().told, testing::Each(testing::HasSubstr("is open already")));
  EXPECT_EQ(desk.User().told.size(), 2U);
  EXPECT_EQ(desk.User().shown, shown);
}

TEST_P(NewRecord, IsOpenedOnceAtATime) {
  struct Thrown {};
  Desk desk;
  for (int time = 0; time < 2; ++time) {
    Open(desk, way.open, [&](Form& form) {
      TryToOpenAgain(desk, way);
      EXPECT_FALSE(form.Closed());
    });
    EXPECT_THAT(desk.User().waits, testing::Contains("  Loading Editing Screen - Please Wait  "));
    desk.User().acts = [](Form&) { throw Thrown(); };
    EXPECT_THROW(way.open(desk), Thrown);
    EXPECT_EQ(entry::OpenScreenOf(*way.kind), nullptr);
  }
}

std::map<std::string, std::string> AllTexts(const Form& form) {
  auto all = BoundTexts(form);
  all.merge(Texts(form));
  return all;
}

struct Untouched {
  std::vector<std::pair<std::string, std::int32_t>> locks;
  std::map<std::string, std::string> texts;
};

Untouched LookAt(const Way& way) {
  Untouched untouched;
  Desk desk;
  desk.Session().hear = [&](const std::string& sql) {
    const bool list = sql.find(" ORDER BY ") != std::string::npos;  // that the record is chosen from
    EXPECT_TRUE(list || !desk.Locks().empty()) << "read before it is held: " << sql;
  };
  Open(desk, way.open, [&](Form& form) {
    desk.Session().hear = nullptr;
    untouched = {desk.Locks(), AllTexts(form)};
  });
  return untouched;
}

// Whatever is tried changes nothing, and who types is told why.
void ExpectOnlyLookedAt(const Way& way, const Untouched& untouched, const std::function<void(Desk&)>& prepare,
                        const std::string& told) {
  std::vector<std::string> writes;
  TryAll(
      way, session::kOfficeScoped,
      [&](Desk& desk) {
        prepare(desk);
        desk.Session().hear = [&](const std::string& sql) {
          const bool names_kind = sql.starts_with("UPDATE IDTypTable ");  // the office's, at each load
          if (!forms::EqualsIgnoringCase(forms::Left(sql, 6), "select") && !names_kind) {
            writes.push_back(sql);
          }
        };
      },
      [&](Desk& desk, Form& form, const std::string& what) {
        EXPECT_THAT(writes, testing::IsEmpty()) << what;
        EXPECT_EQ(AllTexts(form), untouched.texts) << what;
        if (what.ends_with(" type")) {
          EXPECT_THAT(desk.User().told.back(), testing::MatchesRegex(told)) << what;
        }
      });
}

TEST_P(HeldRecord, IsOnlyLookedAt) {
  const Untouched untouched = LookAt(way);
  ASSERT_THAT(untouched.locks, testing::Not(testing::IsEmpty())) << "the screen does not hold its record";
  const auto hold_all = [&](Desk& desk) {
    for (const auto& [table, id] : untouched.locks) {
      desk.HoldElsewhere(table, id);
    }
  };
  ExpectOnlyLookedAt(way, untouched, hold_all, "Read only, cannot modify.\r\nBob on .+");
}

// Where the screen is none to look at without rights, each of its actions has its own.
TEST_P(HeldRecord, IsOnlyLookedAtWithoutTheRight) {
  bool looks = false;
  {
    Desk desk;
    desk.Session().without_rights = true;
    Open(desk, way.open, [&](Form& form) {
      const auto* screen = dynamic_cast<const editing::EditingForm*>(&form);
      looks = screen != nullptr && screen->ReadOnly();
    });
  }
  if (looks) {
    ExpectOnlyLookedAt(
        way, LookAt(way), [](Desk& desk) { desk.Session().without_rights = true; },
        "User .+ does not have the rights to modify .+");
  }
}

std::string RowOf(Desk& desk, const std::pair<std::string, std::int32_t>& lock) {
  const auto& [table, id] = lock;
  const auto row = desk.Session().Connection().Execute("SELECT * FROM " + table + " WHERE " +
                                                       std::string(host::FindTable(table)->key) + "=" +
                                                       std::to_string(id) + " AND OfficeID=2");
  std::string text;
  for (std::size_t i = 0; !row->Eof() && i < row->Fields().size(); ++i) {
    text += session::ToText(row->Get(i)) + "|";
  }
  return text;
}

// A screen that holds several records: whatever it still changes, it does not change that one.
TEST_P(HeldRecord, IsNotChangedWhereItIsAPartOfAnother) {
  const Untouched untouched = LookAt(way);
  if (untouched.locks.size() < 2) {
    return;
  }
  for (const auto& lock : untouched.locks) {
    SCOPED_TRACE(lock.first);
    std::string before;
    TryAll(
        way, session::kOfficeScoped,
        [&](Desk& desk) {
          desk.HoldElsewhere(lock.first, lock.second);
          before = RowOf(desk, lock);
        },
        [](Desk&, Form&, const std::string&) {},
        [&](Desk& desk) {
          Open(desk, way.open, [](Form& form) {
            FillIn(form, kPlain);
            PressOK(form);
          });
          EXPECT_EQ(RowOf(desk, lock), before);
        });
  }
}

}  // namespace
}  // namespace screens_test
