#include "environment/MessageTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "environment/XMLAccess.h"
#include "framework/Text.h"
#include "tests/support/TempFolder.h"

namespace nux {
namespace {

constexpr int many = 100'000;

std::string Find(const MessageTable& table, const std::string& id) {
    const std::string* text = table.Find(id);
    return text ? *text : "none";
}

std::vector<int> Sorted() {
    std::vector<int> numbers(many);
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

std::vector<int> Shuffled() {
    std::vector<int> numbers = Sorted();
    std::shuffle(numbers.begin(), numbers.end(), std::mt19937(4711));
    return numbers;
}

/// An ID of fixed length, so that the order of the numbers is that of the texts.
std::string Id(int number) {
    const std::string digits = std::to_string(number);
    return "Message " + std::string(6 - digits.size(), '0') + digits;
}

std::string Text(int number) {
    return "Text " + std::to_string(number);
}

TEST(MessageTable, FindsNothingWhenItIsEmpty) {
    EXPECT_EQ(nullptr, MessageTable().Find("OK"));
    EXPECT_EQ(nullptr, MessageTable().Find(""));
}

TEST(MessageTable, KeepsTheFirstOfTwoEqualIds) {
    MessageTable table;
    table.Add("OK", "first");
    table.Add("OK", "second");
    EXPECT_EQ("first", Find(table, "OK"));
}

TEST(MessageTable, LetsAnEmptyFirstTextHideALaterOne) {
    MessageTable table;
    table.Add("OK", "");
    table.Add("OK", "second");
    EXPECT_EQ("none", Find(table, "OK"));
}

TEST(MessageTable, ComparesItsIdsByteByByte) {
    MessageTable table;
    table.Add("OK", "upper");
    table.Add("Ok", "mixed");
    EXPECT_EQ("upper", Find(table, "OK"));
    EXPECT_EQ("mixed", Find(table, "Ok"));
    for (const char* id : {"ok", "OK ", "O", " OK", "\xFCK"})
        EXPECT_EQ("none", Find(table, id)) << id;
}

TEST(MessageTable, SkipsAnEmptyId) {
    MessageTable table;
    table.Add("", "text");
    EXPECT_EQ("none", Find(table, ""));
}

TEST(MessageTable, GivesAPointerThatOutlastsLaterEntries) {
    MessageTable table;
    table.Add("OK", "text");
    const std::string* text = table.Find("OK");
    for (int number = 0; number < 10'000; ++number)
        table.Add(Id(number), Text(number));
    EXPECT_EQ(text, table.Find("OK"));
    EXPECT_EQ("text", *text);
}

TEST(MessageTable, HasWhatTheSelectionOfItsMessagesFinds) {
    struct File {
        const char* content;
        bool found;
    };
    const File files[] = {
        {"<Messages><MsgID>Pin</MsgID><T>Stift</T></Messages>", true},
        {"<!--c--><?p i?><Messages><!--c--><T/><MsgID a='b'>Pin</MsgID><T>Stift</T></Messages>", true},
        {"<Messages><MsgID>P<b>in</b></MsgID><T>Stift</T></Messages>", true},
        {"<Messages><MsgID><![CDATA[Pin]]></MsgID><T>Stift</T></Messages>", true},
        // A document with a type is checked against it while it loads.
        {"<!DOCTYPE Messages [<!ELEMENT Messages (MsgID, T)*><!ELEMENT MsgID (#PCDATA)><!ELEMENT T (#PCDATA)>"
         "<!ENTITY in 'in'>]><Messages><MsgID>P&in;</MsgID><T>Stift</T></Messages>",
         true},
        {"<messages><MsgID>Pin</MsgID><T>Stift</T></messages>", false},
        {"<Messages><msgid>Pin</msgid><T>Stift</T></Messages>", false},
        {"<Messages><MSGID>Pin</MSGID><T>Stift</T></Messages>", false},
        {"<MsgID>Pin</MsgID>", false},
        {"<Other><Messages><MsgID>Pin</MsgID><T>Stift</T></Messages></Other>", false},
        {"<Messages><Messages><MsgID>Pin</MsgID><T>Stift</T></Messages></Messages>", false},
        {"<Messages><!--<MsgID>Pin</MsgID>--><T>Stift</T></Messages>", false},
        {"<Messages><?MsgID Pin?><T>Stift</T></Messages>", false},
        {"<p:Messages xmlns:p='urn:x'><MsgID>Pin</MsgID><T>Stift</T></p:Messages>", false},
        {"<Messages xmlns:p='urn:x'><p:MsgID>Pin</p:MsgID><T>Stift</T></Messages>", false},
        {"<Messages xmlns='urn:x'><MsgID>Pin</MsgID><T>Stift</T></Messages>", true},
        {"<Messages><MsgID xmlns='urn:x'>Pin</MsgID><T>Stift</T></Messages>", true},
    };
    for (const File& file : files) {
        SCOPED_TRACE(file.content);
        const TempFolder folder;
        folder.Write("x_Msgs.xml", file.content);
        ComPtr<IXMLDOMDocument> document;
        ASSERT_TRUE(LoadXMLDocument(folder.Url("x_Msgs.xml"), document.Receive()));
        ClearXMLDocumentCache();
        ComPtr<IXMLDOMNodeList> selected;
        ASSERT_EQ(S_OK, document->selectNodes(Bstr(L"Messages/MsgID").Get(), selected.Receive()));
        long count = 0;
        selected->get_length(&count);
        EXPECT_EQ(file.found, count > 0) << "the selection";
        EXPECT_EQ(file.found ? "Stift" : "none", Find(MessageTable::Read(document.Get()), "Pin"));
    }
}

class ManyMessages : public testing::TestWithParam<std::vector<int>> {};

TEST_P(ManyMessages, AreEachFoundWithTheirOwnText) {
    MessageTable table;
    for (const int number : GetParam())
        table.Add(Id(number), Text(number));
    for (const int number : GetParam())
        ASSERT_EQ(Text(number), Find(table, Id(number)));
    EXPECT_EQ("none", Find(table, "Message 00000"));
    EXPECT_EQ("none", Find(table, "Message 100000x"));
}

TEST_P(ManyMessages, AreReadFromTheirFileWithTheFirstOfTwoEqualIdsKept) {
    std::string content = "<Messages>";
    for (const int number : GetParam())
        content += "<MsgID>" + Id(number) + "</MsgID><Text>" + Text(number) + "</Text>";
    content += "<MsgID>" + Id(7) + "</MsgID><Text>later</Text></Messages>";
    const TempFolder folder;
    folder.Write("x_Msgs.xml", content);
    ComPtr<IXMLDOMDocument> document;
    ASSERT_TRUE(LoadXMLDocument(folder.Url("x_Msgs.xml"), document.Receive()));
    ClearXMLDocumentCache();
    const MessageTable table = MessageTable::Read(document.Get());
    for (const int number : GetParam())
        ASSERT_EQ(Text(number), Find(table, Id(number)));
}

DWORD WINAPI Free(void* owned) {
    delete static_cast<MessageTable*>(owned);
    return 0;
}

TEST_P(ManyMessages, AreFreedOnASmallStack) {
    auto table = std::make_unique<MessageTable>();
    for (const int number : GetParam())
        table->Add(Id(number), Text(number));
    const HANDLE thread =
        CreateThread(nullptr, 64 * 1024, Free, table.release(), STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    ASSERT_NE(nullptr, thread);
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(thread, 60'000));
    CloseHandle(thread);
}

INSTANTIATE_TEST_SUITE_P(InOrder, ManyMessages, testing::Values(Sorted()),
                         [](const auto&) { return "sorted"; });
INSTANTIATE_TEST_SUITE_P(OutOfOrder, ManyMessages, testing::Values(Shuffled()),
                         [](const auto&) { return "shuffled"; });

}  // namespace
}  // namespace nux
