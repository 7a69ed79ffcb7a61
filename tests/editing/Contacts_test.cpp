#include "editing/Contacts.h"

#include "support/practice_host.h"

namespace {

using editing::Contacts;
using editing::Side;

TEST(Contacts, LabelsCodesInAnyCase) {
  std::string code = "phompho2";
  EXPECT_EQ(editing::ContactLabel(code), "Phone 2");
  EXPECT_EQ(code, "phompho2");
  code = "PBUSEMA";
  EXPECT_EQ(editing::ContactLabel(code), "E-Mail");
  code = "pHomFoo";
  EXPECT_EQ(editing::ContactLabel(code), "Phone");
  EXPECT_EQ(code, "Pho1");
}

TEST(Contacts, MovesTheNumberOfAnOldRowIntoItsFirstPhone) {
  test_support::PracticeHost host(host::CreatePractice("sqlite::memory:"));
  host.Value(
      "INSERT INTO PATable (pID, pLASNAM, pHomPho, pBusCon, pBusEma) VALUES (7, 'Old', '555-0100', 'Ema', 'a@b.c')");
  Contacts contacts(host.session);
  contacts.Setup(7);
  EXPECT_EQ(contacts.SideCaption(Side::Home), "Home Phone");
  EXPECT_EQ(contacts.SideCaption(Side::Work), "Work E-Mail");
  EXPECT_EQ(host.Value("SELECT pHomCon + '|' + pHomPho1 FROM PATable WHERE pID=7"), "Pho1|555-0100");

  const int size = contacts.SelectedSize(Side::Home);
  ASSERT_GT(size, 0);
  contacts.Save(7, {{Side::Home, std::string(10000, '5')}, {Side::Work, "x@y.z"}});
  EXPECT_EQ(host.Value("SELECT pHomPho1 FROM PATable WHERE pID=7"), std::string(static_cast<std::size_t>(size), '5'));
  EXPECT_EQ(host.Value("SELECT pBusPho FROM PATable WHERE pID=7"), "x@y.z");
}

}  // namespace
