// Two desks on a PostgreSQL server that is started again while they work.

#include "database/unix/throwaway_cluster.h"
#include "entry/form_catalog.h"
#include "practice/demo.h"
#include "screens/trying.h"
#include "screens/ways.h"

namespace screens_test {
namespace {

using forms::Form;

struct ServedDesk {
  explicit ServedDesk(const std::string& url, const std::string& user)
      : host(host::Practice(url), host::LoginRights(user, true)),
        screens(entry::MakeScreens(host.session, host.user)) {}

  // Opens the patient and does something there.
  session::Outcome Open(std::int32_t patient, const std::function<void(Form&)>& act) {
    host.user.answers = Agree;
    host.user.acts = act;
    return screens->Edit(session::Opening::Existing(session::RecordKind::Patient, patient));
  }

  test_support::PracticeHost host;
  std::unique_ptr<session::Screens> screens;
};

TEST(OnAServer, ARestartInTheMiddleOfAnEditLosesNothing) {
  host::ThrowawayCluster server{host::ThrowawayCluster::Own()};
  const std::string url = server.Url(server.MakeDatabase("desks"));
  host::MakeDemo(url, {.patients = 2, .password_cost = host::HashCost::Least});
  ServedDesk ann(url, "Ann");
  ServedDesk bob(url, "Bob");
  const std::int32_t patient = std::stoi(ann.host.Value("SELECT MIN(pID) FROM PATable WHERE pTypPat='1'"));
  const auto stored = [&] { return bob.host.Value("SELECT pADD1 FROM PATable WHERE pID=" + std::to_string(patient)); };

  const session::Outcome outcome = ann.Open(patient, [&](Form& form) {
    FillIn(form, "1 Elm St");
    const auto typed = Texts(form);
    bob.Open(patient, [&](Form& other) { EXPECT_NE(other.Caption->find("Ann on "), std::string::npos); });
    server.Restart();
    EXPECT_EQ(Texts(form), typed);
    ann.host.session.KeepsRecord("PATABLE", patient);  // as the next beat
    bob.Open(patient, [&](Form& other) { EXPECT_NE(other.Caption->find("Ann on "), std::string::npos); });
    ann.host.user.told.clear();
    PressOK(form);
    EXPECT_TRUE(form.Closed()) << testing::PrintToString(ann.host.user.told);
  });
  EXPECT_TRUE(outcome.Saved());
  EXPECT_EQ(stored(), "1 Elm St");

  // Whoever holds it first after a restart keeps it.
  ann.Open(patient, [&](Form& form) {
    FillIn(form, "2 Oak Ave");
    server.Restart();
    bob.Open(patient, [&](Form& other) {
      EXPECT_EQ(other.Caption->find("Read only"), std::string::npos);
      ann.host.user.told.clear();
      PressOK(form);
      EXPECT_FALSE(form.Closed());
      EXPECT_THAT(ann.host.user.told, testing::Contains(testing::HasSubstr("Bob on ")));
    });
    ann.host.user.answers = [](const forms::Message& message) {
      return Offers(message, forms::Answer::Cancel) && Offers(message, forms::Answer::No) ? forms::Answer::No
                                                                                          : Agree(message);
    };
    form.DoClose();
  });
  EXPECT_EQ(stored(), "1 Elm St");
}

}  // namespace
}  // namespace screens_test
