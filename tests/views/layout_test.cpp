#include <gmock/gmock.h>
#include <wx/wx.h>

#include <wx/stdpaths.h>

#include <filesystem>
#include <set>

#include "desk/tour.h"
#include "layout_faults.h"
#include "practice/demo.h"
#include "reach_faults.h"
#include "views/form_dialog.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// What drops over the page leaves its field clear, and the other panels.
void ExpectFieldsClear(const wxTopLevelWindow& window, const std::string& name) {
  const auto* dialog = dynamic_cast<const views::FormDialog*>(&window);
  std::vector<std::pair<std::string, wxRect>> places;
  for (const forms::Control* control : dialog == nullptr ? std::vector<forms::Control*>() : dialog->Form().Controls()) {
    const auto* panel = dynamic_cast<const forms::DropPanel*>(control);
    if (panel != nullptr && panel->Visible) {
      places.emplace_back(panel->Name(), dialog->Find(*panel)->Widget().GetScreenRect().Deflate(1));  // its border
      places.emplace_back(panel->Below.get()->Name(), dialog->Find(*panel->Below.get())->Widget().GetScreenRect());
    }
  }
  for (std::size_t i = 0; i < places.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      EXPECT_TRUE(places[i].first == places[j].first || !places[i].second.Intersects(places[j].second))
          << name << ": " << places[i].first << " lies over " << places[j].first;
    }
  }
}

// With the title above it, at the usual size of the text.
bool FitsASmallScreen(const wxTopLevelWindow& window) {
  constexpr int kTitle = 40;
  constexpr int kUsualText = 20;
  return window.GetCharHeight() > kUsualText ||
         (window.GetClientSize().x <= 1280 && window.GetClientSize().y + kTitle <= 720);
}

TEST(Layout, OfEveryWindowIsGood) {
  const std::string folder = testing::TempDir() + "layout_test_" + std::to_string(wxGetProcessId());
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  host::DemoOptions demo;
  demo.patients = 60;
  const std::filesystem::path program = wxStandardPaths::Get().GetExecutablePath().utf8_string();
  host::Desk desk(host::MakeDemo("sqlite:" + folder + "/demo.sqlite", demo),
                  {folder, folder, (program.parent_path().parent_path() / "share").string()},
                  host::ClassesOfThisProgram);
  std::set<std::string> seen;
  host::VisitWindows(desk, [&](const std::string& name, wxTopLevelWindow& window) {
    seen.insert(name.substr(0, name.find('-')));
    EXPECT_THAT(LayoutFaults(window), IsEmpty()) << name;
    EXPECT_THAT(ReachFaults(window), IsEmpty()) << name;
    EXPECT_TRUE(FitsASmallScreen(window)) << name << ": " << window.GetSize().x << " x " << window.GetSize().y;
    ExpectFieldsClear(window, name);
  });
  for (const std::string& view : host::Desk::Views().Names()) {
    EXPECT_TRUE(seen.contains(view)) << view << " was not visited";
  }
}

// A dialog with two buttons, laid out by hand.
class BadLayout : public testing::Test {
 protected:
  BadLayout() { dialog_.SetClientSize(400, 200); }

  wxButton* Put(const char* name, wxRect where) {
    auto* button = new wxButton(&dialog_, wxID_ANY, "A button", where.GetPosition(), where.GetSize());
    if (name != nullptr) {
      button->SetName(name);
    }
    return button;
  }
  std::vector<std::string> Faults() const { return LayoutFaults(dialog_); }

  wxDialog dialog_{nullptr, wxID_ANY, "Bad"};
  wxSize size_ = wxButton(&dialog_, wxID_ANY, "A button").GetBestSize();
  wxRect left_{wxPoint(0, 0), size_};
  wxRect right_{wxPoint(size_.x + 10, 0), size_};
};

TEST_F(BadLayout, IsNotSeenInAGoodOne) {
  Put("left", left_);
  Put("right", right_);
  EXPECT_THAT(Faults(), IsEmpty());
}

TEST_F(BadLayout, ShowsAClippedWidget) {
  Put("left", left_.Deflate(4));
  EXPECT_THAT(Faults(), ElementsAre(HasSubstr("\"left\" is clipped")));
}

TEST_F(BadLayout, ShowsAClippedText) {
  auto* text = new wxStaticText(&dialog_, wxID_ANY, "Referred By :", wxPoint(0, 0), wxSize(20, 40), wxST_NO_AUTORESIZE);
  text->SetName("caption");
  EXPECT_THAT(Faults(), ElementsAre(HasSubstr("\"caption\" is clipped")));
}

TEST_F(BadLayout, ShowsAWidgetOutsideItsParent) {
  left_.x = 400 - size_.x / 2;
  Put("left", left_);
  EXPECT_THAT(Faults(), ElementsAre(HasSubstr("\"left\" lies outside its parent")));
}

TEST_F(BadLayout, ShowsOverlappingWidgets) {
  right_.x -= 20;
  Put("left", left_);
  Put("right", right_);
  EXPECT_THAT(Faults(), testing::Contains(HasSubstr("\"left\" overlaps wxButton \"right\"")));
}

TEST_F(BadLayout, ShowsAWidgetWithoutAName) {
  Put(nullptr, left_);
  EXPECT_THAT(Faults(), ElementsAre(HasSubstr("has no name")));
}

}  // namespace
