// A client that is compiled against the type library, and uses the component without windows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <olectl.h>

#include <thread>

#include "automation/session_object.h"
#include "practice/demo.h"
#include "scripted_object.h"
#include "support/component.h"
#include "support/losing_connection.h"
#include "support/practice_host.h"

namespace {

using automation::ComPtr;
using automation::Variant;
using test_support::ScriptedObject;

constexpr std::size_t kRounds = 1000;
constexpr std::size_t kSettled = 10;  // what is made once is there

// What the process has allocated, in all of its heaps.
std::size_t HeapBlocks() {
  std::array<HANDLE, 64> heaps{};
  const DWORD count = GetProcessHeaps(heaps.size(), heaps.data());
  std::size_t blocks = 0;
  for (DWORD i = 0; i < count; ++i) {
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heaps.at(i), &entry) != FALSE) {
      blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1 : 0;
    }
  }
  return blocks;
}

class ComponentTest : public testing::Test {
 protected:
  ComponentTest() { Told(); }
  void TearDown() override {
    const auto list = NewList();
    list->putref_PV(nullptr);
    list->putref_DAC(nullptr);
  }

  ComPtr<IEditingScreen> NewScreen() const { return component.Make<IEditingScreen, ::EditingScreen>(); }
  ComPtr<ILookUpList> NewList() const { return component.Make<ILookUpList, ::LookUpList>(); }
  // What the person was told last.
  static std::string Told() {
    std::array<char, 1000> text{};
    GetEnvironmentVariableA("SCREEN_TOLD", text.data(), text.size());
    SetEnvironmentVariableA("SCREEN_TOLD", nullptr);
    return text.data();
  }

  test_support::Component component{L"without_windows"};
};

TEST_F(ComponentTest, HoldsEachSlotOnceForBothClasses) {
  const auto screen = NewScreen();
  const auto list = NewList();
  const auto pv = ScriptedObject::Make();
  const auto dac = ScriptedObject::Make();
  ASSERT_EQ(screen.As<::IGlobal>()->putref_PV(pv.Get()), S_OK);
  ASSERT_EQ(list->putref_DAC(dac.Get()), S_OK);
  ComPtr<IDispatch> read;
  ASSERT_EQ(list.As<::IGlobal>()->get_PV(read.Out()), S_OK);
  EXPECT_EQ(read.Get(), pv.Get());
  ASSERT_EQ(screen->get_DAC(read.Out()), S_OK);
  EXPECT_EQ(read.Get(), dac.Get());
  ASSERT_EQ(screen->get_GC(read.Out()), S_OK);
  EXPECT_EQ(read.Get(), nullptr);

  EXPECT_EQ(pv->References(), 2U);
  screen->putref_PV(nullptr);
  list.As<::IGlobal>()->putref_DAC(nullptr);
  EXPECT_EQ(pv->References(), 1U);
  EXPECT_EQ(dac->References(), 1U);
}

TEST_F(ComponentTest, KeepsAndReleasesTheOwner) {
  const auto owner = ScriptedObject::Make();
  {
    const auto list = NewList();
    Variant argument = Variant::Of(static_cast<IDispatch*>(owner.Get()));
    EXPECT_EQ(list->ShowList(VARIANT_FALSE, argument), S_OK);
    ComPtr<IDispatch> read;
    list->get_frmOwner(read.Out());
    EXPECT_EQ(read.Get(), owner.Get());
    list->put_frmOwner(nullptr);
    list->putref_frmOwner(owner.Get());
  }
  EXPECT_EQ(owner->References(), 1U);
}

TEST_F(ComponentTest, LeavesTheArgumentsOfEmployerStart) {
  const auto screen = NewScreen();
  Variant id = Variant::Of("NEW");
  EXPECT_EQ(screen->Employer_Start(&id, &id, nullptr, &id, &id, estCoverage), S_OK);
  EXPECT_EQ(automation::ToText(id), "NEW");
  EXPECT_EQ(Told(), "");
}

TEST_F(ComponentTest, TellsThePersonWhatTheHostLacks) {
  const auto screen = NewScreen();
  Variant id = Variant::Of("7");
  LONG typed = 5;
  Variant typed_id;
  V_VT(&typed_id) = VT_BYREF | VT_I4;
  V_I4REF(&typed_id) = &typed;
  EXPECT_EQ(screen->Load_PatInfo_Small(&id, nullptr, nullptr), S_OK);
  EXPECT_EQ(Told(), "The host has not handed over its session (PV).");
  const auto pv = ScriptedObject::Make();
  screen->putref_PV(pv.Get());
  EXPECT_EQ(screen->Load_PatInfo_Small(&typed_id, nullptr, nullptr), S_OK);
  EXPECT_NE(Told().find("does not offer \"Connection\""), std::string::npos);
  EXPECT_EQ(automation::ToText(id), "7");
  EXPECT_EQ(typed, 5);
}

