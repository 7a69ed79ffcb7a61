// What opening and saving each screen of people and places costs: statements, and processor time in a practice of a
// million patients relative to one of 2,000. A word on the command line names the file of the practice of a million,
// which is made there when it is not there, and kept.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <map>
#include <string>
#include <vector>

#include "entry/form_catalog.h"
#include "forms/button.h"
#include "forms/grid.h"
#include "forms/text.h"
#include "forms/text_box.h"
#include "recording.h"

namespace {

using session::RecordKind;

const std::int32_t kMany = bench::Many();
constexpr std::int32_t kFew = 2000;
// So many records of each kind in turn.
constexpr int kRecords = 10;

std::string kept;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): as the person named it

bench::Subject& PracticeOf(std::int32_t patients) {
  static std::map<std::int32_t, std::unique_ptr<bench::Subject>> made;
  auto& subject = made[patients];
  if (subject == nullptr) {
    subject = std::make_unique<bench::Subject>(patients, patients == kMany ? kept : std::string());
  }
  return *subject;
}

// Seconds of the processor, which other work on the machine does not lengthen; waiting for the disk is not in it.
double Worked() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

// A second address line, which every kind of record has.
void ChangeAddress(forms::Form& form, int round) {
  for (forms::Control* control : form.Controls()) {
    auto* box = dynamic_cast<forms::TextBox*>(control);
    if (box == nullptr) {
      continue;
    }
    const std::string column = forms::ToUpper(box->DataField);
    if (column == "PADD2" || column == "EMPADD2" || column == "OFFLOCAD2") {
      box->DoType("Apt " + std::to_string(round));
      return;
    }
  }
  throw std::logic_error(form.Name() + " has no second address line");
}

// Whether the person is displayed at the last location.
void ChangeDisplay(forms::Form& form, int round) {
  auto& grid = dynamic_cast<forms::Grid&>(*form.Find("TDBG"));
  grid.DoRow(grid.RowCount() - 1);
  grid.DoCell(grid.ColumnIndex("Display"), round % 2 == 0 ? "1" : "0");
}

struct Screen {
  const char* title;
  const char* form;
  const char* ids;  // the table, and which of its rows; the key comes first
  std::optional<RecordKind> kind = {};
  const char* property = nullptr;  // of one that is opened by its name: what takes the ID
  void (*change)(forms::Form&, int round) = ChangeAddress;
};
const std::vector<Screen> kScreens = {
    {"patient", "patScreen_SM", "pID FROM PATable WHERE pTypPat='1'", RecordKind::Patient},
    {"family_head", "FamScreen", "pID FROM PATable WHERE pTypPat='1' AND pFAMHEAIND=pID", RecordKind::FamilyMember},
    {"family_member", "FamScreen", "pID FROM PATable WHERE pTypPat='1' AND pFAMHEAIND<>pID", RecordKind::FamilyMember},
    {"employee", "EmployeeFrm", "pID FROM PATable WHERE pTypEmp='1'", RecordKind::Employee},
    {"provider", "docScreen", "pID FROM PATable WHERE pTypDoc='1'", RecordKind::Provider},
    {"physician", "docScreen", "pID FROM PATable WHERE pTypPhy='1'", RecordKind::Physician1},
    {"referral", "docScreen", "pID FROM PATable WHERE pTypRef='1'", RecordKind::Referral},
    {"employer", "frmEmployer", "EmpInd FROM EmpTable WHERE EmpInd>0", RecordKind::Employer},
    {"locations", "frmOfficeLocation", "OffLocID FROM OffLocTable WHERE OffLocID>0"},
    {"patient_locations", "frmPatientLocation", "pID FROM PATable WHERE pTypPat='1'", {}, "PatientID", ChangeDisplay}};

void PressOK(forms::Form& form) {
  for (const char* name : {"DialogButtons1.OK", "cmdOK"}) {
    if (auto* button = dynamic_cast<forms::Button*>(form.Find(name))) {
      button->DoClick();
      return;
    }
  }
  form.DoClose();
}

// A screen in front of one practice.
class Desk {
 public:
  Desk(const Screen& screen, std::int32_t patients)
      : screen_(screen), session_(PracticeOf(patients).Session()), screens_(entry::MakeScreens(session_, user_)) {
    const auto rows = session_.Connection().Execute(std::string("SELECT ") + screen.ids + " ORDER BY 1 LIMIT " +
                                                    std::to_string(kRecords));
    for (; !rows->Eof(); rows->MoveNext()) {
      ids_.push_back(session::ToId(rows->Get(0)));
    }
  }

  void OpenAndSave(int round) {
    session_.prepared.clear();
    bool open = false;
    const double start = Worked();
    user_.acts = [&](forms::Form& form) {
      if (std::exchange(open, true)) {
        form.DoClose();
        return;
      }
      opening.push_back(Worked() - start);
      open_statements.push_back(static_cast<double>(std::exchange(session_.prepared, {}).size()));
      screen_.change(form, round);
      session_.prepared.clear();
      const double changed = Worked();
      PressOK(form);
      saving.push_back(Worked() - changed);
      save_statements.push_back(static_cast<double>(session_.prepared.size()));
      if (!form.Closed()) {
        throw std::logic_error(form.Name() + " was not saved: " + user_.told);
      }
    };
    Show(ids_.at(static_cast<std::size_t>(round) % ids_.size()));
  }

  std::vector<double> opening, saving, open_statements, save_statements;

 private:
  void Show(std::int32_t id) {
    const session::ScreenContext context{session_, user_, *screens_};
    if (screen_.kind) {
      entry::EditRecord(context, session::Opening::Existing(*screen_.kind, id));
      return;
    }
    const auto form = entry::MakeForm(screen_.form, context);
    if (screen_.property != nullptr) {
      form->Properties.at(screen_.property).set(std::to_string(id));
    }
    user_.Show(*form);
  }

  const Screen& screen_;
  bench::PreparedSession& session_;
  bench::QuickUser user_;
  std::unique_ptr<session::Screens> screens_;
  std::vector<std::int32_t> ids_;
};

void OpenAndSave(benchmark::State& state) {
  const Screen& screen = kScreens.at(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(screen.title);
  Desk few(screen, kFew);
  Desk many(screen, kMany);
  int round = 0;
  for (auto _ : state) {
    few.OpenAndSave(round);
    many.OpenAndSave(round++);
  }
  const auto count = [&](const char* name, double value) { state.counters[name] = value; };
  count("open_statements", bench::Median(few.open_statements));
  count("open_statements_many", bench::Median(many.open_statements));
  count("save_statements", bench::Median(few.save_statements));
  count("save_statements_many", bench::Median(many.save_statements));
  count("open_ms", 1e3 * bench::Median(few.opening));
  count("save_ms", 1e3 * bench::Median(few.saving));
  count("open_many_to_few", bench::Median(many.opening) / bench::Median(few.opening));
  count("save_many_to_few", bench::Median(many.saving) / bench::Median(few.saving));
}

// Those of this version.
void EachScreen(benchmark::internal::Benchmark* measured) {
  const std::vector<std::string> built = entry::FormNames();
  for (std::size_t i = 0; i < kScreens.size(); ++i) {
    if (std::ranges::find(built, kScreens[i].form) != built.end()) {
      measured->Arg(static_cast<std::int64_t>(i));
    }
  }
}
BENCHMARK(OpenAndSave)->Apply(EachScreen)->Iterations(200);

}  // namespace

int main(int count, char** words) {
  benchmark::Initialize(&count, words);
  kept = count > 1 ? words[1] : "";
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
