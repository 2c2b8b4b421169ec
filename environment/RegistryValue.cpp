#include "environment/RegistryValue.h"

#include <algorithm>
#include <cstring>

namespace nux {

BYTE* RegistryValue::Allocate(DWORD type, DWORD size) {
    data_ = std::vector<BYTE>(size + terminators, BYTE{0});
    type_ = type;
    return data_.data();
}

void RegistryValue::Clear() noexcept {
    data_.clear();
    type_ = REG_NONE;
}

void RegistryValue::SetNumber(DWORD number) {
    std::memcpy(Allocate(REG_DWORD, sizeof number), &number, sizeof number);
}

void RegistryValue::SetString(const std::string& text, bool expandable) {
    const DWORD size = static_cast<DWORD>(text.size() + 1);
    std::memcpy(Allocate(expandable ? REG_EXPAND_SZ : REG_SZ, size), text.c_str(), size);
}

void RegistryValue::SetBinary(const void* bytes, std::size_t size) {
    BYTE* target = Allocate(REG_BINARY, static_cast<DWORD>(size));
    if (size != 0)
        std::memcpy(target, bytes, size);
}

void RegistryValue::SetStrings(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts)
        joined.append(text.c_str(), text.size() + 1);
    const DWORD size = static_cast<DWORD>(joined.size() + 1);
    std::memcpy(Allocate(REG_MULTI_SZ, size), joined.c_str(), size);
}

bool RegistryValue::AsString(const char** text) const noexcept {
    switch (type_) {
        case REG_SZ:
        case REG_EXPAND_SZ:
        case REG_LINK:
        case REG_MULTI_SZ:
            *text = data_.empty() ? "" : reinterpret_cast<const char*>(data_.data());
            return true;
        default:
            return false;
    }
}

bool RegistryValue::AsNumber(DWORD* number) const noexcept {
    if ((type_ != REG_DWORD && type_ != REG_DWORD_BIG_ENDIAN) || Size() < sizeof *number)
        return false;
    std::memcpy(number, data_.data(), sizeof *number);
    return true;
}

bool RegistryValue::AsBinary(void* bytes, std::size_t size) const noexcept {
    const bool binary =
        type_ == REG_BINARY || type_ == REG_RESOURCE_LIST || type_ == REG_FULL_RESOURCE_DESCRIPTOR;
    if (!binary || Size() != size)
        return false;
    std::copy_n(data_.begin(), size, static_cast<BYTE*>(bytes));
    return true;
}

}  // namespace nux
