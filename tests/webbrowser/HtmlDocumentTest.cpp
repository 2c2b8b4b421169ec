#include <gtest/gtest.h>

#include <docobj.h>

#include "framework/ErrorInfo.h"
#include "framework/Handles.h"
#include "framework/Module.h"
#include "tests/webbrowser/HtmlPage.h"

namespace nux::webbrowser {
namespace {

class HtmlDocumentTest : public testing::Test {
protected:
    HtmlPage page_;
};

TEST_F(HtmlDocumentTest, GivesItsParts) {
    page_.Show(
        "<html><head><title>old</title></head><body id=b><form></form><img><a href=x name=y>z</a></body>");
    const ComPtr<IHTMLDocument2> document = page_.Document();
    ASSERT_TRUE(document);
    ComPtr<IHTMLElement> body;
    ASSERT_EQ(S_OK, document->get_body(body.Receive()));
    EXPECT_EQ(L"b", TextOf(body, &IHTMLElement::get_id));
    ComPtr<IHTMLElementCollection> list;
    ASSERT_EQ(S_OK, document->get_all(list.Receive()));
    EXPECT_EQ(7, NumberOf(list, &IHTMLElementCollection::get_length));
    for (const auto get : {&IHTMLDocument2::get_images, &IHTMLDocument2::get_links,
                           &IHTMLDocument2::get_forms, &IHTMLDocument2::get_anchors}) {
        ASSERT_EQ(S_OK, (document.Get()->*get)(list.Receive()));
        EXPECT_EQ(1, NumberOf(list, &IHTMLElementCollection::get_length));
    }
    EXPECT_EQ(L"old", TextOf(document, &IHTMLDocument2::get_title));
    ASSERT_EQ(S_OK, document->put_title(Bstr(L"new").Get()));
    EXPECT_EQ(L"new", page_.Text(L"document.title"));
    EXPECT_EQ(L"complete", TextOf(document, &IHTMLDocument2::get_readyState));
    EXPECT_EQ(page_.page->Location(), TextOf(document, &IHTMLDocument2::get_URL));
    ComPtr<IHTMLLocation> location;
    ASSERT_EQ(S_OK, document->get_location(location.Receive()));
    EXPECT_EQ(page_.page->Location(), TextOf(location, &IHTMLLocation::get_href));
    EXPECT_EQ(L"file:", TextByName(location.Get(), L"protocol"));
}

TEST_F(HtmlDocumentTest, FindsAndMakesElements) {
    page_.Show("<body><p id=p name=n>text</p></body>");
    const ComPtr<IHTMLDocument2> document = page_.Document();
    const ComPtr<IHTMLDocument3> third = document.As<IHTMLDocument3>();
    ASSERT_TRUE(third);
    ComPtr<IHTMLElement> found;
    ASSERT_EQ(S_OK, third->getElementById(Bstr(L"p").Get(), found.Receive()));
    EXPECT_EQ(L"text", TextOf(found, &IHTMLElement::get_innerText));
    ASSERT_EQ(S_OK, third->getElementById(Bstr(L"none").Get(), found.Receive()));
    EXPECT_FALSE(found);
    ComPtr<IHTMLElementCollection> list;
    ASSERT_EQ(S_OK, third->getElementsByName(Bstr(L"n").Get(), list.Receive()));
    EXPECT_EQ(1, NumberOf(list, &IHTMLElementCollection::get_length));
    ASSERT_EQ(S_OK, document->createElement(Bstr(L"b").Get(), found.Receive()));
    EXPECT_EQ(L"B", TextOf(found, &IHTMLElement::get_tagName));
    ASSERT_EQ(S_OK, document->createElement(Bstr(L"<td id=made>").Get(), found.Receive()));
    EXPECT_EQ(L"TD", TextOf(found, &IHTMLElement::get_tagName));
    EXPECT_EQ(L"made", TextOf(found, &IHTMLElement::get_id));
    ASSERT_EQ(S_OK, document->elementFromPoint(-5, -5, found.Receive()));
    EXPECT_FALSE(found);
}

TEST_F(HtmlDocumentTest, IsWrittenTo) {
    page_.Show("<p>old");
    const ComPtr<IHTMLDocument2> document = page_.Document();
    SAFEARRAYBOUND bound{2, 0};
    const UniqueSafeArray texts(SafeArrayCreate(VT_VARIANT, 1, &bound));
    LONG index = 0;
    for (const wchar_t* const text : {L"<p id=p>ne", L"w</p>"}) {
        VARIANT element = TextValue(text).Detach();
        ASSERT_EQ(S_OK, SafeArrayPutElement(texts.Get(), &index, &element));
        VariantClear(&element);
        ++index;
    }
    ASSERT_EQ(S_OK, document->write(texts.Get()));
    ASSERT_EQ(S_OK, document->close());
    EXPECT_EQ(L"new", page_.Text(L"document.body.innerText.trim()"));
    EXPECT_EQ(E_INVALIDARG, document->writeln(nullptr));
}

TEST_F(HtmlDocumentTest, GivesItsScriptsByName) {
    page_.Show(
        "<script>var total = 5; function add(a, b) { total = a + b; return total; }"
        "function fail() { throw new Error('no') }</script>");
    ComPtr<IDispatch> script;
    ASSERT_EQ(S_OK, page_.Document()->get_Script(script.Receive()));
    EXPECT_EQ(L"5", TextByName(script.Get(), L"total"));
    Variant two;
    two.SetNumber(2);
    Variant three;
    three.SetNumber(3);
    Variant sum;
    ASSERT_EQ(S_OK, ByName(script.Get(), L"add", DISPATCH_METHOD, {std::move(two), std::move(three)}, &sum));
    ASSERT_EQ(VT_I4, sum.Type());
    EXPECT_EQ(5, sum.Number());
    EXPECT_TRUE(FAILED(ByName(script.Get(), L"fail", DISPATCH_METHOD, {})));
}

TEST_F(HtmlDocumentTest, LeadsToItsWindowAndBack) {
    page_.Show("<iframe name=inner></iframe>");
    const ComPtr<IHTMLDocument2> document = page_.Document();
    ComPtr<IHTMLWindow2> window;
    ASSERT_EQ(S_OK, document->get_parentWindow(window.Receive()));
    ComPtr<IHTMLDocument2> back;
    ASSERT_EQ(S_OK, window->get_document(back.Receive()));
    EXPECT_EQ(document.Get(), back.Get());
    EXPECT_EQ(1, NumberOf(window.As<IHTMLFramesCollection2>(), &IHTMLFramesCollection2::get_length));
    Variant index = TextValue(L"inner");
    VARIANT asked = index.Get();
    Variant frame;
    ASSERT_EQ(S_OK, window->item(&asked, frame.Receive()));
    ASSERT_EQ(VT_DISPATCH, frame.Type());
    const ComPtr<IHTMLWindow2> inner = Query<IHTMLWindow2>(frame.Object());
    ASSERT_TRUE(inner);
    ComPtr<IHTMLWindow2> parent;
    ASSERT_EQ(S_OK, inner->get_parent(parent.Receive()));
    EXPECT_EQ(window.Get(), parent.Get());
    ASSERT_EQ(S_OK, document.As<IServiceProvider>()->QueryService(IID_IHTMLWindow2, IID_IHTMLWindow2,
                                                                  parent.ReceiveVoid()));
    EXPECT_EQ(window.Get(), parent.Get());
    Variant value;
    ASSERT_EQ(S_OK, window->execScript(Bstr(L"var made = 6; made * 7").Get(), Bstr(L"JScript").Get(),
                                       value.Receive()));
    EXPECT_EQ(L"6", page_.Text(L"made"));
    EXPECT_EQ(E_NOTIMPL,
              window->execScript(Bstr(L"made = 8").Get(), Bstr(L"VBScript").Get(), value.Receive()));
    EXPECT_FALSE(TextByName(window.Get(), L"navigator") == L"failed");
}

TEST_F(HtmlDocumentTest, DoesTheCommandsOfContainers) {
    page_.Show("<p>text");
    const ComPtr<IOleCommandTarget> target = page_.Document().As<IOleCommandTarget>();
    ASSERT_TRUE(target);
    OLECMD commands[] = {{OLECMDID_SELECTALL, 0}, {OLECMDID_SPELL, 0}};
    ASSERT_EQ(S_OK, target->QueryStatus(nullptr, 2, commands, nullptr));
    EXPECT_EQ(OLECMDF_SUPPORTED | OLECMDF_ENABLED, commands[0].cmdf);
    EXPECT_EQ(0u, commands[1].cmdf);
    ASSERT_EQ(S_OK, target->Exec(nullptr, OLECMDID_SELECTALL, 0, nullptr, nullptr));
    EXPECT_EQ(L"text", page_.Text(L"getSelection().toString().trim()"));
    EXPECT_EQ(OLECMDERR_E_NOTSUPPORTED, target->Exec(nullptr, OLECMDID_SPELL, 0, nullptr, nullptr));
    EXPECT_EQ(OLECMDERR_E_UNKNOWNGROUP, target->Exec(&IID_IUnknown, OLECMDID_COPY, 0, nullptr, nullptr));
}

TEST_F(HtmlDocumentTest, TellsTheWordsOfAFailure) {
    page_.Show(
        "<script>Object.defineProperty(document, 'title', {get() { throw new Error('no title') }})</script>");
    const ComPtr<IHTMLDocument2> document = page_.Document();
    Bstr title;
    EXPECT_EQ(E_FAIL, document->get_title(title.Receive()));
    EXPECT_EQ(L"no title", TakeErrorDescription(document.Get(), IID_IHTMLDocument2));
}

TEST_F(HtmlDocumentTest, LetsGoOfEverything) {
    page_.Show("<p id=p>");
    const long before = LiveObjects();
    {
        const ComPtr<IHTMLDocument2> document = page_.Document();
        ComPtr<IHTMLElementCollection> all;
        ASSERT_EQ(S_OK, document->get_all(all.Receive()));
        EXPECT_LT(before, LiveObjects());
    }
    EXPECT_EQ(before, LiveObjects());
}

}  // namespace
}  // namespace nux::webbrowser
