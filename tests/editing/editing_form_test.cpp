#include "editing/editing_form.h"

#include "forms/text_box.h"
#include "support/fake_host.h"

namespace {

using editing::EditingForm;
using forms::Answer;

struct AskedUser : test_support::FakeUser {
  std::vector<Answer> answers;
  std::vector<forms::Message> asked;

  Answer Ask(const forms::Message& message) override {
    asked.push_back(message);
    if (message.buttons.size() == 1) {
      return Answer::OK;
    }
    const Answer answer = answers.front();
    answers.erase(answers.begin());
    return answer;
  }
};

// One field, saved in three steps.
class NoteForm : public EditingForm {
 public:
  explicit NoteForm(const session::ScreenContext& context) : EditingForm("NoteForm", context) {
    Caption = "Note";
    Add("Text1", Text1);
    const auto differs = [this] { return Differs(); };
    OnSave(differs, [this] { Step("first"); });
    OnSave([] { return false; }, [this] { Step("never due"); });
    OnSave(differs, [this] { Step("second"); });
    OnSave(differs, [this] { Step("third"); });
  }

  forms::TextBox Text1;
  std::vector<std::string> steps;
  std::string stops_at;
  std::function<void()> on_read = [] {};
  bool offers_to_save = true;

  using EditingForm::Hold;
  using EditingForm::Readable;
  using EditingForm::Save;
  using EditingForm::Unsaved;

 protected:
  void Read() override {
    on_read();
    read_ = Text1.Text;
  }
  bool Differs() const override { return Text1.Text != read_; }
  ClosingQuestion OnClosing() const override {
    return offers_to_save ? ClosingQuestion{.text = "Save now?", .offers_to_save = true} : EditingForm::OnClosing();
  }

 private:
  void Step(const std::string& name) {
    if (name == stops_at) {
      throw session::DatabaseError("the server went away", "UPDATE", 1);
    }
    steps.push_back(name);
    read_ = Text1.Text;  // the row equals the screen from the first step on
  }

