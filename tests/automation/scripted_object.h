#pragma once

#include <string>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/named_object.h"

namespace test_support {

// An object of a host whose members answer as a test tells them to. Every call is noted.
class ScriptedObject final : public automation::NamedObject {
 public:
  static automation::ComPtr<ScriptedObject> Make() {
    return automation::ComPtr<ScriptedObject>::Adopt(new ScriptedObject);
  }
  ~ScriptedObject() override { --living; }
  inline static int living = 0;

  std::vector<std::string> calls;

  using NamedObject::Add;
  using NamedObject::AddDefault;
  void Answer(const std::string& name, const automation::Variant& value) {
    Add(name, [value](const automation::CallArguments&) { return value; });
  }
  using NamedObject::References;

 protected:
  void OnCall(const std::string& name, const automation::CallArguments& arguments) override {
    std::string call = name;
    for (std::size_t i = 0; i < arguments.Size(); ++i) {
      const VARIANT& argument = arguments.At(i);
      call += " [" + (V_VT(&argument) == VT_DISPATCH ? "object" : automation::ToText(argument)) + "]";
    }
    calls.push_back(call);
  }

 private:
  ScriptedObject() { ++living; }
};

// A variant that holds the object.
inline automation::Variant Holding(const automation::ComPtr<ScriptedObject>& object) {
  return automation::Variant::Of(static_cast<IDispatch*>(object.Get()));
}

}  // namespace test_support
