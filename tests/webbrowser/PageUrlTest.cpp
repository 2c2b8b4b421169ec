#include "webbrowser/PageUrl.h"

#include <gtest/gtest.h>

#include "webbrowser/Utf.h"

namespace nux::webbrowser {
namespace {

using Kind = PageUrl::Kind;

struct Form {
    std::u16string_view address;
    std::string_view url;
    std::u16string_view path;
};

TEST(PageUrl, ReadsEachFormOfAFile) {
    const Form forms[] = {
        {u"C:\\dir\\x.htm", "file:///C:/dir/x.htm", u"C:\\dir\\x.htm"},
        {u"c:/dir/x.htm", "file:///C:/dir/x.htm", u"C:\\dir\\x.htm"},
        {u"file://C:\\dir\\x.htm", "file:///C:/dir/x.htm", u"C:\\dir\\x.htm"},
        {u"file:///C:/dir/x.htm", "file:///C:/dir/x.htm", u"C:\\dir\\x.htm"},
        {u"FILE:C:\\dir/x.htm", "file:///C:/dir/x.htm", u"C:\\dir\\x.htm"},
        {u"file://localhost/C:/dir/x.htm", "file:///C:/dir/x.htm", u"C:\\dir\\x.htm"},
        {u"file:////C:/dir/x.htm", "file:///C:/dir/x.htm", u"C:\\dir\\x.htm"},
        {u"file:///C|/dir/x.htm", "file:///C:/dir/x.htm", u"C:\\dir\\x.htm"},
        {u"  C:\\dir\\x.htm ", "file:///C:/dir/x.htm", u"C:\\dir\\x.htm"},
        {u"C:\\dir\\\\a//x.htm", "file:///C:/dir/a/x.htm", u"C:\\dir\\a\\x.htm"},
        {u"C:\\dir\\.\\..\\..\\x.htm", "file:///C:/x.htm", u"C:\\x.htm"},
        {u"C:\\", "file:///C:/", u"C:\\"},
        {u"C:\\a b\\\u00e4\u4e16.htm", "file:///C:/a%20b/%C3%A4%E4%B8%96.htm", u"C:\\a b\\\u00e4\u4e16.htm"},
        {u"C:\\100%25.htm", "file:///C:/100%2525.htm", u"C:\\100%25.htm"},
        {u"file:///C:/100%25%20.htm", "file:///C:/100%25%20.htm", u"C:\\100% .htm"},
        {u"C:\\x.htm?a=1&b=#2", "file:///C:/x.htm?a=1&b=#2", u"C:\\x.htm"},
        {u"C:\\x.htm#part", "file:///C:/x.htm#part", u"C:\\x.htm"},
        {u"C:\\c#\\x.htm", "file:///C:/c%23/x.htm", u"C:\\c#\\x.htm"},
        {u"file:///C:/c#/x.htm", "file:///C:/c#/x.htm", u"C:\\c"},
        {u"\\\\server\\share\\x.htm", "file://server/share/x.htm", u"\\\\server\\share\\x.htm"},
        {u"file://server/share/x.htm", "file://server/share/x.htm", u"\\\\server\\share\\x.htm"},
        {u"file://///server/share/x.htm", "file://server/share/x.htm", u"\\\\server\\share\\x.htm"},
        {u"file:\\\\server\\share\\..\\..\\x.htm", "file://server/x.htm", u"\\\\server\\x.htm"},
    };
    for (const Form& form : forms) {
        const PageUrl read = ReadHostAddress(form.address);
        EXPECT_EQ(Kind::file, read.kind) << ToUtf8(form.address);
        EXPECT_EQ(form.url, read.url) << ToUtf8(form.address);
        EXPECT_EQ(ToUtf8(form.path), ToUtf8(read.path));
    }
}

TEST(PageUrl, TellsOtherKindsApart) {
    EXPECT_EQ("about:blank", ReadHostAddress(u"").url);
    EXPECT_EQ(Kind::about, ReadHostAddress(u" ").kind);
    EXPECT_EQ(Kind::about, ReadHostAddress(u"about:blank").kind);
    EXPECT_EQ(Kind::script, ReadHostAddress(u"JavaScript:alert(1)").kind);
    for (const std::u16string_view address :
         {u"http://host/", u"x.htm", u"\\\\?\\C:\\x.htm", u"\\\\.\\pipe\\x", u"\\\\server", u"\\\\..\\x",
          u"\\\\C|\\x", u"C:x.htm", u"file:///etc/x", u"file:", u"chrome://version", u"\\x.htm"})
        EXPECT_EQ(Kind::other, ReadHostAddress(address).kind) << ToUtf8(address);
    EXPECT_EQ(Kind::other, ReadHostAddress(std::u16string_view(u"C:\\x\0y", 6)).kind);
    EXPECT_EQ(Kind::other, ReadHostAddress(u"file:///C:/x%00y").kind);
}

TEST(PageUrl, FindsTheFileOfARequest) {
    const std::pair<std::string_view, std::u16string_view> forms[] = {
        {"file:///C:/dir/x%20y.htm?q#p", u"C:\\dir\\x y.htm"},
        {"c:\\dir\\c.png", u"C:\\dir\\c.png"},
        {"z:/tmp/a b.png", u"Z:\\tmp\\a b.png"},
        {"file://srv/share/a.png", u"\\\\srv\\share\\a.png"},
        {"file:///c:/%C3%A4/../b.png", u"C:\\b.png"},
        {"file:///c:/%2e%2e/%5c..%5cb.png", u"C:\\b.png"},
        {"c:/100%.png", u"C:\\100%.png"},
    };
    for (const auto& [url, path] : forms) {
        const auto file = FileOfUrl(url);
        ASSERT_TRUE(file) << url;
        EXPECT_EQ(ToUtf8(path), ToUtf8(*file));
    }
    for (const char* url :
         {"http://host/x", "file:///etc/passwd", "file:///c:/a%00b", "", "data:text/html,x", "c:x"})
        EXPECT_FALSE(FileOfUrl(url)) << url;
}

TEST(PageUrl, ShowsAddressesAsThePlatformDoes) {
    EXPECT_EQ(u"file:///C:/a%20b/\u00e4.htm", ShownAddress("file:///c:/a%20b/%C3%A4.htm"));
    EXPECT_EQ(u"about:blank", ShownAddress("about:blank"));
}

}  // namespace
}  // namespace nux::webbrowser
