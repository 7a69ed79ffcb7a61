#include "reminders/frmReminderOptions.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "reminders/mail_message.h"
#include "support/practice_host.h"

namespace {

using host::frmReminderOptions;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ReminderOptions : public testing::Test {
 protected:
  void Type(frmReminderOptions& form, frmReminderOptions::Option option, std::string_view text) {
    form.DoFocus(form.txtOption.at(option));
    form.txtOption.at(option).DoType(text);
  }
  // Presses OK; what was told when it did not close.
  std::vector<std::string> Refusal(frmReminderOptions& form) {
    host_.user.told.clear();
    form.DialogButtons1.OK.DoClick();
    EXPECT_FALSE(form.Closed());
    return host_.user.told;
  }
  host::Outbox Box() const { return host::Outbox(folder_); }
  void TearDown() override { std::filesystem::remove_all(folder_); }
  host::ReminderSettings Stored() const { return host::ReadReminderSettings(host_.session); }

  const std::string folder_ =
      (std::filesystem::temp_directory_path() / ("options" + std::to_string(host::ThisProcess().number))).string();
  test_support::PracticeHost host_{host::CreatePractice("sqlite::memory:")};
};

TEST_F(ReminderOptions, AreTakenWhenTheyCanBeUsed) {
  frmReminderOptions form(host_.Context(), Box());
  form.Load();
  EXPECT_EQ(form.lblMail.Caption.get(), "E-mails go to the outbox.");
  Type(form, form.kServer, "mail example");
  EXPECT_THAT(Refusal(form), ElementsAre("[ mail example ] is not the name of a server."));
  Type(form, form.kServer, "mail.example:587");
  EXPECT_THAT(Refusal(form), ElementsAre(HasSubstr("The port has a field of its own.")));
  Type(form, form.kServer, " mail.example ");
  Type(form, form.kPort, "70000");
  EXPECT_THAT(Refusal(form), ElementsAre(HasSubstr("is not a port")));
  Type(form, form.kPort, "2525");
  Type(form, form.kSender, "'; DROP TABLE");
  EXPECT_THAT(Refusal(form), ElementsAre(HasSubstr("is not a valid e-mail address")));
  EXPECT_TRUE(form.txtOption[form.kSender].HasFocus());
  Type(form, form.kSender, "desk@bay.example");
  Type(form, form.kSenderName, "'; DROP TABLE \u2603");
  for (const char* hook :
       {"ftp://texts.example", "https://", "file:///etc", "https://a b", "http://localhost@texts.example"}) {
    Type(form, form.kHook, hook);
    EXPECT_THAT(Refusal(form), ElementsAre(HasSubstr("is not an address of the web"))) << hook;
  }
  Type(form, form.kHook, "");
  Type(form, form.kToken, std::string(4096, 't'));
  EXPECT_THAT(Refusal(form), ElementsAre("Please type the web hook too."));
  EXPECT_EQ(form.txtOption[form.kToken].Text->size(), 4096U);
  Type(form, form.kHook, "https://texts.example/send");
  Type(form, form.kConfirmation, "confirm.example");
  EXPECT_THAT(Refusal(form), ElementsAre(HasSubstr("is not an address of the web")));
  Type(form, form.kConfirmation, "https://confirm.example");
  Type(form, form.kTextReply, "Reply C\r\nor call '; DROP TABLE");
  Type(form, form.kToken, "t\u00F6ken");
  EXPECT_THAT(Refusal(form), ElementsAre(HasSubstr("The token")));
  EXPECT_EQ(Stored(), host::ReminderSettings());
  Type(form, form.kToken, "t0ken");
  EXPECT_EQ(form.lblMail.Caption.get(), "E-mails go to mail.example, port 2525, encrypted.");
  form.DialogButtons1.OK.DoClick();
  EXPECT_TRUE(form.Closed());
  const host::ReminderSettings stored = Stored();
  EXPECT_EQ(stored.server + "|" + std::to_string(stored.port) + "|" + stored.sender_name + "|" + stored.token,
            "mail.example|2525|'; DROP TABLE \u2603|t0ken");
  EXPECT_EQ(host_.session.OfficeSetting("REMINDERS", "CONFIRMATION_ADDRESS"), "https://confirm.example");
  EXPECT_EQ(host_.session.OfficeSetting("REMINDERS", "TEXT_INSTRUCTIONS"), "Reply C\r\nor call '; DROP TABLE");
}

TEST_F(ReminderOptions, NeverShowAPasswordNorTakeItElsewhere) {
  host::ReminderSettings settings{.server = "mail.example",
                                  .user = "ann",
                                  .password = " s3cret ",
                                  .sender = "a@b.example",
                                  .hook = "https://texts.example",
                                  .token = "t0ken"};
  host::WriteReminderSettings(host_.session, settings);
  frmReminderOptions form(host_.Context(), Box());
  form.Load();
  EXPECT_THAT(form.txtOption[form.kPassword].Text.get() + form.txtOption[form.kToken].Text.get(), IsEmpty());
  Type(form, form.kSenderName, "Bay");
  EXPECT_TRUE(form.DoKey(forms::Key::CtrlS));
  settings.sender_name = "Bay";
  EXPECT_EQ(Stored(), settings);
  Type(form, form.kServer, "thief.example");
  EXPECT_THAT(Refusal(form), ElementsAre(HasSubstr("type the password again")));
  Type(form, form.kPassword, "n3w");
  Type(form, form.kHook, "https://thief.example");
  EXPECT_THAT(Refusal(form), ElementsAre(HasSubstr("type the token again")));
  Type(form, form.kToken, "n3w");
  // Unencrypted only when the person means it.
  form.cboSecurity.DoPick(2);
  EXPECT_THAT(Refusal(form), ElementsAre(HasSubstr("others can read them")));
  EXPECT_EQ(Stored(), settings);
  // A password that is typed is not lost for want of a user; without both there is none.
  Type(form, form.kUser, "");
  EXPECT_THAT(Refusal(form), ElementsAre("Please type the user name too."));
  EXPECT_EQ(form.txtOption[form.kPassword].Text.get(), "n3w");
  Type(form, form.kPassword, "");
  host_.user.answers = [](const forms::Message&) { return forms::Answer::OK; };
  form.DialogButtons1.OK.DoClick();
  EXPECT_TRUE(form.Closed());
  EXPECT_EQ(Stored().password + "|" + Stored().token, "|n3w");
}

TEST_F(ReminderOptions, LetTheMailServerGoWithItsPassword) {
  host::WriteReminderSettings(host_.session,
                              {.server = "mail.example", .user = "ann", .password = "s3cret", .sender = "a@b.example"});
  frmReminderOptions form(host_.Context(), Box(), "no answer");
  form.Load();
  Type(form, form.kServer, "");
  EXPECT_TRUE(form.DoKey(forms::Key::CtrlS));
  EXPECT_EQ(Stored().server + Stored().password, "");
  EXPECT_FALSE(form.lblProblem.Visible);
}

TEST_F(ReminderOptions, ShowWhatWaitsInTheOutboxAndDeleteIt) {
  const host::MailMessage mail{.from = "a@b.example",
                               .from_name = {},
                               .to = "c@d.example",
                               .subject = "Se\u00F1or \u2603",
                               .text = "<p>It is <b>time</b> = \u00FC " + std::string(100, 'x') + "</p>",
                               .sent = {},
                               .id = "1"};
  ASSERT_TRUE(Box().Put(host_.session.Now(), ".eml", host::SourceOf(mail)));
  frmReminderOptions form(host_.Context(), Box());
  form.Load();
  EXPECT_EQ(form.txtMessage.Text.get(), "To: <c@d.example>\r\nSubject: Se\u00F1or \u2603\r\n\r\nIt is time = \u00FC " +
                                            std::string(100, 'x') + "\r\n");
  form.cmdFolder.DoClick();
  EXPECT_THAT(host_.user.told, ElementsAre(HasSubstr("cannot be shown")));
  host_.user.answers = [](const forms::Message&) { return forms::Answer::No; };
  form.cmdDelete.DoClick();
  EXPECT_EQ(Box().List().size(), 1U);
  host_.user.answers = [](const forms::Message&) { return forms::Answer::Yes; };
  form.cmdDelete.DoClick();
  EXPECT_THAT(Box().List(), IsEmpty());
  EXPECT_FALSE(form.cmdDelete.Usable());
}

TEST_F(ReminderOptions, AreOnlyLookedAtWithoutTheRight) {
  host_.session.without_rights = true;
  frmReminderOptions form(host_.Context(), Box(), "no answer");
  form.Load();
  EXPECT_EQ(form.lblProblem.Caption.get(), "The last message was not sent: no answer");
  Type(form, form.kServer, "mail.example");
  EXPECT_THAT(host_.user.told, testing::Contains("User [Ann] does not have the rights to modify reminder options."));
  EXPECT_THAT(form.txtOption[form.kServer].Text.get(), IsEmpty());
  EXPECT_FALSE(form.cboSecurity.Usable());
  form.DialogButtons1.OK.DoClick();
  EXPECT_TRUE(form.Closed());
}

}  // namespace
