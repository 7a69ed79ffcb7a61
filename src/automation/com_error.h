#pragma once

#include <windows.h>

#include <exception>

namespace automation {

// A call that ends with a HRESULT other than success.
class ComError : public std::exception {
 public:
  // `what` is a text that stands as long as the program does.
  explicit ComError(HRESULT result, const char* what = "the call was refused") : result_(result), what_(what) {}

  HRESULT Result() const { return result_; }
  const char* what() const noexcept override { return what_; }

 private:
  HRESULT result_;
  const char* what_;
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
