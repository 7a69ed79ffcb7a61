#include "automation/errors_object.h"

#include "automation/named_object.h"

namespace host {
namespace {

using automation::CallArguments;
using automation::ComPtr;
using automation::Variant;

class ErrorObject final : public automation::NamedObject {
 public:
  explicit ErrorObject(const ProviderError& error) {
    AddDefault("Description", [error](const CallArguments&) { return Variant::Of(error.description); });
    Add("Number", [error](const CallArguments&) { return Variant::Of(error.number); });
    Add("NativeError", [error](const CallArguments&) { return Variant::Of(error.native); });
    Add("Source", [](const CallArguments&) { return Variant::Of("Practice database"); });
    Add("SQLState", [error](const CallArguments&) { return Variant::Of(error.state); });
  }
};

class ErrorsObject final : public automation::NamedObject {
 public:
  explicit ErrorsObject(std::shared_ptr<ProviderErrors> errors) : errors_(std::move(errors)) {
    Add("Count", [this](const CallArguments&) { return Variant::Of(static_cast<std::int32_t>(errors_->size())); });
    AddDefault("Item", [this](const CallArguments& arguments) { return ErrorAt(*errors_, arguments.Int(0)); });
    Add("Clear", [this](const CallArguments&) {
      errors_->clear();
      return Variant();
    });
  }

 private:
  std::shared_ptr<ProviderErrors> errors_;
};

}  // namespace

Variant ErrorAt(const ProviderErrors& errors, std::int32_t place) {
  if (place < 0 || static_cast<std::size_t>(place) >= errors.size()) {
    throw Refusal(AdoError::ItemNotFound, "There is no error " + std::to_string(place) + ".");
  }
  return Variant::Of(ComPtr<IDispatch>::Adopt(new ErrorObject(errors[static_cast<std::size_t>(place)])).Get());
}

ComPtr<IDispatch> MakeErrorsObject(std::shared_ptr<ProviderErrors> errors) {
  return ComPtr<IDispatch>::Adopt(new ErrorsObject(std::move(errors)));
}

}  // namespace host
