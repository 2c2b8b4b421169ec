// Why a document could not be loaded, for people.

#include <gtest/gtest.h>

#include <string>

#include "environment/XMLAccess.h"
#include "tests/support/HostDouble.h"
#include "tests/support/TempFolder.h"

namespace nux {
namespace {

/// What a DOM says of a document that is not well formed.
class ParseErrorDouble : public CalledByNumber<IXMLDOMParseError> {
public:
    ParseErrorDouble(std::wstring reason, LONG line, LONG character)
        : reason_(std::move(reason)), line_(line), character_(character) {}

    STDMETHODIMP get_errorCode(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP get_url(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_reason(BSTR* reason) override {
        *reason = reason_.empty() ? nullptr : Bstr(reason_).Detach();
        return reason_.empty() ? S_FALSE : S_OK;
    }
    STDMETHODIMP get_srcText(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_line(LONG* line) override {
        *line = line_;
        return S_OK;
    }
    STDMETHODIMP get_linepos(LONG* character) override {
        *character = character_;
        return S_OK;
    }
    STDMETHODIMP get_filepos(LONG*) override { return E_NOTIMPL; }

protected:
    void* FindInterface(REFIID iid) noexcept {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == IID_IXMLDOMParseError;
        return known ? static_cast<IXMLDOMParseError*>(this) : nullptr;
    }

private:
    std::wstring reason_;
    LONG line_;
    LONG character_;
};

std::wstring Described(const wchar_t* reason, LONG line, LONG character) {
    return DescribeParseError(MakeObject<ParseErrorDouble>(reason, line, character).Get());
}

TEST(XMLReasons, TellThePlaceAndTheWordsOfTheDom) {
    EXPECT_EQ(L"line 3, character 17: an end tag is missing", Described(L"an end tag is missing\r\n", 3, 17));
    EXPECT_EQ(L"an end tag is missing", Described(L"an end tag is missing", 0, 0));
    EXPECT_EQ(L"line 1, character 1: it is not well formed", Described(L"", 1, 1));
}

class ReasonOfAFailedLoad : public testing::Test {
protected:
    ~ReasonOfAFailedLoad() override { ClearXMLDocumentCache(); }

    std::wstring ReasonFor(const std::string& url) {
        std::wstring reason = L"untouched";
        ComPtr<IXMLDOMDocument> document;
        EXPECT_FALSE(LoadXMLDocument(url, document.Receive(), &reason));
        return reason;
    }

    const TempFolder folder_;
};

TEST_F(ReasonOfAFailedLoad, IsAMissingFileOrABrokenOne) {
    EXPECT_EQ(L"there is no such file, or it can't be opened", ReasonFor(folder_.Url("a.xml")));
    folder_.Write("a.xml", "<a><b></a>");
    const std::wstring broken = ReasonFor(folder_.Url("a.xml"));
    EXPECT_FALSE(broken.empty());
    EXPECT_EQ(std::wstring::npos, broken.find(L"no such file"));
    EXPECT_NE(L"untouched", broken);
    EXPECT_NE(std::wstring::npos, ReasonFor("file://" + std::string(3000, 'x')).find(L"longer than"));
}

TEST_F(ReasonOfAFailedLoad, IsNotGivenForASuccess) {
    folder_.Write("a.xml", "<a/>");
    std::wstring reason = L"untouched";
    ComPtr<IXMLDOMDocument> document;
    EXPECT_TRUE(LoadXMLDocument(folder_.Url("a.xml"), document.Receive(), &reason));
    EXPECT_EQ(L"untouched", reason);
}

}  // namespace
}  // namespace nux
