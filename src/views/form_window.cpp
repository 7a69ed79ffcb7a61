#include "views/form_window.h"

#include <wx/bookctrl.h>
#include <wx/display.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>
#include <wx/tokenzr.h>

#include "forms/button.h"
#include "forms/label.h"
#include "views/placing.h"

namespace views {
namespace {

constexpr std::string_view kPlacesSection = "SESC_SCREENS";
// Of a place that is kept in parts.
constexpr const char* kStatePart = "_S";
constexpr std::string_view kFillsTheScreen = "2";

// A place to type or choose in.
bool IsField(const forms::Control& control) {
  return control.TakesFocus() && control.Usable() && dynamic_cast<const forms::Button*>(&control) == nullptr;
}

bool IsEnter(const wxKeyEvent& event) {
  return event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER;
}

std::optional<forms::Key> KeyOf(const wxKeyEvent& event) {
  if (event.GetModifiers() == wxMOD_CONTROL && (IsEnter(event) || event.GetKeyCode() == 'S')) {
    return IsEnter(event) ? forms::Key::CtrlEnter : forms::Key::CtrlS;
  }
  if ((event.GetModifiers() & ~wxMOD_SHIFT) == wxMOD_CONTROL && event.GetKeyCode() == 'F') {
    return event.ShiftDown() ? forms::Key::CtrlShiftF : forms::Key::CtrlF;
  }
  // What drops a list elsewhere opens a field's list.
  if (event.GetModifiers() == wxMOD_ALT && event.GetKeyCode() == WXK_DOWN) {
    return forms::Key::F9;
  }
  if (event.HasAnyModifiers()) {
    return std::nullopt;
  }
  if (IsEnter(event)) {
    return forms::Key::Enter;
  }
  switch (event.GetKeyCode()) {
    case WXK_ESCAPE:
      return forms::Key::Esc;
    case WXK_TAB:
    case WXK_NUMPAD_TAB:
      return forms::Key::Tab;
    case WXK_F9:
      return forms::Key::F9;
    case WXK_DELETE:
    case WXK_NUMPAD_DELETE:
      return forms::Key::Delete;
    case WXK_INSERT:
    case WXK_NUMPAD_INSERT:
      return forms::Key::Insert;
    case WXK_UP:
    case WXK_NUMPAD_UP:
      return forms::Key::Up;
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN:
      return forms::Key::Down;
    case WXK_PAGEUP:
    case WXK_NUMPAD_PAGEUP:
      return forms::Key::PageUp;
    case WXK_PAGEDOWN:
    case WXK_NUMPAD_PAGEDOWN:
      return forms::Key::PageDown;
    default:
      return std::nullopt;
  }
}

// What scrolls, and a page of a notebook, takes no part in the layout around it, so that it lays out by itself.
void LayOutApart(wxWindow& part) {
  const auto* book = dynamic_cast<wxBookCtrlBase*>(&part);
  if (wxWindow* page = book == nullptr ? nullptr : book->GetCurrentPage(); page != nullptr) {
    page->Layout();
  }
  for (wxWindow* child : part.GetChildren()) {
    LayOutApart(*child);
  }
  if (auto* scrolled = dynamic_cast<wxScrolledWindow*>(&part); scrolled != nullptr && scrolled->IsShownOnScreen()) {
    scrolled->FitInside();
    scrolled->Layout();
  }
}

bool IsTab(const wxKeyEvent& event) {
  return event.GetKeyCode() == WXK_TAB || event.GetKeyCode() == WXK_NUMPAD_TAB;
}

}  // namespace

FormWindow::FormWindow(wxTopLevelWindow& window, forms::Form& form, forms::User& user, const views::Pictures& pictures,
                       session::Settings* places)
    : window_(window), form_(form), user_(user), pictures_(pictures), places_(places), active_(form.ActiveControl()) {
  window_.SetName(ToWx(form.Name()));
  form_.Watch(this);
  window_.Bind(wxEVT_CHAR_HOOK, &FormWindow::OnKey, this);
  window_.Bind(wxEVT_CHILD_FOCUS, [this](wxChildFocusEvent& event) {
    event.Skip();
    CallAfter([this] { SyncFocus(); });
  });
  window_.Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    if (!covered_ && !form_.Closed() && form_.DoIdle()) {
      event.RequestMore();
    }
  });
}

FormWindow::~FormWindow() {
  form_.Watch(nullptr);
  bindings_.clear();
}

FormWindow& FormWindow::Of(wxWindow& widget) {
  return dynamic_cast<FormWindow&>(*wxGetTopLevelParent(&widget));
}

Binding* FormWindow::Find(const forms::Control& control) const {
  const auto found = by_control_.find(&control);
  return found == by_control_.end() ? nullptr : found->second;
}

