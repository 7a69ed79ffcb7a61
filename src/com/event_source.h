#pragma once

#include <windows.h>

#include <ocidl.h>

#include <initializer_list>
#include <map>

#include "automation/com_ptr.h"
#include "automation/variant.h"

namespace com {

using automation::ComPtr;
using automation::Variant;

// The connection point of a class: keeps the host's event sinks and raises events to them. It lives and dies with the
// object whose events these are.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): an interface has no destructor
class EventSource final : public IConnectionPoint {
 public:
  // `container` is the object itself.
  EventSource(IConnectionPointContainer& container, const IID& events) : container_(container), events_(events) {}
  EventSource(const EventSource&) = delete;
  EventSource& operator=(const EventSource&) = delete;
  ~EventSource() = default;

  // Calls every sink; a sink that fails is passed over. By-reference arguments are VARIANTs that point to what the
  // sinks may set.
  void Raise(DISPID event, std::initializer_list<Variant> arguments);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return container_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return container_.Release(); }
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

 private:
  IConnectionPointContainer& container_;
  const IID& events_;
  std::map<DWORD, ComPtr<IDispatch>> sinks_;
  DWORD last_cookie_ = 0;
};

}  // namespace com
