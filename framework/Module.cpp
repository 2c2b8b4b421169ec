#include "framework/Module.h"

#include <atomic>

namespace nux {
namespace {

HINSTANCE thisModule = nullptr;
std::atomic<HINSTANCE> resourceModule{nullptr};
std::atomic<long> liveObjects{0};

}  // namespace

HINSTANCE ThisModule() noexcept {
    return thisModule;
}

void SetThisModule(HINSTANCE module) noexcept {
    thisModule = module;
}

std::wstring ThisModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(thisModule, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

HINSTANCE ResourceModule() noexcept {
    const HINSTANCE module = resourceModule.load();
    return module ? module : thisModule;
}

void SetResourceModule(HINSTANCE module) noexcept {
    resourceModule.exchange(module);
}

long LiveObjects() noexcept {
    return liveObjects.load();
}

LiveObject::LiveObject() noexcept {
    CountLiveObject(true);
}

LiveObject::~LiveObject() {
    CountLiveObject(false);
}

void CountLiveObject(bool add) noexcept {
    liveObjects.fetch_add(add ? 1 : -1);
}

}  // namespace nux
