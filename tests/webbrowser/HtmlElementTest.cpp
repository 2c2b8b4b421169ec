#include <gtest/gtest.h>

#include <mshtmdid.h>

#include "framework/DispatchClient.h"
#include "tests/webbrowser/HtmlPage.h"

namespace nux::webbrowser {
namespace {

class HtmlElementTest : public testing::Test {
protected:
    ComPtr<IHTMLElement> Element(const char* id) const {
        return page_.Object<IHTMLElement>("document.getElementById('" + std::string(id) + "')");
    }

    HtmlPage page_;
};

TEST_F(HtmlElementTest, ReadsAndWritesItsTextsAndItsContent) {
    page_.Show("<div id=d class=old title=t><b>bold</b> text</div>");
    const ComPtr<IHTMLElement> element = Element("d");
    ASSERT_TRUE(element);
    EXPECT_EQ(L"DIV", TextOf(element, &IHTMLElement::get_tagName));
    EXPECT_EQ(L"d", TextOf(element, &IHTMLElement::get_id));
    EXPECT_EQ(L"t", TextOf(element, &IHTMLElement::get_title));
    EXPECT_EQ(L"bold text", TextOf(element, &IHTMLElement::get_innerText));
    EXPECT_EQ(L"<b>bold</b> text", TextOf(element, &IHTMLElement::get_innerHTML));
    ASSERT_EQ(S_OK, element->put_className(Bstr(L"new").Get()));
    EXPECT_EQ(L"new", page_.Text(L"d.className"));
    ASSERT_EQ(S_OK, element->put_innerText(Bstr(L"<\x00e4\x4e2d>").Get()));
    EXPECT_EQ(L"&lt;\x00e4\x4e2d&gt;", TextOf(element, &IHTMLElement::get_innerHTML));
    ASSERT_EQ(S_OK, element->put_innerHTML(Bstr(L"<i id=inner>x</i>").Get()));
    ASSERT_EQ(S_OK, element->insertAdjacentHTML(Bstr(L"beforeEnd").Get(), Bstr(L"<u>y</u>").Get()));
    EXPECT_EQ(L"xy", page_.Text(L"d.innerText"));
    ASSERT_EQ(S_OK, element->put_innerHTML(nullptr));
    EXPECT_EQ(L"", TextOf(element, &IHTMLElement::get_innerHTML));
    EXPECT_EQ(E_POINTER, element->get_innerHTML(nullptr));
}

TEST_F(HtmlElementTest, ReadsWritesAndRemovesAttributesAlsoByTheNamesOfTheirProperties) {
    page_.Show("<input id=i type=checkbox class=c partid='A 1'>");
    const ComPtr<IHTMLElement> element = Element("i");
    Variant value;
    ASSERT_EQ(S_OK, element->getAttribute(Bstr(L"partid").Get(), 0, value.Receive()));
    ASSERT_TRUE(value.IsString());
    EXPECT_STREQ(L"A 1", value.Text());
    ASSERT_EQ(S_OK, element->getAttribute(Bstr(L"className").Get(), 0, value.Receive()));
    ASSERT_TRUE(value.IsString());
    EXPECT_STREQ(L"c", value.Text());
    ASSERT_EQ(S_OK, element->getAttribute(Bstr(L"missing").Get(), 0, value.Receive()));
    EXPECT_EQ(VT_NULL, value.Type());

    Variant number;
    number.SetNumber(7);
    ASSERT_EQ(S_OK, element->setAttribute(Bstr(L"partid").Get(), number.Get(), 1));
    EXPECT_EQ(L"7", page_.Text(L"i.getAttribute('partid')"));
    VARIANT no{};
    no.vt = VT_BOOL;
    ASSERT_EQ(S_OK, element->setAttribute(Bstr(L"disabled").Get(), no, 1));
    EXPECT_EQ(L"false", page_.Text(L"i.disabled"));
    VARIANT_BOOL removed = VARIANT_FALSE;
    ASSERT_EQ(S_OK, element->removeAttribute(Bstr(L"partid").Get(), 1, &removed));
    EXPECT_EQ(VARIANT_TRUE, removed);
    ASSERT_EQ(S_OK, element->removeAttribute(Bstr(L"partid").Get(), 1, &removed));
    EXPECT_EQ(VARIANT_FALSE, removed);
}

TEST_F(HtmlElementTest, TellsItsMeasures) {
    page_.Show(
        "<!DOCTYPE html><body style='margin:0'><div style='height:20px'></div>"
        "<div id=d style='width:100px;height:40px;overflow:auto'><p style='height:500px'></div>");
    const ComPtr<IHTMLElement> element = Element("d");
    const ComPtr<IHTMLElement2> second = element.As<IHTMLElement2>();
    ASSERT_TRUE(second);
    EXPECT_EQ(20, NumberOf(element, &IHTMLElement::get_offsetTop));
    EXPECT_EQ(100, NumberOf(element, &IHTMLElement::get_offsetWidth));
    EXPECT_EQ(40, NumberOf(second, &IHTMLElement2::get_clientHeight));
    EXPECT_LE(500, NumberOf(second, &IHTMLElement2::get_scrollHeight));
    ASSERT_EQ(S_OK, second->put_scrollTop(50));
    EXPECT_EQ(50, NumberOf(second, &IHTMLElement2::get_scrollTop));
    ComPtr<IHTMLRect> place;
    ASSERT_EQ(S_OK, second->getBoundingClientRect(place.Receive()));
    EXPECT_EQ(60, NumberOf(place, &IHTMLRect::get_bottom));
}

TEST_F(HtmlElementTest, IsOneObjectHoweverItIsReached) {
    page_.Show("<div id=d><p id=p></p></div>");
    const ComPtr<IHTMLElement> child = Element("p");
    ComPtr<IHTMLElement> parent;
    ASSERT_EQ(S_OK, child->get_parentElement(parent.Receive()));
    EXPECT_EQ(Element("d").As<IUnknown>().Get(), parent.As<IUnknown>().Get());
    VARIANT_BOOL contains = VARIANT_FALSE;
    ASSERT_EQ(S_OK, parent->contains(child.Get(), &contains));
    EXPECT_EQ(VARIANT_TRUE, contains);
    ASSERT_EQ(S_OK, child->contains(parent.Get(), &contains));
    EXPECT_EQ(VARIANT_FALSE, contains);
    ComPtr<IHTMLElement> top = page_.Object<IHTMLElement>("document.documentElement");
    ComPtr<IHTMLElement> none;
    ASSERT_EQ(S_OK, top->get_parentElement(none.Receive()));
    EXPECT_FALSE(none);
}

TEST_F(HtmlElementTest, HasTheInterfaceOfItsKind) {
    page_.Show(
        "<body bgcolor=red><img id=i alt=picture width=30><input id=n type=checkbox name=box "
        "value=5></body>");
    const ComPtr<IHTMLImgElement> image = Element("i").As<IHTMLImgElement>();
    const ComPtr<IHTMLInputElement> input = Element("n").As<IHTMLInputElement>();
    const ComPtr<IHTMLBodyElement> body = page_.Object<IHTMLBodyElement>("document.body");
    ASSERT_TRUE(image);
    ASSERT_TRUE(input);
    ASSERT_TRUE(body);
    EXPECT_FALSE(image.As<IHTMLInputElement>());
    EXPECT_EQ(30, NumberOf(image, &IHTMLImgElement::get_width));
    EXPECT_EQ(L"picture", TextOf(image, &IHTMLImgElement::get_alt));
    ASSERT_EQ(S_OK, input->put_checked(VARIANT_TRUE));
    EXPECT_EQ(L"true", page_.Text(L"n.checked"));
    ASSERT_EQ(S_OK, input->put_value(Bstr(L"6").Get()));
    EXPECT_EQ(L"6", page_.Text(L"n.value"));
    EXPECT_EQ(0x7fffffff, NumberOf(input, &IHTMLInputElement::get_maxLength));
    Variant colour;
    ASSERT_EQ(S_OK, body->get_bgColor(colour.Receive()));
    ASSERT_TRUE(colour.IsString());
    EXPECT_STREQ(L"red", colour.Text());
    ASSERT_EQ(S_OK, body->put_scroll(Bstr(L"no").Get()));
    EXPECT_EQ(L"hidden", page_.Text(L"document.body.style.overflow"));
    EXPECT_EQ(L"no", TextOf(body, &IHTMLBodyElement::get_scroll));
}

TEST_F(HtmlElementTest, RefusesWhatItDoesNotOfferByATellingCode) {
    page_.Show("<p id=p>");
    const ComPtr<IHTMLElement> element = Element("p");
    IHTMLFiltersCollection* filters = reinterpret_cast<IHTMLFiltersCollection*>(1);
    EXPECT_EQ(E_NOTIMPL, element->get_filters(&filters));
    EXPECT_EQ(nullptr, filters);
    EXPECT_EQ(E_NOTIMPL, element->put_language(nullptr));
    EXPECT_FALSE(element.As<IPersistFile>());
}

TEST_F(HtmlElementTest, FindsItsMembersByNameAndByTheirDocumentedNumbers) {
    page_.Show("<p id=p onclick='' title=x>text</p><script>p.own = 'page'; p.sum = (a, b) => a + b</script>");
    const ComPtr<IHTMLElement> element = Element("p");
    DISPID id = 0;
    LPOLESTR name = const_cast<LPOLESTR>(L"innerHTML");
    ASSERT_EQ(S_OK, element->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_SYSTEM_DEFAULT, &id));
    EXPECT_EQ(DISPID_IHTMLELEMENT_INNERHTML, id);
    EXPECT_EQ(L"text", TextByName(element.Get(), L"innerHTML"));
    EXPECT_EQ(L"x", TextByName(element.Get(), L"title"));
    EXPECT_EQ(S_OK, ByName(element.Get(), L"title", DISPATCH_PROPERTYPUT, {TextValue(L"y")}));
    EXPECT_EQ(L"y", page_.Text(L"p.title"));
    // What only the page has: properties, methods with results, later standards' members.
    EXPECT_EQ(L"page", TextByName(element.Get(), L"own"));
    Variant sum;
    ASSERT_EQ(S_OK, ByName(element.Get(), L"sum", DISPATCH_METHOD, {TextValue(L"a"), TextValue(L"b")}, &sum));
    ASSERT_TRUE(sum.IsString());
    EXPECT_STREQ(L"ab", sum.Text());
    EXPECT_EQ(L"0", TextByName(element.Get(), L"childElementCount"));
    EXPECT_EQ(DISP_E_UNKNOWNNAME, ByName(element.Get(), L"nothing", DISPATCH_PROPERTYGET, {}));
}

TEST_F(HtmlElementTest, AnswersByNameFromThePageWhatItsInterfaceRefuses) {
    page_.Show("<form id=f><input id=n></form>");
    const ComPtr<IHTMLInputElement> input = Element("n").As<IHTMLInputElement>();
    IHTMLFormElement* none = nullptr;
    EXPECT_EQ(E_NOTIMPL, input->get_form(&none));
    Variant form;
    ASSERT_EQ(S_OK, ByName(input.Get(), L"form", DISPATCH_PROPERTYGET, {}, &form));
    ASSERT_EQ(VT_DISPATCH, form.Type());
    EXPECT_EQ(L"f", TextByName(form.Object(), L"id"));
}

TEST_F(HtmlElementTest, KeepsACaseSensitiveClientsNamesApart) {
    page_.Show("<p id=p title=x><script>p.Title = 'own'</script>");
    const ComPtr<IDispatchEx> element = Element("p").As<IDispatchEx>();
    DISPID exact = 0;
    DISPID other = 0;
    ASSERT_EQ(S_OK, element->GetDispID(Bstr(L"title").Get(), fdexNameCaseSensitive, &exact));
    ASSERT_EQ(S_OK, element->GetDispID(Bstr(L"Title").Get(), fdexNameCaseSensitive, &other));
    EXPECT_NE(exact, other);
    ASSERT_EQ(S_OK, element->GetDispID(Bstr(L"Title").Get(), fdexNameCaseInsensitive, &other));
    EXPECT_EQ(exact, other);
    Bstr name;
    ASSERT_EQ(S_OK, element->GetMemberName(exact, name.Receive()));
    EXPECT_EQ(L"title", name.View());
}

TEST_F(HtmlElementTest, FailsToldWhenItsDocumentIsNoLongerShown) {
    page_.Show("<p id=p>text");
    const ComPtr<IHTMLElement> element = Element("p");
    ComPtr<IHTMLStyle> style;
    ComPtr<IDispatch> all;
    ASSERT_EQ(S_OK, element->get_style(style.Receive()));
    ASSERT_EQ(S_OK, element->get_all(all.Receive()));
    const ComPtr<IHTMLElementCollection> collection = all.As<IHTMLElementCollection>();
    page_.Show("<p id=p>other", "other.htm");
    Bstr text;
    LONG length = 0;
    EXPECT_EQ(RPC_E_DISCONNECTED, element->get_innerText(text.Receive()));
    EXPECT_EQ(RPC_E_DISCONNECTED, element->put_innerText(Bstr(L"x").Get()));
    EXPECT_EQ(RPC_E_DISCONNECTED, style->put_display(Bstr(L"none").Get()));
    EXPECT_EQ(RPC_E_DISCONNECTED, collection->get_length(&length));
    Variant handler;
    EXPECT_EQ(RPC_E_DISCONNECTED, element->get_onclick(handler.Receive()));
    EXPECT_EQ(L"other", page_.Text(L"p.innerText"));
    page_.page->Close();
    EXPECT_EQ(RPC_E_DISCONNECTED, element->click());
}

TEST_F(HtmlElementTest, GivesCollectionsByPlaceByNameAndByTag) {
    page_.Show("<div id=d><p id=a>1</p><b name=twice>2</b><b name=twice>3</b></div>");
    ComPtr<IDispatch> all;
    ASSERT_EQ(S_OK, Element("d")->get_all(all.Receive()));
    const ComPtr<IHTMLElementCollection> elements = all.As<IHTMLElementCollection>();
    ASSERT_TRUE(elements);
    EXPECT_EQ(3, NumberOf(elements, &IHTMLElementCollection::get_length));
    const auto item = [&](const Variant& name, const Variant& index) {
        ComPtr<IDispatch> found;
        EXPECT_EQ(S_OK, elements->item(name.Get(), index.Get(), found.Receive()));
        return found;
    };
    Variant one;
    one.SetNumber(1);
    EXPECT_EQ(L"2", TextByName(item(one, Variant()).Get(), L"innerText"));
    EXPECT_EQ(L"1", TextByName(item(TextValue(L"a"), Variant()).Get(), L"innerText"));
    EXPECT_EQ(L"2", TextByName(item(TextValue(L"twice"), Variant()).Get(), L"length"));
    EXPECT_EQ(L"3", TextByName(item(TextValue(L"twice"), one).Get(), L"innerText"));
    EXPECT_FALSE(item(TextValue(L"none"), Variant()));
    ComPtr<IDispatch> tagged;
    ASSERT_EQ(S_OK, elements->tags(TextValue(L"b").Get(), tagged.Receive()));
    const ComPtr<IHTMLElementCollection> bold = tagged.As<IHTMLElementCollection>();
    ASSERT_TRUE(bold);
    EXPECT_EQ(2, NumberOf(bold, &IHTMLElementCollection::get_length));
}

TEST_F(HtmlElementTest, CollectionsAreAskedByScriptsWithArguments) {
    page_.Show("<p id=p>1</p><p>2</p>");
    // As in document.all("p") and in all(4).
    const ComPtr<IHTMLDocument2> document = page_.Document();
    Variant found;
    ASSERT_EQ(S_OK, ByName(document.Get(), L"all", DISPATCH_METHOD | DISPATCH_PROPERTYGET, {TextValue(L"p")},
                           &found));
    ASSERT_EQ(VT_DISPATCH, found.Type());
    EXPECT_EQ(L"1", TextByName(found.Object(), L"innerText"));
    Variant all;
    ASSERT_EQ(S_OK, ByName(document.Get(), L"all", DISPATCH_PROPERTYGET, {}, &all));
    Variant place;
    place.SetNumber(4);
    ASSERT_EQ(S_OK, CallMethod(all.Object(), DISPID_VALUE, {&place, 1}, &found));
    ASSERT_EQ(VT_DISPATCH, found.Type());
    EXPECT_EQ(L"2", TextByName(found.Object(), L"innerText"));
}

TEST_F(HtmlElementTest, EnumeratesACollection) {
    page_.Show("<p>1</p><p>2</p><p>3</p>");
    const ComPtr<IHTMLElementCollection> elements =
        page_.Object<IHTMLElementCollection>("document.getElementsByTagName('p')");
    ASSERT_TRUE(elements);
    ComPtr<IUnknown> enumeration;
    ASSERT_EQ(S_OK, elements->get__newEnum(enumeration.Receive()));
    const ComPtr<IEnumVARIANT> each = enumeration.As<IEnumVARIANT>();
    ASSERT_TRUE(each);
    std::wstring texts;
    Variant element;
    while (each->Next(1, element.Receive(), nullptr) == S_OK)
        texts += TextByName(element.Object(), L"innerText");
    EXPECT_EQ(L"123", texts);
}

}  // namespace
}  // namespace nux::webbrowser
