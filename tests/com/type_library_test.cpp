#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "support/component.h"

// The whole type library as text, against tests/com/type_library.txt: hosts are compiled against it, so that a member
// may be added at the end of an interface and nothing else may change.
namespace {

using automation::ComPtr;

std::string ToText(const GUID& id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return automation::ToUtf8(text.data());
}

std::string TypeName(ITypeInfo& info, const TYPEDESC& type) {
  switch (type.vt) {
    case VT_PTR:
      return TypeName(info, *type.lptdesc) + "*";
    case VT_USERDEFINED: {
      ComPtr<ITypeInfo> referred;
      BSTR name = nullptr;
      automation::Check(info.GetRefTypeInfo(type.hreftype, referred.Out()));
      automation::Check(referred->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr));
      std::string text = automation::FromBstr(name);
      SysFreeString(name);
      return text;
    }
    case VT_I4:
      return "long";
    case VT_BOOL:
      return "VARIANT_BOOL";
    case VT_BSTR:
      return "BSTR";
    case VT_VARIANT:
      return "VARIANT";
    case VT_DISPATCH:
      return "IDispatch*";
    case VT_HRESULT:
      return "HRESULT";
    case VT_VOID:
      return "void";
    default:
      return "type " + std::to_string(type.vt);
  }
}

// The name, and the help in quotes.
std::string Documented(ITypeInfo& info, MEMBERID member) {
  BSTR name = nullptr;
  BSTR help = nullptr;
  automation::Check(info.GetDocumentation(member, &name, &help, nullptr, nullptr));
  std::string text = automation::FromBstr(name) + " \"" + automation::FromBstr(help) + "\"";
  SysFreeString(name);
  SysFreeString(help);
  return text;
}

std::string ParameterText(ITypeInfo& info, const ELEMDESC& parameter, const std::string& name) {
  std::string text;
  const auto flags = parameter.paramdesc.wParamFlags;
  const std::array<std::pair<unsigned, const char*>, 5> words = {{{PARAMFLAG_FIN, "in "},
                                                                  {PARAMFLAG_FOUT, "out "},
                                                                  {PARAMFLAG_FRETVAL, "retval "},
                                                                  {PARAMFLAG_FOPT, "optional "},
                                                                  {PARAMFLAG_FHASDEFAULT, "default "}}};
  for (const auto& [flag, word] : words) {
    text += (flags & flag) != 0 ? word : "";
  }
  return text + TypeName(info, parameter.tdesc) + (name.empty() ? "" : " ") + name;
}

void DescribeFunction(ITypeInfo& info, UINT index, std::ostream& out) {
  FUNCDESC* function = nullptr;
  automation::Check(info.GetFuncDesc(index, &function));
  if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0) {
    std::array<BSTR, 20> names{};
    UINT count = 0;
    automation::Check(info.GetNames(function->memid, names.data(), names.size(), &count));
    out << "  " << function->memid << " "
        << (function->invkind == INVOKE_PROPERTYGET      ? "get "
            : function->invkind == INVOKE_PROPERTYPUT    ? "put "
            : function->invkind == INVOKE_PROPERTYPUTREF ? "putref "
                                                         : "")
        << ((function->wFuncFlags & FUNCFLAG_FHIDDEN) != 0 ? "hidden " : "")
        << TypeName(info, function->elemdescFunc.tdesc) << " " << Documented(info, function->memid) << "\n";
    for (SHORT i = 0; i < function->cParams; ++i) {
      const auto at = static_cast<std::size_t>(i) + 1;
      out << "      "
          << ParameterText(info, function->lprgelemdescParam[i], at < count ? automation::FromBstr(names[at]) : "")
          << "\n";
    }
    for (BSTR name : names) {
      SysFreeString(name);
    }
  }
  info.ReleaseFuncDesc(function);
}

void DescribeVariable(ITypeInfo& info, UINT index, std::ostream& out) {
  VARDESC* variable = nullptr;
  automation::Check(info.GetVarDesc(index, &variable));
  out << "  " << Documented(info, variable->memid) << " = " << automation::ToText(*variable->lpvarValue) << "\n";
  info.ReleaseVarDesc(variable);
}

void DescribeInterfaces(ITypeInfo& info, UINT count, std::ostream& out) {
  for (UINT i = 0; i < count; ++i) {
    HREFTYPE type = 0;
    INT flags = 0;
    ComPtr<ITypeInfo> implemented;
    automation::Check(info.GetRefTypeOfImplType(i, &type));
    automation::Check(info.GetImplTypeFlags(i, &flags));
    automation::Check(info.GetRefTypeInfo(type, implemented.Out()));
    out << "  " << ((flags & IMPLTYPEFLAG_FDEFAULT) != 0 ? "default " : "")
        << ((flags & IMPLTYPEFLAG_FSOURCE) != 0 ? "source " : "") << Documented(*implemented.Get(), MEMBERID_NIL)
        << "\n";
  }
}

void Describe(ITypeInfo& info, std::ostream& out) {
  TYPEATTR* attributes = nullptr;
  automation::Check(info.GetTypeAttr(&attributes));
  const std::array<const char*, 8> kinds = {"enum",     "record",  "module", "interface",
                                            "dispatch", "coclass", "alias",  "union"};
  out << kinds.at(static_cast<std::size_t>(attributes->typekind)) << " " << Documented(info, MEMBERID_NIL) << " "
      << ToText(attributes->guid) << ((attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0 ? " dual" : "") << "\n";
  for (UINT i = 0; i < attributes->cFuncs; ++i) {
    DescribeFunction(info, i, out);
  }
  for (UINT i = 0; i < attributes->cVars; ++i) {
    DescribeVariable(info, i, out);
  }
  if (attributes->typekind == TKIND_COCLASS) {
    DescribeInterfaces(info, attributes->cImplTypes, out);
  }
  info.ReleaseTypeAttr(attributes);
}

std::string Describe(const std::wstring& path) {
  ComPtr<ITypeLib> library;
  automation::Check(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.Out()));
  std::ostringstream out;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    ComPtr<ITypeInfo> info;
    automation::Check(library->GetTypeInfo(i, info.Out()));
    Describe(*info.Get(), out);
  }
  return out.str();
}

TEST(TypeLibrary, IsTheOneThatHostsWereCompiledAgainst) {
  const test_support::Component component(L"without_windows");
  const std::string described = Describe(component.Path());
  std::ostringstream expected;
  expected << std::ifstream(TYPE_LIBRARY_TEXT).rdbuf();
  EXPECT_EQ(described, expected.str());
}

}  // namespace
