#include "views/typed_ahead.h"

#ifdef __WXGTK__

#include <memory>
#include <vector>

// Of the library that the toolkit stands on; it brings no headers of its own.
union GdkEvent;
extern "C" {
GdkEvent* gdk_event_get();
void gdk_event_put(const GdkEvent* event);
void gdk_event_free(GdkEvent* event);
int gdk_event_get_event_type(const GdkEvent* event);
int gdk_event_get_keyval(const GdkEvent* event, unsigned* key);
int gdk_event_get_state(const GdkEvent* event, int* state);
unsigned gdk_keyval_to_unicode(unsigned key);
}

namespace views {
namespace {

constexpr int kKeyPress = 8;
constexpr int kControl = 4;
constexpr int kAlt = 8;
constexpr unsigned kBackspace = 0xFF08;
constexpr unsigned kEscape = 0xFF1B;
constexpr unsigned kDelete = 0xFFFF;
constexpr unsigned kKeypadDelete = 0xFF9F;
constexpr unsigned kFirstCharacter = ' ';

struct FreeEvent {
  void operator()(GdkEvent* event) const { gdk_event_free(event); }
};

// 0 for what is no key, and for a command's.
unsigned KeyOf(const GdkEvent& event) {
  unsigned key = 0;
  int state = 0;
  const bool pressed = gdk_event_get_event_type(&event) == kKeyPress && gdk_event_get_keyval(&event, &key) != 0;
  return pressed && gdk_event_get_state(&event, &state) != 0 && (state & (kControl | kAlt)) == 0 ? key : 0;
}

bool Types(unsigned key) {
  return key == kBackspace || key == kDelete || key == kKeypadDelete ||
         (key != kEscape && gdk_keyval_to_unicode(key) >= kFirstCharacter);
}

// Takes every event from the queue and puts back those that stay, in their order.
template <typename Stays>
void Sift(Stays stays) {
  std::vector<std::unique_ptr<GdkEvent, FreeEvent>> events;
  while (GdkEvent* event = gdk_event_get()) {
    events.emplace_back(event);
  }
  for (const auto& event : events) {
    if (stays(KeyOf(*event))) {
      gdk_event_put(event.get());
    }
  }
}

}  // namespace

bool TypingWaits() {
  bool typing = false;
  Sift([&](unsigned key) {
    typing = typing || Types(key);
    return true;
  });
  return typing;
}

bool TakeEscape() {
  bool taken = false;
  Sift([&](unsigned key) {
    taken = taken || key == kEscape;
    return key != kEscape;
  });
  return taken;
}

}  // namespace views

#else

#include <wx/msw/wrapwin.h>

namespace views {
namespace {

bool KeyWaits(MSG& message, UINT key_or_all, UINT remove) {
  return PeekMessageW(&message, nullptr, WM_KEYFIRST, key_or_all, remove | PM_NOYIELD) != 0 &&
         message.message == WM_KEYDOWN;
}

}  // namespace

bool TypingWaits() {
  MSG message;
  return KeyWaits(message, WM_KEYLAST, PM_NOREMOVE) && GetKeyState(VK_CONTROL) >= 0 &&
         (message.wParam == VK_BACK || message.wParam == VK_DELETE ||
          (message.wParam != VK_ESCAPE &&
           MapVirtualKeyW(static_cast<UINT>(message.wParam), MAPVK_VK_TO_CHAR) >= static_cast<UINT>(' ')));
}

bool TakeEscape() {
  MSG message;
  return KeyWaits(message, WM_KEYLAST, PM_NOREMOVE) && message.wParam == VK_ESCAPE &&
         KeyWaits(message, WM_KEYLAST, PM_REMOVE);
}

}  // namespace views

#endif
