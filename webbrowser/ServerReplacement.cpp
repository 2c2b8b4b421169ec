#include "webbrowser/ServerReplacement.h"

#include <vector>

#include "framework/HResult.h"
#include "framework/Handles.h"

namespace nux::webbrowser {
namespace {

// Of the server that has to be given its place back. An empty one stands for none.
constexpr wchar_t replacedServer[] = L"ReplacedServer";
constexpr wchar_t replacedModel[] = L"ReplacedThreadingModel";
constexpr wchar_t threadingModel[] = L"ThreadingModel";

struct Value {
    DWORD type = REG_SZ;
    std::vector<BYTE> data;
    bool isThere = false;
};

void Check(LSTATUS status) {
    ThrowIfFailed(HRESULT_FROM_WIN32(status));
}

std::wstring ClassPath(const std::wstring& classId) {
    return L"Software\\Classes\\CLSID\\" + classId;
}

Value Read(HKEY key, const wchar_t* name) {
    Value value;
    DWORD size = 0;
    LSTATUS status = RegQueryValueExW(key, name, nullptr, &value.type, nullptr, &size);
    if (status == ERROR_SUCCESS) {
        value.data.resize(size);
        status = RegQueryValueExW(key, name, nullptr, &value.type, value.data.data(), &size);
    }
    if (status == ERROR_FILE_NOT_FOUND)
        return {};
    Check(status);
    value.isThere = true;
    return value;
}

void Write(HKEY key, const wchar_t* name, const Value& value) {
    Check(RegSetValueExW(key, name, 0, value.type, value.data.data(), static_cast<DWORD>(value.data.size())));
}

Value TextValue(const std::wstring& text) {
    const auto* const bytes = reinterpret_cast<const BYTE*>(text.c_str());
    return {REG_SZ, {bytes, bytes + (text.size() + 1) * sizeof(wchar_t)}, true};
}

}  // namespace

HRESULT TakeServerPlace(const std::wstring& classId, const std::wstring& module) noexcept {
    return Guarded([&] {
        UniqueKey key;
        Check(RegCreateKeyExW(HKEY_LOCAL_MACHINE, (ClassPath(classId) + L"\\InprocServer32").c_str(), 0,
                              nullptr, 0, KEY_READ | KEY_WRITE, nullptr, key.Receive(), nullptr));
        if (!Read(key.Get(), replacedServer).isThere) {
            const Value server = Read(key.Get(), nullptr);
            const Value model = Read(key.Get(), threadingModel);
            if (model.isThere)
                Write(key.Get(), replacedModel, model);
            Write(key.Get(), replacedServer, server.isThere ? server : TextValue({}));
        }
        Write(key.Get(), threadingModel, TextValue(L"Apartment"));
        Write(key.Get(), nullptr, TextValue(module));
        return S_OK;
    });
}

HRESULT GiveServerPlaceBack(const std::wstring& classId) noexcept {
    return Guarded([&]() -> HRESULT {
        UniqueKey key;
        const LSTATUS opened =
            RegOpenKeyExW(HKEY_LOCAL_MACHINE, (ClassPath(classId) + L"\\InprocServer32").c_str(), 0,
                          KEY_READ | KEY_WRITE, key.Receive());
        if (opened == ERROR_FILE_NOT_FOUND)
            return S_OK;
        Check(opened);
        const Value server = Read(key.Get(), replacedServer);
        if (!server.isThere)
            return S_OK;
        if (server.data.size() <= sizeof(wchar_t)) {
            key.Reset();
            Check(RegDeleteTreeW(HKEY_LOCAL_MACHINE, (ClassPath(classId) + L"\\InprocServer32").c_str()));
            // It stays if others have added something to it.
            RegDeleteKeyW(HKEY_LOCAL_MACHINE, ClassPath(classId).c_str());
            return S_OK;
        }
        Write(key.Get(), nullptr, server);
        if (const Value model = Read(key.Get(), replacedModel); model.isThere) {
            Write(key.Get(), threadingModel, model);
            Check(RegDeleteValueW(key.Get(), replacedModel));
        } else {
            Check(RegDeleteValueW(key.Get(), threadingModel));
        }
        Check(RegDeleteValueW(key.Get(), replacedServer));
        return S_OK;
    });
}

}  // namespace nux::webbrowser
