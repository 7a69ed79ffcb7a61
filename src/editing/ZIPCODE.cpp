#include "editing/ZIPCODE.h"

#include <utility>

#include "data/literal.h"
#include "editing/customary_form.h"
#include "editing/editing_form.h"
#include "forms/text.h"
#include "forms/us_numbers.h"

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
  std::string_view head = place.city;
  if (head.ends_with(',')) {
    head.remove_suffix(1);  // "Springfield IL, 62701"
  }
  if (candidate == place.zip && head.size() > 4 && head[head.size() - 3] == ' ') {
    place.state = head.substr(head.size() - 2);
    place.city = head.substr(0, head.size() - 3);
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

// "62701", or with more behind it, and not "51" of a town's name.
bool IsWholeZip(std::string_view text) {
  constexpr std::size_t kDigits = 5;
  constexpr std::size_t kMost = 10;  // with four digits more, and a dash
  return text.size() >= kDigits && text.size() <= kMost &&
         text.substr(0, kDigits).find_first_not_of("0123456789") == std::string_view::npos &&
         text.find_first_not_of(kZipCharacters) == std::string_view::npos;
}

// The whole of that ZIP stands at the end of the text.
bool EndsIn(std::string_view text, std::string_view zip) {
  return IsWholeZip(zip) && forms::Trim(text).ends_with(zip);
}

Place PlaceIn(const session::Recordset& row) {
  return {session::ToText(row["ZipCodCit"]), session::ToText(row["ZipCodSta"]), session::ToText(row["ZipCodZip"])};
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
  const std::size_t comma = text.rfind(',');
  if (Place us = SplitPlace(text, false);
      !us.zip.empty() && (!us.state.empty() || (comma == std::string_view::npos && EndsIn(text, us.zip)))) {
    return us;
  }
  Place place;
  if (comma != std::string_view::npos) {
    place.zip = forms::Trim(text.substr(comma + 1));
  }
  // Between a city and the comma a blank stands where there is no state.
  const std::string_view head = comma == std::string_view::npos ? forms::Trim(text) : text.substr(0, comma);
  const std::size_t blank = head.rfind(' ');
  if (blank != std::string_view::npos && forms::CharacterCount(head.substr(blank + 1)) == 2) {
    place.state = head.substr(blank + 1);
    place.city = forms::Trim(head.substr(0, blank));
  } else {
    place.city = forms::Trim(head);
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
  parts_.drop.Caption = "...";
  parts_.drop.ToolTip = "DATABASE LIST, Left mouse - Database list";
  parts_.drop.AccessibleName = "City, state and ZIP list";
  parts_.drop.TabStop = false;
  ZIPCode_Combo.AccessibleName = "Known places";
  ZipCode_Cmd[kAdd].Caption = "Add";
  ZipCode_Cmd[kEdit].Caption = "Edit";
  ZipCode_Cmd[kDelete].Caption = "Delete";
  ZipCode_Cmd[kAdd].ToolTip = "Add the city, state and ZIP on the screen to the list (Insert)";
  ZipCode_Cmd[kEdit].ToolTip = "Edit the chosen entry (F9)";
  ZipCode_Cmd[kDelete].ToolTip = "Delete the chosen entry (Delete)";
  ZipCode_Cmd[kAdd].Click = [this] { AddPlace(), BackToList(); };
  ZipCode_Cmd[kEdit].Click = [this] { EditPlace(), BackToList(); };
  ZipCode_Cmd[kDelete].Click = [this] { DeletePlace(), BackToList(); };
  ZIPCode_Combo.Click = [this] { Pick(); };
  ZIPCode_Combo.KeyDown = [this](forms::Key key) { return OnListKey(key); };
  ZIPCode_Combo.KeyPress = [this](char32_t character) { OnListCharacter(character); };
  parts_.city.Change = [this] { Typed(Opener::City); };
  parts_.zip.Change = [this] { Typed(Opener::Zip); };
  for (const Opener opener : {Opener::City, Opener::Zip}) {
    BoxOf(opener).KeyDown = [this, opener](forms::Key key) { return OnBoxKey(opener, key); };
  }
  parts_.drop.Click = [this] {
    if (EditingForm::MayModify(*this)) {
      Show(Opener::City);
    } else {
      parts_.city.SetFocus();
    }
  };
}

std::optional<std::int32_t> ZIPCODE::Find(const Place& place) const {
  const auto id = statements_.SelectValue("SELECT ZipCodID FROM ZipCodTable WHERE (ZipCodCit=" + Literal(place.city) +
                                          ") AND (ZipCodSta=" + Literal(place.state) +
                                          ") AND (ZipCodZip=" + Literal(place.zip) + ")" + statements_.Office() + ";");
  return session::IsNull(id) ? std::nullopt : std::optional(session::ToId(id));
}

std::vector<Place> ZIPCODE::PlacesOf(std::string_view zip) const {
  std::vector<Place> places;
  if (zip.empty() || unread_) {
    return places;
  }
  const auto rows = statements_.Select("SELECT * FROM ZipCodTable WHERE (ZipCodZip=" + Literal(zip) + ")" +
                                       statements_.Office() + ";");
  for (; !rows->Eof(); rows->MoveNext()) {
    places.push_back(PlaceIn(*rows));
  }
  return places;
}

// Where the list cannot be read the person goes on typing without it, and is told so no second time.
void ZIPCODE::Typed(Opener opener) {
  typed_ = opener;
  if (!unread_) {
    Show(opener);
  }
}

void ZIPCODE::Show(Opener opener) {
  Tag = opener == Opener::City ? "CITY" : "";
  Below = &BoxOf(opener);
  Fill(OpenerBox().Text.get());
  if (unread_) {
    Hide();
  } else {
    Drop(OpenerBox());
    ZIPCode_Combo.SetFocus();
  }
}

// The focus does not stay behind in the list.
void ZIPCODE::Hide() {
  Visible = false;
  if (ZIPCode_Combo.HasFocus() || parts_.drop.HasFocus()) {
    OpenerBox().SetFocus();
  }
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
  unread_ = true;
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
      const Place place = PlaceIn(*rows);
      items.push_back({place.city + "\t" + place.state + "\t" + place.zip, session::ToId((*rows)["ZipCodID"])});
    }
    unread_ = false;
    ReadOfficeSetting();
  });
  ZIPCode_Combo.Clear();
  ZIPCode_Combo.Items = std::move(items);
  // Enter takes the first entry only when it completes what was typed.
  ZIPCode_Combo.ListIndex = leads && !typed.empty() ? 0 : -1;
  ZIPCode_Combo.Tag = tag;
}

