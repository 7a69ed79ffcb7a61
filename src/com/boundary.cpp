#include "com/boundary.h"

#include <string>

namespace com {
namespace {

using automation::ToWide;

void SetDescription(const char* description, const IID& interface_id) {
  ComPtr<ICreateErrorInfo> made;
  if (FAILED(CreateErrorInfo(made.Out()))) {
    return;
  }
  const std::wstring wide = ToWide(description);
  made->SetGUID(interface_id);
  made->SetSource(const_cast<LPOLESTR>(L"twSimpleEditScreens"));
  made->SetDescription(const_cast<LPOLESTR>(wide.c_str()));
  if (const ComPtr<IErrorInfo> info = made.As<IErrorInfo>()) {
    SetErrorInfo(0, info.Get());
  }
}

HRESULT Translate(const IID& interface_id) {
  try {
    throw;
  } catch (const session::DatabaseError& error) {
    SetDescription(error.Told().c_str(), interface_id);
    return E_FAIL;
  } catch (const std::exception& error) {
    SetDescription(error.what(), interface_id);
    return automation::ResultOfException();
  }
}

}  // namespace

HRESULT ReportException(const IID& interface_id) noexcept {
  try {
    return Translate(interface_id);
  } catch (...) {  // describing it failed too
    return E_UNEXPECTED;
  }
}

}  // namespace com
