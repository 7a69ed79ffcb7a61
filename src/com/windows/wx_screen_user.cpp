// The person at the component's windows. The toolkit starts with the first window that is shown, on the host's own
// thread, and stays until the process ends: it cannot be taken down while the host goes on, so that the library is
// then kept loaded.
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/msw/private.h>
#include <wx/nativewin.h>

#include <memory>
#include <string>
#include <vector>

#include "automation/module.h"
#include "automation/variant.h"
#include "com/screen_user.h"
#include "views/wx_user.h"

namespace {

class ComponentApp : public wxApp {
 public:
  bool OnInit() override {
    SetAppName("twSimpleEditScreens");
    SetExitOnFrameDelete(false);
    wxInitAllImageHandlers();
    // What goes wrong is told by the screens.
    wxLog::EnableLogging(false);
    return true;
  }
  // Nothing that a window throws reaches the host's message loop.
  bool OnExceptionInMainLoop() override {
    std::string what = "This command could not be carried out.";
    try {
      throw;
    } catch (const std::exception& error) {
      what += "\r\n\r\n" + std::string(error.what());
    } catch (...) {
      what += "\r\n";
    }
    MessageBoxW(GetActiveWindow(), automation::ToWide(what).c_str(), automation::ToWide(forms::kSuiteTitle).c_str(),
                MB_OK | MB_ICONERROR | MB_TASKMODAL);
    return true;
  }
};

// Ends the loop of the screen in front. By itself, told to end, a loop of the toolkit would leave the windows around it
// disabled.
void EndScreen() {
  if (wxEventLoopBase* loop = wxEventLoopBase::GetActive(); loop != nullptr) {
    loop->ScheduleExit();
  }
}

// A window of the host, as the toolkit sees it: kept from the person while something modal stands before it.
class OwnerWindow : public wxNativeContainerWindow {
 public:
  explicit OwnerWindow(HWND window) : wxNativeContainerWindow(window), window_(window) {
    wxTopLevelWindows.Append(this);
  }
  bool IsShown() const override { return IsWindowVisible(window_) != FALSE; }
  // Windows takes everything with it that stands before it.
  void OnNativeDestroyed() override {
    DissociateHandle();
    EndScreen();
  }

 private:
  HWND window_;
};

// A host's window while it is an owner. The toolkit leaves its own procedure in a window of another copy of the
// toolkit: the class's name is known to it by then.
class Owner {
 public:
  explicit Owner(HWND window)
      : window_(window), before_(Procedure()), seen_(std::make_unique<OwnerWindow>(window)), given_(Procedure()) {}
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;
  ~Owner() {
    seen_.reset();
    if (IsWindow(window_) != FALSE && Procedure() == given_) {
      SetWindowLongPtrW(window_, GWLP_WNDPROC, before_);
    }
  }

  OwnerWindow* Seen() const { return seen_.get(); }

 private:
  LONG_PTR Procedure() const { return GetWindowLongPtrW(window_, GWLP_WNDPROC); }

  HWND window_;
  LONG_PTR before_;
  std::unique_ptr<OwnerWindow> seen_;
  LONG_PTR given_;
};

// Notes that the host's message loop was told to end while a screen's loop ran in its place.
class QuitWatch {
 public:
  QuitWatch() : hook_(SetWindowsHookExW(WH_GETMESSAGE, See, nullptr, GetCurrentThreadId())) {}
  QuitWatch(const QuitWatch&) = delete;
  QuitWatch& operator=(const QuitWatch&) = delete;
  ~QuitWatch() {
    UnhookWindowsHookEx(hook_);
    PassOn();
  }

  // Tells the loop around it in turn.
  static void PassOn() {
    if (told) {
      told = false;
      PostQuitMessage(exit_code);
    }
  }

 private:
  static LRESULT CALLBACK See(int code, WPARAM removed, LPARAM message) {
    const MSG& seen = *reinterpret_cast<const MSG*>(message);
    if (code == HC_ACTION && removed == PM_REMOVE && seen.message == WM_QUIT) {
      told = true;
      exit_code = static_cast<int>(seen.wParam);
      EndScreen();
    }
    return CallNextHookEx(nullptr, code, removed, message);
  }

  inline static bool told = false;
  inline static int exit_code = 0;
  HHOOK hook_;
};

// Windows that are made while it lives have controls with visual styles, as the library's manifest asks.
class VisualStyles {
 public:
  VisualStyles()
      : context_(Context()), active_(context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context_, &cookie_) != FALSE) {}
  VisualStyles(const VisualStyles&) = delete;
  VisualStyles& operator=(const VisualStyles&) = delete;
  ~VisualStyles() {
    if (active_) {
      DeactivateActCtx(0, cookie_);
    }
    if (context_ != INVALID_HANDLE_VALUE) {
      ReleaseActCtx(context_);
    }
  }

 private:
  static HANDLE Context() {
    ACTCTXW of_library{};
    of_library.cbSize = sizeof of_library;
    of_library.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    of_library.hModule = automation::Module();
    of_library.lpResourceName = MAKEINTRESOURCEW(2);  // ISOLATIONAWARE_MANIFEST_RESOURCE_ID
    return CreateActCtxW(&of_library);
  }

  HANDLE context_;
  ULONG_PTR cookie_ = 0;
  bool active_;
};

