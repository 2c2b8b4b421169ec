#include "framework/ErrorInfo.h"

#include "framework/ComPtr.h"
#include "framework/Text.h"

namespace nux {
namespace {

const wchar_t* errorSource = L"Tarnvale.nuxStdParts";

/// An error object, or null without words or without memory.
ComPtr<IErrorInfo> MakeErrorInfo(REFIID iid, const std::wstring& words) noexcept {
    ComPtr<ICreateErrorInfo> error;
    // The platform's declarations are not const, their contracts are.
    if (words.empty() || FAILED(CreateErrorInfo(error.Receive())) || FAILED(error->SetGUID(iid)) ||
        FAILED(error->SetSource(const_cast<LPOLESTR>(ErrorSource()))) ||
        FAILED(error->SetDescription(const_cast<LPOLESTR>(words.c_str()))))
        return nullptr;
    return error.As<IErrorInfo>();
}

HRESULT Tell(REFIID iid, HRESULT code, const std::wstring& words) noexcept {
    SetErrorInfo(0, MakeErrorInfo(iid, words).Get());
    return code;
}

}  // namespace

void SetErrorSource(const wchar_t* progId) noexcept {
    errorSource = progId;
}

const wchar_t* ErrorSource() noexcept {
    return errorSource;
}

HRESULT TellCurrentException(REFIID iid) noexcept {
    try {
        throw;
    } catch (const HResultError& error) {
        return Tell(iid, error.Code(), error.Words());
    } catch (...) {
        return Tell(iid, CodeOfCurrentException(), {});
    }
}

void Require(const void* argument, const wchar_t* name, HRESULT code) {
    if (!argument)
        throw HResultError(code, std::wstring(name) + L" must not be null.");
}

std::wstring TakeErrorDescription(IUnknown* object, REFIID iid) {
    const ComPtr<ISupportErrorInfo> support = Query<ISupportErrorInfo>(object);
    ComPtr<IErrorInfo> error;
    Bstr description;
    if (!support || support->InterfaceSupportsErrorInfo(iid) != S_OK ||
        GetErrorInfo(0, error.Receive()) != S_OK || FAILED(error->GetDescription(description.Receive())))
        return {};
    return std::wstring(description.View());
}

std::wstring SystemMessage(DWORD error) {
    wchar_t text[512];
    // FORMAT_MESSAGE_MAX_WIDTH_MASK: no line breaks.
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr,
        error, 0, text, sizeof text / sizeof *text, nullptr);
    std::wstring message(text, length);
    message.erase(message.find_last_not_of(L' ') + 1);
    return message.empty() ? L"error " + std::to_wstring(error) : message;
}

}  // namespace nux
