// person.dll: somebody in front of the screens, for scripts. "PracticeTest.Person" has two members: Do(steps) begins
// the steps on a thread of its own, Failure waits for their end and tells what went wrong.
#include <array>
#include <memory>

#include "automation/class_factory.h"
#include "automation/named_object.h"
#include "automation/server.h"
#include "person/steps.h"

namespace {

using automation::CallArguments;
using automation::Variant;

class PersonObject final : public automation::NamedObject {
 public:
  PersonObject() {
    Add("Do", [this](const CallArguments& arguments) {
      const std::string steps = arguments.Text(0);
      person_ = std::make_unique<test_support::Person>([steps](test_support::Person& he) { Do(he, steps); });
      return Variant();
    });
    Add("Failure",
        [this](const CallArguments&) { return Variant::Of(person_ == nullptr ? std::string() : person_->Failure()); });
  }

 private:
  std::unique_ptr<test_support::Person> person_;
};

}  // namespace

namespace automation {

const Server& ThisServer() {
  static const std::array<ServedClass, 1> classes = {
      {{{0x5C6B6D0A, 0x93A4, 0x4E0D, {0x8E, 0x57, 0x2B, 0x0D, 0x4F, 0x7A, 0xC1, 0x39}},
        L"PracticeTest.Person",
        L"Somebody in front of the screens",
        ClassFactory<PersonObject>::Give}}};
  static const Server server{classes};
  return server;
}

}  // namespace automation
