#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "framework/ComObject.h"
#include "framework/HResult.h"
#include "framework/Text.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "tests/webbrowser/OpenedPage.h"
#include "webbrowser/DispatchMembers.h"
#include "webbrowser/Utf.h"

namespace nux::webbrowser {
namespace {

/// A page with an external object, and a function that tells how a script sees what it throws.
class ExternalTest : public testing::Test {
protected:
    ExternalTest() {
        page.external = external;
        external->methods[L"Echo"] = [](const Arguments& arguments) { return CopyOf(arguments.at(0)); };
        external->methods[L"TypeOf"] = [](const Arguments& arguments) {
            return Number(arguments.at(0).Type());
        };
        page.Show(
            "<p id=p>text</p><script>function caught(f) { try { return f(); } catch (e) "
            "{ return e.number + ': ' + e.description; } }</script>");
    }
    using Arguments = ExternalDouble::Arguments;

    ComPtr<ComObject<ExternalDouble>> external = MakeObject<ExternalDouble>();
    OpenedPage page;
};

TEST_F(ExternalTest, IsThereBeforeTheFirstScriptOfThePage) {
    page.Show("<script>var there = external.Echo('x') + (window.external === external)</script>");
    EXPECT_EQ(L"xtrue", page.Text(L"there"));
}

TEST_F(ExternalTest, GivesBackEachValueThatItGets) {
    for (const wchar_t* value :
         {L"1", L"-2147483648", L"4294967296", L"0.1", L"NaN", L"-0", L"Infinity", L"1e308", L"''",
          L"'a\\0b'", L"'\\ud83d'", L"'\\ud83d\\ude00\\u00e4'", L"true", L"false", L"null", L"undefined"})
        EXPECT_EQ(L"true",
                  page.Text(std::wstring(L"Object.is(external.Echo(") + value + L"), " + value + L")"))
            << ToUtf8(value);
    EXPECT_EQ(L"1700000000123", page.Text(L"external.Echo(new Date(1700000000123)).getTime()"));
    EXPECT_EQ(L"true", page.Text(L"external.Echo(p) === p && external.Echo(caught) === caught"));
    EXPECT_EQ(L"true", page.Text(L"external.Echo(external) instanceof Object"));
}

TEST_F(ExternalTest, GetsValuesInAutomationsTypes) {
    EXPECT_EQ(std::to_wstring(VT_I4), page.Text(L"external.TypeOf(1)"));
    EXPECT_EQ(std::to_wstring(VT_R8), page.Text(L"external.TypeOf(1.5)"));
    EXPECT_EQ(std::to_wstring(VT_R8), page.Text(L"external.TypeOf(4294967296)"));
    EXPECT_EQ(std::to_wstring(VT_BSTR), page.Text(L"external.TypeOf('')"));
    EXPECT_EQ(std::to_wstring(VT_BOOL), page.Text(L"external.TypeOf(true)"));
    EXPECT_EQ(std::to_wstring(VT_EMPTY), page.Text(L"external.TypeOf(undefined)"));
    EXPECT_EQ(std::to_wstring(VT_NULL), page.Text(L"external.TypeOf(null)"));
    EXPECT_EQ(std::to_wstring(VT_DATE), page.Text(L"external.TypeOf(new Date())"));
    EXPECT_EQ(std::to_wstring(VT_DISPATCH), page.Text(L"external.TypeOf([])"));
}

TEST_F(ExternalTest, HasPropertiesThatCanBeReadAndWritten) {
    external->properties[L"Size"] = Number(3);
    EXPECT_EQ(L"3", page.Text(L"external.Size"));
    page->Execute(L"external.Size = 'large'");
    EXPECT_EQ(L"large", std::wstring(external->properties[L"Size"].Text()));
    EXPECT_EQ(L"true", page.Text(L"'Size' in external"));
    EXPECT_EQ(L"false", page.Text(L"'Weight' in external"));
    EXPECT_EQ(L"undefined", page.Text(L"external.Weight"));
    EXPECT_EQ(L"-2146827850: Object doesn't support this property or method: Weight",
              page.Text(L"caught(() => { external.Weight = 1 })"));
}

TEST_F(ExternalTest, ThrowsItsFailureWithNumberAndDescription) {
    external->failure = static_cast<HRESULT>(0x80040123);
    external->failureWords = L"No such family";
    EXPECT_EQ(L"-2147221213: No such family", page.Text(L"caught(() => external.Echo(1))"));
    EXPECT_EQ(L"1", page.Text(L"external.Echo(1)"));
}

TEST_F(ExternalTest, GivesObjectsByReference) {
    const auto child = MakeObject<ExternalDouble>();
    child->properties[L"Name"] = Words(L"child");
    external->properties[L"Child"] = Object(child);
    external->methods[L"IsChild"] = [&](const Arguments& arguments) {
        return Number(arguments.at(0).Object() == static_cast<IDispatch*>(child.Get()));
    };
    EXPECT_EQ(L"child", page.Text(L"external.Child.Name"));
    EXPECT_EQ(L"1", page.Text(L"external.IsChild(external.Child)"));
    EXPECT_EQ(L"true", page.Text(L"external.Child === external.Child"));
    page->Execute(L"external.Child.Name = 'renamed'");
    EXPECT_EQ(L"renamed", std::wstring(child->properties[L"Name"].Text()));
}

TEST_F(ExternalTest, GivesArraysAsArrays) {
    external->getters[L"Sizes"] = [](const Arguments&) {
        SAFEARRAYBOUND bounds[] = {{2, 0}, {3, 0}};
        SAFEARRAY* const array = SafeArrayCreate(VT_VARIANT, 2, bounds);
        for (LONG row = 0; row < 2; ++row) {
            for (LONG column = 0; column < 3; ++column) {
                LONG indices[] = {row, column};
                const Variant number = Number(10 * row + column);
                SafeArrayPutElement(array, indices, const_cast<VARIANT*>(&number.Get()));
            }
        }
        Variant value;
        value.SetArray(array);
        return value;
    };
    EXPECT_EQ(L"[[0,1,2],[10,11,12]]", page.Text(L"JSON.stringify(external.Sizes)"));
    EXPECT_EQ(L"0,1,2,10,11,12", page.Text(L"new VBArray(external.Sizes).toArray()"));
}

TEST_F(ExternalTest, ReadsArraysOfThePageByTheirLengthAndElements) {
    external->methods[L"Sum"] = [](const Arguments& arguments) {
        IDispatch* const array = arguments.at(0).Object();
        LONG sum = 0;
        for (const Variant& element : ElementsOf(array))
            sum += element.Number();
        const Variant last = CallMember(array, L"1", {});
        return Number(sum * 100 + last.Number() * 10 + ElementCount(array));
    };
    EXPECT_EQ(L"623", page.Text(L"external.Sum([1, 2, 3])"));
}

TEST_F(ExternalTest, CallsFunctionsOfThePageWhileItWaits) {
    external->methods[L"Twice"] = [](const Arguments& arguments) {
        const std::vector<Variant> none;
        const Variant first = CallMember(arguments.at(0).Object(), L"", none);
        const Variant second = CallMember(arguments.at(0).Object(), L"", none);
        return Number(first.Number() * 100 + second.Number());
    };
    EXPECT_EQ(L"102", page.Text(L"(() => { let n = 0; return external.Twice(() => ++n) })()"));
}

TEST_F(ExternalTest, NestsCallsBothWays) {
    external->methods[L"Down"] = [&](const Arguments& arguments) {
        const LONG depth = arguments.at(0).Number();
        return depth == 0 ? Number(0)
                          : page->Call("depth => 1 + external.Down(depth - 1)", {&arguments[0], 1});
    };
    EXPECT_EQ(L"20", page.Text(L"external.Down(20)"));
}

TEST_F(ExternalTest, ThrowsThroughBothSides) {
    external->methods[L"Call"] = [](const Arguments& arguments) {
        return CallMember(arguments.at(0).Object(), L"", {});
    };
    EXPECT_EQ(L"-2147467259: inner",
              page.Text(L"caught(() => external.Call(() => { throw new Error('inner') }))"));
}

TEST_F(ExternalTest, CallsAFunctionOfThePageLater) {
    Variant kept;
    external->methods[L"Keep"] = [&](const Arguments& arguments) {
        kept = CopyOf(arguments.at(0));
        return Variant();
    };
    page->Execute(L"var total = 0; external.Keep((a, b) => total += a + b)");
    std::vector<Variant> arguments;
    arguments.push_back(Number(40));
    arguments.push_back(Number(2));
    EXPECT_EQ(42, CallMember(kept.Object(), L"", arguments).Number());
    EXPECT_EQ(L"42", page.Text(L"total"));
}

TEST_F(ExternalTest, LetsGoOfObjectsThatThePageNoLongerHas) {
    external->methods[L"Make"] = [](const Arguments&) { return Object(MakeObject<ExternalDouble>()); };
    const long before = LiveObjects();
    page->Execute(L"for (let i = 0; i < 100; ++i) external.Make()");
    EXPECT_LT(before, LiveObjects());
    EXPECT_TRUE(page.Await([&] {
        page.CollectGarbage();
        return LiveObjects() == before;
    })) << LiveObjects() - before;
}

TEST_F(ExternalTest, LetsGoOfAllObjectsWithTheDocument) {
    const auto child = MakeObject<ExternalDouble>();
    external->methods[L"Make"] = [](const Arguments&) { return Object(MakeObject<ExternalDouble>()); };
    const long before = LiveObjects();
    page->Execute(L"var kept = []; for (let i = 0; i < 10; ++i) kept.push(external.Make())");
    EXPECT_EQ(before + 10, LiveObjects());
    page.Show("<p>");
    EXPECT_EQ(before, LiveObjects());
}

TEST_F(ExternalTest, MayCloseThePage) {
    external->methods[L"Close"] = [&](const Arguments&) {
        page->Close();
        page.page.reset();
        return Variant();
    };
    const std::shared_ptr<Page> held = page.page;
    EXPECT_THROW(held->Execute(L"external.Close()"), HResultError);
    EXPECT_FALSE(held->IsOpen());
}

TEST_F(ExternalTest, MayNavigateThePage) {
    page.folder.Write("next.htm", "<p id=p>next");
    external->methods[L"Go"] = [&](const Arguments&) {
        page->Navigate(Widen(page.folder.Path() + "next.htm"));
        return Number(1);
    };
    const int loads = page.loads;
    EXPECT_EQ(L"1", page.Text(L"external.Go()"));
    EXPECT_TRUE(page.Await([&] { return page.loads > loads; }));
    EXPECT_EQ(L"next", page.Text(L"p.innerText"));
}

TEST_F(ExternalTest, IsAnotherOneForEachPage) {
    OpenedPage other;
    const auto second = MakeObject<ExternalDouble>();
    second->properties[L"Name"] = Words(L"second");
    other.external = second;
    external->properties[L"Name"] = Words(L"first");
    other.Show("<p>");
    EXPECT_EQ(L"first", page.Text(L"external.Name"));
    EXPECT_EQ(L"second", other.Text(L"external.Name"));
}

TEST_F(ExternalTest, BelongsToTheThreadOfItsPage) {
    external->methods[L"Thread"] = [](const Arguments&) {
        return Number(static_cast<LONG>(GetCurrentThreadId()));
    };
    LONG asked = 0;
    LONG own = 0;
    std::atomic<bool> isDone{false};
    std::thread other([&] {
        OleInitialize(nullptr);
        {
            OpenedPage second;
            const auto object = MakeObject<ExternalDouble>();
            object->methods[L"Thread"] = [](const Arguments&) {
                return Number(static_cast<LONG>(GetCurrentThreadId()));
            };
            second.external = object;
            second.Show("<p>");
            for (int i = 0; i < 100; ++i)
                asked = second->Execute(L"external.Thread()").Number();
            own = static_cast<LONG>(GetCurrentThreadId());
        }
        OleUninitialize();
        isDone = true;
    });
    int calls = 0;
    EXPECT_TRUE(page.Await([&] {
        ++calls;
        EXPECT_EQ(static_cast<LONG>(GetCurrentThreadId()), page->Execute(L"external.Thread()").Number());
        return isDone.load();
    }));
    other.join();
    EXPECT_LT(10, calls);
    EXPECT_NE(0, own);
    EXPECT_EQ(own, asked);
}

TEST_F(ExternalTest, MayOpenAndUseAnotherPageWhileAPageWaits) {
    const auto second = MakeObject<ExternalDouble>();
    second->methods[L"Ask"] = [&](const Arguments&) { return page->Call("() => p.innerText"); };
    external->methods[L"Open"] = [&](const Arguments&) {
        OpenedPage other;
        other.external = second;
        other.Show("<script>var answer = external.Ask()</script>");
        return Words(other.Text(L"answer").c_str());
    };
    EXPECT_EQ(L"text", page.Text(L"external.Open()"));
}

TEST_F(ExternalTest, IsTheSameInFrames) {
    page.folder.Write(
        "inner.htm",
        "<script>var name1 = external.Echo('inner'); var doc = external.Echo(document)</script>");
    page.Show("<iframe id=f src=inner.htm></iframe>");
    EXPECT_EQ(L"inner", page.Text(L"f.contentWindow.name1"));
    EXPECT_EQ(L"true", page.Text(L"f.contentWindow.doc === f.contentDocument"));
}

TEST_F(ExternalTest, TakesALongText) {
    const std::wstring text = page.Text(L"external.Echo('\\u00e4'.repeat(1000000)).length");
    EXPECT_EQ(L"1000000", text);
}

TEST_F(ExternalTest, MakesObjectsOfRegisteredClasses) {
    EXPECT_EQ(
        L"<a b=\"1\"/>",
        page.Text(
            L"(() => { const d = new ActiveXObject('Msxml2.DOMDocument.3.0'); d.loadXML('<a b=\"1\"/>'); "
            L"return d.documentElement.xml })()"));
    EXPECT_EQ(L"2 y",
              page.Text(L"(() => { const d = new ActiveXObject('Scripting.Dictionary'); d.Add('a', 'x'); "
                        L"d.add('b', 'y'); return d.count + ' ' + d.item('b') })()"));
    EXPECT_EQ(L"a,b",
              page.Text(L"(() => { const d = new ActiveXObject('Scripting.Dictionary'); d.Add('a', 'x'); "
                        L"d.Add('b', 'y'); const names = []; for (const e = new Enumerator(d); !e.atEnd(); "
                        L"e.moveNext()) names.push(e.item()); return names })()"));
    EXPECT_EQ(L"3 c",
              page.Text(L"(() => { const d = new ActiveXObject('Msxml2.DOMDocument.3.0'); "
                        L"d.loadXML('<a><b/><c/><d/></a>'); const list = d.documentElement.childNodes; "
                        L"return list.length + ' ' + list(1).nodeName })()"));
    EXPECT_EQ(L"-2146827859: Automation server can't create object: No.Such",
              page.Text(L"caught(() => new ActiveXObject('No.Such'))"));
    page.mayMakeObjects = false;
    EXPECT_EQ(L"-2146827859: This page may not make objects",
              page.Text(L"caught(() => new ActiveXObject('Scripting.Dictionary'))"));
}

TEST_F(ExternalTest, IsCalledAlsoWhereALibraryGivesArraysAndObjectsAToJson) {
    page->Execute(
        L"Array.prototype.toJSON = Object.prototype.toJSON = String.prototype.toJSON = () => 'theirs'; 1");
    EXPECT_EQ(L"x", page.Text(L"external.Echo('x')"));
    EXPECT_EQ(L"true", page.Text(L"external.Echo(p) === p"));
}

TEST_F(ExternalTest, GivesBackALongTextThatIsNoUnicode) {
    EXPECT_EQ(L"true", page.Text(L"(text => external.Echo(text) === text)('\\ud83d'.repeat(200000))"));
}

}  // namespace
}  // namespace nux::webbrowser
