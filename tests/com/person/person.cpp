#include "person/person.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "automation/wide_text.h"

namespace test_support {
namespace {

constexpr int kTries = 3000;
constexpr DWORD kBetweenTries = 10;  // milliseconds

// Follows what was posted: when the screens take it from their queue they have dealt with everything before.
UINT Marker() {
  static const UINT marker = RegisterWindowMessageW(L"everything before this is done");
  return marker;
}

HANDLE MarkerSeen() {
  static HANDLE seen = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  return seen;
}

LRESULT CALLBACK SeeMessage(int code, WPARAM removed, LPARAM message) {
  if (code == HC_ACTION && removed == PM_REMOVE && reinterpret_cast<const MSG*>(message)->message == Marker()) {
    SetEvent(MarkerSeen());
  }
  return CallNextHookEx(nullptr, code, removed, message);
}

std::wstring TitleOf(HWND window) {
  std::array<wchar_t, 300> title{};
  return {title.data(), static_cast<std::size_t>(GetWindowTextW(window, title.data(), title.size()))};
}

struct Search {
  std::wstring_view title;
  HWND found = nullptr;
};

BOOL CALLBACK Look(HWND window, LPARAM wanted) {
  auto& search = *reinterpret_cast<Search*>(wanted);
  if (IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE && TitleOf(window) == search.title) {
    search.found = window;
  }
  return search.found == nullptr ? TRUE : FALSE;
}

BOOL CALLBACK Name(HWND window, LPARAM names) {
  if (IsWindowVisible(window) != FALSE) {
    *reinterpret_cast<std::string*>(names) += " \"" + automation::ToUtf8(TitleOf(window)) + "\"";
  }
  return TRUE;
}

}  // namespace

Person::Person(std::function<void(Person&)> work)
    : screens_(GetCurrentThreadId()), thread_([this, work = std::move(work)] {
        HHOOK hook = SetWindowsHookExW(WH_GETMESSAGE, SeeMessage, nullptr, screens_);
        try {
          work(*this);
        } catch (const std::exception& error) {
          failure_ = error.what();
          PostThreadMessageW(screens_, WM_QUIT, 0, 0);
        }
        UnhookWindowsHookEx(hook);
      }) {}

Person::~Person() {
  Failure();
}

std::string Person::Failure() {
  if (thread_.joinable()) {
    thread_.join();
  }
  return failure_;
}

HWND Person::Await(std::wstring_view title) {
  HWND window = nullptr;
  AwaitThat(("a window called " + automation::ToUtf8(title)).c_str(), [&] {
    window = Find(title);
    return window != nullptr && GetAncestor(Focus(), GA_ROOT) == window;
  });
  Settle();
  return window;
}

HWND Person::Find(std::wstring_view title) const {
  Search search{title};
  EnumThreadWindows(screens_, Look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

void Person::Type(std::wstring_view text) {
  for (const wchar_t c : text) {
    PostMessageW(Focus(), WM_CHAR, c, 1);
    Settle();
  }
}

void Person::Press(WPARAM key) {
  PostMessageW(Focus(), WM_KEYDOWN, key, 1);
  Settle();
}

void Person::PressAlt(wchar_t letter) {
  constexpr LPARAM kAltHeld = 1 << 29;
  PostMessageW(Focus(), WM_SYSCHAR, letter, kAltHeld);
  Settle();
}

void Person::AwaitThat(const char* what, const std::function<bool()>& holds) const {
  for (int tries = 0; tries < kTries; ++tries) {
    if (holds()) {
      return;
    }
    Sleep(kBetweenTries);
  }
  std::string seen;
  EnumThreadWindows(screens_, Name, reinterpret_cast<LPARAM>(&seen));
  throw std::runtime_error(std::string("did not see ") + what + ", but the windows" + seen + ", and in the focus \"" +
                           automation::ToUtf8(FocusedText()) + "\"");
}

std::wstring Person::FocusedText() const {
  std::array<wchar_t, 300> text{};
  const LRESULT size = SendMessageW(Focus(), WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return {text.data(), static_cast<std::size_t>(size)};
}

HWND Person::Focus() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(screens_, &info);
  return info.hwndFocus;
}

void Person::Settle() const {
  PostThreadMessageW(screens_, Marker(), 0, 0);
  if (WaitForSingleObject(MarkerSeen(), kTries * kBetweenTries) != WAIT_OBJECT_0) {
    throw std::runtime_error("the screens take no messages");
  }
}

}  // namespace test_support
