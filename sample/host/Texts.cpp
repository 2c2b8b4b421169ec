#include "host/Texts.h"

#include <cstdio>

#include "framework/Module.h"
#include "host/resource.h"

namespace nux::host {

std::string Text(UINT id) {
    char text[512];
    return std::string(text, LoadStringA(ThisModule(), id, text, sizeof text));
}

std::string Text(UINT id, const std::string& value) {
    std::string text = Text(id);
    if (const auto place = text.find("%s"); place != std::string::npos)
        text.replace(place, 2, value);
    return text;
}

std::string TextOfResult(HRESULT result) {
    if (result == S_OK)
        return "OK";
    if (result == S_FALSE)
        return Text(IDS_NO_OBJECT);
    char code[16];
    std::snprintf(code, sizeof code, "%08lX", static_cast<unsigned long>(result));
    char words[256];
    DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  static_cast<DWORD>(result), 0, words, sizeof words, nullptr);
    while (length > 0 && (words[length - 1] == '\n' || words[length - 1] == '\r'))
        --length;
    return std::string(code) + "  " + std::string(words, length);
}

}  // namespace nux::host
