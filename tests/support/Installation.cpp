#include "tests/support/Installation.h"

namespace nux {

HRESULT SetPaths(const ComPtr<InuxStdParts>& parts, const std::string& catalog, const std::string& data,
                 const std::string& gui, const std::string& custom) {
    return parts->SetTRNVPaths(Bstr(catalog, CP_ACP).Get(), Bstr(data, CP_ACP).Get(), Bstr(gui, CP_ACP).Get(),
                               Bstr(custom, CP_ACP).Get());
}

void InstallationTest::SetUp() {
    PartsTest::SetUp();
    ASSERT_EQ(S_OK, UseInstallation());
}

void InstallationTest::WriteMessage(const std::string& file, const std::string& id, const std::string& text) {
    folder.Write(file, "<Messages><MsgID>" + id + "</MsgID><Text>" + text + "</Text></Messages>");
}

std::wstring InstallationTest::Localized(const std::wstring& catalogue, const std::wstring& id) {
    BSTR text = nullptr;
    EXPECT_EQ(S_OK, parts->GetLocalizedString(Bstr(catalogue).Get(), Bstr(id).Get(), &text));
    return Take(text);
}

}  // namespace nux
