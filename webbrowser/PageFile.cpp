#include "webbrowser/PageFile.h"

#include <windows.h>

#include "framework/Handles.h"
#include "webbrowser/ContentType.h"
#include "webbrowser/PageUrl.h"

namespace nux::webbrowser {
namespace {

/// A longer file isn't for a page.
constexpr LONGLONG longest = 128LL << 20;

bool Read(const std::wstring& path, std::string& bytes) {
    const UniqueFile file(CreateFileW(path.c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER size{};
    // A pipe or a device of the system below would have the reader wait.
    if (!file || GetFileType(file.Get()) != FILE_TYPE_DISK || !GetFileSizeEx(file.Get(), &size) ||
        size.QuadPart > longest)
        return false;
    bytes.resize(static_cast<std::size_t>(size.QuadPart));
    std::size_t done = 0;
    while (done < bytes.size()) {
        DWORD count = 0;
        if (!ReadFile(file.Get(), bytes.data() + done, static_cast<DWORD>(bytes.size() - done), &count,
                      nullptr))
            return false;
        if (count == 0)
            break;
        done += count;
    }
    bytes.resize(done);
    return true;
}

}  // namespace

PageFile ReadPageFile(const Reach& reach, std::string_view url, std::string_view use) {
    PageFile answer;
    const std::optional<std::u16string> path = FileOfUrl(url);
    if (!path)
        return answer;
    answer.isAllowed = reach.MayRead(*path, use);
    answer.contentType = ContentTypeOf(*path).name;
    answer.isFound = answer.isAllowed && Read({path->begin(), path->end()}, answer.bytes);
    return answer;
}

}  // namespace nux::webbrowser
