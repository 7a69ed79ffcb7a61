#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>
#include <thread>

namespace test_support {

// Somebody in front of the windows of this process, on a thread of his own: finds windows by their titles and presses
// keys where the keyboard's focus is. What he does not find within half a minute ends the screens.
class Person {
 public:
  // The screens belong to the calling thread.
  explicit Person(std::function<void(Person&)> work);
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;
  ~Person();

  // Waits for the end of the work, and takes messages as a host's own loop does; what went wrong, empty when nothing
  // did. For the screens' thread.
  std::string Failure();

  // --- For the work; each waits until the screens have dealt with it.
  // The window of that title, once it is up and takes keys.
  HWND Await(std::wstring_view title);
  // Nullptr when there is none that is up and open to keys.
  HWND Find(std::wstring_view title) const;
  void Type(std::wstring_view text);
  void Press(WORD key);
  // A button of the window with the focus, by its text.
  void Click(std::wstring_view text);
  // With Alt held: a mnemonic.
  void PressAlt(wchar_t letter);
  // Throws, with these words, when the screens are not so in time.
  void AwaitThat(const char* what, const std::function<bool()>& holds) const;
  // The text of the window with the focus.
  std::wstring FocusedText() const;

 private:
  HWND Focus() const;
  void Settle() const;

  DWORD screens_;  // a thread
  std::string failure_;
  HANDLE ended_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::thread thread_;
};

}  // namespace test_support
