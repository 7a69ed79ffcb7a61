#pragma once

#include <initializer_list>
#include <string>

#include "automation/com_ptr.h"
#include "automation/variant.h"
#include "session/connection.h"

namespace automation {

// An object of the host, called late-bound by the names of its members. What it refuses, and a member that it does not
// offer, is thrown as session::DatabaseError, with the object called `name` in the message. A lost connection
// keeps being one (see `kConnectionLost`).
class DispatchObject {
 public:
  DispatchObject(ComPtr<IDispatch> object, std::string name) : object_(std::move(object)), name_(std::move(name)) {}

  IDispatch* Get() const { return object_.Get(); }
  const std::string& Name() const { return name_; }

  // From now on a call that the connection is lost in is made again where the person wants that (`session::Insist`);
  // the connection outlives the object.
  void InsistOn(session::Connection& connection) { connection_ = &connection; }

  bool Offers(const char* member) const;
  // Calls a method or reads a property.
  Variant Call(const char* member, std::initializer_list<Variant> arguments = {}) const;
  std::string Text(const char* member, std::initializer_list<Variant> arguments = {}) const;
  std::int32_t Int(const char* member, std::initializer_list<Variant> arguments = {}) const;
  bool Bool(const char* member, std::initializer_list<Variant> arguments = {}) const;
  // Called `name` in messages.
  DispatchObject Object(const char* member, std::string name, std::initializer_list<Variant> arguments = {}) const;
  void Put(const char* member, Variant value) const;

 private:
  Variant CallOnce(const char* member, std::initializer_list<Variant> arguments) const;
  DISPID Find(const char* member) const;
  Variant Invoke(const char* member, DISPID id, WORD flags, DISPPARAMS& parameters) const;
  Variant CallAs(VARTYPE type, const char* kind, const char* member, std::initializer_list<Variant> arguments) const;
  [[noreturn]] void Fail(const std::string& message, HRESULT result) const;

  ComPtr<IDispatch> object_;
  std::string name_;
  session::Connection* connection_ = nullptr;
};

}  // namespace automation
