// What a desk's work in an office costs in one practice relative to another, such as the same offices on two servers
// and on one: opening and filtering a list, opening and saving a patient. Medians of runs that take turns.
//
// two_practices_bench OFFICE URL OTHER_URL
#include <cstdlib>
#include <iostream>

#include "entry/form_catalog.h"
#include "entry/look_up_list.h"
#include "forms/grid.h"
#include "people/patScreen_SM.h"
#include "recording.h"

namespace {

constexpr int kRuns = 40;

class Desk {
 public:
  Desk(const std::string& url, std::int32_t office)
      : practice_(url),
        session_(practice_, office, host::LoginRights("bench", true), host::ThisMachine({}, {})),
        screens_(entry::MakeScreens(session_, user_)) {}

  std::vector<double> listing, filtering, opening, saving;

  void List() {
    entry::LookUpList list(user_);
    list.SetPV(std::shared_ptr<bench::PreparedSession>(&session_, [](auto*) {}));
    list.ListType = session::lulFamilyHead;
    const auto start = bench::Clock::now();
    user_.acts = [&](forms::Form& form) {
      listing.push_back(std::chrono::duration<double>(bench::Clock::now() - start).count());
      auto& grid = dynamic_cast<forms::Grid&>(*form.Find("DotNetGrid"));
      filtering.push_back(bench::Time([&] { grid.DoFilter(grid.ColumnIndex("Last Name"), "Smi"); }));
      form.DoClose();
    };
    list.ShowList();
    list.SetPV(nullptr);
  }

  void Save(int round) {
    people::patScreen_SM screen({session_, user_, *screens_});
    screen.Opened = session::Opening::Existing(session::RecordKind::Patient, 1 + round);
    opening.push_back(bench::Time([&] { screen.Load(); }));
    screen.Text1[people::patScreen_SM::kAddress2].DoType("Apt " + std::to_string(round + 1));
    saving.push_back(bench::Time([&] { screen.DialogButtons1.OK.DoClick(); }));
    if (!screen.Closed()) {
      throw std::logic_error("The patient was not saved: " + user_.told);
    }
  }

 private:
  host::Practice practice_;
  bench::PreparedSession session_;
  bench::QuickUser user_;
  std::unique_ptr<session::Screens> screens_;
};

void Report(const char* what, const std::vector<double>& here, const std::vector<double>& there) {
  std::cout << bench::Median(here) / bench::Median(there) << "  " << what << " (" << 1e3 * bench::Median(here)
            << " ms, " << 1e3 * bench::Median(there) << " ms)\n";
}

}  // namespace

int main(int count, char** words) try {
  if (count != 4) {
    std::cerr << "two_practices_bench OFFICE URL OTHER_URL\n";
    return EXIT_FAILURE;
  }
  const std::int32_t office = std::atoi(words[1]);
  Desk here(words[2], office);
  Desk there(words[3], office);
  for (int i = 0; i < kRuns; ++i) {
    for (Desk* desk : {&here, &there}) {
      desk->List();
      desk->Save(i);
    }
  }
  Report("family heads listed", here.listing, there.listing);
  Report("last name from Smi", here.filtering, there.filtering);
  Report("patient opened", here.opening, there.opening);
  Report("address saved", here.saving, there.saving);
} catch (const std::exception& error) {
  std::cerr << error.what() << "\n";
  return EXIT_FAILURE;
}
