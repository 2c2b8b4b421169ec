#include <gtest/gtest.h>
#include "tests/control/Component.h"
#include "tests/control/ModuleFunctions.h"
#include "tests/support/HandleCount.h"
namespace nux {
TEST(Probe, Loads) {
    const std::wstring path = RegisteredModulePath();
    auto rounds = [&](const char* what, auto&& body) {
        for (int i = 0; i < 3; ++i) body();
        unsigned before = HandleCount();
        for (int i = 0; i < 10; ++i) body();
        printf("%s: %d in 10 rounds, loaded %d\n", what, (int)HandleCount() - (int)before, LoadedModule() != nullptr);
    };
    rounds("load", [&] { FreeLibrary(LoadLibraryW(path.c_str())); });
    rounds("factory", [&] { ModuleFunctions m(path); m.Factory(); m.CanUnload(); });
    rounds("object", [&] { ModuleFunctions m(path); ComPtr<InuxStdParts> p; m.Factory()->CreateInstance(nullptr, IID_InuxStdParts, p.ReceiveVoid()); p.Reset(); m.CanUnload(); });
    rounds("ids", [&] { ModuleFunctions m(path); ComPtr<InuxStdParts> p; m.Factory()->CreateInstance(nullptr, IID_InuxStdParts, p.ReceiveVoid());
            wchar_t name[] = L"UserData";
            LPOLESTR names = name;
            DISPID id = 0;
            EXPECT_EQ(S_OK, p->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id)); p.Reset(); m.CanUnload(); });
    rounds("paths", [&] { ModuleFunctions m(path); ComPtr<InuxStdParts> p; m.Factory()->CreateInstance(nullptr, IID_InuxStdParts, p.ReceiveVoid());
            p->SetTRNVPaths(nullptr, nullptr, nullptr, nullptr); p.Reset(); m.CanUnload(); });
    rounds("com", [&] { ComPtr<InuxStdParts> p; CoCreateInstance(CLSID_nuxStdParts, nullptr, CLSCTX_INPROC_SERVER, IID_InuxStdParts, p.ReceiveVoid()); p.Reset(); CoFreeUnusedLibraries(); });
}
}
