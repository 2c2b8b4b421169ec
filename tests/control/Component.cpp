#include "tests/control/Component.h"

#include <utility>

#include "framework/Handles.h"

namespace nux {
namespace {

constexpr wchar_t progId[] = L"Tarnvale.nuxStdParts";

}  // namespace

std::wstring RegisteredModulePath() {
    const std::wstring name =
        L"CLSID\\{B1A0C4D5-B52D-44EA-8B0E-F3EEFD3BB67F}\\InprocServer32";  // as the registry script has it
    wchar_t path[MAX_PATH] = L"";
    LONG size = sizeof path;
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueW(HKEY_CLASSES_ROOT, name.c_str(), path, &size))
        << "not registered";
    return path;
}

ComPtr<InuxStdParts> CreateParts() {
    CLSID classId{};
    EXPECT_EQ(S_OK, CLSIDFromProgID(progId, &classId));
    ComPtr<InuxStdParts> parts;
    EXPECT_EQ(S_OK, CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_InuxStdParts,
                                     parts.ReceiveVoid()));
    return parts;
}

HMODULE LoadedModule() {
    return GetModuleHandleW(L"nuxStdPartsAX.dll");
}

HRESULT ModuleCanUnload() {
    const HMODULE module = LoadedModule();
    if (!module)
        return S_OK;
    using Function = HRESULT(STDAPICALLTYPE*)();
    const auto canUnload =
        reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, "DllCanUnloadNow")));
    return canUnload ? canUnload() : E_NOTIMPL;
}

std::wstring Take(BSTR text) {
    const std::wstring content(text ? text : L"", SysStringLen(text));
    SysFreeString(text);
    return content;
}

std::wstring ReadText(const ComPtr<InuxStdParts>& parts,
                      HRESULT (STDMETHODCALLTYPE InuxStdParts::*get)(BSTR*)) {
    BSTR text = nullptr;
    EXPECT_EQ(S_OK, (parts.Get()->*get)(&text));
    return Take(text);
}

void PartsTest::SetUp() {
    parts = CreateParts();
    ASSERT_TRUE(parts) << "wine/make-prefix registers the component";
}

void PartsTest::TearDown() {
    ReleaseParts();
    EXPECT_EQ(S_OK, ModuleCanUnload()) << "an object of the component is still alive";
}

}  // namespace nux