  std::string read_;
};

class EditingFormTest : public testing::Test {
 protected:
  struct LockedSession : test_support::FakeSession {
    std::optional<session::RecordHolder> holder;
    bool keeps = true;
    bool supervisor = false;
    std::optional<session::RecordHolder> HoldRecord(std::string_view, std::int32_t) override { return holder; }
    std::optional<session::RecordHolder> TakeRecordOver(std::string_view, std::int32_t) override {
      return std::exchange(holder, std::nullopt), holder;
    }
    bool KeepsRecord(std::string_view, std::int32_t) override { return keeps; }
    std::optional<session::RecordHolder> HeldByAnother(std::string_view, std::int32_t) const override { return holder; }
    bool HasRight(std::string_view right) const override { return right != session::kSupervisorRight || supervisor; }
  };
  LockedSession session_;
  AskedUser user_;
  test_support::FakeScreens screens_;
  NoteForm form_{{session_, user_, screens_}};
};

TEST_F(EditingFormTest, ASaveThatStoppedGoesOnWhereItStopped) {
  form_.Load();
  form_.Text1.DoType("new");
  form_.stops_at = "second";
  EXPECT_FALSE(form_.Save());
  EXPECT_THAT(user_.asked.back().text, testing::HasSubstr("the server went away"));
  EXPECT_TRUE(form_.Unsaved()) << "though no field differs any more";
  EXPECT_TRUE(form_.Saved) << "something is in the database";
  form_.stops_at.clear();
  EXPECT_TRUE(form_.Save());
  EXPECT_THAT(form_.steps, testing::ElementsAre("first", "second", "third"));
  EXPECT_FALSE(form_.Unsaved());
}

TEST_F(EditingFormTest, AFieldThatIsNoValueOfItsFormatIsToldAndGetsTheFocus) {
  data::RecordBinding record(session_, "PATable", "pID");
  record.Bind(form_.Text1, "pBIRDAT", data::kDate);
  EXPECT_TRUE(form_.Readable(record));
  form_.Text1.Text = std::string(10000, '9');
  EXPECT_FALSE(form_.Readable(record));
  EXPECT_EQ(user_.asked.back().text, "[ " + std::string(40, '9') + " ] is not a valid date.");
  EXPECT_TRUE(form_.Text1.HasFocus());
}

TEST_F(EditingFormTest, AsksOnClosingInItsOwnWordsAndDoesWhatTheAnswerMeans) {
  form_.Load();
  form_.Text1.DoType("new");
  user_.answers = {Answer::Cancel, Answer::Yes};
  EXPECT_FALSE(form_.DoClose());
  EXPECT_TRUE(form_.DoClose());
  EXPECT_EQ(form_.steps.size(), 3U) << "Yes saves";
  EXPECT_EQ(user_.asked.front().text, "Save now?");

  NoteForm plain({session_, user_, screens_});
  plain.offers_to_save = false;
  plain.Load();
  EXPECT_FALSE(plain.Unsaved());
  plain.Text1.DoType("new");
  user_.answers = {Answer::No, Answer::Yes};
  EXPECT_FALSE(plain.DoClose());
  EXPECT_TRUE(plain.DoClose());
  EXPECT_TRUE(plain.steps.empty()) << "Yes leaves without saving";
  EXPECT_EQ(user_.asked.back().text, "Are you sure that you want to exit without saving the changes?");
  EXPECT_EQ(user_.asked.back().Default(), Answer::No);
}

TEST_F(EditingFormTest, TellsOfAPartOnClosingOnlyWhereAStepEndedWell) {
  form_.offers_to_save = false;
  form_.Load();
  form_.Text1.DoType("new");
  user_.answers = {Answer::No, Answer::Cancel};
  form_.stops_at = "first";
  EXPECT_FALSE(form_.Save());
  EXPECT_FALSE(form_.DoClose());
  EXPECT_THAT(user_.asked.back().text, testing::StartsWith("Are you sure"));
  form_.stops_at = "third";
  EXPECT_FALSE(form_.Save());
  EXPECT_FALSE(form_.DoClose());
  EXPECT_THAT(user_.asked.back().text, testing::HasSubstr("saved only in part"));
}

TEST_F(EditingFormTest, ARecordThatAnotherHoldsIsOnlyLookedAt) {
  session_.holder = {{"Bob", "FRONT-DESK"}};
  form_.on_read = [this] {
    form_.Text1.Text = std::string("kept");
    form_.Hold("PATABLE", 5);
  };
  form_.Load();
  EXPECT_EQ(form_.Caption.get(), "Note - Read only (Bob on FRONT-DESK)");
  form_.Text1.DoType("other");
  EXPECT_TRUE(form_.Text1.DoKey(forms::Key::Delete));
  EXPECT_EQ(form_.Text1.Text.get(), "kept");
  ASSERT_EQ(user_.asked.size(), 2U) << "once for the typing, once for the key";
  EXPECT_EQ(user_.asked.front().text, "Read only, cannot modify.\r\nBob on FRONT-DESK is working on this record.");
  form_.Text1.Text = std::string("by a rule");
  EXPECT_TRUE(form_.DoClose()) << "nothing to save, and nothing asked";
}

TEST_F(EditingFormTest, ASupervisorMayTakeOverFromWhoIsSilent) {
  form_.on_read = [this] { form_.Hold("PATABLE", 5); };
  session_.holder = {{"Bob", "FRONT-DESK", true}};
  form_.Load();
  EXPECT_TRUE(form_.ReadOnly());
  EXPECT_TRUE(user_.asked.empty()) << "others may only look";

  session_.supervisor = true;
  NoteForm taking({session_, user_, screens_});
  taking.on_read = [&taking] { taking.Hold("PATABLE", 5); };
  user_.answers = {Answer::Yes};
  taking.Load();
  EXPECT_THAT(user_.asked.back().text, testing::StartsWith("Bob on FRONT-DESK holds this record, but"));
  EXPECT_FALSE(taking.ReadOnly());
}

TEST_F(EditingFormTest, WhatWasTakenOverIsNotSavedAndStays) {
  form_.on_read = [this] { form_.Hold("PATABLE", 5); };
  form_.Load();
  form_.Text1.DoType("new");
  session_.keeps = false;
  session_.holder = {{"Eve", "BACK-OFFICE"}};
  EXPECT_FALSE(form_.Save());
  EXPECT_THAT(user_.asked.back().text, testing::StartsWith("Eve on BACK-OFFICE has taken this record over"));
  EXPECT_TRUE(form_.steps.empty());
  EXPECT_TRUE(form_.Unsaved());
  EXPECT_EQ(form_.Text1.Text.get(), "new");
}

TEST_F(EditingFormTest, WhatEndsAnOperationIsToldAndAFailedReadCloses) {
  EXPECT_FALSE(form_.Attempt([] { throw editing::Refusal("Another user was faster."); }));
  EXPECT_FALSE(form_.Attempt([] { throw std::overflow_error("the amount is too large"); }));
  EXPECT_EQ(user_.asked[0].text, "Another user was faster.");
  EXPECT_EQ(user_.asked[1].text, "A number is too large: the amount is too large. Nothing was changed.");
  const auto fail = [] { throw session::DatabaseError("refused", "set @a=1; Delete * FROM T", 1); };
  form_.Text1.Enter = fail;
  form_.Text1.KeyDown = [&fail](forms::Key) {
    fail();
    return false;
  };
  EXPECT_TRUE(form_.Text1.DoFocus());
  EXPECT_TRUE(form_.Text1.DoKey(forms::Key::F9));
  ASSERT_EQ(user_.asked.size(), 4U);
  EXPECT_EQ(user_.asked[3].text,
            "A record could not be deleted from the database.\r\n\r\nrefused\r\n\r\n[ set @a=1; Delete * FROM T ]");
  form_.on_read = fail;
  form_.Load();
  EXPECT_TRUE(form_.Closed());
}

}  // namespace
