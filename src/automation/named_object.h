#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/counted.h"
#include "automation/variant.h"

namespace automation {

// What a caller gave to a member, in order; by-reference arguments can be assigned to.
class CallArguments {
 public:
  explicit CallArguments(std::span<VARIANT> reversed) : reversed_(reversed) {}

  std::size_t Size() const { return reversed_.size(); }
  // Throws ComError for one that was not given.
  VARIANT& At(std::size_t place) const;
  std::string Text(std::size_t place) const { return ToText(At(place)); }
  std::int32_t Int(std::size_t place) const { return ToInt(At(place)); }
  bool Bool(std::size_t place) const { return ToBool(At(place)); }

 private:
  std::span<VARIANT> reversed_;
};

// An object for late-bound callers: members by name, without regard to case. A property's getter is called without,
// its setter with the value as the last argument. A member may throw session::DatabaseError, which becomes the
// caller's error with its text and code (see `ResultOf`), or ComError.
class NamedObject : public Counted<IDispatch> {
 public:
  using Member = std::function<Variant(const CallArguments&)>;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* value, EXCEPINFO* exception, UINT* wrong_argument) override;

 protected:
  // Replaces a member of that name.
  void Add(std::string name, Member member);
  // Called for the object itself, as a caller writes `recordset("Name")`.
  void AddDefault(std::string name, Member member);

  // Before each call.
  virtual void OnCall(const std::string& /*name*/, const CallArguments& /*arguments*/) {}

 private:
  struct Named {
    std::string name;
    Member member;
  };

  // Member i has the DISPID i + 1.
  std::vector<Named> members_;
  std::size_t default_ = SIZE_MAX;
};

}  // namespace automation
