#include "automation/com_error.h"

#include <new>

namespace automation {

HRESULT ResultOfException() noexcept {
  try {
    throw;
  } catch (const ComError& error) {
    return error.Result();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const std::exception&) {
    return E_FAIL;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace automation
