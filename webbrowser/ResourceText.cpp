#include "webbrowser/ResourceText.h"

#include "framework/HResult.h"
#include "framework/Module.h"

namespace nux::webbrowser {

std::string_view ResourceText(UINT resource) {
    constexpr WORD rcData = 10;
    const HRSRC found = FindResourceA(ThisModule(), MAKEINTRESOURCEA(resource), MAKEINTRESOURCEA(rcData));
    const HGLOBAL loaded = found ? LoadResource(ThisModule(), found) : nullptr;
    if (!loaded)
        throw HResultError(LastFailure());
    return {static_cast<const char*>(LockResource(loaded)), SizeofResource(ThisModule(), found)};
}

}  // namespace nux::webbrowser
