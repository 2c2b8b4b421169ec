#include "webbrowser/ScriptValue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

#include "webbrowser/ChannelMessage.h"
#include "webbrowser/Utf.h"

namespace nux::webbrowser {
namespace {

template <class Content>
Content Carried(const Content& content) {
    const ScriptValue value = DecodeScriptValue(EncodeScriptValue({content}));
    return std::get<Content>(value.content);
}

TEST(ScriptValue, CarriesNumbersExactly) {
    for (const double number : {0.0, 1.0, -1.5, 0.1, 1e308, 5e-324, 9007199254740993.0, -2147483648.0})
        EXPECT_EQ(number, Carried(number));
    EXPECT_TRUE(std::signbit(Carried(-0.0)));
    EXPECT_TRUE(std::isnan(Carried(std::nan(""))));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), Carried(std::numeric_limits<double>::infinity()));
    EXPECT_EQ(-std::numeric_limits<double>::infinity(), Carried(-std::numeric_limits<double>::infinity()));
}

TEST(ScriptValue, CarriesTextsExactly) {
    for (const std::u16string& text :
         {std::u16string(), std::u16string(u"\u00e4\u4e16\U0001f600"), std::u16string(u"a\0b\"\\\n", 6),
          std::u16string(1, char16_t{0xd83d}), std::u16string{u'a', char16_t{0xde00}, char16_t{0xd83d}}})
        EXPECT_EQ(ToUtf8(text), ToUtf8(Carried(text)));
    EXPECT_EQ(std::u16string(1, char16_t{0xd83d}), Carried(std::u16string(1, char16_t{0xd83d})));
}

TEST(ScriptValue, CarriesAllElse) {
    EXPECT_TRUE(Carried(true));
    EXPECT_EQ(ScriptUndefined(), Carried(ScriptUndefined()));
    EXPECT_EQ(ScriptNull(), Carried(ScriptNull()));
    EXPECT_EQ(1.5, Carried(ScriptDate{1.5}).milliseconds);
    EXPECT_TRUE(std::isnan(Carried(ScriptDate{std::nan("")}).milliseconds));
    const PageObjectId page{"k2", 3, PageObjectKind::element, "HTMLDivElement"};
    EXPECT_EQ(page, Carried(page));
    const ComObjectId com{7, 2, true};
    EXPECT_EQ(com, Carried(com));
    const ScriptError error{-2147467259, u"broken"};
    EXPECT_EQ(error, Carried(error));
    const ScriptArray array = Carried(ScriptArray{{1.0}, {ScriptArray{{true}}}});
    ASSERT_EQ(2U, array.size());
    EXPECT_EQ(1U, std::get<ScriptArray>(array[1].content).size());
}

TEST(ScriptValue, ReadsAnErrorsNumberOfEitherSign) {
    EXPECT_EQ(-2147467259,
              std::get<ScriptError>(DecodeScriptValue(R"({"e":2147500037,"m":""})").content).number);
}

TEST(ScriptValue, RefusesWhatIsNone) {
    for (const char* text :
         {"", "{", "{}", "[1", "{\"n\":\"x\"}", "{\"p\":1}",
          "{\"p\":1.5,\"g\":\"\",\"k\":\"object\",\"c\":\"\"}", "{\"p\":1,\"g\":\"\",\"k\":\"x\",\"c\":\"\"}",
          "{\"x\":\"1\"}", "{\"e\":1e300,\"m\":\"\"}", "{\"w\":[65536]}", "{\"w\":[-1]}", "{\"d\":\"\"}",
          "\"\xff\"", "{\"x\":1,\"f\":1}"})
        EXPECT_THROW(DecodeScriptValue(text), std::invalid_argument) << text;
    EXPECT_THROW(DecodeScriptValue(std::string(1000000, '[')), std::invalid_argument);
    EXPECT_NO_THROW(DecodeScriptValue(std::string(64, '[') + std::string(64, ']')));
    EXPECT_THROW(DecodeScriptValue(std::string(66, '[') + std::string(66, ']')), std::invalid_argument);
}

TEST(ChannelMessage, IsAnAnswerOrAnEvent) {
    const auto event = ReadChannelMessage(R"({"method":"a","params":{"x":"y"},"sessionId":"s"})");
    ASSERT_TRUE(event);
    EXPECT_EQ("a", event->method);
    EXPECT_EQ("s", event->session);
    EXPECT_EQ("y", TextMember(event->content, "x"));
    const auto answer = ReadChannelMessage(R"({"id":3,"result":{"n":4,"t":true}})");
    ASSERT_TRUE(answer);
    EXPECT_EQ(3, answer->id);
    EXPECT_FALSE(answer->failed);
    EXPECT_EQ(4, NumberMember(answer->content, "n"));
    EXPECT_TRUE(TruthMember(answer->content, "t"));
    const auto failure = ReadChannelMessage(R"({"id":3,"error":{"message":"no"}})");
    ASSERT_TRUE(failure);
    EXPECT_TRUE(failure->failed);
    EXPECT_EQ("no", TextMember(failure->content, "message"));
}

TEST(ChannelMessage, IsNeverWhatCantBeOne) {
    for (const char* text : {"", "1", "[]", "{}", "{\"id\":0}", "{\"id\":1,\"method\":\"x\"}",
                             "{\"id\":\"1\"}", "nul", "{\"method\":1}"})
        EXPECT_FALSE(ReadChannelMessage(text)) << text;
    EXPECT_FALSE(ReadChannelMessage("{\"method\":\"x\",\"params\":" + std::string(100000, '[')));
    const auto odd = ReadChannelMessage(R"({"method":"x","params":[1],"sessionId":5})");
    ASSERT_TRUE(odd);
    EXPECT_TRUE(odd->content.empty());
    EXPECT_EQ(0, NumberMember(Json{{"n", 1e300}}, "n"));
    EXPECT_EQ(0, NumberMember(Json{{"n", "1"}}, "n"));
}

}  // namespace
}  // namespace nux::webbrowser
