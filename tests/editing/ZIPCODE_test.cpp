#include "editing/ZIPCODE.h"

namespace {

using editing::Place;
using editing::SplitPlace;

TEST(SplitPlace, FindsStateAndZipAtTheEndOfUsPlaces) {
  EXPECT_EQ(SplitPlace("Springfield IL 62701", false), (Place{"Springfield", "IL", "62701"}));
  EXPECT_EQ(SplitPlace("  Springfield, IL 62701-1234 ", false), (Place{"Springfield", "IL", "62701-1234"}));
  EXPECT_EQ(SplitPlace("Springfield IL, 62701", false), (Place{"Springfield", "IL", "62701"}));
  EXPECT_EQ(SplitPlace("Springfield 62701", false), (Place{"Springfield", "", "62701"}));
  EXPECT_EQ(SplitPlace("Springfield", false), (Place{"Springfield", "", ""}));
  EXPECT_EQ(SplitPlace("", false), Place{});
}

TEST(SplitPlace, TakesTheStateOnlyBeforeAWholeZip) {
  EXPECT_EQ(SplitPlace("Springfield IL x62701y2", false), (Place{"Springfield IL", "", "62701"}));
  EXPECT_EQ(SplitPlace("X IL 62701", false), (Place{"X IL", "", "62701"}));
}

TEST(SplitPlace, PutsOtherPlacesInProperCase) {
  EXPECT_EQ(SplitPlace("NEW westminster bc", true), (Place{"New Westminster", "BC", ""}));
  EXPECT_EQ(SplitPlace("trois-rivi\xC3\xA8res, qc", true), (Place{"Trois-Rivi\xC3\xA8res", "QC", ""}));
  EXPECT_EQ(SplitPlace("LONDON ENGLAND", true), (Place{"London England", "", ""}));
}

TEST(Place, ReadsItsOwnTextBackAsAPersonChangesIt) {
  for (const Place& place : {Place{"Springfield", "IL", "62701"}, Place{"Toronto", "ON", "M5V 2T6"},
                             Place{"Los Angeles", "CA", ""}, Place{"Santa Fe", "", "87501"}}) {
    EXPECT_EQ(Place::Parse(place.Text()), place) << place.Text();
  }
  EXPECT_EQ(Place::Parse("Springfield IL 62702"), (Place{"Springfield", "IL", "62702"}));
  EXPECT_EQ(Place::Parse("Springfield 62702 "), (Place{"Springfield", "", "62702"}));
  EXPECT_EQ(Place::Parse("Los Angeles"), (Place{"Los Angeles", "", ""}));
}

}  // namespace