TEST_F(ComponentTest, RefusesArgumentsThatAreNone) {
  const auto screen = NewScreen();
  EXPECT_EQ(screen->get_ExtraID(nullptr), E_POINTER);
  EXPECT_EQ(screen->Edit_PPO_Adjustment(nullptr), E_POINTER);
  Variant words = Variant::Of("many");
  VARIANT_BOOL accepted = VARIANT_TRUE;
  EXPECT_EQ(screen->Edit_AdjustPlan_Info(nullptr, nullptr, nullptr, nullptr, &words, nullptr, nullptr, nullptr, nullptr,
                                         nullptr, nullptr, nullptr, &accepted),
            DISP_E_TYPEMISMATCH);
  EXPECT_EQ(accepted, VARIANT_FALSE);
  EXPECT_EQ(screen.As<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(__uuidof(IEditingScreen)), S_OK);
  ComPtr<IErrorInfo> info;
  EXPECT_EQ(GetErrorInfo(0, info.Out()), S_OK);
}

// The person closes every screen as it opens.
TEST_F(ComponentTest, GivesNothingBackFromInsuranceThatIsCancelled) {
  test_support::PracticeHost host(
      host::MakeDemo("sqlite::memory:", {.patients = 12, .password_cost = host::HashCost::Least}));
  const auto screen = NewScreen();
  screen->putref_PV(host::MakeSessionObject(host.session).Get());
  LONG chosen = 7;
  VARIANT_BOOL saved = VARIANT_TRUE;
  EXPECT_EQ(screen->Select_Coverage(1, VARIANT_FALSE, 0, &chosen), S_OK);
  EXPECT_EQ(chosen, 0);
  EXPECT_EQ(screen->Edit_Patient_Coverage(std::stoi(host.Value("SELECT Min(CovPatID) FROM CovTable INNER JOIN PATable "
                                                               "ON CovPatID=pID AND CovTable.OfficeID=PATable.OfficeID "
                                                               "WHERE pPriRenFla IS NULL")),
                                          &saved),
            S_OK);
  EXPECT_EQ(saved, VARIANT_FALSE);
  saved = VARIANT_TRUE;
  EXPECT_EQ(screen->Edit_PPO_Adjustment(&saved), S_OK);
  EXPECT_EQ(saved, VARIANT_FALSE);
}

// Whatever the component asks of its host, a statement or something else, and takes the default answer: again.
TEST_F(ComponentTest, AsksWhetherToTryAgainAfterALoss) {
  host::PracticeDatabase database = host::CreateDatabase("sqlite::memory:");
  auto made = std::make_unique<test_support::LosingConnection>(std::move(database.connection));
  test_support::LosingConnection& line = *made;
  database.connection = std::move(made);
  test_support::PracticeHost host(host::Practice(std::move(database)));
  const auto screen = NewScreen();
  screen->putref_PV(host::MakeSessionObject(host.session).Get());
  line.loses = test_support::EachOnce();
  Variant id = Variant::Of("NEW");
  EXPECT_EQ(screen->Load_PatInfo_Small(&id, nullptr, nullptr), S_OK);
  EXPECT_GT(line.losses, 1);
  EXPECT_THAT(Told(),
              testing::StartsWith("The connection to the database was lost. Nothing that you typed is lost. Try "
                                  "again?"));
}

TEST_F(ComponentTest, ConnectsTheHostsSinks) {
  const auto list = NewList();
  const auto container = list.As<IConnectionPointContainer>();
  ComPtr<IConnectionPoint> point;
  EXPECT_EQ(container->FindConnectionPoint(__uuidof(DEditingScreenEvents), point.Out()), CONNECT_E_NOCONNECTION);
  ASSERT_EQ(container->FindConnectionPoint(__uuidof(DLookUpListEvents), point.Out()), S_OK);
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(container->EnumConnectionPoints(points.Out()), S_OK);
  ComPtr<IConnectionPoint> enumerated;
  ASSERT_EQ(points->Next(1, enumerated.Out(), nullptr), S_OK);
  EXPECT_EQ(enumerated.Get(), point.Get());
  EXPECT_EQ(points->Skip(1), S_FALSE);

  const auto sink = ScriptedObject::Make();
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(sink.Get(), &cookie), S_OK);
  EXPECT_EQ(sink->References(), 2U);
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.Out()), S_OK);
  CONNECTDATA connected{};
  ASSERT_EQ(connections->Next(1, &connected, nullptr), S_OK);
  EXPECT_EQ(connected.dwCookie, cookie);
  connected.pUnk->Release();
  connections.Out();
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
  EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(sink->References(), 1U);

  GUID events{};
  EXPECT_EQ(list.As<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
  EXPECT_EQ(events, __uuidof(DLookUpListEvents));
}

