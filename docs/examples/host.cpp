// A host in C++, compiled against the component's type library: it hands its session over, adds a patient and shows a
// list, both before its own window, and hears the list's events. TWSESC22.dll and practice_host.dll are registered; the
// latter stands for the suite's own session, with a demo practice in the current folder.
#include <windows.h>

#include <ocidl.h>
#include <oleauto.h>
#include <twSimpleEditScreens.h>

#include <cstdio>
#include <iterator>
#include <stdexcept>
#include <string>

namespace {

void Check(HRESULT result) {
  if (FAILED(result)) {
    throw std::runtime_error("a call failed");
  }
}

// Calls a member by its name; the arguments are taken over and freed.
VARIANT Call(IDispatch* object, const wchar_t* member, std::initializer_list<VARIANT> arguments) {
  auto* name = const_cast<LPOLESTR>(member);
  DISPID id = 0;
  Check(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id));
  VARIANT reversed[8];
  UINT count = 0;
  for (auto argument = std::rbegin(arguments); argument != std::rend(arguments); ++argument) {
    reversed[count++] = *argument;
  }
  DISPPARAMS parameters{reversed, nullptr, count, 0};
  VARIANT value;
  VariantInit(&value);
  const HRESULT result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                        &parameters, &value, nullptr, nullptr);
  while (count > 0) {
    VariantClear(&reversed[--count]);
  }
  Check(result);
  return value;
}

VARIANT Text(const wchar_t* text) {
  VARIANT variant;
  V_VT(&variant) = VT_BSTR;
  V_BSTR(&variant) = SysAllocString(text);
  return variant;
}

VARIANT Number(LONG number) {
  VARIANT variant;
  V_VT(&variant) = VT_I4;
  V_I4(&variant) = number;
  return variant;
}

// The suite's session object (PV).
IDispatch* LogIn() {
  CLSID id;
  Check(CLSIDFromProgID(L"PracticeDesk.Practice", &id));
  IDispatch* practice = nullptr;
  Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, reinterpret_cast<void**>(&practice)));
  Call(practice, L"OpenDemo", {Text(L"demo.sqlite"), Number(50)});
  const VARIANT session = Call(practice, L"LogIn", {Text(L"front"), Text(L"front")});
  practice->Release();
  return V_DISPATCH(&session);
}

// What this host gives to the component: it lives on the stack, longer than the component holds it.
class HostObject : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
    return *object == nullptr ? E_NOINTERFACE : S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
};

// The host's window, which tells its handle by the name "hwnd".
class MainForm : public HostObject {
 public:
  MainForm() = default;
  MainForm(const MainForm&) = delete;
  MainForm& operator=(const MainForm&) = delete;
  ~MainForm() { DestroyWindow(window_); }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* id) override {
    *id = lstrcmpiW(names[0], L"hwnd") == 0 ? kHwnd : DISPID_UNKNOWN;
    return *id == kHwnd ? S_OK : DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* value, EXCEPINFO*,
                                   UINT*) override {
    if (member != kHwnd || value == nullptr) {
      return DISP_E_MEMBERNOTFOUND;
    }
    V_VT(value) = VT_I4;
    V_I4(value) = static_cast<LONG>(reinterpret_cast<LONG_PTR>(window_));
    return S_OK;
  }

 private:
  static constexpr DISPID kHwnd = 1;

  HWND window_ = CreateWindowExW(0, L"STATIC", L"The practice", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 900, 600,
                                 nullptr, nullptr, nullptr, nullptr);
};

