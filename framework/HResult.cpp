#include "framework/HResult.h"

namespace nux {

HRESULT LastFailure() noexcept {
    const DWORD error = GetLastError();
    return error ? HRESULT_FROM_WIN32(error) : E_FAIL;
}

HRESULT CodeOfCurrentException() noexcept {
    try {
        throw;
    } catch (const HResultError& error) {
        return error.Code();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace nux
