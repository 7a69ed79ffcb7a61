// The patient quick screen's grey pick buttons, and its search for referrals and providers.
#include <algorithm>

#include "data/literal.h"
#include "forms/text.h"
#include "people/name_entry.h"
#include "people/patScreen_SM.h"

namespace people {
namespace {

// What differs between the referral and the provider field.
struct PersonField {
  patScreen_SM::HiddenField id;
  std::string_view word;
  std::string_view right;
  std::string_view what;
  const char* type_column;
  session::RecordKind kind;
  session::LookUpListTypes list;
};

const PersonField& Describe(patScreen_SM::Field field) {
  static constexpr PersonField kReferralField = {patScreen_SM::kReferralId, "Referral", "CHANGE-REF-NAME",
                                                 "referral names",          "pTypRef",  session::RecordKind::Referral,
                                                 session::lulReferral};
  static constexpr PersonField kProviderField = {patScreen_SM::kProviderId, "Provider", "CHANGE-PRO-NAME",
                                                 "provider names",          "pTypDoc",  session::RecordKind::Provider,
                                                 session::lulProvider};
  return field == patScreen_SM::kReferral ? kReferralField : kProviderField;
}

constexpr std::string_view kBeforeId = " --- ";

}  // namespace

bool patScreen_SM::Confirm(const std::string& text) {
  return context_.user.Ask({.text = text, .buttons = forms::kYesNo, .icon = forms::Icon::Question}) ==
         forms::Answer::Yes;
}

void patScreen_SM::Pick(PickButton button) {
  if (!MayModify()) {
    return;
  }
  switch (button) {
    case kPickBirthDate:
      return PickBirthDate();
    case kPickSexTitle:
      return PickSexTitle();
    case kPickReferral:
      return PickPerson(kReferral);
    case kPickProvider:
      return PickPerson(kProvider);
    case kPickMedicalAlert:
      return PickMedicalAlert();
    case kPickFeeSchedule:
      return PickFeeSchedule();
  }
}

void patScreen_SM::PickBirthDate() {
  const auto current = forms::ParseIso(Label5[kBirthDay].Caption.get());
  const forms::Date today = context_.session.Today();
  if (const auto picked = context_.user.PickDate("Calendar", current ? forms::DateOf(*current) : today)) {
    Text1[kBirthDate].Text = forms::FormatDashed(*picked);
    TakeBirthDate();
  }
}

void patScreen_SM::PickSexTitle() {
  const auto picked = context_.screens.ShowPickList(session::PickList::SexTitle, "Sex and Title");
  if (!picked || (Text1[kSex].Text == picked->code && Text1[kTitle].Text == picked->text)) {
    return;
  }
  if (Confirm("Change this patient's Sex/Title to [ " + picked->code + "/" + picked->text + " ] ?")) {
    Text1[kSex].Text = picked->code;
    Text1[kTitle].Text = picked->text;
  }
}

void patScreen_SM::PickMedicalAlert() {
  const auto picked = context_.screens.ShowPickList(session::PickList::MedicalAlert, "Medical Alert");
  const std::string current = Text1[kMedicalAlert].Text;
  if (!picked || picked->text == current) {
    return;
  }
  const auto answer = context_.user.Ask({.text = "Update Medical Alert?\r\n"
                                                 "Click 'Yes' to append to the existing data.\r\n"
                                                 "Click 'No' to replace the existing data.\r\n"
                                                 "Click 'Cancel' to discard the changes.",
                                         .buttons = forms::kYesNoCancel,
                                         .icon = forms::Icon::Question});
  if (answer == forms::Answer::Cancel) {
    return;
  }
  const bool append = answer == forms::Answer::Yes && !current.empty();
  const std::string alert = append ? current + ", " + picked->text : picked->text;
  if (const int room = Text1[kMedicalAlert].MaxLength;
      room > 0 && forms::CharacterCount(alert) > static_cast<std::size_t>(room)) {
    context_.user.Tell("The medical alert has room for " + std::to_string(room) +
                           " characters. Please shorten it first; it was not changed.",
                       std::string(forms::kSuiteTitle), forms::Icon::Exclamation);
    return;
  }
  Text1[kMedicalAlert].Text = alert;
  Label5[kAlertUpdated].Caption = forms::FormatIso(context_.session.Today());
}

void patScreen_SM::PickFeeSchedule() {
  const auto picked = context_.screens.ShowPickList(session::PickList::FeeSchedule, "Fee Schedule");
  const std::string current = Label5[kFeeSchedule].Caption;
  if (!picked || picked->code == current) {
    return;
  }
  if (Confirm("Change this patient from Fee Schedule " + current + " to " + picked->code + " ?")) {
    Label5[kFeeSchedule].Caption = picked->code;
    ShowFeeSchedule();
  }
}

bool patScreen_SM::MayChangePerson(Field field) {
  if (!MayModify()) {
    return false;
  }
  const PersonField& person = Describe(field);
  if (!context_.session.HasRight(person.right)) {
    context_.user.Tell(editing::RightsRefusal(context_.session, person.what));
    return false;
  }
  return true;
}

void patScreen_SM::PickPerson(Field field) {
  if (!MayChangePerson(field)) {
    return;
  }
  const PersonField& person = Describe(field);
  const std::int32_t current = session::ToId(session::Value(Label5.at(person.id).Caption.get()));
  const auto picked = context_.screens.ShowList(person.list, {.title = {}, .selected = current});
  if (!picked.Chosen() || picked.id == current) {
    return;
  }
  editing::Attempt(context_.user, [&] {
    const std::string name = NameOf(picked.id);
    if (Confirm("Change this patient's " + std::string(person.word) + " to [ " + name + " ] ?")) {
      SetPerson(field, picked.id, name);
    }
  });
}

void patScreen_SM::SetPerson(Field field, std::int32_t id, const std::string& name) {
  Label5.at(Describe(field).id).Caption = std::to_string(id);
  Text1.at(field).Text = name;
}

// The edit key of the field: opens the person's screen, or offers to add one.
void patScreen_SM::EditPerson(Field field) {
  if (!MayChangePerson(field)) {
    return;
  }
  const PersonField& person = Describe(field);
  const std::int32_t id = session::ToId(session::Value(Label5.at(person.id).Caption.get()));
  if (id == 0 && !Confirm("Nothing to edit. Do you want to add one?")) {
    return;
  }
  const auto outcome =
      context_.screens.Edit(id == 0 ? session::Opening::New(person.kind) : session::Opening::Existing(person.kind, id));
  if (outcome.Saved()) {
    editing::Attempt(context_.user, [&] { SetPerson(field, outcome.id, NameOf(outcome.id)); });
  }
}

void patScreen_SM::RemovePerson(Field field) {
  const PersonField& person = Describe(field);
  if (Label5.at(person.id).Caption->empty() || !MayChangePerson(field)) {
    return;
  }
  if (Confirm("Remove this patient's " + std::string(person.word) + " ?")) {
    Label5.at(person.id).Caption = std::string();
    Text1.at(field).Text = std::string();
  }
}

bool patScreen_SM::OnPersonKey(Field field, forms::Key key) {
  switch (key) {
    case forms::Key::Insert:
      EditPerson(field);
      return true;
    case forms::Key::Delete:
      RemovePerson(field);
      return true;
    case forms::Key::Down:
      if (Name_List.Visible) {
        dbcNameSearch.SetFocus();
      }
      return true;
    case forms::Key::Esc: {
      const bool dropped = Name_List.Visible;
      Name_List.Visible = false;
      return dropped;
    }
    default:
      return false;
  }
}

void patScreen_SM::DropNames(Field field) {
  if (read_only_) {
    return;
  }
  searching_ = field;
  const PersonField& person = Describe(field);
  std::vector<forms::ListItem> names;
  editing::Attempt(context_.user, [&] {
    const std::string type(person.type_column);
    const auto rows = statements_.Select("SELECT pID AS ID, pLASNAM, pFIRNAM FROM PATable WHERE (" + type + "='1' OR " +
                                         type + "='2')" + statements_.Office() + " ORDER BY pLASNAM, pFIRNAM");
    for (; !rows->Eof(); rows->MoveNext()) {
      const std::int32_t id = session::ToId(rows->Get(0));
      names.push_back({LastFirst(rows->Get(1), rows->Get(2)) + std::string(kBeforeId) + std::to_string(id), id});
    }
  });
  dbcNameSearch.Clear();
  dbcNameSearch.Text = std::string();
  dbcNameSearch.Items = std::move(names);
  const std::int32_t current = session::ToId(session::Value(Label5.at(person.id).Caption.get()));
  dbcNameSearch.ListIndex = current != 0 ? dbcNameSearch.IndexOfData(current) : -1;
  Name_List.Tag = person.word;
  Name_List.Visible = true;
}

void patScreen_SM::TakeSearchedName() {
  const forms::ListItem* chosen = dbcNameSearch.Current();
  if (chosen == nullptr) {
    return;
  }
  const PersonField& person = Describe(searching_);
  const std::int32_t id = chosen->data;
  const std::string name = chosen->text.substr(0, chosen->text.rfind(kBeforeId));
  const bool differs = id != session::ToId(session::Value(Label5.at(person.id).Caption.get()));
  if (differs && MayChangePerson(searching_)) {
    SetPerson(searching_, id, name);
  }
  LeaveSearch();
}

void patScreen_SM::LeaveSearch() {
  Name_List.Visible = false;
  Command3D1[searching_ == kReferral ? kPickReferral : kPickProvider].SetFocus();
}

bool patScreen_SM::OnSearchKey(forms::Key key) {
  if (key == forms::Key::Esc) {
    Name_List.Visible = false;
    Text1.at(searching_).SetFocus();
    Name_List.Visible = false;
    return true;
  }
  if (key == forms::Key::Insert) {
    EditPerson(searching_);
    return true;
  }
  if (key == forms::Key::Tab) {
    LeaveSearch();
    return true;
  }
  if (key != forms::Key::Enter) {
    return false;
  }
  if (dbcNameSearch.Current() != nullptr) {
    TakeSearchedName();
    return true;
  }
  const std::string typed(forms::Trim(dbcNameSearch.Text.get()));
  const auto& names = dbcNameSearch.Items.get();
  const auto known = std::ranges::find_if(names, [&](const forms::ListItem& item) {
    return forms::EqualsIgnoringCase(item.text.substr(0, item.text.rfind(kBeforeId)), typed) ||
           forms::EqualsIgnoringCase(item.text, typed);
  });
  if (known != names.end()) {
    dbcNameSearch.DoPick(static_cast<int>(known - names.begin()));
  } else if (!typed.empty()) {
    AddSearchedName(typed);
  }
  return true;
}

void patScreen_SM::AddSearchedName(const std::string& typed) {
  if (!MayChangePerson(searching_)) {
    return;
  }
  const PersonField& person = Describe(searching_);
  const people::TypedName name = ParseName(typed);
  if (typed.find(',') == std::string::npos || name.last.empty()) {
    context_.user.Tell("Type the last name [comma] first name and press [Enter] to enter a new " +
                       std::string(person.word) + ".");
    return;
  }
  editing::Attempt(context_.user, [&] {
    const auto fitting = [this](Field box, const std::string& text) {
      return data::Literal(forms::Left(text, static_cast<std::size_t>(Text1.at(box).MaxLength.get())));
    };
    const std::int32_t id = statements_.Insert("PATable", {{"pLASNAM", fitting(kLastName, name.last)},
                                                           {"pFIRNAM", fitting(kFirstName, name.first)},
                                                           {person.type_column, data::Literal("1")}});
    context_.session.RecordHandOff("pID", "PaTable", id);
    SetPerson(searching_, id, NameOf(id));
    LeaveSearch();
  });
}

}  // namespace people