bool ZIPCODE::AddPlace() {
  const bool split = Attempt([this] {
    if (typed_ == Opener::Zip) {
      TakeZipForm();
    }
    SplitTyped();
  });
  if (!split) {
    return false;
  }
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
  return row->Eof() ? std::nullopt : std::optional(PlaceIn(*row));
}

void ZIPCODE::Pick() {
  const forms::ListItem* current = ZIPCode_Combo.Current();
  const bool read = current != nullptr && Attempt([&] {
                      if (const auto place = Read(current->data)) {
                        PutOnScreen(*place);
                      }
                    });
  if (read) {
    Leave();
  }
}

// On from a place that is whole.
void ZIPCODE::Leave() {
  typed_.reset();
  Visible = false;
  parts_.zip.FocusNext();
}

void ZIPCODE::OnFocus(forms::Control* control) {
  DropPanel::OnFocus(control);
  if (control != nullptr && control->LiesOn(*this)) {
    return;
  }
  if (typed_ && control != &BoxOf(*typed_)) {
    Attempt([this] { TakeTyped(); });
  }
  if (control != &parts_.city && control != &parts_.zip) {
    unread_ = false;
  }
}

void ZIPCODE::TakeTyped() {
  if (std::exchange(typed_, std::nullopt) == Opener::City) {
    SplitTyped();
    return;
  }
  TakeZipForm();
  if (const auto places = PlacesOf(parts_.zip.Text.get()); places.size() == 1) {
    PutOnScreen(places.front());
  }
}

void ZIPCODE::TakeZipForm() {
  const std::string zip = forms::FormatZip(parts_.zip.Text.get());
  if (zip != parts_.zip.Text.get() && UsesUsForms(context_.session) &&
      forms::Fitting(zip, parts_.zip.MaxLength) == zip) {
    parts_.zip.Text = zip;
  }
}

// A whole place typed into the city box goes into its boxes. Other countries' codes are typed into their own.
void ZIPCODE::SplitTyped() {
  const std::string_view text = forms::Trim(parts_.city.Text.get());
  Place place = SplitPlace(text, non_us_.value_or(false));
  if (non_us_.value_or(false)) {
    if (!place.state.empty()) {
      PutOnScreen({place.city, place.state, parts_.zip.Text});
    }
    return;
  }
  if (!EndsIn(text, place.zip)) {
    return;
  }
  std::string before_zip(forms::Trim(text.substr(0, text.size() - place.zip.size())));
  CutTrailingComma(before_zip);
  // A known place tells "Santa Fe 87501" from a state "Fe", and the state where none was typed.
  for (const Place& known : PlacesOf(place.zip)) {
    const bool same_state = place.state.empty() || forms::EqualsIgnoringCase(known.state, place.state);
    if (forms::EqualsIgnoringCase(known.city, before_zip) ||
        (same_state && forms::EqualsIgnoringCase(known.city, place.city))) {
      place = known;
      break;
    }
  }
  if (place.state.empty()) {
    place.state = parts_.state.Text;
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
  Visible = false;
  OpenerBox().FocusNext();
}

void ZIPCODE::BackToList() {
  if (Visible) {
    ZIPCode_Combo.SetFocus();
  }
}

bool ZIPCODE::OnBoxKey(Opener opener, forms::Key key) {
  if (key == forms::Key::F9 && EditingForm::MayModify(*this)) {
    Show(opener);
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
      Hide();
      return true;
    case forms::Key::Insert:
      AddPlace();
      return true;
    case forms::Key::F9:
      EditPlace();
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

// Once; where that fails it is an office of the United States.
void ZIPCODE::ReadOfficeSetting() {
  if (!non_us_) {
    non_us_ = false;
    non_us_ = !UsesUsForms(context_.session);
  }
}

}  // namespace editing