void FormWindow::FinishLayout() {
  for (const auto& make : std::exchange(over_page_, {})) {
    make();
  }
}

void FormWindow::Prepare(wxSize wanted) {
  FitContents();
  wanted.IncTo(window_.GetMinClientSize());
  window_.SetClientSize(wanted);
  RestoreScreenPosition();
  ShowFocus();
  // The tab order becomes the toolkit's in idle time; a fast typist does not wait for that.
  wxIdleEvent now;
  window_.SendIdleEvents(now);
}

void FormWindow::SetCovered(bool covered) {
  if (covered && !covered_) {
    had_focus_ = wxWindow::FindFocus();
  }
  covered_ = covered;
  if (!covered) {
    CallAfter([this] { TakeFocusBack(); });
  }
}

bool FormWindow::SyncFocus() {
  if (focus_set_) {
    ShowFocus();
    return true;
  }
  const Binding* focused = Focused();
  if (focused == nullptr || form_.Closed() || covered_ || !focused->Control().TakesFocus() ||
      focused->Control().HasFocus()) {
    return true;
  }
  const bool moved = form_.DoFocus(focused->Control()) || form_.CameTo(focused->Control());
  ShowFocus();
  return moved;
}

void FormWindow::HeadingChanged(const forms::Control& heading) const {
  for (const auto& binding : bindings_) {
    if (binding->Control().Heading == &heading) {
      binding->ShowName();
    }
  }
}

void FormWindow::LayOutSoon() {
  if (!layout_pending_) {
    layout_pending_ = true;
    CallAfter([this] {
      layout_pending_ = false;
      FitContents();
    });
  }
}

void FormWindow::FormChanged(forms::Aspect aspect) {
  if (aspect == forms::Aspect::Focus) {
    Binding* left = active_ == nullptr ? nullptr : Find(*active_);
    active_ = form_.ActiveControl();
    if (left != nullptr && active_ != &left->Control()) {
      left->Deselect();
    }
    focus_set_ = true;
    CallAfter([this] {
      if (focus_set_) {
        ShowFocus();
      }
    });
  } else {
    window_.SetTitle(ToWx(form_.Caption.get()));
  }
}

void FormWindow::OnKey(wxKeyEvent& event) {
  if (!SyncFocus()) {
    return;
  }
  Binding* binding = Focused();
  if (event.GetModifiers() == wxMOD_SHIFT && IsTab(event)) {
    if ((binding != nullptr && binding->Uses(forms::Key::Tab)) || !GoOn(binding, true)) {
      event.Skip();
    }
    return;
  }
  if (event.GetModifiers() == wxMOD_ALT && UseAltKey(event.GetKeyCode())) {
    return;
  }
  const auto key = KeyOf(event);
  if (!key || !UseKey(binding, *key)) {
    event.Skip();
  } else if (focus_set_ && !form_.Closed()) {
    ShowFocus();  // before a key that was typed ahead
  }
}

// The rules first, then the widget, then what a key does in every form.
bool FormWindow::UseKey(Binding* binding, forms::Key key) {
  if (binding != nullptr ? binding->Control().DoKey(key) : form_.DoKey(key)) {
    return true;
  }
  if (binding != nullptr && binding->Uses(key)) {
    return false;
  }
  if (key == forms::Key::Esc) {
    form_.DoClose();
    return true;
  }
  if (key == forms::Key::Tab) {
    return GoOn(binding, false);
  }
  return key == forms::Key::Enter && binding != nullptr && IsField(binding->Control()) &&
         GoTo(form_.NextField(&binding->Control()));
}

// A picture shows no caption, so the toolkit knows no letter that presses it.
bool FormWindow::UseAltKey(int key) {
  const auto pressed = std::ranges::find_if(form_.Controls(), [key](const forms::Control* control) {
    return dynamic_cast<const forms::PictureBox*>(control) != nullptr && control->Usable() &&
           std::toupper(control->Mnemonic()) == key;
  });
  if (pressed == form_.Controls().end()) {
    return false;
  }
  dynamic_cast<forms::PictureBox&>(**pressed).DoClick();
  return true;
}

bool FormWindow::GoOn(Binding* from, bool backward) {
  if (from != nullptr && from->TabWithin(backward)) {
    return true;
  }
  const forms::Control* stop = form_.NextStop(from == nullptr ? nullptr : &from->Control(), backward);
  Binding* to = stop == nullptr ? nullptr : Find(*stop);
  if (to != nullptr) {
    to->TabInto(backward);
  }
  return to != nullptr;
}

bool FormWindow::GoTo(const forms::Control* control) const {
  const Binding* binding = control == nullptr ? nullptr : Find(*control);
  if (binding != nullptr) {
    binding->TakeFocus();
  }
  return binding != nullptr;
}

