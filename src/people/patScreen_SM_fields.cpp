// The patient quick screen's rules for its fields: what may be typed, what happens on leaving, and the field help.
#include "forms/text.h"
#include "people/patScreen_SM.h"

namespace people {
namespace {

using editing::ZIPCODE;

constexpr std::string_view kLineMark = "////";

std::string WithLineBreaks(std::string text) {
  for (std::size_t at = text.find(kLineMark); at != std::string::npos; at = text.find(kLineMark, at)) {
    text.replace(at, kLineMark.size(), "\r\n");
  }
  return text;
}

std::string SearchHelp(const std::string& what) {
  return "Type the last name [comma] first name and press [Enter] to enter a new " + what + ".////To add a new " +
         what + ", type in " + what + " name and press [Enter] Key.////Press [Esc] key to close search window.";
}

std::string HelpText(std::size_t field) {
  switch (field) {
    case patScreen_SM::kLastName:
    case patScreen_SM::kFirstName:
      return "Make changes if needed and press [Enter] to continue.";
    case patScreen_SM::kBirthDate:
      return "Type the birth date directly on this field. There is no need to hyphenate.////The age in years and "
             "months will appear automatically!";
    case patScreen_SM::kReferral:
      return SearchHelp("Referral");
    case patScreen_SM::kProvider:
      return SearchHelp("Provider");
    case patScreen_SM::kAddress1:
      return "Type the patient's street address in Address Line 1. There is no need to capitalize.";
    case patScreen_SM::kAddress2:
      return "Address Line 2 is optional. For example, it might be used for an apartment number.";
    case patScreen_SM::kState:
      return "The State field will fill in automatically when you select from the City or Zip Code database.";
    default:
      return {};
  }
}

}  // namespace

void patScreen_SM::Wire() {
  for (std::size_t i = 0; i < Text1.size(); ++i) {
    Text1.at(i).KeyPress = [this](char32_t character) { return MayModify() ? character : 0; };
    Text1.at(i).KeyDown = [this](forms::Key key) { return key == forms::Key::Delete && !MayModify(); };
    Text1.at(i).Enter = [this, i] { EnterField(i); };
  }
  Text1[kBirthDate].KeyPress = [this](char32_t character) { return FilterBirthDate(character); };
  Text1[kBirthDate].Leave = [this] { TakeBirthDate(); };
  Text1[kSex].KeyPress = [this](char32_t character) {
    return MayModify() ? forms::ToUtf32(forms::ToUpper(forms::ToUtf8({&character, 1}))).front() : 0;
  };
  Text1[kSex].Leave = [this] { TakeSex(); };
  Text1[kCity].Change = [this] { ZipCodes.Show(ZIPCODE::Opener::City); };
  Text1[kZip].Change = [this] { ZipCodes.Show(ZIPCODE::Opener::Zip); };
  ZipCodes.AfterPick = &Text1[kHomePhone];
  ZipCodes.BeforeDeleteKey = [this] { return Confirm("Do you want delete this City, State, and Zip Code?"); };
  for (const Field field : {kReferral, kProvider}) {
    Text1.at(field).ReadOnly = true;
    Text1.at(field).KeyPress = [this](char32_t) {
      if (MayModify()) {
        context_.user.Tell("Please press F9 or click button.");
      }
      return char32_t{0};
    };
    Text1.at(field).KeyDown = [this, field](forms::Key key) { return OnPersonKey(field, key); };
  }
  dbcNameSearch.Click = [this] { TakeSearchedName(); };
  dbcNameSearch.KeyDown = [this](forms::Key key) { return OnSearchKey(key); };
  for (std::size_t i = 0; i < Command3D1.size(); ++i) {
    Command3D1.at(i).Click = [this, i] { Pick(static_cast<PickButton>(i)); };
  }
  Command3D2.Click = [this] {
    if (MayModify()) {
      ZipCodes.Show(ZIPCODE::Opener::City);
    }
  };
  cmdContact.Click = [this] { EditContacts(); };
  picSwapName.Click = [this] { picSwapName_Click(); };
  DialogButtons1.OK.Click = [this] { SaveFromButton(false); };
  DialogButtons1.Extra.Click = [this] { SaveFromButton(true); };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
  DialogButtons1.Help.Click = [this] { ShowHelp(); };
}

void patScreen_SM::picSwapName_Click() {
  if (!MayModify()) {
    return;
  }
  const std::string last = Text1[kLastName].Text;
  Text1[kLastName].Text = Text1[kFirstName].Text.get();
  Text1[kFirstName].Text = last;
}

bool patScreen_SM::MayModify() {
  if (read_only_) {
    context_.user.Tell("Read only, cannot modify.");
  }
  return !read_only_;
}

char32_t patScreen_SM::FilterBirthDate(char32_t character) {
  constexpr std::u32string_view kTaken = U"0123456789/-";
  if (!MayModify()) {
    return 0;
  }
  if (kTaken.find(character) == std::u32string_view::npos) {
    context_.user.Tell("Date field only accept 0 to 9, / and - characters");
    return 0;
  }
  return character;
}

// False when what was typed is no date; the focus then stays there.
bool patScreen_SM::TakeBirthDate() {
  const std::string typed(forms::Trim(Text1[kBirthDate].Text.get()));
  if (typed == birth_date_shown_) {
    ShowAge();
    return true;
  }
  const forms::Date today = context_.session.Today();
  auto birth = forms::ParseDate(typed, today);
  if (birth && *birth > today && !typed.ends_with(std::to_string(static_cast<int>(birth->year())))) {
    birth = forms::Date(birth->year() - std::chrono::years(100), birth->month(), birth->day());
  }
  if (!typed.empty() && (!birth || !birth->ok() || *birth > today)) {
    context_.user.Tell("[ " + typed + " ] is not a birth date. Please type month, day and year.");
    Text1[kBirthDate].SetFocus();
    return false;
  }
  Label5[kBirthDay].Caption = birth ? forms::FormatIso(*birth) : std::string();
  ShowAge();
  return true;
}

// False when what was typed is neither F nor M; the focus then stays there.
bool patScreen_SM::TakeSex() {
  const std::string& sex = Text1[kSex].Text;
  if (!Text1[kSex].DataChanged || sex.empty() || sex == "F" || sex == "M") {
    return true;
  }
  context_.user.Tell("Only letters F or M are allowed.");
  Text1[kSex].SetFocus();
  return false;
}

void patScreen_SM::EnterField(std::size_t field) {
  help_field_ = field;
  if (forms::IsOn(context_.session.OfficeSetting("DEFAULT_OFFICE_SETUP", "POPUP_HELP_FLAG"))) {
    ShowHelp();
  }
  if (field == kReferral || field == kProvider) {
    DropNames(static_cast<Field>(field));
  }
}

void patScreen_SM::ShowHelp() {
  Label3.Caption = WithLineBreaks(HelpText(help_field_));
  PictureBox1.Visible = !Label3.Caption->empty();
}

// The drop-down parts go away when the focus rests anywhere but on them and the box that dropped them.
void patScreen_SM::OnFocus(forms::Control* control) {
  const auto rests_on = [control](const forms::TextBox& box) { return control == &box; };
  const auto lies_on = [control](const forms::Panel& panel) { return control != nullptr && control->LiesOn(panel); };
  if (!rests_on(Text1[kCity]) && !rests_on(Text1[kZip]) && !lies_on(ZipCodes.ZipCode_Panel)) {
    ZipCodes.FocusLeft();
  }
  if (!rests_on(Text1[kReferral]) && !rests_on(Text1[kProvider]) && !lies_on(Name_List)) {
    Name_List.Visible = false;
  }
  PictureBox1.Visible = PictureBox1.Visible && lies_on(Name_List);
}

bool patScreen_SM::OnKey(forms::Key key) {
  if (key != forms::Key::F9) {
    return false;
  }
  const auto field = [this](Field index) { return Text1.at(index).HasFocus(); };
  if (field(kBirthDate)) {
    Pick(kPickBirthDate);
  } else if (field(kSex) || field(kTitle)) {
    Pick(kPickSexTitle);
  } else if (field(kReferral) || (dbcNameSearch.HasFocus() && searching_ == kReferral)) {
    Pick(kPickReferral);
  } else if (field(kProvider) || dbcNameSearch.HasFocus()) {
    Pick(kPickProvider);
  } else if (field(kMedicalAlert)) {
    Pick(kPickMedicalAlert);
  } else if (field(kCity) || field(kZip)) {
    Command3D2.DoClick();
  } else {
    return false;
  }
  return true;
}

}  // namespace people
