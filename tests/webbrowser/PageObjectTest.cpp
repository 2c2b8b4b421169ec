#include "webbrowser/PageObject.h"

#include <gtest/gtest.h>

#include "framework/ComObject.h"
#include "framework/DispatchClient.h"
#include "framework/HResult.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "tests/webbrowser/OpenedPage.h"
#include "webbrowser/Browser.h"

namespace nux::webbrowser {
namespace {

class PageObjectTest : public testing::Test {
protected:
    PageObjectTest() { page.Show("<p id=p class=c>text</p><p>more</p>"); }

    ComPtr<IDispatch> Of(const wchar_t* expression) { return page->Execute(expression).Object(); }
    HRESULT Put(IDispatch* object, const wchar_t* name, const Variant& value) {
        const ComPtr<IDispatchEx> ex = Query<IDispatchEx>(object);
        DISPID id = DISPID_UNKNOWN;
        Bstr text{std::wstring_view(name)};
        if (const HRESULT result = ex->GetDispID(text.Get(), fdexNameEnsure, &id); FAILED(result))
            return result;
        DISPID named = DISPID_PROPERTYPUT;
        VARIANT argument = value.Get();
        DISPPARAMS parameters{&argument, &named, 1, 1};
        return ex->InvokeEx(id, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr, nullptr);
    }
    OpenedPage page;
};

TEST_F(PageObjectTest, ReadsWritesAndCallsByName) {
    const ComPtr<IDispatch> element = Of(L"p");
    Variant value;
    EXPECT_EQ(S_OK, GetDispatchProperty(element.Get(), L"innerText", &value));
    EXPECT_EQ(L"text", std::wstring(value.Text()));
    EXPECT_EQ(S_OK, Put(element.Get(), L"innerText", Words(L"new")));
    EXPECT_EQ(L"new", page.Text(L"p.innerText"));
    EXPECT_EQ(S_OK, Put(element.Get(), L"ours", Number(7)));
    EXPECT_EQ(L"7", page.Text(L"p.ours"));
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(S_OK, FindMember(element.Get(), L"getAttribute", &id));
    const Variant name = Words(L"class");
    EXPECT_EQ(S_OK, CallMethod(element.Get(), id, {&name, 1}, &value));
    EXPECT_EQ(L"c", std::wstring(value.Text()));
    EXPECT_EQ(DISP_E_UNKNOWNNAME, FindMember(element.Get(), L"InnerText", &id));
}

TEST_F(PageObjectTest, IsTheSameForTheSameObject) {
    const ComPtr<IDispatch> element = Of(L"p");
    EXPECT_EQ(element.Get(), Of(L"document.getElementById('p')").Get());
    EXPECT_NE(element.Get(), Of(L"document.body").Get());
}

TEST_F(PageObjectTest, TellsWhatItIs) {
    const auto kind = [&](const wchar_t* expression) {
        return Query<IPageObject>(Of(expression).Get())->Reference().Kind();
    };
    EXPECT_EQ(PageObjectKind::element, kind(L"p"));
    EXPECT_EQ(PageObjectKind::document, kind(L"document"));
    EXPECT_EQ(PageObjectKind::window, kind(L"window"));
    EXPECT_EQ(PageObjectKind::list, kind(L"document.getElementsByTagName('p')"));
    EXPECT_EQ(PageObjectKind::list, kind(L"document.all"));
    EXPECT_EQ(PageObjectKind::style, kind(L"p.style"));
    EXPECT_EQ(PageObjectKind::array, kind(L"[1]"));
    EXPECT_EQ(PageObjectKind::function, kind(L"(() => 1)"));
    EXPECT_EQ(PageObjectKind::object, kind(L"({})"));
    EXPECT_EQ(PageObjectKind::node, kind(L"p.firstChild"));
    EXPECT_EQ(PageObjectKind::event, kind(L"new MouseEvent('click')"));
}

TEST_F(PageObjectTest, EnumeratesAList) {
    const ComPtr<IDispatch> list = Of(L"document.getElementsByTagName('p')");
    Variant enumeration;
    DISPPARAMS none{};
    ASSERT_EQ(S_OK, list->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_PROPERTYGET, &none,
                                 enumeration.Receive(), nullptr, nullptr));
    const ComPtr<IEnumVARIANT> elements = Query<IEnumVARIANT>(enumeration.Get().punkVal);
    Variant first;
    Variant second;
    Variant third;
    EXPECT_EQ(S_OK, elements->Next(1, first.Receive(), nullptr));
    EXPECT_EQ(S_OK, elements->Next(1, second.Receive(), nullptr));
    EXPECT_EQ(S_FALSE, elements->Next(1, third.Receive(), nullptr));
    EXPECT_EQ(first.Object(), Of(L"p").Get());
}

TEST_F(PageObjectTest, EnumeratesItsOwnMembers) {
    const ComPtr<IDispatchEx> object = Query<IDispatchEx>(Of(L"({one: 1, two: 2})").Get());
    std::wstring names;
    DISPID id = DISPID_STARTENUM;
    while (object->GetNextDispID(fdexEnumAll, id, &id) == S_OK) {
        Bstr name;
        EXPECT_EQ(S_OK, object->GetMemberName(id, name.Receive()));
        names += std::wstring(name.View()) + L" ";
    }
    EXPECT_EQ(L"one two ", names);
}

TEST_F(PageObjectTest, FailsOnceItsDocumentIsGone) {
    const ComPtr<IDispatch> element = Of(L"p");
    const PageReference reference = Query<IPageObject>(element.Get())->Reference();
    EXPECT_TRUE(reference.IsAlive());
    page.Show("<p id=p>other");
    EXPECT_FALSE(reference.IsAlive());
    Variant value;
    EXPECT_EQ(RPC_E_DISCONNECTED, GetDispatchProperty(element.Get(), L"innerText", &value));
    EXPECT_EQ(L"other", page.Text(L"p.innerText"));
    const ComPtr<IDispatch> second = Of(L"p");
    EXPECT_EQ(RPC_E_DISCONNECTED, GetDispatchProperty(element.Get(), L"innerText", &value));
    EXPECT_EQ(S_OK, GetDispatchProperty(second.Get(), L"innerText", &value));
}

TEST_F(PageObjectTest, LetsThePageForgetWhatIsReleased) {
    page->Execute(L"var watched = new WeakRef({}); 1");
    for (int i = 0; i < 50; ++i)
        page->Execute(L"watched.deref()");
    EXPECT_TRUE(page.Await([&] {
        page.CollectGarbage();
        return page.Text(L"watched.deref() === undefined") == L"true";
    }));
}

TEST_F(PageObjectTest, TellsWhatThePageThrows) {
    const ComPtr<IDispatch> object =
        Of(L"({fail() { throw Object.assign(new Error('broken'), {number: -2147220189}) }})");
    DISPID id = DISPID_UNKNOWN;
    ASSERT_EQ(S_OK, FindMember(object.Get(), L"fail", &id));
    EXCEPINFO exception{};
    DISPPARAMS none{};
    EXPECT_EQ(DISP_E_EXCEPTION,
              object->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, &exception, nullptr));
    EXPECT_EQ(-2147220189, exception.scode);
    EXPECT_EQ(L"broken", std::wstring(exception.bstrDescription));
    SysFreeString(exception.bstrDescription);
}

