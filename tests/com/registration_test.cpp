#include <gtest/gtest.h>

#include "support/component.h"

namespace {

using automation::ComPtr;

bool Exists(HKEY root, const std::wstring& path) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(key);
  return true;
}

std::wstring ToText(const GUID& id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

// Every key that the component writes, below the classes of a hive.
std::vector<std::wstring> Keys() {
  return {L"twSimpleEditScreens.EditingScreen",
          L"twSimpleEditScreens.LookUpList",
          L"CLSID\\" + ToText(__uuidof(::EditingScreen)),
          L"CLSID\\" + ToText(__uuidof(::LookUpList)),
          L"TypeLib\\" + ToText(LIBID_twSimpleEditScreens),
          L"Interface\\" + ToText(__uuidof(IEditingScreen)),
          L"Interface\\" + ToText(__uuidof(ILookUpList)),
          L"Interface\\" + ToText(__uuidof(::IGlobal))};
}

int CountIn(HKEY hive) {
  int count = 0;
  for (const std::wstring& key : Keys()) {
    count += Exists(hive, L"Software\\Classes\\" + key) ? 1 : 0;
  }
  return count;
}

class RegistrationTest : public testing::Test {
 protected:
  // A run that was cut off may have left it registered.
  void SetUp() override { component.Unregister(); }
  void TearDown() override { component.Unregister(); }

  test_support::Component component{L"without_windows"};
};

TEST_F(RegistrationTest, IsCleanAndRepeatable) {
  ASSERT_EQ(CountIn(HKEY_LOCAL_MACHINE), 0);
  ASSERT_EQ(component.Register(), S_OK);
  ASSERT_EQ(component.Register(), S_OK);
  EXPECT_EQ(CountIn(HKEY_LOCAL_MACHINE), static_cast<int>(Keys().size()));
  EXPECT_EQ(CountIn(HKEY_CURRENT_USER), 0);
  for (const wchar_t* name : {L"twSimpleEditScreens.EditingScreen", L"twSimpleEditScreens.LookUpList"}) {
    CLSID id{};
    ASSERT_EQ(CLSIDFromProgID(name, &id), S_OK);
    ComPtr<IDispatch> object;
    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.OutVoid()), S_OK);
  }
  ComPtr<ITypeLib> library;
  EXPECT_EQ(LoadRegTypeLib(LIBID_twSimpleEditScreens, 1, 0, LOCALE_NEUTRAL, library.Out()), S_OK);
  ASSERT_EQ(component.Unregister(), S_OK);
  EXPECT_EQ(CountIn(HKEY_LOCAL_MACHINE), 0);
  EXPECT_EQ(component.Unregister(), S_OK);
}

// Where a machine's hive cannot be written; a key that was deleted stands in for it.
TEST_F(RegistrationTest, IsForThePersonWhereTheMachineIsClosed) {
  HKEY gone = nullptr;
  ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\gone", 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                            nullptr, &gone, nullptr),
            ERROR_SUCCESS);
  ASSERT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\gone"), ERROR_SUCCESS);
  ASSERT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, gone), ERROR_SUCCESS);
  const HRESULT registered = component.Register();
  const int for_the_person = CountIn(HKEY_CURRENT_USER);
  const HRESULT unregistered = component.Unregister();
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
  RegCloseKey(gone);
  EXPECT_EQ(registered, S_OK);
  EXPECT_EQ(for_the_person, static_cast<int>(Keys().size()));
  EXPECT_EQ(unregistered, S_OK);
  EXPECT_EQ(CountIn(HKEY_CURRENT_USER), 0);
  EXPECT_EQ(CountIn(HKEY_LOCAL_MACHINE), 0);
}

}  // namespace
