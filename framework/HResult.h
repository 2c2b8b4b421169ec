#pragma once

#include <windows.h>

#include <exception>
#include <new>
#include <string>
#include <utility>

namespace nux {

/// A failure that is raised inside and leaves the component as its code, and with its words if it has any.
class HResultError : public std::exception {
public:
    /// @param words  English sentences for people: what failed, and why
    explicit HResultError(HRESULT code, std::wstring words = {}) noexcept
        : code_(code), words_(std::move(words)) {}
    HRESULT Code() const noexcept { return code_; }
    const std::wstring& Words() const noexcept { return words_; }
    const char* what() const noexcept override { return "HRESULT failure"; }

private:
    HRESULT code_;
    std::wstring words_;
};

/// The failure that the platform's last call has left, E_FAIL if it told none.
HRESULT LastFailure() noexcept;

/// Raises `result` if it is a failure.
inline void ThrowIfFailed(HRESULT result) {
    if (FAILED(result))
        throw HResultError(result);
}

/// The code of the exception that is being handled. To be called in a catch block only.
HRESULT CodeOfCurrentException() noexcept;

/// Runs the body of an operation that is called from outside: no exception passes this point.
template <class Body>
HRESULT Guarded(Body&& body) noexcept {
    try {
        return body();
    } catch (...) {
        return CodeOfCurrentException();
    }
}

}  // namespace nux
