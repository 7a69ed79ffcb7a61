#include "automation/named_object.h"

#include <algorithm>
#include <utility>

#include "automation/lost_connection.h"
#include "forms/text.h"

namespace automation {
namespace {

HRESULT Describe(EXCEPINFO* exception, const session::DatabaseError& error) {
  if (exception != nullptr) {
    *exception = {};
    exception->bstrDescription = ToBstr(error.what());
    exception->scode = ResultOf(error);
  }
  return DISP_E_EXCEPTION;
}

}  // namespace

VARIANT& CallArguments::At(std::size_t place) const {
  if (place >= reversed_.size()) {
    throw ComError(DISP_E_BADPARAMCOUNT);
  }
  return reversed_[reversed_.size() - 1 - place];
}

void NamedObject::Add(std::string name, Member member) {
  const auto known =
      std::ranges::find_if(members_, [&](const Named& named) { return forms::EqualsIgnoringCase(named.name, name); });
  if (known != members_.end()) {
    known->member = std::move(member);
    return;
  }
  members_.push_back({std::move(name), std::move(member)});
}

void NamedObject::AddDefault(std::string name, Member member) {
  default_ = members_.size();
  Add(std::move(name), std::move(member));
}

HRESULT NamedObject::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) {
    return E_POINTER;
  }
  *count = 0;
  return S_OK;
}

HRESULT NamedObject::GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** info) {
  if (info == nullptr) {
    return E_POINTER;
  }
  *info = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT NamedObject::GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT count, LCID /*locale*/, DISPID* ids) {
  if (names == nullptr || ids == nullptr || count == 0) {
    return E_POINTER;
  }
  std::fill_n(ids, count, DISPID_UNKNOWN);
  try {
    const std::string name = ToUtf8(names[0]);
    const auto found =
        std::ranges::find_if(members_, [&](const Named& named) { return forms::EqualsIgnoringCase(named.name, name); });
    if (found == members_.end()) {
      return DISP_E_UNKNOWNNAME;
    }
    ids[0] = static_cast<DISPID>(found - members_.begin()) + 1;
    // Arguments have no names.
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
  } catch (...) {
    return ResultOfException();
  }
}

HRESULT NamedObject::Invoke(DISPID id, REFIID /*reserved*/, LCID /*locale*/, WORD /*flags*/, DISPPARAMS* parameters,
                            VARIANT* value, EXCEPINFO* exception, UINT* /*wrong_argument*/) {
  if (parameters == nullptr) {
    return E_POINTER;
  }
  const std::size_t at = id == DISPID_VALUE ? default_ : static_cast<std::size_t>(id) - 1;
  if (at >= members_.size()) {
    return DISP_E_MEMBERNOTFOUND;
  }
  AddRef();
  HRESULT result = S_OK;
  try {
    const Named named = members_[at];
    const CallArguments arguments({parameters->rgvarg, parameters->cArgs});
    OnCall(named.name, arguments);
    Variant answer = named.member(arguments);
    if (value != nullptr) {
      *value = std::exchange(static_cast<VARIANT&>(answer), VARIANT{});
    }
  } catch (const session::DatabaseError& error) {
    result = Describe(exception, error);
  } catch (...) {
    result = ResultOfException();
  }
  Release();
  return result;
}

}  // namespace automation
