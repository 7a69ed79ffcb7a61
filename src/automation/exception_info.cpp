#include "automation/exception_info.h"

#include <utility>

#include "automation/variant.h"

namespace automation {

ExceptionInfo::~ExceptionInfo() {
  SysFreeString(bstrSource);
  SysFreeString(bstrDescription);
  SysFreeString(bstrHelpFile);
}

HRESULT ExceptionInfo::Code() {
  FillIn();
  return scode != 0 ? scode : static_cast<HRESULT>(wCode);
}

std::string ExceptionInfo::Description() {
  FillIn();
  return FromBstr(bstrDescription);
}

// Some callees fill in the rest only when they are asked to.
void ExceptionInfo::FillIn() {
  if (auto fill_in = std::exchange(pfnDeferredFillIn, nullptr); fill_in != nullptr) {
    fill_in(this);
  }
}

}  // namespace automation
