#include "tests/support/TempFolder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>

#include "framework/Handles.h"

namespace nux {
namespace {

void RemoveTree(const std::string& folder) {
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((folder + "*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            const std::string name = found.cFileName;
            if (name == "." || name == "..")
                continue;
            if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                RemoveTree(folder + name + "\\");
            else
                DeleteFileA((folder + name).c_str());
        } while (FindNextFileA(search, &found));
        FindClose(search);
    }
    RemoveDirectoryA(folder.c_str());
}

}  // namespace

TempFolder::TempFolder() {
    static std::atomic<unsigned> count{0};
    char temp[MAX_PATH + 1];
    GetTempPathA(sizeof temp, temp);
    do {  // a process that died may have left a folder of this name
        path_ = temp + ("nux" + std::to_string(GetCurrentProcessId()) + "_" + std::to_string(++count)) + "\\";
    } while (!CreateDirectoryA(path_.c_str(), nullptr) && GetLastError() == ERROR_ALREADY_EXISTS);
}

TempFolder::~TempFolder() {
    RemoveTree(path_);
}

std::string TempFolder::MakeFolder(const std::string& name) const {
    // Character by character: a byte that looks like a separator may be the second half of another character.
    for (const char* at = name.c_str(); *at; at = CharNextA(at)) {
        if (*at == '\\')
            CreateDirectoryA((path_ + std::string(name.c_str(), at)).c_str(), nullptr);
    }
    CreateDirectoryA((path_ + name).c_str(), nullptr);
    return path_ + name + "\\";
}

std::string TempFolder::Write(const std::string& name, std::string_view content) const {
    const char* separator = nullptr;
    for (const char* at = name.c_str(); *at; at = CharNextA(at))
        separator = *at == '\\' ? at : separator;
    if (separator)
        MakeFolder(std::string(name.c_str(), separator));
    const std::string path = path_ + name;
    const UniqueFile file(
        CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
    EXPECT_EQ(content.size(), written) << path;
    return path;
}

std::string TempFolder::Read(const std::string& name) const {
    const UniqueFile file(CreateFileA((path_ + name).c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        return {};
    std::string content(GetFileSize(file.Get(), nullptr), '\0');
    DWORD read = 0;
    ReadFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &read, nullptr);
    content.resize(read);
    return content;
}

void TempFolder::Remove(const std::string& name) const {
    EXPECT_TRUE(DeleteFileA((path_ + name).c_str())) << name;
}

}  // namespace nux
