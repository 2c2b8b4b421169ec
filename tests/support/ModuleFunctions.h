#pragma once

#include <windows.h>

#include <ole2.h>

#include <string>

#include "framework/ComPtr.h"

namespace nux {

/// A loaded copy of the module and the four functions that it exports. The copy is let go at the end.
class ModuleFunctions {
public:
    explicit ModuleFunctions(const std::wstring& path);
    ModuleFunctions(const ModuleFunctions&) = delete;
    ModuleFunctions& operator=(const ModuleFunctions&) = delete;
    ~ModuleFunctions();

    HMODULE Handle() const noexcept { return module_; }
    HRESULT Register() const { return register_(); }
    HRESULT Unregister() const { return unregister_(); }
    HRESULT CanUnload() const { return canUnload_(); }
    HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object) const {
        return getClassObject_(classId, iid, object);
    }
    /// The class factory of the automation object.
    ComPtr<IClassFactory> Factory() const;

private:
    template <class Function>
    void Find(const char* name, Function& function);

    HMODULE module_;
    HRESULT(STDAPICALLTYPE* register_)() = nullptr;
    HRESULT(STDAPICALLTYPE* unregister_)() = nullptr;
    HRESULT(STDAPICALLTYPE* canUnload_)() = nullptr;
    HRESULT(STDAPICALLTYPE* getClassObject_)(REFCLSID, REFIID, void**) = nullptr;
};

}  // namespace nux
