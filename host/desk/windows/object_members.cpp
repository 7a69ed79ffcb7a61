#include "windows/object_members.h"

#include <span>
#include <stdexcept>

#include "automation/exception_info.h"
#include "automation/variant.h"
#include "forms/text.h"

namespace host {
namespace {

using automation::Check;
using automation::ComPtr;
using automation::Variant;

// A description that the type information lends out.
class Function {
 public:
  Function(ITypeInfo& info, UINT place) : info_(info) { Check(info.GetFuncDesc(place, &described_)); }
  Function(const Function&) = delete;
  Function& operator=(const Function&) = delete;
  ~Function() { info_.ReleaseFuncDesc(described_); }

  const FUNCDESC* operator->() const { return described_; }
  bool Offered() const { return (described_->wFuncFlags & (FUNCFLAG_FRESTRICTED | FUNCFLAG_FHIDDEN)) == 0; }
  // The member's name, and its parameters'.
  std::vector<std::string> Names() const {
    std::vector<BSTR> names(static_cast<std::size_t>(described_->cParams) + 1);
    UINT count = 0;
    Check(info_.GetNames(described_->memid, names.data(), static_cast<UINT>(names.size()), &count));
    std::vector<std::string> texts;
    for (BSTR name : std::span(names).first(count)) {
      texts.push_back(automation::FromBstr(name));
      SysFreeString(name);
    }
    return texts;
  }

 private:
  ITypeInfo& info_;
  FUNCDESC* described_ = nullptr;
};

struct Argument {
  std::string name;
  VARTYPE type = VT_VARIANT;
  bool by_reference = false;
  bool optional = false;
};

bool IsObject(const TYPEDESC& type) {
  return type.vt == VT_DISPATCH || type.vt == VT_UNKNOWN || type.vt == VT_PTR;
}

// What a value is given as; the library's own types are enumerations.
VARTYPE TypeOf(const TYPEDESC& type) {
  return type.vt == VT_USERDEFINED ? VARTYPE{VT_I4} : type.vt;
}

std::string Shown(const VARIANT& value) {
  switch (V_VT(&value)) {
    case VT_BOOL:
      return V_BOOL(&value) != VARIANT_FALSE ? "True" : "False";
    case VT_DISPATCH:
      return V_DISPATCH(&value) == nullptr ? "Nothing" : "Object";
    default:
      return automation::ToText(value);
  }
}

Variant FromText(const std::string& text, VARTYPE type) {
  if (type == VT_BOOL) {
    return Variant::Of(forms::IsOn(text));
  }
  if (type == VT_BSTR || type == VT_VARIANT) {
    return Variant::Of(text);
  }
  try {
    return text.empty() ? Variant() : automation::ChangeType(Variant::Of(text), type);
  } catch (const automation::ComError&) {
    throw std::invalid_argument("\"" + text + "\" is no number");
  }
}

// A member of an object by its number. Arguments come in reverse.
struct Member {
  ComPtr<IDispatch> object;
  std::string name;
  DISPID id;

  Variant Call(WORD flags, std::vector<Variant> reversed) const {
    DISPID assigned = DISPID_PROPERTYPUT;
    const bool puts = flags == DISPATCH_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), puts ? &assigned : nullptr, static_cast<UINT>(reversed.size()),
                          puts ? 1U : 0U};
    Variant value;
    automation::ExceptionInfo info;
    UINT wrong = 0;
    const HRESULT result =
        object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, puts ? nullptr : &value, &info, &wrong);
    if (FAILED(result)) {
      const std::string reason = result == DISP_E_EXCEPTION ? info.Description() : std::string();
      throw std::runtime_error(reason.empty() ? name + " was refused" : reason);
    }
    return value;
  }
};

Variant LeftOut() {
  Variant variant;
  V_VT(&variant) = VT_ERROR;
  V_ERROR(&variant) = DISP_E_PARAMNOTFOUND;
  return variant;
}

// By-reference arguments are variables of ours that the object may set.
std::string CallMethod(const Member& member, const std::vector<Argument>& known, entry::Arguments& given) {
  std::vector<Variant> variables(known.size());
  std::vector<Variant> reversed(known.size());
  for (std::size_t i = 0; i < known.size(); ++i) {
    const Argument& argument = known[i];
    const auto text = given.find(argument.name);
    Variant& passed = reversed[known.size() - 1 - i];
    if (text != given.end()) {
      variables[i] = FromText(text->second, argument.type);
    }
    if (argument.by_reference) {
      V_VT(&passed) = VT_BYREF | VT_VARIANT;
      V_VARIANTREF(&passed) = &variables[i];
    } else {
      passed = text == given.end() && argument.optional ? LeftOut() : variables[i];
    }
  }
  const Variant value = member.Call(DISPATCH_METHOD, std::move(reversed));
  for (std::size_t i = 0; i < known.size(); ++i) {
    if (known[i].by_reference) {
      given[known[i].name] = Shown(variables[i]);
    }
  }
  return Shown(value);
}

entry::Method MethodOf(const Member& member, const Function& function, const std::vector<std::string>& names) {
  entry::Method method{member.name, {}, {}};
  std::vector<Argument> known;
  for (std::size_t i = 1; i < names.size(); ++i) {
    const ELEMDESC& described = function->lprgelemdescParam[i - 1];
    const USHORT flags = described.paramdesc.wParamFlags;
    const bool by_reference = described.tdesc.vt == VT_PTR;
    known.push_back({names[i], TypeOf(by_reference ? *described.tdesc.lptdesc : described.tdesc), by_reference,
                     (flags & (PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT)) != 0});
    method.parameters.push_back({names[i], by_reference});
  }
  method.invoke = [member, known](entry::Arguments& arguments) { return CallMethod(member, known, arguments); };
  return method;
}

}  // namespace

entry::Dispatch MembersOf(const ComPtr<IDispatch>& object, std::string class_name) {
  entry::Dispatch members{std::move(class_name), {}, {}};
  ComPtr<ITypeInfo> info;
  Check(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Out()));
  TYPEATTR* attributes = nullptr;
  Check(info->GetTypeAttr(&attributes));
  const UINT count = attributes->cFuncs;
  info->ReleaseTypeAttr(attributes);
  for (UINT place = 0; place < count; ++place) {
    const Function function(*info.Get(), place);
    if (!function.Offered()) {
      continue;
    }
    const std::vector<std::string> names = function.Names();
    const Member member{object, names.front(), function->memid};
    if (function->invkind == INVOKE_FUNC) {
      members.methods.push_back(MethodOf(member, function, names));
    } else if (function->invkind == INVOKE_PROPERTYGET) {
      members.properties[member.name].get = [member] { return Shown(member.Call(DISPATCH_PROPERTYGET, {})); };
    } else if (const TYPEDESC& type = function->lprgelemdescParam->tdesc; !IsObject(type)) {
      const VARTYPE held = TypeOf(type);
      members.properties[member.name].set = [member, held](const std::string& text) {
        member.Call(DISPATCH_PROPERTYPUT, {FromText(text, held)});
      };
    }
  }
  return members;
}

}  // namespace host
