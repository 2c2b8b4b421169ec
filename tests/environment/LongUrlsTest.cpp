// URLs around the longest that is handed to the DOM. Wine 8.0's ends the process on a plain URL of 2,132
// characters.

#include <gtest/gtest.h>

#include <string>

#include "dimensions/DimensionDocument.h"
#include "environment/InstallationFiles.h"
#include "environment/XMLAccess.h"
#include "tests/support/TempFolder.h"

namespace nux {
namespace {

constexpr std::size_t longest = 2'083;

class LongUrls : public testing::Test {
protected:
    ~LongUrls() override { ClearXMLDocumentCache(); }

    static bool Loads(const std::string& url) {
        ComPtr<IXMLDOMDocument> document;
        const bool loaded = LoadXMLDocument(url, document.Receive());
        EXPECT_EQ(loaded, static_cast<bool>(document));
        return loaded;
    }
    /// The URL of the file, of this length: the way to it goes through the same folder again and again.
    std::string Padded(std::size_t length) const {
        std::string path = folder_.Path();
        const std::string name = "a.xml";
        while (fileScheme.size() + path.size() + name.size() + 2 <= length)
            path += ".\\";
        if (fileScheme.size() + path.size() + name.size() < length)
            path += "\\";
        return FileURL(path + name);
    }
    std::string Plain(std::size_t length) const {
        const std::string start = FileURL(folder_.Path());
        return start + std::string(length - start.size(), 'x');
    }

    const TempFolder folder_;
};

TEST_F(LongUrls, AreLoadedUpToTheLimitAndNotBeyond) {
    folder_.Write("a.xml", "<a/>");
    ASSERT_EQ(longest, Padded(longest).size());
    EXPECT_TRUE(Loads(Padded(longest)));
    EXPECT_FALSE(Loads(Padded(longest + 1)));
    EXPECT_FALSE(Loads(Padded(100'001)));
}

TEST_F(LongUrls, OfPlainNamesAreSurvived) {
    for (const std::size_t length :
         {std::size_t{300}, longest, longest + 1, std::size_t{2'201}, std::size_t{100'001}})
        EXPECT_FALSE(Loads(Plain(length))) << length;
}

TEST_F(LongUrls, OfHostsWhoseNamesGrowByEscapingAreSurvived) {
    for (const char character : std::string(" \"<>^`{|}")) {
        for (const std::size_t length : {300, 690, 800, 2'050})
            EXPECT_FALSE(Loads("file://us" + std::string(length, character) + "\\a.xml"))
                << character << length;
    }
}

TEST_F(LongUrls, OfADimensionFileThatIsMadeAreSurvived) {
    for (const std::size_t length : {300, 2'100, 2'201, 100'001}) {
        ComPtr<IXMLDOMDocument> document;
        EXPECT_FALSE(
            CreateDimensionDocument(folder_.Path(), std::string(length, 'x') + ".xml", document.Receive()))
            << length;
        EXPECT_FALSE(document);
    }
}

}  // namespace
}  // namespace nux
