#include "framework/Registration.h"

#include <ole2.h>

#include <atliface.h>

#include <string>

#include "framework/ComPtr.h"
#include "framework/HResult.h"
#include "framework/Module.h"

namespace nux {
namespace {

/// COM for the time of a registration: the registering program need not have started it.
class ComSession {
public:
    ComSession() noexcept : result_(CoInitialize(nullptr)) {}
    ComSession(const ComSession&) = delete;
    ComSession& operator=(const ComSession&) = delete;
    ~ComSession() {
        if (SUCCEEDED(result_))
            CoUninitialize();
    }

private:
    HRESULT result_;
};

/// Inside a quoted value of a script an apostrophe is written twice.
std::wstring Quoted(const std::wstring& text) {
    std::wstring quoted;
    for (const wchar_t character : text) {
        quoted += character;
        if (character == L'\'')
            quoted += character;
    }
    return quoted;
}

}  // namespace

HRESULT ApplyRegistryScript(UINT resource, bool add) noexcept {
    const ComSession session;
    return Guarded([&]() -> HRESULT {
        ComPtr<IRegistrar> registrar;
        ThrowIfFailed(CoCreateInstance(CLSID_Registrar, nullptr, CLSCTX_INPROC_SERVER, IID_IRegistrar,
                                       registrar.ReceiveVoid()));
        const std::wstring path = ThisModulePath();
        ThrowIfFailed(registrar->AddReplacement(L"MODULE", Quoted(path).c_str()));
        return add ? registrar->ResourceRegister(path.c_str(), resource, L"REGISTRY")
                   : registrar->ResourceUnregister(path.c_str(), resource, L"REGISTRY");
    });
}

}  // namespace nux
