#include "recall/template_files.h"

#include <filesystem>
#include <fstream>

#include "editing/rules.h"
#include "support/fake_host.h"

namespace recall {
namespace {

namespace fs = std::filesystem;

// A data folder of its own, in which another program wrote "stp" in small letters.
struct Templates : test_support::FakeSession {
  Templates() {
    fs::remove_all(folder);
    Put("stp/Templates/secret.TPL", "secret");
  }
  Templates(const Templates&) = delete;
  Templates& operator=(const Templates&) = delete;
  ~Templates() override { fs::remove_all(folder); }

  std::string DataFolder() const override { return folder.string(); }
  void Put(const std::string& name, std::string_view bytes) const {
    fs::create_directories((folder / name).parent_path());
    std::ofstream(folder / name, std::ios::binary) << bytes;
  }

  fs::path folder = fs::path(testing::TempDir()) / "template_files_test";
  std::string own = "stp/Templates/BirthdayReminder/";
};

TEST(TemplateFiles, AreReadInEitherEncodingAndWrittenWhole) {
  const Templates data;
  data.Put(data.own + "old.tpl", "Jos\xE9 \x80 {Birthday Patient First Name}");
  data.Put(data.own + "New.TPL", "\xEF\xBB\xBFJosé");
  const TemplateFiles files(data, data::ReminderKind::Birthday);
  EXPECT_EQ(files.Read("OLD"), "José € {Birthday Patient First Name}");
  EXPECT_EQ(files.TextOf("template old\r\n", data::ContactMethod::Letter), "José € {Patient First Name}");
  EXPECT_EQ(files.Read("New"), "José");
  files.Write("BDR_EMAIL", "<p>😀</p>");
  files.Write("new", "other");
  EXPECT_EQ(files.Read("BDR_EMAIL"), "<p>😀</p>");
  EXPECT_EQ(files.Read("New"), "other");
  // A folder that is not there yet is made.
  const TemplateFiles others(data, data::ReminderKind::NewsLetter);
  others.Write("a", "b");
  EXPECT_EQ(others.Read("a"), "b");
  EXPECT_FALSE(TemplateFiles(test_support::FakeSession(), data::ReminderKind::Birthday).Read("a"));
}

TEST(TemplateFiles, NamesThatLeaveTheFolderAreNone) {
  const Templates data;
  data.Put(data.own + "a.TPL", "a");
  data.Put(data.own + "{1}/Parameters.ini", "[Tavo Email Template]\nFile=../../secret.TPL\nTitle=Out\n");
  fs::create_symlink(data.folder / "stp/Templates/secret.TPL", data.folder / (data.own + "link.TPL"));
  fs::create_directory_symlink(data.folder / "stp/Templates", data.folder / (data.own + "{2}"));
  const TemplateFiles files(data, data::ReminderKind::Birthday);
  EXPECT_EQ(files.Read("a"), "a");
  const std::string long_name(10000, 'x');
  for (const std::string& name : {std::string("../secret"), std::string("..\\secret"), std::string("link"),
                                  data.folder.string() + "/stp/Templates/secret", std::string("CON"),
                                  std::string("lpt1.x"), std::string("a:b"), std::string("a\0", 2), long_name}) {
    EXPECT_FALSE(files.Read(name)) << name.substr(0, 40);
    EXPECT_EQ(files.TextOf("TEMPLATE " + name, data::ContactMethod::Email), "TEMPLATE " + name);
    if (name != "link") {
      EXPECT_THROW(files.Write(name, "x"), editing::Refusal) << name.substr(0, 40);
    }
  }
  EXPECT_TRUE(files.Predefined().empty());
  files.Write("link", "own");  // the link goes, what it pointed at stays
  EXPECT_EQ(files.Read("link"), "own");
  std::ifstream secret(data.folder / "stp/Templates/secret.TPL");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(secret), {}), "secret");
}

TEST(TemplateFiles, PredefinedOnesComeFromTheirLists) {
  const Templates data;
  data.Put(data.own + "{B}/Parameters.ini",
           "; ours\r\n[Other]\r\nFile=no.tpl\r\n[TAVO EMAIL TEMPLATE]\r\nTitle=\"Balloons & More\"\r\nFile = b.tpl\r\n"
           "file=second.tpl\r\n[TAVO EMAIL TEMPLATE]\r\nFile=cake.tpl\r\nTitle=<x/>\r\n[TAVO EMAIL TEMPLATE]\r\n"
           "Title=Nothing");
  data.Put(data.own + "{B}/b.TPL", "<p>{Birthday Patient Patient Title}</p>");
  data.Put(data.own + "{A}/Parameters.ini", "[TAVO EMAIL TEMPLATE]\nTitle=\xC9toile\nFile=gone.tpl");
  const TemplateFiles files(data, data::ReminderKind::Birthday);
  EXPECT_EQ(files.Predefined(), (std::vector<PredefinedTemplate>{
                                    {"Balloons & More", "b.tpl"}, {"cake", "cake.tpl"}, {"Étoile", "gone.tpl"}}));
  const std::string marked = TemplateMarker("balloons & more");
  EXPECT_EQ(marked, "<PredefinedTemplate=balloons & more/>");
  EXPECT_EQ(files.TextOf("<p>" + marked + "</p>", data::ContactMethod::Email), "<p>{Patient Title}</p>");
  data.Put(data.own + "Marking.TPL", marked);
  EXPECT_EQ(files.TextOf("TEMPLATE Marking", data::ContactMethod::Email), "<p>{Patient Title}</p>");
  EXPECT_EQ(files.TextOf(marked, data::ContactMethod::TextMessage), marked);
  EXPECT_EQ(files.TextOf(TemplateMarker("Étoile"), data::ContactMethod::Email), "<PredefinedTemplate=Étoile/>");
  EXPECT_FALSE(MarkedTemplate("<PredefinedTemplate=never closed"));
}

}  // namespace
}  // namespace recall
