// A client of the shipped component; a second thread is the person who finds its windows and presses keys in them.
#include <gtest/gtest.h>

#include "automation/counted.h"
#include "automation/session_object.h"
#include "person/steps.h"
#include "practice/demo.h"
#include "scripted_object.h"
#include "support/component.h"
#include "support/practice_host.h"

namespace {

using automation::CallArguments;
using automation::ComPtr;
using automation::Variant;
using test_support::Person;
using test_support::ScriptedObject;

constexpr int kRounds = 20;

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
  ++*reinterpret_cast<int*>(count);
  return TRUE;
}

int WindowsOfThisThread() {
  int count = 0;
  EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&count));
  return count;
}

// By the name that the component's own toolkit gives its windows, as in a host that uses it too.
constexpr const wchar_t* kClassOfTheToolkit = L"wxWindowNR";

// Makes a class of windows once.
const wchar_t* WindowClass(const wchar_t* name) {
  WNDCLASSW named{};
  named.lpfnWndProc = DefWindowProcW;
  named.lpszClassName = name;
  RegisterClassW(&named);
  return name;
}

// A host's form, by the handle of its window.
ComPtr<ScriptedObject> FormOf(HWND window) {
  auto form = ScriptedObject::Make();
  form->Answer("hWnd", Variant::Of(static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(window))));
  return form;
}

// A host's window, with an `hwnd` and a field that the person was in. It keeps its procedure.
class Owner {
 public:
  explicit Owner(const wchar_t* window_class = kClassOfTheToolkit)
      : window_(CreateWindowExW(0, WindowClass(window_class), L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 500,
                                300, nullptr, nullptr, nullptr, nullptr)),
        field_(CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 10, 10, 200, 30, window_, nullptr, nullptr,
                               nullptr)) {
    SetForegroundWindow(window_);
    SetFocus(field_);
  }
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;
  ~Owner() {
    if (IsWindow(window_) != FALSE) {
      EXPECT_EQ(GetWindowLongPtrW(window_, GWLP_WNDPROC), procedure_);
      DestroyWindow(window_);
    }
  }

  HWND Window() const { return window_; }
  HWND Field() const { return field_; }
  IDispatch* Form() const { return form_.Get(); }
  ULONG References() const { return form_->References(); }

 private:
  HWND window_;
  HWND field_;
  LONG_PTR procedure_ = GetWindowLongPtrW(window_, GWLP_WNDPROC);
  ComPtr<ScriptedObject> form_ = FormOf(window_);
};

// An object that tells when it is asked for a member, which it then offers or not.
class Watched final : public automation::Counted<IDispatch> {
 public:
  Watched(ComPtr<IDispatch> object, std::wstring member, std::function<bool()> offers)
      : object_(std::move(object)), member_(std::move(member)), offers_(std::move(offers)) {}

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return object_->GetTypeInfoCount(count); }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
    return object_->GetTypeInfo(index, locale, info);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
    return member_ == names[0] && !offers_() ? DISP_E_UNKNOWNNAME
                                             : object_->GetIDsOfNames(id, names, count, locale, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* value, EXCEPINFO* exception, UINT* wrong) override {
    return object_->Invoke(member, id, locale, flags, parameters, value, exception, wrong);
  }

 private:
  ComPtr<IDispatch> object_;
  std::wstring member_;
  std::function<bool()> offers_;
};

// Over a demo practice, whose session is handed to the component.
class ScreensTest : public testing::Test {
 protected:
  ScreensTest() : host(host::MakeDemo("sqlite::memory:", {.patients = 60, .password_cost = host::HashCost::Least})) {
    NewScreen()->putref_PV(pv.Get());
  }
  void TearDown() override {
    NewScreen()->putref_PV(nullptr);
    EXPECT_FALSE(component.InUse());
  }

