// A client of the shipped component; a second thread is the person who finds its windows and presses keys in them.
#include <gmock/gmock.h>

#include <functional>
#include <mutex>
#include <thread>

#include "scripted_object.h"
#include "support/component.h"

namespace {

using automation::ComPtr;
using automation::Variant;
using test_support::Holding;
using test_support::ScriptedObject;
using testing::Contains;
using testing::StartsWith;

// A host's window, with an `hwnd`.
class Owner {
 public:
  Owner()
      : window_(CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 500, 300, nullptr,
                                nullptr, GetModuleHandleW(nullptr), nullptr)) {
    form_->Answer("hWnd", Variant::Of(static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(window_))));
  }
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;
  ~Owner() { DestroyWindow(window_); }

  HWND Window() const { return window_; }
  IDispatch* Form() const { return form_.Get(); }
  ULONG References() const { return form_->References(); }

 private:
  HWND window_;
  ComPtr<ScriptedObject> form_ = ScriptedObject::Make();
};

// What was seen of a window of the component.
struct Seen {
  std::wstring title;
  HWND owner = nullptr;
  bool owner_enabled = true;
};

// Waits for a window of the component, notes what it looks like, and closes it.
class Person {
 public:
  Person() : thread_([this] { Work(); }) {}
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;
  ~Person() {
    if (thread_.joinable()) {
      thread_.join();
    }
  }

  Seen Told() {
    thread_.join();
    return seen_;
  }

 private:
  static BOOL CALLBACK Look(HWND window, LPARAM found) {
    std::array<wchar_t, 80> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId() || IsWindowVisible(window) == FALSE || name[0] != L'#') {
      return TRUE;
    }
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }
  void Work() {
    HWND window = nullptr;
    for (int tries = 0; window == nullptr && tries < 2000; ++tries) {
      EnumWindows(Look, reinterpret_cast<LPARAM>(&window));
      Sleep(10);
    }
    if (window == nullptr) {
      return;
    }
    std::array<wchar_t, 200> title{};
    GetWindowTextW(window, title.data(), static_cast<int>(title.size()));
    seen_.title = title.data();
    seen_.owner = GetWindow(window, GW_OWNER);
    // A window is up for a moment before it keeps the others from the person.
    for (int tries = 0; seen_.owner_enabled && tries < 200; ++tries) {
      Sleep(10);
      seen_.owner_enabled = seen_.owner != nullptr && IsWindowEnabled(seen_.owner) != FALSE;
    }
    PostMessageW(window, WM_CLOSE, 0, 0);
  }

  Seen seen_;
  std::thread thread_;
};

class ScreensTest : public testing::Test {
 protected:
  test_support::Component component{L"."};
  Owner owner;
};

TEST_F(ScreensTest, AsksBeforeTheOwnerAndGivesItBack) {
  {
    const auto screen = component.Make<IEditingScreen, ::EditingScreen>();
    screen->putref_frmOwner(owner.Form());
    Person person;
    Variant id = Variant::Of("NEW");
    EXPECT_EQ(screen->Load_PatInfo_Small(&id, nullptr, nullptr), S_OK);
    const Seen seen = person.Told();
    EXPECT_EQ(seen.title, L"TAVO Windows");
    EXPECT_EQ(seen.owner, owner.Window());
    EXPECT_FALSE(seen.owner_enabled);
    EXPECT_TRUE(IsWindowEnabled(owner.Window()));
    EXPECT_EQ(automation::ToText(id), "NEW");
  }
  EXPECT_EQ(owner.References(), 1U);
  EXPECT_FALSE(component.InUse());
}

}  // namespace