// Hears the events of a list.
class ListEvents : public HostObject {
 public:
  // The arguments come last first.
  HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    switch (event) {
      case 1:  // SwapModuleCalled(Whereto, Designation_String)
        std::printf("go to: %ls of person %ls\n", V_BSTR(&given->rgvarg[1]), V_BSTR(&given->rgvarg[0]));
        break;
      case 2:  // ButtonClicked(ButtonKey, CurrentID)
        std::printf("clicked: %ls on %ld\n", V_BSTR(&given->rgvarg[1]), V_I4(&given->rgvarg[0]));
        last_button_ = V_BSTR(&given->rgvarg[1]);
        break;
      case 3:  // BeforePrint(bCancel): this host has a print of its own
        std::printf("printing was kept back\n");
        *V_BOOLREF(&given->rgvarg[0]) = VARIANT_TRUE;
        break;
      case 4:  // AfterPrint, not after what was kept back
        std::printf("printed\n");
        break;
      case 5:  // CheckEvent(bHandled): this host shows notes itself, over the list that stays open
        *V_BOOLREF(&given->rgvarg[0]) = last_button_ == L"Notes" ? VARIANT_TRUE : VARIANT_FALSE;
        break;
      default:
        break;
    }
    return S_OK;
  }

 private:
  std::wstring last_button_;
};

template <typename Interface>
Interface* Make(const CLSID& id) {
  Interface* made = nullptr;
  Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), reinterpret_cast<void**>(&made)));
  return made;
}

void AddPatient(MainForm& form) {
  auto* screens = Make<IEditingScreen>(__uuidof(EditingScreen));
  Check(screens->putref_frmOwner(&form));
  VARIANT id = Text(L"NEW");
  VARIANT name = Text(L"Smith, Jane");
  VARIANT book;
  V_VT(&book) = VT_BOOL;
  V_BOOL(&book) = VARIANT_TRUE;  // offers to book an appointment
  Check(screens->Load_PatInfo_Small(&id, &name, &book));
  if (V_VT(&id) == VT_I4) {
    std::printf("added: patient %ld%s\n", V_I4(&id), V_BOOL(&book) != VARIANT_FALSE ? ", to be booked" : "");
  } else {
    std::printf("no patient was added\n");
  }
  VariantClear(&id);
  VariantClear(&name);
  screens->Release();
}

void ChooseEmployee(MainForm& form) {
  auto* list = Make<ILookUpList>(__uuidof(LookUpList));
  Check(list->putref_frmOwner(&form));
  IConnectionPointContainer* container = nullptr;
  IConnectionPoint* point = nullptr;
  Check(list->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&container)));
  Check(container->FindConnectionPoint(__uuidof(DLookUpListEvents), &point));
  ListEvents events;
  DWORD connection = 0;
  Check(point->Advise(&events, &connection));

  Check(list->put_ListType(lulEmployee));
  BSTR title = SysAllocString(L"Who takes the call?");
  Check(list->put_ListTitle(title));
  SysFreeString(title);
  Check(list->put_ShowPatientButtons(VARIANT_TRUE));
  VARIANT left_out;
  V_VT(&left_out) = VT_ERROR;
  V_ERROR(&left_out) = DISP_E_PARAMNOTFOUND;
  Check(list->ShowList(VARIANT_FALSE, left_out));
  LONG id = 0;
  BSTR name = nullptr;
  Check(list->get_SelectedID(&id));
  Check(list->get_Select_String(&name));
  if (id != 0) {
    std::printf("chosen: %ld, %ls\n", id, name);
  } else {
    std::printf("nobody was chosen\n");
  }
  SysFreeString(name);

  point->Unadvise(connection);
  point->Release();
  container->Release();
  list->Release();
}

void Run() {
  MainForm form;
  IDispatch* session = LogIn();
  auto* any = Make<ILookUpList>(__uuidof(LookUpList));
  IGlobal* slots = nullptr;
  Check(any->QueryInterface(__uuidof(IGlobal), reinterpret_cast<void**>(&slots)));
  any->Release();
  Check(slots->putref_PV(session));  // for every object of the component
  AddPatient(form);
  ChooseEmployee(form);
  Check(slots->putref_PV(nullptr));
  slots->Release();
  session->Release();
}

}  // namespace

int main() {
  CoInitialize(nullptr);
  int status = 0;
  try {
    Run();
  } catch (const std::exception& error) {
    std::printf("%s\n", error.what());
    status = 1;
  }
  CoUninitialize();
  return status;
}