  ComPtr<IEditingScreen> NewScreen() {
    auto screen = component.Make<IEditingScreen, ::EditingScreen>();
    screen->putref_frmOwner(owner.Form());
    return screen;
  }
  ComPtr<ILookUpList> NewList() {
    auto list = component.Make<ILookUpList, ::LookUpList>();
    list->putref_frmOwner(owner.Form());
    return list;
  }
  // The ID that comes back while somebody works.
  std::string EditPatient(const char* id, std::function<void(Person&)> work) {
    Person person(std::move(work));
    Variant patient = Variant::Of(id);
    EXPECT_EQ(NewScreen()->Load_PatInfo_Small(&patient, nullptr, nullptr), S_OK);
    EXPECT_EQ(person.Failure(), "");
    return automation::ToText(patient);
  }
  std::string EditPatient(const char* id, const char* steps) {
    return EditPatient(id, [steps](Person& he) { Do(he, steps); });
  }

  test_support::PracticeHost host;
  ComPtr<IDispatch> pv = host::MakeSessionObject(host.session);
  test_support::Component component{L"."};
  Owner owner;
};

TEST_F(ScreensTest, AddsAPatientByKeysAlone) {
  const std::string id = EditPatient("NEW", R"(
    await New Patient Information
    type O'Hara
    press Enter
    type Zoë'; DROP TABLE PATable; 100%
    press Enter
    type f
    press Enter Enter
    type 010280
    press Tab
    alt z
    type 7
    press Enter
    alt o
    await Save Changes
    alt y
  )");
  EXPECT_EQ(host.Value("SELECT pLASNAM + '|' + pFIRNAM + '|' + pSEX + '|' + pTypPat FROM PATable WHERE pID=" + id),
            "O'Hara|Zoë'; DROP TABLE PATable; 100%|F|1");
  EXPECT_EQ(host.Value("SELECT COUNT(*) FROM PATable WHERE pCIT<>'' AND pZIP LIKE '7____' AND pID=" + id), "1");
  EXPECT_EQ(host.Value("SELECT pBIRDAT FROM PATable WHERE pID=" + id), "1980-01-02");
  EXPECT_TRUE(IsWindowEnabled(owner.Window()));
  EXPECT_EQ(GetFocus(), owner.Field());
}

TEST_F(ScreensTest, KeepsTheTypingThatItRefuses) {
  const std::string id = EditPatient("NEW", R"(
    await New Patient Information
    type Jones
    press Tab Tab
    type x
    press Tab
    await TAVO Windows
    press Enter
    await New Patient Information
    shows X
    type m
    press Tab
    alt o
    await Save Changes
    alt y
  )");
  EXPECT_EQ(host.Value("SELECT pLASNAM + '|' + pSEX FROM PATable WHERE pID=" + id), "Jones|M");
}

TEST_F(ScreensTest, WritesNothingWhenCancelled) {
  const char* const rows = "SELECT COUNT(*) FROM PATable WHERE pLASNAM='Jones'";
  EXPECT_EQ(EditPatient("NEW", R"(
    await New Patient Information
    type Jones
    press Esc
    await TAVO Windows
    press Esc
    await New Patient Information
    shows Jones
    press Esc
    await TAVO Windows
    alt n
  )"),
            "NEW");
  EXPECT_EQ(host.Value(rows), "0");

  const std::string id = host.Value("SELECT MIN(pID) FROM PATable WHERE pTypPat='1'");
  EXPECT_EQ(EditPatient(id.c_str(), R"(
    await Patient Information
    type Jones
    press Esc
    await TAVO Windows
    alt n
  )"),
            id);
  EXPECT_EQ(host.Value(rows), "0");
  EXPECT_FALSE(host::RecordLocks(host.session.Office(), "Bob").HeldByAnother("PATABLE", std::stoi(id)));
}

