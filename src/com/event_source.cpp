#include "com/event_source.h"

#include <olectl.h>

#include <iterator>
#include <vector>

#include "com/boundary.h"
#include "com/enumeration.h"

namespace com {

using automation::ComError;

void EventSource::Raise(DISPID event, std::initializer_list<Variant> arguments) {
  std::vector<Variant> reversed(std::rbegin(arguments), std::rend(arguments));
  DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  // A sink may connect and disconnect sinks.
  const std::map<DWORD, ComPtr<IDispatch>> sinks = sinks_;
  for (const auto& [cookie, sink] : sinks) {
    sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
  }
}

HRESULT EventSource::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) {
    return E_POINTER;
  }
  *object = id == IID_IUnknown || id == IID_IConnectionPoint ? this : nullptr;
  if (*object == nullptr) {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

HRESULT EventSource::GetConnectionInterface(IID* id) {
  if (id == nullptr) {
    return E_POINTER;
  }
  *id = events_;
  return S_OK;
}

HRESULT EventSource::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (container == nullptr) {
    return E_POINTER;
  }
  *container = ComPtr(&container_).Copy();
  return S_OK;
}

HRESULT EventSource::Advise(IUnknown* sink, DWORD* cookie) {
  if (sink == nullptr || cookie == nullptr) {
    return E_POINTER;
  }
  return Guarded(*this, IID_IConnectionPoint, [&] {
    // Sinks of a dispinterface answer to its own name, to IDispatch, or to both.
    ComPtr<IDispatch> listener;
    if (FAILED(sink->QueryInterface(events_, listener.OutVoid()))) {
      listener = ComPtr(sink).As<IDispatch>();
    }
    if (!listener) {
      throw ComError(CONNECT_E_CANNOTCONNECT);
    }
    sinks_[++last_cookie_] = std::move(listener);
    *cookie = last_cookie_;
  });
}

HRESULT EventSource::Unadvise(DWORD cookie) {
  const auto found = sinks_.find(cookie);
  if (found == sinks_.end()) {
    return CONNECT_E_NOCONNECTION;
  }
  const ComPtr<IDispatch> sink = found->second;
  sinks_.erase(found);
  return S_OK;
}

HRESULT EventSource::EnumConnections(IEnumConnections** connections) {
  if (connections == nullptr) {
    return E_POINTER;
  }
  return Guarded(*this, IID_IConnectionPoint, [&] {
    std::vector<SinkItem> items;
    for (const auto& [cookie, sink] : sinks_) {
      items.push_back({ComPtr<IUnknown>(sink.Get()), cookie});
    }
    *connections = new Enumeration<IEnumConnections, SinkItem>(std::move(items));
  });
}

}  // namespace com
