#include "editing/ZIPCODE.h"

#include "data/literal.h"
#include "editing/editing_form.h"
#include "forms/text.h"

namespace editing {
namespace {

using data::Literal;
using data::Sql;

constexpr std::string_view kTitle = "City State, Zip Code";
constexpr std::string_view kStop = "STOP";
constexpr std::string_view kZipCharacters = "0123456789-";

void CutTrailingComma(std::string& city) {
  if (city.ends_with(',')) {
    city.pop_back();
  }
  city = forms::Trim(city);
}

Place SplitUs(std::string_view text) {
  const std::size_t blank = text.rfind(' ');
  if (blank == std::string_view::npos) {
    return {.city = std::string(text)};
  }
  Place place{.city = std::string(forms::Trim(text.substr(0, blank)))};
  const std::string_view candidate = forms::Trim(text.substr(blank));
  if (const std::size_t first = candidate.find_first_of(kZipCharacters); first != std::string_view::npos) {
    const std::size_t end = candidate.find_first_not_of(kZipCharacters, first);
    place.zip = candidate.substr(first, end == std::string_view::npos ? end : end - first);
  }
  std::string& city = place.city;
  if (candidate == place.zip && city.size() > 4 && city[city.size() - 3] == ' ') {
    place.state = city.substr(city.size() - 2);
    city.erase(city.size() - 3);
  }
  return place;
}

Place SplitNonUs(std::string_view text) {
  const std::size_t blank = text.rfind(' ');
  Place place{.city = std::string(text)};
  if (blank != std::string_view::npos && forms::CharacterCount(text.substr(blank + 1)) == 2) {
    place.state = forms::ToUpper(forms::Trim(text.substr(blank + 1)));
    place.city = forms::Trim(text.substr(0, blank));
  }
  place.city = forms::ToProper(place.city);
  return place;
}

}  // namespace

Place SplitPlace(std::string_view text, bool non_us) {
  text = forms::Trim(text);
  if (text.empty()) {
    return {};
  }
  Place place = non_us ? SplitNonUs(text) : SplitUs(text);
  CutTrailingComma(place.city);
  return place;
}

Place Place::Parse(std::string_view text) {
  if (Place us = SplitPlace(text, false); !us.state.empty() && !us.zip.empty()) {
    return us;
  }
  Place place;
  const std::size_t comma = text.rfind(',');
  if (comma != std::string_view::npos) {
    place.zip = forms::Trim(text.substr(comma + 1));
  }
  const std::string_view head = forms::Trim(text.substr(0, comma));
  const std::size_t blank = head.rfind(' ');
  if (blank != std::string_view::npos && forms::CharacterCount(head.substr(blank + 1)) == 2) {
    place.state = head.substr(blank + 1);
    place.city = forms::Trim(head.substr(0, blank));
  } else {
    place.city = head;
  }
  CutTrailingComma(place.city);
  return place;
}

ZIPCODE::ZIPCODE(const session::ScreenContext& context, const Parts& parts) : Rules(context), parts_(parts) {
  for (forms::Button& button : ZipCode_Cmd) {
    button.Container = &ZipCode_Cmd_Panel;
  }
  Add("ZIPCode_Combo", ZIPCode_Combo);
  Add("ZipCode_Cmd_Panel", ZipCode_Cmd_Panel);
  Add("ZipCode_Cmd", ZipCode_Cmd);
  ZIPCode_Combo.AccessibleName = "Known places";
  ZipCode_Cmd[kAdd].Caption = "&Add";
  ZipCode_Cmd[kEdit].Caption = "&Edit";
  ZipCode_Cmd[kDelete].Caption = "&Delete";
  ZipCode_Cmd[kAdd].ToolTip = "Add the city, state and ZIP on the screen to the list";
  ZipCode_Cmd[kAdd].Click = [this] { AddPlace(); };
  ZipCode_Cmd[kEdit].Click = [this] { EditPlace(); };
  ZipCode_Cmd[kDelete].Click = [this] { DeletePlace(); };
  ZIPCode_Combo.Click = [this] { Pick(); };
  ZIPCode_Combo.KeyDown = [this](forms::Key key) { return OnListKey(key); };
  ZIPCode_Combo.KeyPress = [this](char32_t character) { OnListCharacter(character); };
  parts_.city.Change = [this] { Show(Opener::City); };
  parts_.zip.Change = [this] { Show(Opener::Zip); };
  for (forms::TextBox* box : {&parts_.city, &parts_.zip}) {
    box->KeyDown = [this](forms::Key key) { return OnBoxKey(key); };
  }
  parts_.drop.Click = [this] {
    if (EditingForm::MayModify(*this)) {
      Show(Opener::City);
    }
  };
}

std::optional<std::int32_t> ZIPCODE::Find(const Place& place) const {
  const auto id = statements_.SelectValue("SELECT ZipCodID FROM ZipCodTable WHERE (ZipCodCit=" + Literal(place.city) +
                                          ") AND (ZipCodSta=" + Literal(place.state) +
                                          ") AND (ZipCodZip=" + Literal(place.zip) + ")" + statements_.Office() + ";");
  return session::IsNull(id) ? std::nullopt : std::optional(session::ToId(id));
}

void ZIPCODE::Show(Opener opener) {
  Tag = opener == Opener::City ? "CITY" : "";
  Drop(opener == Opener::City ? parts_.city : parts_.zip);
  Fill(OpenerBox().Text.get());
  ZIPCode_Combo.SetFocus();
}

void ZIPCODE::Fill(std::string_view typed) {
  if (ZIPCode_Combo.Tag.starts_with(kStop) || ZIPCode_Combo.Tag.ends_with(kStop)) {
    return;
  }
  const std::string tag = ZIPCode_Combo.Tag;
  ZIPCode_Combo.Tag += kStop;
  const bool city = &OpenerBox() == &parts_.city;
  const data::Words column = city ? data::Words("ZipCodCit") : data::Words("ZipCodZip");
  std::vector<forms::ListItem> items;
  bool leads = false;
  Attempt([&] {
    const auto rows =
        statements_.Select((city ? Sql("Select Top 200") : Sql("Select Top 20")) + " * from ZipCodTable where " +
                           column + ">=" + Literal(typed) + statements_.Office() +
                           (city ? Sql(" order by ZipCodCit,ZipCodZip;") : Sql(" order by ZipCodZip,ZipCodCit;")));
    if (!rows->Eof()) {
      const std::string first = session::ToText((*rows)[column.Text()]);
      leads = forms::EqualsIgnoringCase(forms::Left(first, forms::CharacterCount(typed)), typed);
    }
    for (; !rows->Eof(); rows->MoveNext()) {
      items.push_back({session::ToText((*rows)["ZipCodCit"]) + "\t" + session::ToText((*rows)["ZipCodSta"]) + "\t" +
                           session::ToText((*rows)["ZipCodZip"]),
                       session::ToId((*rows)["ZipCodID"])});
    }
  });
  ZIPCode_Combo.Clear();
  ZIPCode_Combo.Items = std::move(items);
  // Enter takes the first entry only when it completes what was typed.
  ZIPCode_Combo.ListIndex = leads && !typed.empty() ? 0 : -1;
  ZIPCode_Combo.Tag = tag;
}

bool ZIPCODE::AddPlace() {
  SplitTyped();
  const Place place = OnScreen();
  if (!HasCity(place) || !Confirm("Add [ " + place.Text() + " ] to database", kTitle)) {
    return false;
  }
  return Attempt([&] {
    const auto known = Find(place);
    if (const auto stored = Read(known ? *known : statements_.Insert("ZipCodTable", ValuesOf(place)))) {
      PutOnScreen(*stored);
    }
    Leave();
  });
}

bool ZIPCODE::EditPlace() {
  const auto entry = ConfirmCurrent("Edit");
  if (!entry) {
    return false;
  }
  const auto typed = context_.user.Input(
      {.prompt = "City State, Zip Code", .title = std::string(kTitle), .text = entry->place.Text()});
  if (!typed) {
    return false;
  }
  const Place changed = Place::Parse(*typed);
  if (!HasCity(changed) || !Confirm("Update City, State, and Zipcode?", "City, State, and Zipcode")) {
    return false;
  }
  return Attempt([&] {
    statements_.Update("ZipCodTable", ValuesOf(changed), "ZipCodID", entry->id);
    Fill(OpenerBox().Text.get());
    ZIPCode_Combo.ListIndex = ZIPCode_Combo.IndexOfData(entry->id);
  });
}

bool ZIPCODE::DeletePlace() {
  const auto entry = ConfirmCurrent("Delete");
  return entry && Attempt([&] {
           statements_.Execute("DELETE * FROM ZipCodTable WHERE ZipCodID=" + Literal(entry->id) + statements_.Office() +
                               ";");
           Fill(OpenerBox().Text.get());
         });
}

// The current entry, when there is one and the person agrees.
std::optional<ZIPCODE::Entry> ZIPCODE::ConfirmCurrent(std::string_view verb) {
  const forms::ListItem* current = ZIPCode_Combo.Current();
  if (current == nullptr) {
    return std::nullopt;
  }
  const std::int32_t id = current->data;
  std::optional<Place> place;
  if (!Attempt([&] { place = Read(id); }) || !place ||
      !Confirm(std::string(verb) + " [ " + place->Text() + " ] ?", kTitle)) {
    return std::nullopt;
  }
  return Entry{id, *place};
}

// As the screen's boxes could show them.
data::Assignments ZIPCODE::ValuesOf(const Place& place) const {
  const auto fitting = [](const std::string& text, const forms::TextBox& box) {
    return Literal(forms::Fitting(text, box.MaxLength));
  };
  return {{"ZipCodCit", fitting(place.city, parts_.city)},
          {"ZipCodSta", fitting(place.state, parts_.state)},
          {"ZipCodZip", fitting(place.zip, parts_.zip)}};
}

Place ZIPCODE::OnScreen() const {
  return {parts_.city.Text, parts_.state.Text, parts_.zip.Text};
}

void ZIPCODE::PutOnScreen(const Place& place) {
  parts_.city.Text = place.city;
  parts_.state.Text = place.state;
  parts_.zip.Text = place.zip;
}

std::optional<Place> ZIPCODE::Read(std::int32_t id) const {
  const auto row =
      statements_.Select("SELECT * FROM ZipCodTable WHERE ZipCodID=" + Literal(id) + statements_.Office() + ";");
  if (row->Eof()) {
    return std::nullopt;
  }
  return Place{session::ToText((*row)["ZipCodCit"]), session::ToText((*row)["ZipCodSta"]),
               session::ToText((*row)["ZipCodZip"])};
}

void ZIPCODE::Pick() {
  const forms::ListItem* current = ZIPCode_Combo.Current();
  if (current == nullptr) {
    return;
  }
  Attempt([&] {
    if (const auto place = Read(current->data)) {
      PutOnScreen(*place);
    }
  });
  Leave();
}

void ZIPCODE::Leave() {
  Visible = false;
  parts_.next.SetFocus();
}

// A whole place typed into the city box goes into its boxes. Other countries' codes are typed into their own.
void ZIPCODE::SplitTyped() {
  Place place = SplitPlace(parts_.city.Text.get(), NonUs());
  if (place.state.empty() || (place.zip.empty() && !NonUs())) {
    return;
  }
  if (place.zip.empty()) {
    place.zip = parts_.zip.Text;
  }
  PutOnScreen(place);
}

bool ZIPCODE::HasCity(const Place& place) const {
  if (place.city.empty()) {
    context_.user.Tell("A place needs a city. Please type it first.", std::string(kTitle), forms::Icon::Information);
  }
  return !place.city.empty();
}

// On with what was typed, to the box behind the one that dropped the list.
void ZIPCODE::LeaveTyped() {
  SplitTyped();
  if (&OpenerBox() == &parts_.zip) {
    Leave();
  } else {
    Visible = false;
    parts_.state.SetFocus();
  }
}

bool ZIPCODE::OnBoxKey(forms::Key key) {
  if (key == forms::Key::F9) {
    parts_.drop.DoClick();
  }
  return key == forms::Key::F9;
}

bool ZIPCODE::OnListKey(forms::Key key) {
  switch (key) {
    case forms::Key::Enter:
      if (ZIPCode_Combo.Current() != nullptr) {
        Pick();
      } else {
        LeaveTyped();
      }
      return true;
    case forms::Key::Tab:
      LeaveTyped();
      return true;
    case forms::Key::Esc:
      Visible = false;
      OpenerBox().SetFocus();
      return true;
    case forms::Key::Insert:
      AddPlace();
      return true;
    case forms::Key::Delete:
      if (ZIPCode_Combo.Current() != nullptr && (!BeforeDeleteKey || BeforeDeleteKey())) {
        DeletePlace();
      }
      return true;
    default:
      return false;
  }
}

// The list has the focus while the person goes on typing into the box above it.
void ZIPCODE::OnListCharacter(char32_t character) {
  constexpr char32_t kBackspace = 8;
  forms::TextBox& box = OpenerBox();
  if (character == kBackspace) {
    const std::size_t count = forms::CharacterCount(box.Text.get());
    box.DoEdit(forms::Left(box.Text.get(), count == 0 ? 0 : count - 1));
  } else {
    const char32_t taken = box.FilterKey(character, forms::CharacterCount(box.Text.get()));
    box.DoEdit(taken == 0 ? box.Text.get() : box.Text.get() + forms::ToUtf8(std::u32string_view(&taken, 1)));
  }
}

bool ZIPCODE::NonUs() const {
  return forms::IsOn(context_.session.OfficeSetting("DEFAULT_OFFICE_SETUP", "NON_US_ZIP_CODE"));
}

}  // namespace editing
