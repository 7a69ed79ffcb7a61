#include "recall/template_sample.h"

#include "forms/rich_text.h"
#include "recall/confirmation_link.h"
#include "recall/generic_messages.h"
#include "recall/reply_instructions.h"
#include "support/practice_host.h"

namespace recall {
namespace {

using data::ContactMethod;
using data::ReminderKind;

struct Office : test_support::PracticeHost {
  Office() : PracticeHost(host::CreatePractice("sqlite::memory:")) {
    session.Connection().Execute(
        "UPDATE OffLocTable SET OffLocNam = 'Smith & {Sons}', OffLocPho = '(555) 010-2000', OffLocAd1 = '1 Elm', "
        "OffLocCit = 'Troy', OffLocZip = '12180';"
        "INSERT INTO OffLocTable (OffLocNam, OfficeID) VALUES ('Another office', 0);"
        "INSERT INTO PATable (pID, pFirNam, pLasNam, pTTL) VALUES (5, 'Ann', 'Roe', 'Dr.')");
    session.SetOfficeSetting("DEFAULT_OFFICE_SETUP", "OFF_PRA_PRO", "5");
  }
  std::string Merge(std::string_view text, const TemplateSample::Of& of) {
    return TemplateSample(session, of).Merge(text);
  }
};

TEST(TemplateSample, IsFromTheRealOffice) {
  Office office;
  const std::string text = "{Office Name}|{Location Address for Map}|{Provider Title} {Provider Last Name}";
  EXPECT_EQ(office.Merge(text, {}), "Smith & Sons|1 Elm, Troy, 12180|Dr. Roe");
  EXPECT_EQ(office.Merge(text, {.method = ContactMethod::Email}), "Smith &amp; Sons|1 Elm, Troy, 12180|Dr. Roe");
  EXPECT_EQ(office.Merge("{Appointment Date} {Appointment Day of the Week}",
                         {.stage = {.number = 3, .unit = forms::PeriodUnit::Days}}),
            "11/24/2026 Tuesday");
  EXPECT_EQ(office.Merge("{Recall Due Date} {Last Recall Date} {Recall Period}",
                         {.stage = {.number = -1, .unit = forms::PeriodUnit::Months},
                          .total = {.number = 1, .unit = forms::PeriodUnit::Years}}),
            "10/22/2026 10/22/2025 1 year");
  EXPECT_EQ(office.Merge("{Recall Due Date}", {.stage = {.number = 2147483647, .unit = forms::PeriodUnit::Years}}),
            office.Merge("{Recall Due Date}", {.stage = {.number = 9999, .unit = forms::PeriodUnit::Years}}));
}

TEST(TemplateSample, LinksToTheOfficesService) {
  Office office;
  const TemplateSample::Of text{.kind = ReminderKind::Confirmation};
  const TemplateSample::Of email{.kind = ReminderKind::Confirmation, .method = ContactMethod::Email};
  EXPECT_EQ(office.Merge(kConfirmationLink, text), "Click to confirm\r\nhttps://confirm.example.com/c/12345");
  office.session.SetOfficeSetting(kReminderSection, kConfirmationAddress, " https://c.example/x?a=1&b=2// ");
  EXPECT_EQ(office.Merge(kConfirmationLink, email),
            "Please call us at (555) 010-2000 or <a href=\"https://c.example/x?a=1&amp;b=2/confirm/12345\" "
            "style=\"color:blue\">Click Here</a> to confirm your appointment.");
  // An editor that holds the link keeps its variable.
  const std::string edited = forms::WriteHtml(forms::ReadHtml(ConfirmationLink(ContactMethod::Email, "https://c.b")));
  EXPECT_NE(edited.find("<a href=\"https://c.b/confirm/{Appointment ID}\">"), std::string::npos) << edited;
  for (const char* wrong : {"javascript:alert(1)", "https://", "mailto:a@b", "https://a\" onclick=\"x", "confirm"}) {
    office.session.SetOfficeSetting(kReminderSection, kConfirmationAddress, wrong);
    EXPECT_EQ(ConfirmationAddress(office.session), "") << wrong;
  }
  EXPECT_EQ(ConfirmationLink(ContactMethod::PostCard, "https://c.b"),
            "Please call us at {Office Phone} to confirm your appointment.");
}

TEST(TemplateSample, InstructionsFollowOnce) {
  Office office;
  const auto instructions = [&office](ContactMethod method) {
    return ReplyInstructions(office.session, ReminderKind::Confirmation, method);
  };
  EXPECT_EQ(instructions(ContactMethod::TextMessage), kConfirmationLink);
  EXPECT_EQ(instructions(ContactMethod::PostCard), "");
  office.session.SetOfficeSetting(kReminderSection, kTextInstructions, "Reply Y");
  office.session.SetOfficeSetting(kReminderSection, kEmailInstructions, "Answer <us>");
  const std::string text = WithInstructions("Hi", instructions(ContactMethod::TextMessage), ContactMethod::TextMessage);
  EXPECT_EQ(text, "Hi\r\nReply Y");
  EXPECT_EQ(WithInstructions(text, "Reply Y", ContactMethod::TextMessage), text);
  EXPECT_EQ(WithInstructions("<body>Hi</BODY>", instructions(ContactMethod::Email), ContactMethod::Email),
            "<body>Hi<p>Answer &lt;us&gt;</p></BODY>");
  EXPECT_EQ(WithInstructions("", "Reply Y", ContactMethod::TextMessage), "");
}

TEST(TemplateSample, GenericMessagesAreWhole) {
  Office office;
  EXPECT_EQ(office.Merge(GenericMessage(ReminderKind::Confirmation, ContactMethod::Voice, Language::Spanish),
                         {.method = ContactMethod::Voice}),
            "Maria Sample tiene una cita con el Dr. Roe el 11/28/2026 a las 10:30 am. Marque el numero 1 para "
            "confirmar.");
  EXPECT_EQ(GenericMessage(ReminderKind::Recall, ContactMethod::TextMessage, Language::Spanish),
            "{Patient Full Name}, Es tiempo para su {Recall Title} con el {Provider Title} {Provider Last Name}. Favor "
            "de llamar a la officina al numero {Office Phone} para fijar su cita.");
  EXPECT_EQ(forms::PlainText(
                forms::ReadHtml(GenericMessage(ReminderKind::Birthday, ContactMethod::Email, Language::English))),
            "Dear {Patient First Name}\r\nOn behalf of everyone at our office we want to wish you a very HAPPY "
            "BIRTHDAY!! It is during occasions such as this that we have an opportunity to let you know you are "
            "special to us.\r\nHave a wonderful birthday!\r\nSincerely,\r\nDr. {Provider Full Name} and staff");
  for (const ReminderKind kind : data::kReminderKinds) {
    for (const ContactMethod method : data::kContactMethods) {
      for (const Language language : {Language::English, Language::Spanish}) {
        const std::string message = GenericMessage(kind, method, language);
        const bool has_one = method == ContactMethod::Letter
                                 ? TemplateCodeOf(kind) == "BDR" || kind == ReminderKind::NewsLetter
                             : method == ContactMethod::Phone ? false
                                                              : kind != ReminderKind::NewsLetter;
        EXPECT_EQ(!message.empty(), has_one) << static_cast<int>(kind) << " " << static_cast<int>(method);
      }
    }
  }
}

}  // namespace
}  // namespace recall