// Every variable keeps the type that the host gave it.
TEST_F(ScreensTest, AdjustsAPlanInVariablesOfTheHost) {
  LONG employer = 1;
  LONG carrier = 1;
  LONG plan = 1;
  const Variant code = Variant::Of("D2701");
  BSTR code_text = V_BSTR(&code);
  CY office{};
  CY allowed{.int64 = 11'200'000};
  double calculation = -1;
  float percent = 62.5;
  CY payment{.int64 = 500'000};
  Variant adjustment;
  VARIANT_BOOL editable = VARIANT_TRUE;
  const auto reference = [](VARTYPE type, void* value) {
    Variant argument;
    V_VT(&argument) = VT_BYREF | type;
    V_BYREF(&argument) = value;
    return argument;
  };
  std::array arguments = {reference(VT_I4, &employer),        reference(VT_I4, &carrier),   reference(VT_I4, &plan),
                          reference(VT_BSTR, &code_text),     reference(VT_CY, &office),    reference(VT_CY, &allowed),
                          reference(VT_R8, &calculation),     reference(VT_R4, &percent),   reference(VT_CY, &payment),
                          reference(VT_VARIANT, &adjustment), reference(VT_BOOL, &editable)};
  const auto adjust = [&](const char* steps) {
    Person person([steps](Person& he) { Do(he, steps); });
    VARIANT_BOOL accepted = VARIANT_FALSE;
    EXPECT_EQ(NewScreen()->Edit_AdjustPlan_Info(&arguments[0], &arguments[1], &arguments[2], &arguments[3],
                                                &arguments[4], &arguments[5], &arguments[6], &arguments[7],
                                                &arguments[8], &arguments[9], nullptr, &arguments[10], &accepted),
              S_OK);
    EXPECT_EQ(person.Failure(), "");
    return accepted;
  };
  EXPECT_EQ(adjust("await PPO Adjustment\nshows $1,340.00\nalt v\ntype 7\npress Esc\nawait Save Changes\nalt n"),
            VARIANT_FALSE);
  EXPECT_EQ(office.int64, 0);
  EXPECT_EQ(percent, 62.5F);
  EXPECT_EQ(V_VT(&adjustment), VT_EMPTY);

  EXPECT_EQ(adjust("await PPO Adjustment\nalt v\ntype 33.3333\nalt p\ntype 0\npress Tab\nshows $220.00\nalt o"),
            VARIANT_TRUE);
  EXPECT_EQ(office.int64, 13'400'000);
  EXPECT_EQ(allowed.int64, 11'200'000);
  EXPECT_EQ(calculation, -1);
  EXPECT_FLOAT_EQ(percent, 33.3333F);
  EXPECT_EQ(payment.int64, 3'733'300);
  EXPECT_EQ(V_VT(&adjustment), VT_CY);
  EXPECT_EQ(V_CY(&adjustment).int64, 2'200'000);
  EXPECT_EQ(editable, VARIANT_TRUE);
}

// A host that ends while a screen is open: the screen goes, and the host's own loop hears of it.
TEST_F(ScreensTest, EndsWithTheHostsMessageLoop) {
  constexpr WPARAM kExitCode = 7;
  EditPatient("NEW", [screens = GetCurrentThreadId()](Person& he) {
    Do(he, "await New Patient Information\ntype Jones");
    PostThreadMessageW(screens, WM_QUIT, kExitCode, 0);
  });
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE && message.message != WM_QUIT) {
  }
  EXPECT_EQ(message.message, WM_QUIT);
  EXPECT_EQ(message.wParam, kExitCode);
  EXPECT_TRUE(IsWindowEnabled(owner.Window()));
}

// Whatever stands before a window goes with it.
TEST_F(ScreensTest, EndsWithTheOwnersWindow) {
  const std::string id = EditPatient("NEW", [this](Person& he) {
    Do(he, "await New Patient Information\ntype Jones\npress Esc\nawait TAVO Windows");
    PostMessageW(owner.Window(), WM_CLOSE, 0, 0);
  });
  EXPECT_FALSE(IsWindow(owner.Window()));
  EXPECT_EQ(id, "NEW");
}

// Where the windows stood is asked of the session when the first one is up already.
TEST_F(ScreensTest, TellsAMemberThatTheSessionLacks) {
  const auto lacking = ComPtr<IDispatch>::Adopt(new Watched(pv, L"UserOption", [] { return false; }));
  NewScreen()->putref_PV(lacking.Get());
  EXPECT_EQ(EditPatient("NEW", R"(
    await TAVO Windows
    press Enter
    gone TAVO Windows
  )"),
            "NEW");
}

TEST_F(ScreensTest, HoldsNothingAfterManyScreens) {
  const auto references = [this] {
    pv.Get()->AddRef();
    return pv.Get()->Release();
  };
  const ULONG before = references();
  int windows = 0;
  for (int round = 0; round < kRounds; ++round) {
    EXPECT_EQ(EditPatient("NEW", "await New Patient Information\npress Esc"), "NEW");
    if (round == 0) {
      windows = WindowsOfThisThread();
    }
  }
  EXPECT_EQ(references(), before);
  EXPECT_EQ(owner.References(), 1U);
  EXPECT_EQ(WindowsOfThisThread(), windows);
}

