#include "webbrowser/ServerReplacement.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <optional>

namespace nux::webbrowser {
namespace {

// Of no class that anybody has.
const std::wstring classId = L"{0C6C0E0B-6E0F-4D3A-9C5C-6A3F4E0D9B11}";
const std::wstring classPath = L"Software\\Classes\\CLSID\\" + classId;
const std::wstring serverPath = classPath + L"\\InprocServer32";

std::optional<std::wstring> Value(const wchar_t* name) {
    wchar_t text[MAX_PATH];
    DWORD size = sizeof text;
    if (RegGetValueW(HKEY_LOCAL_MACHINE, serverPath.c_str(), name,
                     RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND, nullptr, text,
                     &size) != ERROR_SUCCESS)
        return std::nullopt;
    return text;
}

class ServerReplacement : public testing::Test {
protected:
    ~ServerReplacement() override { RegDeleteTreeW(HKEY_LOCAL_MACHINE, classPath.c_str()); }

    static void Register(const wchar_t* server, const wchar_t* model) {
        const auto put = [](const wchar_t* name, DWORD type, const std::wstring& text) {
            RegSetKeyValueW(HKEY_LOCAL_MACHINE, serverPath.c_str(), name, type, text.c_str(),
                            static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
        };
        put(nullptr, REG_EXPAND_SZ, server);
        if (model)
            put(L"ThreadingModel", REG_SZ, model);
    }
};

TEST_F(ServerReplacement, TakesThePlaceAndGivesBackWhatWasThere) {
    Register(L"%SystemRoot%\\other.dll", L"Both");
    EXPECT_EQ(S_OK, TakeServerPlace(classId, L"C:\\mine.dll"));
    EXPECT_EQ(L"C:\\mine.dll", Value(nullptr));
    EXPECT_EQ(L"Apartment", Value(L"ThreadingModel"));
    EXPECT_EQ(S_OK, GiveServerPlaceBack(classId));
    EXPECT_EQ(L"%SystemRoot%\\other.dll", Value(nullptr));
    EXPECT_EQ(L"Both", Value(L"ThreadingModel"));
    EXPECT_EQ(std::nullopt, Value(L"ReplacedServer"));
    EXPECT_EQ(std::nullopt, Value(L"ReplacedThreadingModel"));
}

TEST_F(ServerReplacement, KeepsTheFirstServerWhenItTakesThePlaceAgain) {
    Register(L"other.dll", nullptr);
    TakeServerPlace(classId, L"C:\\old.dll");
    EXPECT_EQ(S_OK, TakeServerPlace(classId, L"C:\\new.dll"));
    EXPECT_EQ(L"C:\\new.dll", Value(nullptr));
    EXPECT_EQ(S_OK, GiveServerPlaceBack(classId));
    EXPECT_EQ(L"other.dll", Value(nullptr));
    EXPECT_EQ(std::nullopt, Value(L"ThreadingModel"));
    EXPECT_EQ(S_OK, GiveServerPlaceBack(classId));
    EXPECT_EQ(L"other.dll", Value(nullptr)) << "giving back twice changes nothing";
}

TEST_F(ServerReplacement, LeavesNothingOfAClassThatNobodyHad) {
    EXPECT_EQ(S_OK, GiveServerPlaceBack(classId));
    EXPECT_EQ(S_OK, TakeServerPlace(classId, L"C:\\mine.dll"));
    EXPECT_EQ(L"C:\\mine.dll", Value(nullptr));
    EXPECT_EQ(S_OK, GiveServerPlaceBack(classId));
    HKEY key = nullptr;
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegOpenKeyW(HKEY_LOCAL_MACHINE, classPath.c_str(), &key));
}

}  // namespace
}  // namespace nux::webbrowser
