#include "framework/Registration.h"

#include <ole2.h>

#include <atliface.h>

#include <optional>
#include <string>

#include "framework/ComPtr.h"
#include "framework/HResult.h"
#include "framework/Module.h"
#include "framework/Text.h"

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

/// A library that stays loaded as long as this lives.
class LoadedLibrary {
public:
    explicit LoadedLibrary(const std::wstring& path) noexcept : module_(LoadLibraryW(path.c_str())) {}
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;
    ~LoadedLibrary() {
        if (module_)
            FreeLibrary(module_);
    }

    HMODULE Get() const noexcept { return module_; }

private:
    HMODULE module_;
};

std::wstring SystemLibraryPath(const wchar_t* name) {
    wchar_t folder[MAX_PATH] = L"";
    GetSystemDirectoryW(folder, MAX_PATH);
    return std::wstring(folder) + L'\\' + name;
}

/// The script registrar straight from the library that has it. The library must outlive it.
HRESULT CreateRegistrar(const LoadedLibrary& library, ComPtr<IRegistrar>& registrar) {
    if (!library.Get())
        return LastFailure();
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto getClassObject = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void*>(GetProcAddress(library.Get(), "DllGetClassObject")));
    if (!getClassObject)
        return LastFailure();
    ComPtr<IClassFactory> factory;
    const HRESULT found = getClassObject(CLSID_Registrar, IdOf<IClassFactory>(), factory.ReceiveVoid());
    return FAILED(found) ? found
                         : factory->CreateInstance(nullptr, IdOf<IRegistrar>(), registrar.ReceiveVoid());
}

}  // namespace

HRESULT ApplyRegistryScript(UINT resource, bool add) noexcept {
    const ComSession session;
    return Guarded([&]() -> HRESULT {
        // Its class need not be registered: then the library itself is asked. It goes after the registrar.
        std::optional<LoadedLibrary> library;
        ComPtr<IRegistrar> registrar;
        HRESULT made = CreateObject(CLSID_Registrar, registrar);
        if (made == REGDB_E_CLASSNOTREG)
            made = CreateRegistrar(library.emplace(SystemLibraryPath(L"atl.dll")), registrar);
        ThrowIfFailed(made);
        const std::wstring path = ThisModulePath();
        ThrowIfFailed(registrar->AddReplacement(L"MODULE", Quoted(path).c_str()));
        return add ? registrar->ResourceRegister(path.c_str(), resource, L"REGISTRY")
                   : registrar->ResourceUnregister(path.c_str(), resource, L"REGISTRY");
    });
}

HRESULT RegisterTypeLibrary(bool add) noexcept {
    const ComSession session;
    return Guarded([&]() -> HRESULT {
        const std::wstring path = ThisModulePath();
        ComPtr<ITypeLib> library;
        ThrowIfFailed(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.Receive()));
        if (add)  // the platform's declaration is not const, its contract is
            return RegisterTypeLib(library.Get(), const_cast<LPOLESTR>(path.c_str()), nullptr);
        TLIBATTR* attributes = nullptr;
        ThrowIfFailed(library->GetLibAttr(&attributes));
        const TLIBATTR entered = *attributes;
        library->ReleaseTLibAttr(attributes);
        Bstr registered;
        if (FAILED(QueryPathOfRegTypeLib(entered.guid, entered.wMajorVerNum, entered.wMinorVerNum,
                                         entered.lcid, registered.Receive())))
            return S_OK;
        return UnRegisterTypeLib(entered.guid, entered.wMajorVerNum, entered.wMinorVerNum, entered.lcid,
                                 entered.syskind);
    });
}

}  // namespace nux
