#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace automation {

// What a late-bound call tells of its failure.
struct ExceptionInfo : EXCEPINFO {
  ExceptionInfo() : EXCEPINFO() {}
  ExceptionInfo(const ExceptionInfo&) = delete;
  ExceptionInfo& operator=(const ExceptionInfo&) = delete;
  ~ExceptionInfo();

  // After DISP_E_EXCEPTION.
  HRESULT Code();
  // Empty when it tells nothing.
  std::string Description();

 private:
  void FillIn();
};

}  // namespace automation