TEST_F(ScreensTest, StandsBeforeTheOwner) {
  HWND before = nullptr;
  bool owner_enabled = true;
  EditPatient("NEW", [&](Person& he) {
    before = GetWindow(he.Await(L"New Patient Information"), GW_OWNER);
    owner_enabled = IsWindowEnabled(owner.Window()) != FALSE;
    he.Press(VK_ESCAPE);
  });
  EXPECT_EQ(before, owner.Window());
  EXPECT_FALSE(owner_enabled);
}

// The host is asked for a statement and shows a list first, before the same window.
TEST_F(ScreensTest, OpensAListWhileAScreenLoads) {
  const Owner plain(L"HostWindow");
  bool asked = false;
  const auto watched = ComPtr<IDispatch>::Adopt(new Watched(pv, L"PrepareSQL", [&] {
    if (!std::exchange(asked, true)) {
      const auto list = NewList();
      list->putref_frmOwner(plain.Form());
      list->put_ListType(lulEmployee);
      EXPECT_EQ(list->ShowList(VARIANT_FALSE, Variant()), S_OK);
    }
    return true;
  }));
  const auto screen = NewScreen();
  screen->putref_PV(watched.Get());
  screen->putref_frmOwner(plain.Form());
  Person person([&](Person& he) {
    HWND list = he.Await(L"Employee List");
    EXPECT_EQ(GetWindow(list, GW_OWNER), plain.Window());
    Do(he, "press Esc\nawait New Patient Information");
    EXPECT_FALSE(IsWindowEnabled(plain.Window()));
    he.Press(VK_ESCAPE);
  });
  Variant id = Variant::Of("NEW");
  EXPECT_EQ(screen->Load_PatInfo_Small(&id, nullptr, nullptr), S_OK);
  EXPECT_EQ(person.Failure(), "");
  EXPECT_TRUE(asked);
  EXPECT_TRUE(IsWindowEnabled(plain.Window()));
  screen->putref_PV(pv.Get());
}

TEST_F(ScreensTest, OpensAScreenFromAnEventOfAList) {
  const auto list = NewList();
  ComPtr<IConnectionPoint> point;
  list.As<IConnectionPointContainer>()->FindConnectionPoint(__uuidof(DLookUpListEvents), point.Out());
  const auto sink = ScriptedObject::Make();
  sink->Answer("SwapModuleCalled", Variant());
  sink->Add("ButtonClicked", [this](const CallArguments&) {
    // Before the list itself.
    const auto screen = NewScreen();
    screen->putref_frmOwner(FormOf(GetActiveWindow()).Get());
    Variant id = Variant::Of("NEW");
    screen->Load_PatInfo_Small(&id, nullptr, nullptr);
    return Variant();
  });
  sink->Answer("BeforePrint", Variant());
  sink->Answer("AfterPrint", Variant());
  sink->Add("CheckEvent", [](const CallArguments& arguments) {
    automation::Assign(&arguments.At(0), Variant::Of(true));
    return Variant();
  });
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(sink.Get(), &cookie), S_OK);

  list->put_ListType(lulEmployee);
  Person person([](Person& he) {
    Do(he, R"(
      await Employee List
      click New
      await New Patient Information
      press Esc
      gone New Patient Information
      await Employee List
      press Down Down Enter
    )");
  });
  EXPECT_EQ(list->ShowList(VARIANT_FALSE, Variant()), S_OK);
  EXPECT_EQ(person.Failure(), "");
  ASSERT_EQ(sink->calls.size(), 2U);
  EXPECT_TRUE(sink->calls[0].starts_with("ButtonClicked [New] ")) << sink->calls[0];
  EXPECT_EQ(sink->calls[1], "CheckEvent [0]");
  LONG chosen = 0;
  list->get_SelectedID(&chosen);
  EXPECT_NE(host.Value("SELECT COUNT(*) FROM PATable WHERE pTypEmp >= '1' AND pID=" + std::to_string(chosen)), "0");
  point->Unadvise(cookie);
}

}  // namespace
