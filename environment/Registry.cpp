#include "environment/Registry.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "framework/Handles.h"

namespace nux {
namespace {

/// The registry tells the length of its longest name in characters; a narrow one may need three bytes each.
constexpr DWORD bytesPerCharacter = 3;

bool DeleteTree(HKEY parent, const char* path) {
    UniqueKey key;
    if (RegOpenKeyExA(parent, path, 0, KEY_ALL_ACCESS & ~KEY_CREATE_LINK, key.Receive()) != ERROR_SUCCESS)
        return false;
    DWORD subkeys = 0;
    DWORD longestName = 0;
    const auto query = [&] {
        return RegQueryInfoKeyA(key.Get(), nullptr, nullptr, nullptr, &subkeys, &longestName, nullptr,
                                nullptr, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
    };
    if (!query())
        return false;
    while (subkeys > 0) {
        std::string name(longestName * bytesPerCharacter + 1, '\0');
        if (RegEnumKeyA(key.Get(), 0, name.data(), static_cast<DWORD>(name.size())) != ERROR_SUCCESS ||
            !DeleteTree(key.Get(), name.c_str()) || !query())
            return false;
    }
    key.Reset();
    return RegDeleteKeyA(parent, path) == ERROR_SUCCESS;
}

}  // namespace

int CRegistry::OnValue(const std::string&, const std::string&, const RegistryValue&, int) {
    return 0;
}

int CRegistry::OnKey(const std::string&, int) {
    return 0;
}

void CRegistry::CloseRoot() noexcept {
    RegCloseKey(root_);
}

bool CRegistry::QueryValue(const std::string& keyPath, const std::string& name, RegistryValue* value) {
    UniqueKey key;
    if (RegOpenKeyExA(root_, keyPath.c_str(), 0, KEY_READ, key.Receive()) != ERROR_SUCCESS)
        return false;
    DWORD type = REG_NONE;
    DWORD size = 0;
    if (RegQueryValueExA(key.Get(), name.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
        return false;
    std::vector<BYTE> bytes(size + 1);  // never null, which would ask for the size alone
    const bool succeeded =
        RegQueryValueExA(key.Get(), name.c_str(), nullptr, &type, bytes.data(), &size) == ERROR_SUCCESS;
    key.Reset();
    CloseRoot();
    RegistryValue read;
    if (succeeded)  // type and size as they are by now: another process may have written in between
        std::copy_n(bytes.begin(), size, read.Allocate(type, size));
    *value = std::move(read);
    return succeeded;
}

bool CRegistry::GetDWORDValue(const std::string& keyPath, const std::string& name, DWORD* number) {
    RegistryValue value;
    return QueryValue(keyPath, name, &value) && value.AsNumber(number);
}

bool CRegistry::GetStringValue(const std::string& keyPath, const std::string& name, std::string* text) {
    RegistryValue value;
    const char* read = nullptr;
    if (!QueryValue(keyPath, name, &value) || !value.AsString(&read))
        return false;
    *text = read;
    return true;
}

bool CRegistry::GetBinaryValue(const std::string& keyPath, const std::string& name, void* buffer,
                               DWORD size) {
    RegistryValue value;
    return QueryValue(keyPath, name, &value) && value.AsBinary(buffer, size);
}

bool CRegistry::SetValue(const std::string& keyPath, const std::string& name, const RegistryValue& value) {
    UniqueKey key;
    if (RegCreateKeyExA(root_, keyPath.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, key.Receive(), nullptr) !=
        ERROR_SUCCESS)
        return false;
    const bool written =
        RegSetValueExA(key.Get(), name.c_str(), 0, value.Type(), value.Data(), value.Size()) == ERROR_SUCCESS;
    key.Reset();
    CloseRoot();
    return written;
}

bool CRegistry::SetStringValue(const std::string& keyPath, const std::string& name, const std::string& text) {
    return SetValue(keyPath, name, RegistryValue(text));
}

bool CRegistry::SetDWORDValue(const std::string& keyPath, const std::string& name, const DWORD* number) {
    return SetValue(keyPath, name, RegistryValue(*number));
}

bool CRegistry::SetBinaryValue(const std::string& keyPath, const std::string& name, const void* bytes,
                               DWORD size) {
    return SetValue(keyPath, name, RegistryValue(bytes, size));
}

bool CRegistry::Delete(const std::string& keyPath, const char* name) {
    if (!name)
        return DeleteTree(root_, keyPath.c_str());
    UniqueKey key;
    if (RegOpenKeyExA(root_, keyPath.c_str(), 0, KEY_READ | KEY_SET_VALUE | KEY_CREATE_SUB_KEY,
                      key.Receive()) != ERROR_SUCCESS)
        return false;
    const bool deleted = RegDeleteValueA(key.Get(), name) == ERROR_SUCCESS;
    key.Reset();
    CloseRoot();
    return deleted;
}

bool CRegistry::Connect(const char* machine, HKEY predefinedRoot) {
    HKEY connected = nullptr;
    if (RegConnectRegistryA(machine, predefinedRoot, &connected) != ERROR_SUCCESS)
        return false;
    root_ = connected;
    return true;
}

HKEY CRegistry::SetRootKey(HKEY root) noexcept {
    return std::exchange(root_, root);
}

bool CRegistry::QueryCounts(const std::string& keyPath, DWORD* subkeys, DWORD* values) {
    DWORD subkeyCount = 0;
    DWORD valueCount = 0;
    UniqueKey key;
    if (RegOpenKeyExA(root_, keyPath.c_str(), 0, KEY_READ, key.Receive()) == ERROR_SUCCESS)
        RegQueryInfoKeyA(key.Get(), nullptr, nullptr, nullptr, &subkeyCount, nullptr, nullptr, &valueCount,
                         nullptr, nullptr, nullptr, nullptr);
    if (subkeys)
        *subkeys = subkeyCount;
    if (values)
        *values = valueCount;
    return subkeyCount > 0 || valueCount > 0;
}

bool CRegistry::Enumerate(const char* keyPath, unsigned flags) {
    if (!keyPath)
        return EnumerateKey(root_, std::string(), flags, 0);
    UniqueKey key;
    if (RegOpenKeyExA(root_, keyPath, 0, KEY_READ, key.Receive()) != ERROR_SUCCESS)
        return false;
    return EnumerateKey(key.Get(), keyPath, flags, 0);
}

bool CRegistry::EnumerateKey(HKEY key, const std::string& keyPath, unsigned flags, int depth) {
    DWORD keyCount = 0;
    DWORD longestKey = 0;
    DWORD valueCount = 0;
    DWORD longestName = 0;
    DWORD longestValue = 0;
    if (RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, &keyCount, &longestKey, nullptr, &valueCount,
                         &longestName, &longestValue, nullptr, nullptr) != ERROR_SUCCESS)
        return false;
    // An index that can't be read is skipped; behind the counted ones that ends the walk, as a key that has
    // been deleted meanwhile answers every index with the same error.

    if (flags & visitValues) {
        std::vector<char> name(longestName * bytesPerCharacter + 1);
        std::vector<BYTE> bytes(longestValue * bytesPerCharacter + 1);
        for (DWORD index = 0;; ++index) {
            DWORD nameLength = static_cast<DWORD>(name.size());
            DWORD size = static_cast<DWORD>(bytes.size());
            DWORD type = REG_NONE;
            const LSTATUS status =
                RegEnumValueA(key, index, name.data(), &nameLength, nullptr, &type, bytes.data(), &size);
            if (status == ERROR_NO_MORE_ITEMS || (status != ERROR_SUCCESS && index >= valueCount))
                break;
            if (status != ERROR_SUCCESS)
                continue;
            RegistryValue value;
            std::copy_n(bytes.begin(), size, value.Allocate(type, size));
            if (!OnValue(keyPath, std::string(name.data(), nameLength), value, depth))
                return false;
        }
    }

    std::vector<char> name(longestKey * bytesPerCharacter + 1);
    for (DWORD index = 0;; ++index) {
        const LSTATUS status = RegEnumKeyA(key, index, name.data(), static_cast<DWORD>(name.size()));
        if (status == ERROR_NO_MORE_ITEMS || (status != ERROR_SUCCESS && index >= keyCount))
            return true;
        if (status != ERROR_SUCCESS)
            continue;
        if ((flags & visitKeys) && !OnKey(name.data(), depth))
            return false;
        UniqueKey subkey;
        if (RegOpenKeyExA(key, name.data(), 0, KEY_READ, subkey.Receive()) == ERROR_SUCCESS &&
            !EnumerateKey(subkey.Get(), keyPath + "\\" + name.data(), flags, depth + 1))
            return false;
    }
}

}  // namespace nux
