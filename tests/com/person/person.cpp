#include "person/person.h"

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>

#include "automation/wide_text.h"

namespace test_support {
namespace {

constexpr int kTries = 3000;
constexpr DWORD kBetweenTries = 10;  // milliseconds

// Set when the screens take the end of a keystroke, or the marker, from their queue: they have dealt with everything
// before it.
HANDLE Dealt() {
  static HANDLE dealt = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  return dealt;
}

UINT Marker() {
  static const UINT marker = RegisterWindowMessageW(L"everything before this is done");
  return marker;
}

LRESULT CALLBACK SeeMessage(int code, WPARAM removed, LPARAM message) {
  const UINT seen = reinterpret_cast<const MSG*>(message)->message;
  if (code == HC_ACTION && removed == PM_REMOVE && (seen == WM_KEYUP || seen == WM_SYSKEYUP || seen == Marker())) {
    SetEvent(Dealt());
  }
  return CallNextHookEx(nullptr, code, removed, message);
}

void AwaitDealt() {
  if (WaitForSingleObject(Dealt(), kTries * kBetweenTries) != WAIT_OBJECT_0) {
    throw std::runtime_error("the screens take no messages");
  }
}

void Send(WORD key, WORD character, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = character;
  input.ki.dwFlags = flags;
  SendInput(1, &input, sizeof input);
}

void Stroke(WORD key, WORD character, DWORD flags) {
  ResetEvent(Dealt());
  Send(key, character, flags);
  Send(key, character, flags | KEYEVENTF_KEYUP);
  AwaitDealt();
}

std::wstring TitleOf(HWND window) {
  std::array<wchar_t, 300> title{};
  return {title.data(), static_cast<std::size_t>(GetWindowTextW(window, title.data(), title.size()))};
}

// As it is read, without the mark of the letter that leads to it.
std::wstring ReadOf(HWND window) {
  std::wstring text = TitleOf(window);
  std::erase(text, L'&');
  return text;
}

struct Search {
  std::wstring_view title;
  HWND found = nullptr;
};

BOOL CALLBACK Look(HWND window, LPARAM wanted) {
  auto& search = *reinterpret_cast<Search*>(wanted);
  if (IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE && ReadOf(window) == search.title) {
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
        SetEvent(ended_);
      }) {}

Person::~Person() {
  Failure();
  CloseHandle(ended_);
}

std::string Person::Failure() {
  if (thread_.joinable()) {
    std::optional<int> told_to_end;
    while (MsgWaitForMultipleObjects(1, &ended_, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
      MSG message;
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.message == WM_QUIT) {
          told_to_end = static_cast<int>(message.wParam);
        }
        DispatchMessageW(&message);
      }
    }
    thread_.join();
    if (told_to_end) {
      PostQuitMessage(*told_to_end);
    }
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
    Stroke(0, c, KEYEVENTF_UNICODE);
  }
}

void Person::Press(WORD key) {
  // Of the keys that a number pad has too, a keyboard marks its own.
  const bool also_on_pad = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
  Stroke(key, 0, also_on_pad ? KEYEVENTF_EXTENDEDKEY : 0);
}

void Person::Click(std::wstring_view text) {
  Search search{text};
  AwaitThat(("a button called " + automation::ToUtf8(text)).c_str(), [&] {
    EnumChildWindows(GetAncestor(Focus(), GA_ROOT), Look, reinterpret_cast<LPARAM>(&search));
    return search.found != nullptr;
  });
  PostMessageW(search.found, BM_CLICK, 0, 0);
  Settle();
}

// As the keyboard's layout makes it of the two keys.
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
  ResetEvent(Dealt());
  PostThreadMessageW(screens_, Marker(), 0, 0);
  AwaitDealt();
}

}  // namespace test_support
