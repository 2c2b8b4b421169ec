#include "tests/support/ModuleFunctions.h"

#include <gtest/gtest.h>

#include "nuxStdPartsAX.h"

namespace nux {

ModuleFunctions::ModuleFunctions(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {
    EXPECT_TRUE(module_);
    Find("DllRegisterServer", register_);
    Find("DllUnregisterServer", unregister_);
    Find("DllCanUnloadNow", canUnload_);
    Find("DllGetClassObject", getClassObject_);
}

ModuleFunctions::~ModuleFunctions() {
    FreeLibrary(module_);
}

template <class Function>
void ModuleFunctions::Find(const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    EXPECT_TRUE(function) << name;
}

ComPtr<IClassFactory> ModuleFunctions::Factory() const {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(S_OK, GetClassObject(CLSID_nuxStdParts, IID_IClassFactory, factory.ReceiveVoid()));
    return factory;
}

}  // namespace nux
