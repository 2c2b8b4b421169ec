#include "framework/HResult.h"

namespace nux {

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