// A printer's device mode is a block of bytes that travels as text.
TEST_F(ComponentTest, GivesThePrinterBackAsItCame) {
  const std::string bytes("\0\xD8odd", 5);
  const Variant name = Variant::Of("Zoë's printer");
  const Variant mode = Variant::OfBytes(bytes);
  const Variant other = Variant::Of("Labels");
  ASSERT_EQ(NewScreen()->SetPrinter(V_BSTR(&name), V_BSTR(&mode), nullptr), S_OK);
  ASSERT_EQ(NewList()->SetPrinter(V_BSTR(&other), nullptr, nullptr), S_OK);
  Variant told;
  Variant bytes_told;
  ASSERT_EQ(NewScreen()->GetPrinter(&told, &bytes_told, nullptr), S_OK);
  EXPECT_EQ(automation::ToText(told), "Zoë's printer");
  EXPECT_EQ(automation::BytesOf(V_BSTR(&bytes_told)), bytes);
}

TEST_F(ComponentTest, RefusesAPropertyThatIsReadWithArguments) {
  const auto list = NewList();
  Variant one = Variant::Of(1);
  DISPPARAMS given{&one, nullptr, 1, 0};
  for (const wchar_t* property : {L"frmOwner", L"PV", L"SelectedID"}) {
    auto* name = const_cast<LPOLESTR>(property);
    DISPID member = DISPID_UNKNOWN;
    ASSERT_EQ(list->GetIDsOfNames(IID_NULL, &name, 1, 0, &member), S_OK);
    Variant value;
    EXPECT_EQ(
        list->Invoke(member, IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &given, &value, nullptr, nullptr),
        DISP_E_BADPARAMCOUNT);
  }
}

// The second apartment asks while the first one has a screen open, and once more when that is closed.
TEST_F(ComponentTest, OpensScreensOnOneThreadAtATime) {
  std::array<HRESULT, 2> results{};
  const auto ask_elsewhere = [&](HRESULT& result) {
    std::thread([&] {
      CoInitialize(nullptr);
      Variant id = Variant::Of(7);
      result = NewScreen()->Load_PatInfo_Small(&id, nullptr, nullptr);
      CoUninitialize();
    }).join();
  };
  const auto pv = ScriptedObject::Make();
  pv->Add("Connection", [&](const automation::CallArguments&) {
    ask_elsewhere(results[0]);
    return Variant::Of(true);
  });
  const auto screen = NewScreen();
  screen->putref_PV(pv.Get());
  Variant id = Variant::Of(7);
  EXPECT_EQ(screen->Load_PatInfo_Small(&id, nullptr, nullptr), S_OK);
  screen->putref_PV(nullptr);
  ask_elsewhere(results[1]);
  EXPECT_EQ(results[0], RPC_E_WRONG_THREAD);
  EXPECT_EQ(results[1], S_OK);
}

TEST_F(ComponentTest, HoldsNothingAfterAThousandRounds) {
  const auto pv = ScriptedObject::Make();
  const int objects = ScriptedObject::living;
  std::size_t blocks = 0;
  for (std::size_t round = 0; round < kRounds; ++round) {
    const auto screen = NewScreen();
    const auto list = NewList();
    screen->putref_PV(pv.Get());
    Variant id = Variant::Of("7");
    screen->Load_PatInfo_Small(&id, nullptr, nullptr);
    list->put_ListType(lulProvider);
    Variant nobody;
    list->ShowList(VARIANT_FALSE, nobody);
    list->putref_PV(nullptr);
    pv->calls.clear();
    if (round == kSettled) {
      blocks = HeapBlocks();
    }
  }
  EXPECT_LT(HeapBlocks(), blocks + kRounds / 10);
  EXPECT_EQ(pv->References(), 1U);
  EXPECT_EQ(ScriptedObject::living, objects);
  EXPECT_FALSE(component.InUse());
}

TEST_F(ComponentTest, TellsWhetherItIsInUse) {
  EXPECT_FALSE(component.InUse());
  {
    const auto factory = component.Factory(__uuidof(::LookUpList));
    EXPECT_TRUE(component.InUse());
    void* aggregated = nullptr;
    EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &aggregated), CLASS_E_NOAGGREGATION);
    factory->LockServer(TRUE);
  }
  EXPECT_TRUE(component.InUse());
  component.Factory(__uuidof(::LookUpList))->LockServer(FALSE);
  EXPECT_FALSE(component.InUse());
  EXPECT_THROW(component.Factory(IID_IUnknown), automation::ComError);
  const auto kept = ScriptedObject::Make();
  NewScreen()->putref_GC(kept.Get());
  EXPECT_TRUE(component.InUse());
  NewList()->putref_PV(kept.Get());
  NewScreen()->putref_GC(nullptr);
  EXPECT_TRUE(component.InUse());
  NewScreen()->putref_PV(nullptr);
  EXPECT_FALSE(component.InUse());
  EXPECT_EQ(kept->References(), 1U);
}

}  // namespace
