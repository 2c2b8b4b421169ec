#pragma once

#include <windows.h>

#include <string>

#include "environment/RegistryValue.h"

namespace nux {

/// Access to the registry below one root key. Nothing is reported: a missing key or value gives false, and
/// the caller keeps its default.
///
/// A successful read or write also closes the root. That does nothing to the predefined keys that the program
/// uses; after Connect an object serves for one successful read or write.
class CRegistry {
public:
    /// What Enumerate does at each key.
    enum EnumerateFlags : unsigned { visitValues = 1, visitKeys = 2 };

    /// @param root  a predefined key; nothing is opened
    explicit CRegistry(HKEY root) noexcept : root_(root) {}
    virtual ~CRegistry() = default;

    /// Called by Enumerate for each value. @return nonzero to go on
    virtual int OnValue(const std::string& keyPath, const std::string& name, const RegistryValue& value,
                        int depth);
    /// Called by Enumerate for each subkey. @return nonzero to go on
    virtual int OnKey(const std::string& name, int depth);

    /// Reads a value of any type. A key or value that is missing leaves `value` as it was.
    bool QueryValue(const std::string& keyPath, const std::string& name, RegistryValue* value);
    /// True if the value exists and is a number; otherwise `number` stays.
    bool GetDWORDValue(const std::string& keyPath, const std::string& name, DWORD* number);
    /// True if the value exists and is a string; otherwise `text` stays. Throws std::bad_alloc.
    bool GetStringValue(const std::string& keyPath, const std::string& name, std::string* text);
    /// True if the value exists, is binary and has exactly `size` bytes; otherwise the buffer stays.
    bool GetBinaryValue(const std::string& keyPath, const std::string& name, void* buffer, DWORD size);

    /// Writes a value, and creates its key at need.
    bool SetValue(const std::string& keyPath, const std::string& name, const RegistryValue& value);
    bool SetStringValue(const std::string& keyPath, const std::string& name, const std::string& text);
    bool SetDWORDValue(const std::string& keyPath, const std::string& name, const DWORD* number);
    bool SetBinaryValue(const std::string& keyPath, const std::string& name, const void* bytes, DWORD size);

    /// Deletes a value, or with a null name the key with all that is below it.
    bool Delete(const std::string& keyPath, const char* name);

    /// Takes a predefined key of another machine (null: of this one) as root. On failure the old root stays.
    bool Connect(const char* machine, HKEY predefinedRoot);
    /// @return the old root
    HKEY SetRootKey(HKEY root) noexcept;

    /// True if the key can be opened and has any subkey or value. Each count may be null; both are 0 for a
    /// key that can't be opened.
    bool QueryCounts(const std::string& keyPath, DWORD* subkeys, DWORD* values);

    /// Walks the tree below a key, or below the root if `keyPath` is null: at each key first its values
    /// (OnValue), then each subkey (OnKey) and all that is below it.
    /// @param flags  EnumerateFlags, joined with |
    /// @return true if the walk came to its end; false if it was stopped or a key could not be read
    bool Enumerate(const char* keyPath, unsigned flags);

private:
    void CloseRoot() noexcept;
    bool EnumerateKey(HKEY key, const std::string& keyPath, unsigned flags, int depth);

    HKEY root_;
};

}  // namespace nux
