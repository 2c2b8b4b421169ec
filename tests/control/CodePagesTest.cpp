// Which code page texts are narrowed to on their way in, and widened from on their way out: the thread's in,
// the system's out. The letter U+0416 is the byte C6 of the thread's code page here, which the system's reads
// as U+00C6.

#include <gtest/gtest.h>

#include "control/nuxStdParts.h"
#include "environment/Localisation.h"
#include "framework/ComObject.h"
#include "tests/support/Installation.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

class CodePages : public InstallationTest {
protected:
    /// The path of a name in the folder.
    std::wstring Path(const std::wstring& name) const { return Widen(folder.Path(), CP_ACP) + name; }
    /// Whether there is a file of this name, which then goes: the folder can't be removed while there is one
    /// with a name beyond the system's code page.
    static bool Remove(const std::wstring& path) { return DeleteFileW(path.c_str()); }

    const ThreadLocale locale_{russian};
};

TEST_F(CodePages, OfTheNameOfASavedFile) {
    EXPECT_EQ(S_OK, parts->SaveFile(Bstr(Path(L"\u0416.txt")).Get(), Bstr(L"text").Get()));
    EXPECT_TRUE(Remove(Path(L"\u00C6.txt")));
    EXPECT_FALSE(Remove(Path(L"\u0416.txt")));
}

TEST_F(CodePages, OfTheNameOfTheLog) {
    EXPECT_EQ(S_OK, parts->put_DebugSessionStatusAndLogFile(Bstr(Path(L"\u0416.log")).Get()));
    EXPECT_EQ(S_OK, parts->WriteDebugString(Bstr(L"text").Get()));
    EXPECT_TRUE(Remove(Path(L"\u00C6.log")));
    EXPECT_FALSE(Remove(Path(L"\u0416.log")));
}

TEST_F(CodePages, OfACatalogue) {
    // Its URL goes back through the thread's code page.
    ASSERT_TRUE(CreateDirectoryW(Path(L"catalogs\\\u0416").c_str(), nullptr));
    const std::wstring file = Path(L"catalogs\\\u0416\\Catalog.xml");
    folder.Write("a.xml", "<Catalog/>");
    ASSERT_TRUE(CopyFileW(Path(L"a.xml").c_str(), file.c_str(), FALSE));
    ComPtr<IDispatch> document;
    EXPECT_EQ(S_OK, parts->GetComponentsDocument(Bstr(L"\u0416").Get(), document.Receive()));
    EXPECT_TRUE(document);
    EXPECT_TRUE(Remove(file));
    EXPECT_TRUE(RemoveDirectoryW(Path(L"catalogs\\\u0416").c_str()));
}

TEST_F(CodePages, OfAMessageWithoutATranslation) {
    EXPECT_EQ(L"\u00C6", Localized(L"COMMON", L"\u0416"));
}

TEST_F(CodePages, OfTheInterfaceLanguage) {
    // Not the registered module's object, whose language can't be set from here, but one of this program's
    // own.
    const auto own = MakeObject<nuxStdParts>();
    SetInterfaceLanguage("\xC6");
    Bstr language;
    EXPECT_EQ(S_OK, own->GetInterfaceLanguage(language.Receive()));
    SetInterfaceLanguage({});
    EXPECT_EQ(L"\u00C6", language.View());
}

}  // namespace
}  // namespace nux
