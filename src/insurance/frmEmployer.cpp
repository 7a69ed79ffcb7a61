#include "insurance/frmEmployer.h"

#include "data/shared_records.h"
#include "editing/customary_form.h"
#include "forms/text.h"
#include "forms/us_numbers.h"

namespace insurance {
namespace {

constexpr std::string_view kTable = "EMPTABLE";
constexpr std::string_view kRight = "EDIT-EMP-INS";
constexpr std::string_view kWhat = "employers";
constexpr editing::SharedKind kEmployers = {.table = "EmpTable",
                                            .key = "EmpInd",
                                            .information = "Employer",
                                            .record = "employer",
                                            .entry = "Employer",
                                            .category = "LogEmp"};

using Guarded = editing::SharedRecordGuard::Guarded;

// Every column that is edited; all of them are guarded.
std::vector<Guarded> Columns(std::array<forms::TextBox, 7>& boxes) {
  return {{boxes[frmEmployer::kName], "EmpNam"},
          {boxes[frmEmployer::kAddress1], "EmpAdd1"},
          {boxes[frmEmployer::kAddress2], "EmpAdd2"},
          {boxes[frmEmployer::kCity], "EmpCIT"},
          {.field = boxes[frmEmployer::kState], .column = "EmpSTA", .same_line = true},
          {.field = boxes[frmEmployer::kZip], .column = "EmpZIP", .same_line = true},
          {boxes[frmEmployer::kPhone], "EmpTEL", data::kPhone}};
}

constexpr std::array kCaptions = {"E&mployer Name", "Address &1", "Address &2", "Cit&y",
                                  "&State",         "&ZIP Code",  "&Phone"};

}  // namespace

frmEmployer::frmEmployer(const session::ScreenContext& context)
    : EditingForm("frmEmployer", context),
      Employer(context.session, kEmployers.table, kEmployers.key),
      ZipCodes(context, {Text1[kCity], Text1[kState], Text1[kZip], Command3D2}),
      ucSelCoverage1(context),
      guard_(
          context, Employer, kEmployers,
          [&session = context.session](std::int32_t employer) {
            return data::SharedRecords(session).Uses(data::SharedRecord::Employer, employer);
          },
          Columns(Text1)) {
  for (const Guarded& column : Columns(Text1)) {
    Employer.Bind(column.field, column.column, column.format);
  }
  Register();
  Wire();
}

void frmEmployer::Register() {
  Add("Text1", Text1);
  Add("Label1", Label1);
  Add("Command3D2", Command3D2);
  Add("ZipCode_Panel", ZipCodes);
  Add("ucSelCoverage1", ucSelCoverage1);
  Add("DialogButtons1", DialogButtons1);
  for (std::size_t i = 0; i < Label1.size(); ++i) {
    Label1.at(i).Caption = kCaptions.at(i);
    Text1.at(i).Heading = &Label1.at(i);
  }
  DialogButtons1.Help.Visible = false;
  Reads({&Text1[kName], &Text1[kAddress1], &Text1[kAddress2], &Text1[kCity], &Text1[kState], &Text1[kZip], &Command3D2,
         &Text1[kPhone], &ucSelCoverage1, &DialogButtons1});
  ucSelCoverage1.HideButton("OKAY");
  ucSelCoverage1.HideButton("CLOSE");
}

void frmEmployer::Wire() {
  Text1[kPhone].Leave = [this] {
    editing::TakeCustomaryForm(context_.session, Employer, Text1[kPhone], forms::FormatTenDigits);
  };
  DialogButtons1.OK.Click = [this] {
    if (ReadOnly() || Save()) {
      Close();
    }
  };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };

  ucSelCoverage1.BeforeWriting = [this] { RequireHold(); };
  ucSelCoverage1.Written = [this] { Saved = true; };

  Edits(Employer);
  const auto always = [] { return true; };
  const auto adding = [this] { return Adding(); };
  OnSave(adding, [this] { Employer.Insert(); });
  // Every employer has a live link that stands for no insurance coverage.
  OnSave(adding, [this] { data::PlanLinks(context_.session).OpenNone(Employer.Id()); });
  OnSave(adding, [this] { Hold(std::string(kTable), Employer.Id()); });
  OnSave(always, [this] {
    Employer.Update();
    guard_.Written();
  });
  OnSave([this] { return guard_.MustLog(); }, [this] { guard_.Log(); });
  OnSave([this] { return ucSelCoverage1.Unsaved(); }, [this] { SavePlans(); });
  OnSave(always, [this] { context_.session.RecordHandOff(kEmployers.key.Text(), kTable, Employer.Id()); });
}

void frmEmployer::Read() {
  Caption = Opened.IsNew() ? "New Employer" : "Employer Information";
  const bool links_only =
      !Opened.IsNew() && !context_.session.HasRight(kRight) && context_.session.HasRight(ucSelCoverage::kLinkRight);
  if (links_only) {
    LookOnlyAtFields();
  }
  const bool may_edit = links_only || RequireRight(kRight, kWhat);
  if (!Opened.IsNew()) {
    if (may_edit) {
      Hold(std::string(kTable), Opened.id);
    }
    ReadExisting();
  } else if (may_edit) {
    ReadNew();
  } else {
    MayModify();
    Close();
  }
}

void frmEmployer::LookOnlyAtFields() {
  const auto may = [this] { return HasRight(kRight, kWhat); };
  for (forms::TextBox& box : Text1) {
    box.KeyDown = [may, rule = box.KeyDown](forms::Key key) {
      return key == forms::Key::F9 && rule ? !may() : rule && rule(key);
    };
    LookOnly(box, may);
  }
  Command3D2.Click = [this, may] {
    may();
    Text1[kCity].SetFocus();
  };
}

void frmEmployer::ReadExisting() {
  if (Opened.id == 0 || !Employer.Read(Opened.id)) {
    Tell("Employer " + std::to_string(Opened.id) + " was not found in the database.", forms::Icon::Information);
    Close();
    return;
  }
  ucSelCoverage1.EmployerID = Opened.id;
  ucSelCoverage1.Load_Information();
}

// A name that was typed before is not thrown away without asking.
void frmEmployer::ReadNew() {
  Employer.Read(0);
  Text1[kName].Text = forms::Fitting(Opened.typed_name, Text1[kName].MaxLength);
}

void frmEmployer::SavePlans() {
  ucSelCoverage1.EmployerID = Employer.Id();
  ucSelCoverage1.Save();
}

// What nobody touched keeps its blanks.
bool frmEmployer::Check() {
  for (forms::TextBox& box : Text1) {
    if (Employer.Changed(box)) {
      box.Text = std::string(forms::Trim(box.Text.get()));
    }
  }
  if (forms::Trim(Text1[kName].Text.get()).empty()) {
    Tell("You must enter a company name before you can save these changes.", forms::Icon::Information);
    Text1[kName].SetFocus();
    return false;
  }
  return true;
}

session::Outcome frmEmployer::Ended() const {
  return {.end = Saved ? session::Outcome::End::Saved : session::Outcome::End::Cancelled, .id = Employer.Id()};
}

}  // namespace insurance
