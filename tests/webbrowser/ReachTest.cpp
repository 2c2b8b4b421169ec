#include "webbrowser/Reach.h"

#include <gtest/gtest.h>

#include "webbrowser/ContentType.h"

namespace nux::webbrowser {
namespace {

TEST(Reach, IsNothingBeforeTheHostOpensADocument) {
    EXPECT_FALSE(Reach().MayRead(u"C:\\gui\\a.htm", "Document"));
    EXPECT_FALSE(Reach().MayRead(u"C:\\gui\\a.txt", "XHR"));
}

TEST(Reach, IsTheFolderOfTheHostsDocumentAndAllBelow) {
    Reach reach;
    reach.Open(u"C:\\gui\\a.htm");
    for (const char* use : {"Document", "XHR", "Fetch", "Other"}) {
        EXPECT_TRUE(reach.MayRead(u"C:\\gui\\b.xml", use));
        EXPECT_TRUE(reach.MayRead(u"c:\\GUI\\sub\\b.xml", use));
        EXPECT_FALSE(reach.MayRead(u"C:\\b.xml", use));
        EXPECT_FALSE(reach.MayRead(u"C:\\gui2\\b.xml", use));
        EXPECT_FALSE(reach.MayRead(u"D:\\gui\\b.xml", use));
    }
    reach.Open(u"D:\\other\\a.htm");
    EXPECT_TRUE(reach.MayRead(u"D:\\other\\b.xml", "XHR"));
    EXPECT_TRUE(reach.MayRead(u"C:\\gui\\b.xml", "XHR"));
}

TEST(Reach, HasPicturesStylesAndScriptsOfAnyFolder) {
    const Reach reach;
    EXPECT_TRUE(reach.MayRead(u"D:\\catalogs\\a.PNG", "Image"));
    EXPECT_TRUE(reach.MayRead(u"D:\\catalogs\\a.css", "Stylesheet"));
    EXPECT_TRUE(reach.MayRead(u"D:\\catalogs\\a.js", "Script"));
    EXPECT_FALSE(reach.MayRead(u"D:\\catalogs\\a.txt", "Image"));
    EXPECT_FALSE(reach.MayRead(u"D:\\catalogs\\a.htm", "Stylesheet"));
    EXPECT_FALSE(reach.MayRead(u"D:\\catalogs\\a.json", "Script"));
    EXPECT_FALSE(reach.MayRead(u"D:\\catalogs\\a.png", "XHR"));
}

TEST(Reach, HasNoShareButOneThatTheHostHasOpened) {
    Reach reach;
    EXPECT_FALSE(reach.MayRead(u"\\\\server\\share\\a.png", "Image"));
    reach.Open(u"\\\\server\\share\\a.htm");
    EXPECT_TRUE(reach.MayRead(u"\\\\server\\share\\a.png", "Image"));
    EXPECT_FALSE(reach.MayRead(u"\\\\server\\other\\a.png", "Image"));
}

TEST(Reach, HasNoDevicesAndStreams) {
    Reach reach;
    reach.Open(u"C:\\gui\\a.htm");
    for (const std::u16string_view path : {u"C:\\gui\\nul", u"C:\\gui\\CON.htm", u"C:\\gui\\com1.txt",
                                           u"C:\\gui\\aux .x", u"C:\\gui\\a.htm::$DATA", u"C:\\gui\\a.htm.",
                                           u"C:\\gui\\a.htm ", u"C:\\gui\\a\x01.htm", u"C:\\gui\\*.htm"})
        EXPECT_FALSE(reach.MayRead(path, "Document"));
    EXPECT_TRUE(reach.MayRead(u"C:\\gui\\null.htm", "Document"));
}

TEST(ContentType, GoesByTheExtension) {
    EXPECT_STREQ("text/html", ContentTypeOf(u"C:\\a.b\\x.HTM").name);
    EXPECT_STREQ("image/svg+xml", ContentTypeOf(u"x.svg").name);
    EXPECT_STREQ("application/octet-stream", ContentTypeOf(u"C:\\a.htm\\x").name);
    EXPECT_STREQ("application/octet-stream", ContentTypeOf(u"x.").name);
    EXPECT_EQ(FileUse::script, ContentTypeOf(u"x.js").use);
}

}  // namespace
}  // namespace nux::webbrowser
