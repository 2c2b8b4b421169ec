#pragma once

#include <string>
#include <string_view>

#include "webbrowser/ChannelMessage.h"
#include "webbrowser/Reach.h"

namespace nux::webbrowser {

/// What is answered to a page's request for a file.
struct PageFile {
    bool isFound = false;
    bool isAllowed = false;
    std::string bytes;
    const char* contentType = "";
};

/// Reads the file that a URL names, if the page may have it.
/// @param use  the browser's word for what it is requested as
PageFile ReadPageFile(const Reach& reach, std::string_view url, std::string_view use);

}  // namespace nux::webbrowser