// A host's call that is under way.
struct HostCall {
  HWND owner = nullptr;
  std::shared_ptr<session::Settings> places;
  HWND focus = nullptr;                                    // where the person was typing
  wxEventLoopBase* around = wxEventLoopBase::GetActive();  // of the screens of an outer call
  wxWindow* shown_before = nullptr;                        // the owner, once something was shown before it
  std::unique_ptr<Owner> window = {};                      // the same, where an outer call does not see it already
  std::unique_ptr<QuitWatch> quit = {};                    // of the outermost call
  std::unique_ptr<VisualStyles> styles = std::make_unique<VisualStyles>();
};

// The windows of all calls, which may be nested in one another.
class Windows {
 public:
  void Begin(HWND owner, std::shared_ptr<session::Settings> places) {
    calls_.push_back({.owner = owner == nullptr ? nullptr : GetAncestor(owner, GA_ROOT),
                      .places = std::move(places),
                      .focus = GetFocus()});
    if (calls_.size() == 1) {
      calls_.back().quit = std::make_unique<QuitWatch>();
    }
    Serve();
  }
  void End() {
    const HostCall ended = std::move(calls_.back());
    calls_.pop_back();
    Serve();
    EndWithOwner();
    if (ended.shown_before != nullptr && IsWindow(ended.focus) != FALSE) {
      SetFocus(ended.focus);
    }
  }
  views::WxUser& User() {
    if (user_ == nullptr) {
      Start();
    }
    if (calls_.empty()) {
      throw std::logic_error("windows belong to a call of the host");
    }
    HostCall& call = calls_.back();
    if (call.owner != nullptr && call.shown_before == nullptr) {
      // The owner of an outer call, or one of our own screens.
      call.shown_before = wxFindWinFromHandle(call.owner);
      if (call.shown_before == nullptr) {
        call.window = std::make_unique<Owner>(call.owner);
        call.shown_before = call.window->Seen();
      }
    }
    Serve();
    return *user_;
  }
  bool Started() const { return user_ != nullptr; }

 private:
  void Start() {
    HMODULE self = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<LPCWSTR>(&automation::Module), &self);
    if (!wxEntryStart(automation::Module()) || wxTheApp == nullptr || !wxTheApp->CallOnInit()) {
      throw std::runtime_error("The windows of the editing screens could not be started.");
    }
    const std::string folder = automation::ToUtf8(automation::ModuleFolder()) + "\\pictures";
    user_ = std::make_unique<views::WxUser>(views::ViewRegistry::Standard(),
                                            views::Pictures({folder, folder + "\\ICO\\Large"}));
    user_->OnModalEnd = [this] {
      QuitWatch::PassOn();
      EndWithOwner();
    };
  }
  // One after the other, the screens whose owner is gone.
  void EndWithOwner() {
    if (!calls_.empty() && calls_.back().shown_before != nullptr && IsWindow(calls_.back().owner) == FALSE &&
        wxEventLoopBase::GetActive() != calls_.back().around) {
      EndScreen();
    }
  }
  // The innermost call's windows come before its owner.
  void Serve() {
    if (user_ != nullptr) {
      user_->SetMainWindow(calls_.empty() ? nullptr : calls_.back().shown_before);
      user_->SetPlaces(calls_.empty() ? nullptr : calls_.back().places.get());
    }
  }

  std::vector<HostCall> calls_;
  std::unique_ptr<views::WxUser> user_;
};

// Never taken down, as the toolkit is not.
Windows& TheWindows() {
  static Windows& windows = *new Windows;
  return windows;
}

class WxScreenUser : public com::ScreenUser {
 public:
  void BeginCall(HWND owner, std::shared_ptr<session::Settings> places) override {
    TheWindows().Begin(owner, std::move(places));
  }
  void EndCall() override { TheWindows().End(); }

  forms::Answer Ask(const forms::Message& message) override { return User().Ask(message); }
  std::optional<std::string> Input(const forms::InputBox& box) override { return User().Input(box); }
  void Show(forms::Form& form) override { User().Show(form); }
  std::optional<std::chrono::year_month_day> PickDate(std::string_view title,
                                                      std::chrono::year_month_day start) override {
    return User().PickDate(title, start);
  }
  std::optional<std::string> PickFile(const forms::FileChoice& choice) override { return User().PickFile(choice); }
  std::optional<std::string> PickFolder(std::string_view title) override { return User().PickFolder(title); }
  std::optional<forms::Color> PickColor(forms::Color start) override { return User().PickColor(start); }
  void Wait(std::string_view text, double done) override {
    if (!text.empty() || TheWindows().Started()) {
      User().Wait(text, done);
    }
  }
  bool WaitOrGiveUp(std::string_view text, double done) override { return User().WaitOrGiveUp(text, done); }
  void Copy(std::string_view text) override { User().Copy(text); }
  bool Print(const forms::Report& report) override { return User().Print(report); }

 private:
  static views::WxUser& User() { return TheWindows().User(); }
};

}  // namespace

// NOLINTNEXTLINE: the toolkit's own way to name the class of the application
wxIMPLEMENT_APP_NO_MAIN(ComponentApp);

namespace com {

std::unique_ptr<ScreenUser> MakeScreenUser() {
  return std::make_unique<WxScreenUser>();
}

}  // namespace com
