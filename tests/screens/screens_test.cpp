// What every screen does because it is one.

#include <algorithm>

#include "database/schema.h"
#include "entry/form_catalog.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/user_control.h"
#include "screens/trying.h"
#include "screens/visits.h"

namespace screens_test {
namespace {

using forms::Answer;
using forms::Form;
using session::Outcome;

bool WasToldOfRefusal(Desk& desk) {
  return std::ranges::any_of(desk.User().told, [](const std::string& text) { return Has(text, "was refused"); });
}

struct WayOut {
  std::string name;
  std::function<void(Form&)> leave;
};
std::vector<WayOut> WaysOut() {
  return {{"Cancel", [](Form& form) { PressCancel(form); }}, {"Esc", PressEsc}, {"the close box", [](Form& form) {
                                                                                   form.DoClose();
                                                                                 }}};
}

class SavingScreen : public Screen {};
class SavingSteps : public Screen {};
class SavedRecord : public Screen {};
class ExistingRecord : public Screen {};

INSTANTIATE_TEST_SUITE_P(Every, Screen, testing::ValuesIn(AllWays()), WayName);
INSTANTIATE_TEST_SUITE_P(Every, SavingScreen, testing::ValuesIn(WaysThat([](const Way& way) { return way.saves; })),
                         WayName);
INSTANTIATE_TEST_SUITE_P(Every, SavingSteps,
                         testing::ValuesIn(WaysThat([](const Way& way) { return way.saves && way.first; })), WayName);
INSTANTIATE_TEST_SUITE_P(Every, ExistingRecord,
                         testing::ValuesIn(WaysThat([](const Way& way) { return way.OnExisting(); })), WayName);
INSTANTIATE_TEST_SUITE_P(Every, SavedRecord,
                         testing::ValuesIn(WaysThat([](const Way& way) { return way.OnExisting() && way.saves; })),
                         WayName);

TEST_P(Screen, KnowsItsControlsAndStartsOnOne) {
  Desk desk;
  bool opened = false;
  Open(desk, way.open, [&](Form& form) {
    opened = true;
    EXPECT_EQ(form.Name(), way.form);
    ASSERT_FALSE(form.Closed()) << testing::PrintToString(desk.User().told);
    const forms::Control* active = form.ActiveControl();
    EXPECT_TRUE(active != nullptr && active->Usable() && active->TakesFocus());
    for (const forms::Control* control : form.Controls()) {
      EXPECT_EQ(form.Find(control->Name()), control) << control->Name() << " is there twice";
      const auto* grid = dynamic_cast<const forms::Grid*>(control);
      EXPECT_TRUE(grid == nullptr || grid->RestoreLayout) << control->Name() << " keeps no layout";
      for (const forms::Control* other : {static_cast<const forms::Control*>(control->Container),
                                          static_cast<const forms::Control*>(control->Heading)}) {
        EXPECT_TRUE(other == nullptr || form.Find(other->Name()) == other) << "beside " << control->Name();
      }
    }
  });
  EXPECT_TRUE(opened);
}

TEST_P(Screen, ClosesUntouchedWithoutAQuestionOrATrace) {
  for (const WayOut& out : WaysOut()) {
    SCOPED_TRACE(out.name);
    Desk desk;
    const Outcome outcome = Open(desk, way.open, [&](Form& form) {
      desk.User().told.clear();
      out.leave(form);
      EXPECT_TRUE(form.Closed());
    });
    EXPECT_THAT(desk.User().told, testing::IsEmpty());
    EXPECT_THAT(desk.Locks(), testing::IsEmpty());
    EXPECT_FALSE(outcome.Saved());
  }
}

// Every statement, every second, every third.
TEST_P(Screen, TellsOfEveryRefusedStatement) {
  for (const int every : {1, 2, 3}) {
    SCOPED_TRACE("every statement of " + std::to_string(every));
    int heard = 0;
    std::string refused;
    TryAll(
        way, session::kOfficeScoped,
        [&](Desk& desk) {
          heard = every == 1 ? -1000 : 0;  // the screen opens first
          desk.Session().hear = [&, every](const std::string& sql) {
            if (++heard > 0 && heard % every == 0) {
              refused = sql;
              throw session::DatabaseError("was refused", sql, 1);
            }
          };
        },
        [&](Desk& desk, Form&, const std::string& what) {
          heard = std::max(heard, 0);
          EXPECT_TRUE(refused.empty() || WasToldOfRefusal(desk)) << what << " did not tell of " << refused;
          refused.clear();
          desk.User().told.clear();
        });
  }
}

TEST_P(Screen, KeepsToItsOffice) {
  for (const std::int32_t kind : {session::kOfficeScoped, session::kFileDatabase}) {
    const std::string other = kind == session::kOfficeScoped ? " WHERE OfficeID<>2" : " WHERE 1=0";
    const Rows others = Desk(kind).AllRows(other);
    TryAll(
        way, kind,
        [kind](Desk& desk) {
          desk.Session().hear = [kind](const std::string& sql) {
            const bool asks_of_the_database = Has(sql, "from INFORMATION_SCHEMA");  // which no office owns
            EXPECT_TRUE(asks_of_the_database || Has(sql, "OfficeID") == (kind == session::kOfficeScoped)) << sql;
          };
        },
        [](Desk&, Form&, const std::string&) {},
        [&](Desk& desk) { EXPECT_EQ(Difference(others, desk.AllRows(other)), "") << "rows of another office"; });
  }
}

// What a save with nothing in its way leaves.
struct Left {
  std::string rows;
  std::map<std::string, std::string> texts;
};

Left Save(const Way& way, const std::string& text) {
  Desk desk;
  const Rows before = desk.AllRows();
  Left left;
  std::map<std::string, std::string> typed;
  const Outcome outcome = Open(desk, way.open, [&](Form& form) {
    FillIn(form, text);
    typed = Texts(form);
    PressOK(form);
    EXPECT_TRUE(form.Closed()) << testing::PrintToString(desk.User().told);
  });
  EXPECT_TRUE(outcome.Saved());
  EXPECT_THAT(desk.Locks(), testing::IsEmpty());
  left.rows = Difference(before, desk.AllRows());
  Open(
      desk, [&](Desk&) { return way.OpenAgain(desk, outcome), outcome; },
      [&](Form& form) { left.texts = Texts(form); });
  EXPECT_EQ(left.texts, typed);
  return left;
}

TEST_P(SavingScreen, KeepsAnyTextAsItWasTyped) {
  const std::string rows = Save(way, kPlain).rows;
  const std::string controls =
      "a\x01"
      "b\x1f"
      "c\x7f"
      "d\r\ne";
  for (const std::string& text :
       {std::string("Robert'); DROP TABLE PATable; --"), std::string("100%_[a-f]*?"),
        std::string("'single' \"double\" `back` ''"), std::string("\\ \\\\ \\' \\n"), std::string("a\tb"),
        std::string("Zoë 日本 🦷"), std::string("e\u0301 o\u0308 ñ n\u0303"), std::string("\u200Fשלום\u200E abc"),
        controls, std::string("@@IDENTITY; #1/2/2020# TRUE [x]"), std::string(10000, 'x')}) {
    SCOPED_TRACE(text.substr(0, 40));
    EXPECT_EQ(Save(way, text).rows, rows);
  }
}

// The second try is by the same button, or on the way out.
TEST_P(SavingSteps, SavesOnceWhicheverStatementIsRefused) {
  const Left whole = Save(way, kPlain);
  const Rows before = Desk().AllRows();
  for (const bool closing : {false, true}) {
    bool refused = true;
    for (int last = 1; refused && !HasFailure(); ++last) {
      Desk desk;
      int heard = 0;
      refused = false;
      desk.Session().hear = [&](const std::string& sql) {
        if (++heard == last) {
          refused = true;
          throw session::DatabaseError("was refused", sql, 1);
        }
      };
      desk.Session().hear_lock = desk.Session().hear;
      const auto type_and_save = [&](Form& form) {
        if (form.Closed()) {
          return;
        }
        FillIn(form, kPlain);
        const auto typed = Texts(form);
        PressOK(form);
        if (!form.Closed()) {
          EXPECT_TRUE(refused);
          EXPECT_EQ(Texts(form), typed);
          closing ? static_cast<void>(form.DoClose()) : static_cast<void>(PressOK(form));
          EXPECT_TRUE(form.Closed());
        }
      };
      Outcome outcome = Open(desk, way.open, type_and_save);
      if (!outcome.Saved()) {
        EXPECT_TRUE(refused);
        outcome = Open(desk, way.open, type_and_save);
      }
      EXPECT_TRUE(outcome.Saved());
      EXPECT_EQ(WasToldOfRefusal(desk), refused);
      EXPECT_THAT(desk.Locks(), testing::IsEmpty());
      EXPECT_EQ(Difference(before, desk.AllRows()), whole.rows);
      if (HasFailure()) {
        ADD_FAILURE() << "statement " << last << " was refused";
      }
    }
  }
}

// Closes a screen with what was filled in; whether it saved it.
bool CloseChanged(Desk& desk, Form& form, const std::function<void(Form&)>& leave, Answer answer) {
  const auto typed = Texts(form);
  std::vector<forms::Message> asked;
  desk.User().answers = [&](const forms::Message& message) {
    asked.push_back(message);
    return Offers(message, answer) ? answer : Discard(message);
  };
  leave(form);
  desk.User().answers = Discard;
  EXPECT_FALSE(asked.empty()) << "the changes are lost without a question";
  if (asked.empty()) {
    return false;
  }
  const bool offers_to_save = Offers(asked[0], Answer::Cancel);
  EXPECT_EQ(Has(asked[0].text, "without saving"), !offers_to_save) << asked[0].text;
  EXPECT_TRUE(Offers(asked[0], Answer::Yes) && Offers(asked[0], Answer::No));
  const bool stays = answer == (offers_to_save ? Answer::Cancel : Answer::No);
  EXPECT_EQ(form.Closed(), !stays);
  if (stays) {
    EXPECT_EQ(Texts(form), typed);
  }
  return offers_to_save && answer == Answer::Yes;
}

TEST_P(SavingScreen, DoesOnClosingWhatWasAnswered) {
  const Left saved = Save(way, kPlain);
  for (const WayOut& out : WaysOut()) {
    for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
      SCOPED_TRACE(out.name + ", " + std::string(forms::Caption(answer)));
      Desk desk;
      Rows before;
      Rows filled;
      bool saves = false;
      const Outcome outcome = Open(desk, way.open, [&](Form& form) {
        before = desk.AllRows();
        FillIn(form, kPlain);
        filled = desk.AllRows();
        saves = CloseChanged(desk, form, out.leave, answer);
      });
      EXPECT_EQ(outcome.Saved(), saves);
      EXPECT_EQ(Difference(saves ? before : filled, desk.AllRows()), saves ? saved.rows : "");
      constexpr const char* kEmployer = "ELTable -0 +1, EmpTable -0 +1, ";  // added on its own screen, over this one
      EXPECT_THAT(Difference(before, filled), testing::AnyOf("", kEmployer));
      EXPECT_THAT(desk.Locks(), testing::IsEmpty());
    }
  }
}

// A field that takes any text is changed here, and its column elsewhere.
TEST_P(SavedRecord, IsNotWrittenOverAnotherUsersChangeUnasked) {
  Desk desk;
  Open(desk, way.open, [&](Form& form) {
    const auto [table, id] = desk.Locks().at(0);
    FillIn(form, kPlain);
    const auto field = std::ranges::find_if(form.Controls(), [](const forms::Control* control) {
      const auto* box = dynamic_cast<const forms::TextBox*>(control);
      return box != nullptr && !box->DataField.empty() && box->Text.get() == kPlain;
    });
    ASSERT_NE(field, form.Controls().end());
    desk.Session().Connection().Execute("UPDATE " + table + " SET " +
                                        dynamic_cast<const forms::TextBox*>(*field)->DataField + "='elsewhere' WHERE " +
                                        std::string(host::FindTable(table)->key) + "=" + std::to_string(id));
    std::string asked;
    desk.User().answers = [&](const forms::Message& message) {
      asked = message.text;
      return Has(message.text, "Another user has changed") ? Answer::Cancel : Agree(message);
    };
    PressOK(form);
    EXPECT_TRUE(Has(asked, (*field)->SpokenName() + ": yours [ 1 Elm St ], stored [ elsewhere ]")) << asked;
    EXPECT_FALSE(form.Closed());
    desk.User().answers = Discard;
  });
}

TEST_P(ExistingRecord, ThatIsNotThereIsToldAndHoldsNothing) {
  Desk desk;
  Open(
      desk,
      [this](Desk& on) { return entry::EditRecord(on.Context(), session::Opening::Existing(*way.kind, 987654321)); },
      [](Form& form) { EXPECT_TRUE(form.Closed()); });
  EXPECT_EQ(desk.User().told.size(), 1U);
  EXPECT_THAT(desk.Locks(), testing::IsEmpty());
}

TEST(Catalogue, HasAWayInToEveryForm) {
  for (const std::string& name : entry::FormNames()) {
    EXPECT_NE(std::ranges::find(AllWays(), name, &Way::form), AllWays().end()) << name;
  }
}

}  // namespace
}  // namespace screens_test