TEST_F(PageObjectTest, GoesAsItselfToItsPageAndAsAnObjectToAnother) {
    const ComPtr<IDispatch> element = Of(L"p");
    const Variant argument = Object(element);
    EXPECT_TRUE(page->Call("element => element === p", {&argument, 1}).Get().boolVal);
    OpenedPage other;
    other.Show("<p>");
    EXPECT_EQ(L"text", std::wstring(other->Call("element => element.innerText", {&argument, 1}).Text()));
}

TEST_F(PageObjectTest, FailsWhenTheRendererEndsAndThePageCanBeShownAgain) {
    const ComPtr<IDispatch> element = Of(L"p");
    const std::shared_ptr<Browser> browser = Browser::Running();
    const std::shared_ptr<Inbox> inbox = Inbox::OfThisThread();
    const Json targets = browser->Wait({}, "Target.getTargets", Json::object(), inbox);
    for (const Json& target : targets["targetInfos"]) {
        if (TextMember(target, "type") != "page")
            continue;
        const Json session =
            browser->Wait({}, "Target.attachToTarget",
                          {{"targetId", TextMember(target, "targetId")}, {"flatten", true}}, inbox);
        browser->Send(TextMember(session, "sessionId"), "Page.crash", Json::object());
    }
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"renderer ended"); }));
    Variant value;
    EXPECT_EQ(RPC_E_DISCONNECTED, GetDispatchProperty(element.Get(), L"innerText", &value));
    EXPECT_THROW(page->Call("() => 1"), HResultError);
    page.Show("<p id=p>again");
    EXPECT_EQ(L"again", page.Text(L"p.innerText"));
}

TEST_F(PageObjectTest, FailsWhenTheBrowserEndsAndAnotherIsStarted) {
    Browser::Running()->Send({}, "Browser.crash", Json::object());
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"browser ended"); }));
    EXPECT_FALSE(page->IsOpen());
    EXPECT_THROW(page->Call("() => 1"), HResultError);
    OpenedPage other;
    other.Show("<p id=p>again");
    EXPECT_EQ(L"again", other.Text(L"p.innerText"));
}

TEST_F(PageObjectTest, ACallThatWaitsFailsWhenTheBrowserEnds) {
    const auto external = MakeObject<ExternalDouble>();
    page.external = external;
    external->methods[L"End"] = [&](const ExternalDouble::Arguments&) {
        Browser::Running()->Send({}, "Browser.crash", Json::object());
        return page->Call("() => 1");
    };
    EXPECT_THROW(page->Execute(L"external.End()"), HResultError);
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"browser ended"); }));
}

}  // namespace
}  // namespace nux::webbrowser
