#include "com/event_source.h"

#include <gmock/gmock.h>

#include "scripted_object.h"
#include "session/connection.h"

namespace com {
namespace {

using automation::ComPtr;
using automation::Variant;
using test_support::ScriptedObject;
using testing::ElementsAre;

// An object that is never counted away.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): an interface has no destructor
class Container : public IConnectionPointContainer {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID, IConnectionPoint**) override { return E_NOTIMPL; }
};

class EventSourceTest : public testing::Test {
 protected:
  Container container;
  EventSource events{container, IID_IDispatch};
  ComPtr<ScriptedObject> first = ScriptedObject::Make();
  ComPtr<ScriptedObject> second = ScriptedObject::Make();
  DWORD first_cookie = 0;
  DWORD second_cookie = 0;

  EventSourceTest() {
    first->Answer("event", Variant());
    second->Answer("event", Variant());
    events.Advise(first.Get(), &first_cookie);
    events.Advise(second.Get(), &second_cookie);
  }
};

TEST_F(EventSourceTest, CallsEverySinkWithItsArgumentsInOrder) {
  events.Raise(1, {Variant::Of("key"), Variant::Of(12)});
  events.Unadvise(first_cookie);
  events.Raise(1, {});
  EXPECT_THAT(first->calls, ElementsAre("event [key] [12]"));
  EXPECT_THAT(second->calls, ElementsAre("event [key] [12]", "event"));
}

TEST_F(EventSourceTest, LetsASinkSetWhatIsPassedByReference) {
  first->Add("event", [](const automation::CallArguments& arguments) {
    automation::Assign(&arguments.At(0), Variant::Of(true));
    return Variant();
  });
  VARIANT_BOOL cancel = VARIANT_FALSE;
  Variant reference;
  V_VT(&reference) = VT_BYREF | VT_BOOL;
  V_BOOLREF(&reference) = &cancel;
  events.Raise(1, {reference});
  EXPECT_EQ(cancel, VARIANT_TRUE);
}

TEST_F(EventSourceTest, PassesOverASinkThatFailsOrLeaves) {
  first->Add("event", [this](const automation::CallArguments&) -> Variant {
    events.Unadvise(second_cookie);
    throw session::DatabaseError("no", {}, 0);
  });
  events.Raise(1, {});
  EXPECT_EQ(second->calls.size(), 1U);
  events.Raise(1, {});
  EXPECT_EQ(second->calls.size(), 1U);
}

}  // namespace
}  // namespace com
