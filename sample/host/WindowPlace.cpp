#include "host/WindowPlace.h"

#include "framework/Handles.h"

namespace nux::host {
namespace {

constexpr char keyName[] = "Software\\Orvenna\\SampleHost";

void Read(HKEY key, const char* name, LONG& number) noexcept {
    DWORD size = sizeof number;
    RegGetValueA(key, nullptr, name, RRF_RT_REG_DWORD, nullptr, &number, &size);
}

void Write(HKEY key, const char* name, LONG number) noexcept {
    RegSetValueExA(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number);
}

}  // namespace

WindowPlace WindowPlace::Load() noexcept {
    WindowPlace place;
    UniqueKey key;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, keyName, 0, KEY_READ, key.Receive()) != ERROR_SUCCESS) {
        (void)key.Detach();
        return place;
    }
    LONG width = 0;
    LONG height = 0;
    LONG maximised = 0;
    LONG showsCalls = 1;
    Read(key.Get(), "left", place.bounds.left);
    Read(key.Get(), "top", place.bounds.top);
    Read(key.Get(), "width", width);
    Read(key.Get(), "height", height);
    Read(key.Get(), "maximised", maximised);
    Read(key.Get(), "calls", showsCalls);
    place.bounds.right = place.bounds.left + width;
    place.bounds.bottom = place.bounds.top + height;
    if (!MonitorFromRect(&place.bounds, MONITOR_DEFAULTTONULL))
        place.bounds = {};
    place.maximised = maximised != 0;
    place.showsCalls = showsCalls != 0;
    return place;
}

void WindowPlace::Save() const noexcept {
    UniqueKey key;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, keyName, 0, nullptr, 0, KEY_WRITE, nullptr, key.Receive(),
                        nullptr) != ERROR_SUCCESS) {
        (void)key.Detach();
        return;  // the window comes up in another place next time
    }
    Write(key.Get(), "left", bounds.left);
    Write(key.Get(), "top", bounds.top);
    Write(key.Get(), "width", bounds.right - bounds.left);
    Write(key.Get(), "height", bounds.bottom - bounds.top);
    Write(key.Get(), "maximised", maximised);
    Write(key.Get(), "calls", showsCalls);
}

}  // namespace nux::host
