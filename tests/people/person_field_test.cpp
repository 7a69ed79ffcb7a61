#include "people/person_field.h"

#include "editing/name_search.h"
#include "forms/form.h"
#include "forms/label.h"
#include "support/practice_host.h"

namespace {

constexpr int kReferrals = 10'000;

struct Sample : forms::Form {
  explicit Sample(const session::ScreenContext& context)
      : Form("Sample"),
        Name_List(context),
        Referral(context,
                 {.word = "Referral",
                  .whose = "his",
                  .right = {},
                  .right_what = {},
                  .type = "pTypRef",
                  .record = session::RecordKind::Referral,
                  .list = session::lulReferral},
                 txtReferral, cmdReferral, lblReferral) {
    Add("txtReferral", txtReferral);
    Add("cmdReferral", cmdReferral);
    Add("lblReferral", lblReferral);
    Add("Name_List", Name_List);
    Name_List.Attach(Referral);
  }

  forms::TextBox txtReferral;
  forms::Button cmdReferral;
  forms::Label lblReferral;
  editing::NameSearch Name_List;
  people::PersonField Referral;
};

TEST(PersonField, IsSearchedAmongThousandsWithoutReadingThemAll) {
  test_support::PracticeHost host{host::CreatePractice("sqlite::memory:")};
  host.session.Connection().Execute(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(kReferrals) +
      ") INSERT INTO PATable (pID, pLASNAM, pFIRNAM, pTypRef) SELECT i, printf('Name%05d', i), 'Rita', '1' FROM n");
  Sample form(host.Context());
  form.lblReferral.Caption = "9000";
  form.txtReferral.DoFocus();
  forms::ComboBox& names = form.Name_List.dbcNameSearch;
  ASSERT_TRUE(names.HasFocus());
  EXPECT_EQ(names.Items->size(), 100U);
  EXPECT_EQ(names.ListIndex, -1) << "his own has not arrived yet";

  names.DoEdit("name090");
  EXPECT_EQ(names.Items->size(), 100U);
  EXPECT_EQ(names.Items->front().text, "Name09000, Rita --- 9000");
  EXPECT_EQ(names.Marked(), 0);
  EXPECT_EQ(names.Text, "name090");
  names.DoStep(1);
  names.DoKey(forms::Key::Enter);
  EXPECT_EQ(form.txtReferral.Text, "Name09001, Rita");

  form.txtReferral.DoFocus();
  while (form.DoIdle()) {
  }
  EXPECT_EQ(names.Items->size(), std::size_t{kReferrals});
  EXPECT_EQ(names.Text, "Name09001, Rita --- 9001");

  names.DoKey(forms::Key::Esc);
  form.txtReferral.DoKey(forms::Key::Down);
  host.user.answers = [](const forms::Message&) { return forms::Answer::Yes; };
  names.DoKey(forms::Key::Delete);
  while (form.DoIdle()) {
  }
  form.DoLeave();
  EXPECT_EQ(form.lblReferral.Caption, "") << "removed before he had arrived, he does not come back";
}

}  // namespace
