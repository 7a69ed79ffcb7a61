// A client of the shipped component; a second thread is the person who finds its windows and presses keys in them.
#include <gtest/gtest.h>

#include "person/person.h"
#include "scripted_object.h"
#include "support/component.h"

namespace {

using automation::ComPtr;
using automation::Variant;
using test_support::Person;
using test_support::ScriptedObject;

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

class ScreensTest : public testing::Test {
 protected:
  test_support::Component component{L"."};
  Owner owner;
};

TEST_F(ScreensTest, AsksBeforeTheOwnerAndGivesItBack) {
  {
    const auto screen = component.Make<IEditingScreen, ::EditingScreen>();
    screen->putref_frmOwner(owner.Form());
    HWND before = nullptr;
    bool owner_enabled = true;
    Person person([&](Person& he) {
      HWND message = he.Await(L"TAVO Windows");
      before = GetWindow(message, GW_OWNER);
      owner_enabled = IsWindowEnabled(owner.Window()) != FALSE;
      he.Press(VK_RETURN);
    });
    Variant id = Variant::Of("NEW");
    EXPECT_EQ(screen->Load_PatInfo_Small(&id, nullptr, nullptr), S_OK);
    EXPECT_EQ(person.Failure(), "");
    EXPECT_EQ(before, owner.Window());
    EXPECT_FALSE(owner_enabled);
    EXPECT_TRUE(IsWindowEnabled(owner.Window()));
    EXPECT_EQ(automation::ToText(id), "NEW");
  }
  EXPECT_EQ(owner.References(), 1U);
  EXPECT_FALSE(component.InUse());
}

}  // namespace
