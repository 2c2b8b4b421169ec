#pragma once

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>

#include <utility>

namespace nux {

/// Owns one handle. `Traits` tell its type, its empty value and how it is closed.
template <class Traits>
class UniqueHandle {
public:
    using Type = typename Traits::Type;

    UniqueHandle() noexcept = default;
    explicit UniqueHandle(Type handle) noexcept : handle_(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.Detach()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~UniqueHandle() { Reset(); }

    Type Get() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != Traits::Empty(); }
    [[nodiscard]] Type Detach() noexcept { return std::exchange(handle_, Traits::Empty()); }
    void Reset() noexcept {
        if (*this)
            Traits::Close(Detach());
    }
    /// For out arguments: what was held is closed first.
    Type* Receive() noexcept {
        Reset();
        return &handle_;
    }

private:
    Type handle_ = Traits::Empty();
};

struct FileTraits {
    using Type = HANDLE;
    static Type Empty() noexcept { return INVALID_HANDLE_VALUE; }
    static void Close(Type handle) noexcept { CloseHandle(handle); }
};

/// Events, threads and others whose empty handle is null.
struct KernelTraits {
    using Type = HANDLE;
    static Type Empty() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { CloseHandle(handle); }
};

struct KeyTraits {
    using Type = HKEY;
    static Type Empty() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { RegCloseKey(handle); }
};

struct IconTraits {
    using Type = HICON;
    static Type Empty() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { DestroyIcon(handle); }
};

struct ImageListTraits {
    using Type = HIMAGELIST;
    static Type Empty() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { ImageList_Destroy(handle); }
};

struct MenuTraits {
    using Type = HMENU;
    static Type Empty() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { DestroyMenu(handle); }
};

struct SearchTraits {
    using Type = HANDLE;
    static Type Empty() noexcept { return INVALID_HANDLE_VALUE; }
    static void Close(Type handle) noexcept { FindClose(handle); }
};

struct HookTraits {
    using Type = HHOOK;
    static Type Empty() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { UnhookWindowsHookEx(handle); }
};

/// Bitmaps, regions and other objects to draw with, which must not be selected any more.
template <class Handle>
struct DrawingTraits {
    using Type = Handle;
    static Type Empty() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { DeleteObject(handle); }
};

/// A device context of memory; one of a window is a WindowContext.
struct MemoryContextTraits {
    using Type = HDC;
    static Type Empty() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { DeleteDC(handle); }
};

struct SafeArrayTraits {
    using Type = SAFEARRAY*;
    static Type Empty() noexcept { return nullptr; }
    static void Close(Type array) noexcept { SafeArrayDestroy(array); }
};

/// Memory that crosses the boundary of a module.
template <class Element>
struct TaskMemoryTraits {
    using Type = Element*;
    static Type Empty() noexcept { return nullptr; }
    static void Close(Type memory) noexcept { CoTaskMemFree(memory); }
};

using UniqueFile = UniqueHandle<FileTraits>;
using UniqueKernelHandle = UniqueHandle<KernelTraits>;
using UniqueKey = UniqueHandle<KeyTraits>;
using UniqueIcon = UniqueHandle<IconTraits>;
using UniqueImageList = UniqueHandle<ImageListTraits>;
using UniqueMenu = UniqueHandle<MenuTraits>;
using UniqueSearch = UniqueHandle<SearchTraits>;
using UniqueHook = UniqueHandle<HookTraits>;
using UniqueRegion = UniqueHandle<DrawingTraits<HRGN>>;
using UniqueBitmap = UniqueHandle<DrawingTraits<HBITMAP>>;
using UniqueMemoryContext = UniqueHandle<MemoryContextTraits>;
using UniqueSafeArray = UniqueHandle<SafeArrayTraits>;
using UniqueTaskText = UniqueHandle<TaskMemoryTraits<wchar_t>>;

}  // namespace nux
