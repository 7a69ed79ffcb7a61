#include "windows/component_classes.h"

#include <twSimpleEditScreens.h>
#include <wx/window.h>

#include "automation/module.h"
#include "automation/named_object.h"
#include "automation/server_library.h"
#include "automation/session_object.h"
#include "windows/object_members.h"

namespace host {
namespace {

using automation::CallArguments;
using automation::Check;
using automation::ComPtr;
using automation::Variant;

// A form as the component asks for it: the window is told by `hwnd`.
class OwnerForm final : public automation::NamedObject {
 public:
  explicit OwnerForm(HWND window) {
    Variant handle = Variant::Of(static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(window)));
    Add("hwnd", [handle](const CallArguments&) { return handle; });
  }
};

// Hears a list's events, which come by their numbers in the type library: 1 for the first member, and so on.
class ListSink final : public automation::NamedObject {
 public:
  using Hear = std::function<void(const std::string& event, const std::vector<std::string>& arguments)>;

  explicit ListSink(const Hear& hear) {
    for (const char* event : {"SwapModuleCalled", "ButtonClicked"}) {
      Add(event, [hear, event](const CallArguments& arguments) {
        hear(event, {arguments.Text(0), arguments.Text(1)});
        return Variant();
      });
    }
    for (const char* event : {"BeforePrint", "AfterPrint"}) {
      Add(event, [hear, event](const CallArguments&) {
        hear(event, {});
        return Variant();
      });
    }
    // The lists' own commands are left to the lists.
    Add("CheckEvent", [](const CallArguments&) { return Variant(); });
  }
};

class ComponentClasses : public PublicClasses {
 public:
  ComponentClasses() {
    const ComPtr<IDispatch> sink = ComPtr<IDispatch>::Adopt(new ListSink(
        [this](const std::string& event, const std::vector<std::string>& arguments) { Hear(event, arguments); }));
    Check(list_.As<IConnectionPointContainer>()->FindConnectionPoint(__uuidof(DLookUpListEvents), events_.Out()));
    Check(events_->Advise(sink.Get(), &connection_));
  }
  ComponentClasses(const ComponentClasses&) = delete;
  ComponentClasses& operator=(const ComponentClasses&) = delete;
  ~ComponentClasses() override { events_->Unadvise(connection_); }

  entry::Dispatch EditingScreen() override { return MembersOf(screen_.As<IDispatch>(), "EditingScreen"); }
  entry::Dispatch LookUpList() override { return MembersOf(list_.As<IDispatch>(), "LookUpList"); }
  void HandOver(std::shared_ptr<HostSession> session) override {
    ComPtr<IDispatch> object;
    if (session != nullptr) {
      object = MakeSessionObject(std::move(session));
    }
    Check(screen_.As<::IGlobal>()->putref_PV(object.Get()));
  }
  void SetOwner(wxWindow* window) override {
    ComPtr<IDispatch> form;
    if (window != nullptr) {
      form = ComPtr<IDispatch>::Adopt(new OwnerForm(window->GetHandle()));
    }
    Check(screen_->putref_frmOwner(form.Get()));
    Check(list_->putref_frmOwner(form.Get()));
  }

 private:
  automation::ServerLibrary library_{automation::ModuleFolder() + L"\\TWSESC22.dll"};
  ComPtr<IEditingScreen> screen_ = library_.Make<IEditingScreen, ::EditingScreen>();
  ComPtr<ILookUpList> list_ = library_.Make<ILookUpList, ::LookUpList>();
  ComPtr<IConnectionPoint> events_;
  DWORD connection_ = 0;
};

}  // namespace

std::unique_ptr<PublicClasses> ClassesOfTheComponent(forms::User& /*user*/) {
  return std::make_unique<ComponentClasses>();
}

}  // namespace host
