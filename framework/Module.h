#pragma once

#include <windows.h>

#include <string>

namespace nux {

/// The module that this code was linked into, as told by DllMain (or by the start of a program).
HINSTANCE ThisModule() noexcept;
void SetThisModule(HINSTANCE module) noexcept;

/// Full path of the module's file. Throws std::bad_alloc.
std::wstring ThisModulePath();

/// The module that dialog templates, icons, menus and strings come from: this module, until a language's
/// module takes its place. The handle is swapped atomically, because windows read it at any time.
HINSTANCE ResourceModule() noexcept;
void SetResourceModule(HINSTANCE module) noexcept;

/// How many COM objects of this module are alive, locks of its class factories included.
long LiveObjects() noexcept;

/// Counts itself as one live object for as long as it exists.
class LiveObject {
public:
    LiveObject() noexcept;
    LiveObject(const LiveObject&) noexcept : LiveObject() {}
    LiveObject& operator=(const LiveObject&) noexcept = default;
    ~LiveObject();
};

/// Adds or takes away one live object that has no C++ object of its own (IClassFactory::LockServer).
void CountLiveObject(bool add) noexcept;

}  // namespace nux
