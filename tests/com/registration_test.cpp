#include "support/component.h"

#include <gtest/gtest.h>
#include <sddl.h>

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

// Who may do what with a key of the machine's classes, in Windows' own words.
void Protect(const std::wstring& path, const wchar_t* rights) {
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  HKEY key = nullptr;
  ASSERT_NE(ConvertStringSecurityDescriptorToSecurityDescriptorW(rights, SDDL_REVISION_1, &descriptor, nullptr), FALSE);
  ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + path).c_str(), 0, WRITE_DAC, &key),
            ERROR_SUCCESS);
  EXPECT_EQ(RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
  RegCloseKey(key);
  LocalFree(descriptor);
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

TEST_F(RegistrationTest, LeavesNothingWhereNothingWas) {
  HKEY empty = nullptr;
  ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\empty", 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                            nullptr, &empty, nullptr),
            ERROR_SUCCESS);
  ASSERT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, empty), ERROR_SUCCESS);
  const HRESULT unregistered = component.Unregister();
  RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
  DWORD keys = 1;
  RegQueryInfoKeyW(empty, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                   nullptr);
  RegCloseKey(empty);
  RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\empty");
  EXPECT_EQ(unregistered, S_OK);
  EXPECT_EQ(keys, 0U);
}

TEST_F(RegistrationTest, SaysWhatItCouldNotTakeAway) {
  ASSERT_EQ(component.Register(), S_OK);
  Protect(Keys().front(), L"D:(D;;KR;;;WD)(A;;KA;;;WD)");
  const HRESULT unregistered = component.Unregister();
  Protect(Keys().front(), L"D:(A;;KA;;;WD)");
  EXPECT_EQ(unregistered, E_ACCESSDENIED);
  EXPECT_EQ(CountIn(HKEY_LOCAL_MACHINE), 1);
}

}  // namespace