// What stands before the dialog keeps the keyboard.
void FormWindow::ShowFocus() {
  if (covered_) {
    return;
  }
  focus_set_ = false;
  const forms::Control* active = form_.ActiveControl();
  Binding* binding = active == nullptr ? nullptr : Find(*active);
  if (binding != nullptr && binding->HoldsFocus() && binding != Focused() && active->Usable()) {
    binding->TakeFocus();
  }
}

// To where a rule has put the focus meanwhile, or to the widget that had it.
void FormWindow::TakeFocusBack() {
  if (focus_set_) {
    ShowFocus();
  }
  if (!covered_ && had_focus_ != nullptr && Focused() == nullptr && window_.IsDescendant(had_focus_) &&
      had_focus_->IsShownOnScreen()) {
    views::TakeFocusBack(*had_focus_);
  }
}

Binding* FormWindow::Focused() const {
  for (const wxWindow* window = wxWindow::FindFocus(); window != nullptr && window != &window_;
       window = window->GetParent()) {
    for (const auto& binding : bindings_) {
      if (&binding->Widget() == window) {
        return binding.get();
      }
    }
  }
  return nullptr;
}

void FormWindow::FitContents() {
  if (window_.GetSizer() == nullptr) {
    return;
  }
  const wxSize least = window_.GetSizer()->ComputeFittingClientSize(&window_);
  window_.SetMinClientSize(least);
  const wxSize now = window_.GetClientSize();
  const wxSize wanted(std::max(now.x, least.x), std::max(now.y, least.y));
  if (wanted != now) {
    window_.SetClientSize(wanted);
    KeepOnDisplay(window_);
  }
  window_.Layout();
  LayOutApart(window_);
}

std::optional<std::array<long, 4>> FormWindow::KeptPlace() const {
  std::array<long, 4> place{};
  wxString text;
  if (places_ != nullptr && form_.KeepsPlaceInParts()) {
    for (const std::string_view part : form_.PlaceParts()) {
      text += ToWx(places_->UserOption(kPlacesSection, form_.PlaceKey() + std::string(part))) + ",";
    }
  } else if (places_ != nullptr) {
    text = ToWx(places_->UserOption(kPlacesSection, form_.PlaceKey()));
  }
  wxStringTokenizer parts(text, ",");
  for (long& number : place) {
    if (!parts.GetNextToken().ToLong(&number)) {
      return std::nullopt;
    }
  }
  return place;
}

void FormWindow::RestoreScreenPosition() {
  const auto place = KeptPlace();
  if (!place) {
    PlaceInMiddle(window_);
    return;
  }
  const auto& [left, top, width, height] = *place;
  const wxPoint corner = window_.FromDIP(wxPoint(static_cast<int>(left), static_cast<int>(top)));
  wxSize size = window_.FromDIP(wxSize(static_cast<int>(width), static_cast<int>(height)));
  size.IncTo(window_.GetMinClientSize());
  window_.SetClientSize(size);
  if (wxDisplay::GetFromPoint(corner) == wxNOT_FOUND) {
    PlaceInMiddle(window_);
  } else {
    window_.Move(corner);
    KeepOnDisplay(window_);
  }
  if (form_.KeepsPlaceInParts() &&
      places_->UserOption(kPlacesSection, form_.PlaceKey() + kStatePart) == kFillsTheScreen) {
    window_.Maximize();
  }
}

// The size is that of the area inside the frame: what a frame adds to it is known only when it is seen.
void FormWindow::SaveScreenPosition() {
  const wxPoint corner = window_.ToDIP(window_.GetPosition());
  const wxSize size = window_.ToDIP(window_.GetClientSize());
  // A window that went with its owner has none.
  if (places_ == nullptr || size.x == 0) {
    return;
  }
  try {
    KeepPlace({corner.x, corner.y, size.x, size.y});
  } catch (const session::DatabaseError&) {  // NOLINT(bugprone-empty-catch): the next time it opens in the middle
  }
}

// A window that fills the screen leaves the place that it had before.
void FormWindow::KeepPlace(const std::array<long, 4>& place) {
  const std::string& key = form_.PlaceKey();
  if (!form_.KeepsPlaceInParts()) {
    places_->SetUserOption(kPlacesSection, key,
                           FromWx(wxString::Format("%ld,%ld,%ld,%ld", place[0], place[1], place[2], place[3])));
    return;
  }
  places_->SetUserOption(kPlacesSection, key + kStatePart, window_.IsMaximized() ? kFillsTheScreen : "0");
  for (std::size_t part = 0; part < place.size() && !window_.IsMaximized(); ++part) {
    places_->SetUserOption(kPlacesSection, key + std::string(form_.PlaceParts().at(part)),
                           std::to_string(place.at(part)));
  }
}

}  // namespace views
