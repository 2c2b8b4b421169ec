#include "webbrowser/RandomName.h"

#include <windows.h>

#include <ntsecapi.h>

#include <array>

#include "framework/HResult.h"

namespace nux::webbrowser {

std::string RandomName() {
    std::array<unsigned char, 16> random{};
    if (!RtlGenRandom(random.data(), random.size()))
        throw HResultError(LastFailure());
    std::string name;
    for (const unsigned char byte : random) {
        name += "0123456789abcdef"[byte >> 4];
        name += "0123456789abcdef"[byte & 15];
    }
    return name;
}

}  // namespace nux::webbrowser
