#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

namespace nux {

/// One registry value: its type and its bytes. Setters that run out of memory throw std::bad_alloc.
class RegistryValue {
public:
    RegistryValue() = default;
    explicit RegistryValue(DWORD number) { SetNumber(number); }
    /// REG_SZ, or REG_EXPAND_SZ if the string has environment variables to be expanded by its readers.
    explicit RegistryValue(const std::string& text, bool expandable = false) { SetString(text, expandable); }
    RegistryValue(const void* bytes, std::size_t size) { SetBinary(bytes, size); }
    explicit RegistryValue(const std::vector<std::string>& texts) { SetStrings(texts); }

    void SetNumber(DWORD number);
    void SetString(const std::string& text, bool expandable = false);
    void SetBinary(const void* bytes, std::size_t size);
    void SetStrings(const std::vector<std::string>& texts);
    /// Makes room for `size` bytes of `type`. @return where to write them
    BYTE* Allocate(DWORD type, DWORD size);
    void Clear() noexcept;

    DWORD Type() const noexcept { return type_; }
    /// Number of bytes; those of a string include its terminators.
    DWORD Size() const noexcept { return data_.empty() ? 0 : static_cast<DWORD>(data_.size() - terminators); }
    /// The bytes, or null when empty.
    const BYTE* Data() const noexcept { return Size() == 0 ? nullptr : data_.data(); }

    /// For types 1, 2, 6 and 7: gives the bytes as a string that is terminated in any case, and true.
    /// The pointer lives until the value changes.
    bool AsString(const char** text) const noexcept;
    /// For types 4 and 5: gives the first 32 bits, and true. False also for a value shorter than that.
    bool AsNumber(DWORD* number) const noexcept;
    /// For types 3, 8 and 9: copies the bytes if there are exactly `size` of them, and gives true.
    bool AsBinary(void* bytes, std::size_t size) const noexcept;

private:
    /// A stored string need not end in a zero: two are kept behind the bytes of every value.
    static constexpr std::size_t terminators = 2;

    std::vector<BYTE> data_;  ///< the bytes and the terminators, or nothing at all
    DWORD type_ = REG_NONE;
};

}  // namespace nux
