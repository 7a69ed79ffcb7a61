#include "forms/sounds_alike.h"

#include <algorithm>

#include "forms/text.h"

namespace forms {
namespace {

TEST(SoundAlike, NamesOfOneSoundHoweverTheyAreWritten) {
  const std::vector<std::vector<std::string>> alike = {
      {"Smith", "smyth", "Smythe", "Schmidt", "SCHMITT", "Smith-Jones", "Smith Jr."},
      {"Catherine", "Katherine", "Kathryn", "Cathrin"},
      {"John", "Jon", "Jonn", "John Q.", "J. John"},
      {"Stephen", "Steven", "Stefan"},
      {"Philip", "Phillip", "Filip"},
      {"Geoffrey", "Jeffrey", "Jeffery"},
      {"Sean", "Shawn", "Shaun"},
      {"Cheryl", "Sheryl"},
      {"Christine", "Kristine"},
      {"Michael", "Mikael", "Micheal"},
      {"Meyer", "Meier", "Maier"},
      {"Müller", "Mueller", "Muller", "Mu\u0308ller"},
      {"Zoë", "Zoe", "Zoey"},
      {"Éric", "Eric", "Erik"},
      {"Knight", "Night", "Nite"},
      {"Wright", "Right", "Rite"},
      {"Dixon", "Dickson"},
      {"O'Hara", "O’Hara", "Ohara"},
      {"Van Dyke", "Vandyck", "VAN-DYKE"},
      {"McDonald", "MacDonald"},
      {"Mary Ann", "Marie", "Ann Mary"},
      {"Иванов", "ИВАНОВ"},
      {"日本", "日本"},
      {"100%", "100%"},
  };
  for (const auto& names : alike) {
    for (const std::string& name : names) {
      EXPECT_TRUE(SoundAlike(names.front(), name) && SoundAlike(name, names.front()))
          << names.front() << " " << SoundOf(names.front()) << ", " << name << " " << SoundOf(name);
      // A statement that looks for the first by its beginnings finds the other, where that is no part of a name.
      const auto beginnings = BeginningsAlike(names.front());
      EXPECT_TRUE(name.find_first_of(" -") != std::string::npos || name.front() < 0 ||
                  std::ranges::any_of(beginnings, [&](const auto& b) { return ToUpper(name).starts_with(b); }))
          << name;
    }
  }
}

TEST(SoundAlike, OtherNamesAreOthers) {
  for (const auto& [name, other] :
       std::initializer_list<std::pair<const char*, const char*>>{{"Smith", "Smithson"},
                                                                  {"Robert", "Rupert"},
                                                                  {"Ann", "Hannah"},
                                                                  {"Reed", ""},
                                                                  {"", "Reed"},
                                                                  {"100%", "200%"},
                                                                  {"%", "Reed"},
                                                                  {"日本", "中国"},
                                                                  {"Иванов", "Петров"},
                                                                  {"J.", "John"},
                                                                  {"de la Cruz", "de Leon"}}) {
    EXPECT_FALSE(SoundAlike(name, other)) << name << " " << SoundOf(name) << ", " << other << " " << SoundOf(other);
  }
  EXPECT_TRUE(SoundAlike("", " "));
  EXPECT_TRUE(BeginningsAlike(" ").empty());
}

}  // namespace
}  // namespace forms
