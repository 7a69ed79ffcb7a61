#pragma once

#include <windows.h>

#include <exception>

namespace automation {

// A call that ends with a HRESULT other than success.
class ComError : public std::exception {
 public:
  explicit ComError(HRESULT result) : result_(result) {}

  HRESULT Result() const { return result_; }
  const char* what() const noexcept override { return "the call was refused"; }

 private:
  HRESULT result_;
};

// Throws ComError for a failure.
inline void Check(HRESULT result) {
  if (FAILED(result)) {
    throw ComError(result);
  }
}

// What a caller gets for the exception that is being handled.
HRESULT ResultOfException() noexcept;

}  // namespace automation
