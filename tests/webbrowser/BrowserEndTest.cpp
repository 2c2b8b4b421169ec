// The control's end in each state, in containers of each kind.

#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "driver/ScriptEngine.h"
#include "framework/ClassFactory.h"
#include "framework/Module.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "tests/webbrowser/ShownBrowser.h"

namespace nux::webbrowser {
namespace {

enum class Kind { plain, hostWindow, hostedControl, script };
enum class State {
    made,
    sited,
    active,
    loading,
    loaded,
    waiting,  ///< its page waits for an object
    modal,    ///< that object has a modal window open
    asked,    ///< the control itself has one open, for a question of the page
};

constexpr CLSID calledClass{0x6f0a52c1, 0x9d3e, 0x4b7a, {0x8e, 0x21, 0x5c, 0x0d, 0x7b, 0x94, 0xa3, 0x6e}};
constexpr char calledName[] = "nuxTest.Called";

/// What pages make by its name and call.
class Called : public ExternalDouble {
public:
    static inline std::function<void()> deed;
    Called() {
        methods[L"Say"] = [](const Arguments&) {
            if (const std::function<void()> now = std::exchange(deed, nullptr))
                now();
            return Number(1);
        };
    }
};

/// A class of this process, by its name too.
template <class T>
class OfferedClass {
public:
    OfferedClass(const CLSID& classId, const char* name) {
        CoRegisterClassObject(classId, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_);
        if (!name)
            return;
        wchar_t text[40]{};
        StringFromGUID2(classId, text, 40);
        const std::wstring key = L"Software\\Classes\\" + Widen(name) + L"\\CLSID";
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, text,
                        static_cast<DWORD>((wcslen(text) + 1) * sizeof(wchar_t)));
    }
    OfferedClass(const OfferedClass&) = delete;
    OfferedClass& operator=(const OfferedClass&) = delete;
    ~OfferedClass() { CoRevokeClassObject(cookie_); }

    static inline ComPtr<ComObject<ClassFactory<T>>> factory;

private:
    DWORD cookie_ = 0;
};

/// Made before the first test: a factory that a script has used is kept by JScript of Wine 8.0.
class Factories : public testing::Environment {
    void SetUp() override {
        OfferedClass<Called>::factory = MakeObject<ClassFactory<Called>>();
        OfferedClass<WebBrowser>::factory = MakeObject<ClassFactory<WebBrowser>>();
    }
    void TearDown() override {
        OfferedClass<Called>::factory.Reset();
        OfferedClass<WebBrowser>::factory.Reset();
    }
};

const testing::Environment* const factories = testing::AddGlobalTestEnvironment(new Factories);

BOOL CALLBACK CountControl(HWND window, LPARAM count) {
    char name[32]{};
    GetClassNameA(window, name, sizeof name);
    if (name == std::string_view("nuxWebBrowser"))
        ++*reinterpret_cast<int*>(count);
    return TRUE;
}

/// Windows of controls, in whatever windows.
int OpenControls() {
    int count = 0;
    EnumChildWindows(GetDesktopWindow(), &CountControl, reinterpret_cast<LPARAM>(&count));
    return count;
}

HWND MakeFrame() {
    return CreateWindowExA(0, "STATIC", "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 640, 480, nullptr,
                           nullptr, nullptr, nullptr);
}

/// A container with its control; both go with it.
class Container {
public:
    virtual ~Container() = default;
    ComPtr<IWebBrowser2> browser;
};

class PlainContainer : public Container {
public:
    explicit PlainContainer(State state) : window_(MakeFrame()), site_(MakeObject<BrowserSite>(window_)) {
        CreateObject(CLSID_WebBrowser, browser);
        const ComPtr<IOleObject> object = browser.As<IOleObject>();
        if (state == State::made)
            return;
        object->SetClientSite(static_cast<IOleClientSite*>(site_.Get()));
        if (state != State::sited)
            object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.Get(), 0, window_, nullptr);
    }
    ~PlainContainer() override {
        browser.Reset();  // without a word to it, as a careless container does
        DestroyWindow(window_);
    }

private:
    HWND window_;
    ComPtr<ComObject<BrowserSite>> site_;
};

/// The platform's host of controls.
class Atl {
public:
    Atl() : module_(LoadLibraryW(L"atl.dll")) { Function<BOOL(WINAPI*)()>("AtlAxWinInit")(); }
    // It stays for as long as the program: the control may hold objects of it beyond their container's end.

    template <class F>
    F Function(const char* name) const {
        return reinterpret_cast<F>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }
    ComPtr<IWebBrowser2> ControlOf(HWND window) const {
        ComPtr<IUnknown> control;
        Function<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl")(window, control.Receive());
        return control.As<IWebBrowser2>();
    }

private:
    HMODULE module_;
};

class HostWindow : public Container {
public:
    HostWindow()
        : window_(CreateWindowExA(0, "AtlAxWin", "about:blank", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 400,
                                  300, nullptr, nullptr, nullptr, nullptr)) {
        browser = atl_.ControlOf(window_);
    }
    ~HostWindow() override {
        DestroyWindow(window_);
        browser.Reset();
    }

private:
    Atl atl_;
    HWND window_;
};

class HostedControl : public Container {
public:
    HostedControl() : window_(MakeFrame()) {
        atl_.Function<HRESULT(WINAPI*)(LPCOLESTR, HWND, IStream*, IUnknown**)>("AtlAxCreateControl")(
            L"about:blank", window_, nullptr, container_.Receive());
        browser = atl_.ControlOf(window_);
    }
    ~HostedControl() override {
        browser.Reset();
        container_.Reset();
        DestroyWindow(window_);
    }

private:
    Atl atl_;
    HWND window_;
    ComPtr<IUnknown> container_;
};

class Script : public Container {
public:
    Script() {
        browser = Query<IWebBrowser2>(engine_.Object(L"new ActiveXObject('Shell.Explorer.2')").Get());
    }
    ~Script() override { browser.Reset(); }

private:
    ScriptEngine engine_;
};

std::unique_ptr<Container> Make(Kind kind, State state) {
    switch (kind) {
        case Kind::plain:
            return std::make_unique<PlainContainer>(state);
        case Kind::hostWindow:
            return std::make_unique<HostWindow>();
        case Kind::hostedControl:
            return std::make_unique<HostedControl>();
        default:
            return std::make_unique<Script>();
    }
}

class BrowserEnd : public testing::TestWithParam<std::pair<Kind, State>> {
protected:
    BrowserEnd() : ofCalled_(calledClass, calledName), ofBrowser_(CLSID_WebBrowser, nullptr) {}
    ~BrowserEnd() override { Called::deed = nullptr; }

    void Navigate(const std::string& html) {
        const std::wstring page = Widen(folder_.Write("page.htm", html), CP_ACP);
        EXPECT_EQ(S_OK, container->browser->Navigate(Bstr(page).Get(), nullptr, nullptr, nullptr, nullptr));
    }
    void End() {
        isEnded = true;
        container.reset();
    }
    /// Has the container end while a message box of this thread is open, which is closed then.
    void EndInModalWindow() {
        ending_ = this;
        SetTimer(nullptr, 0, 30, &EndOnceABoxIsOpen);
    }

    std::unique_ptr<Container> container;
    bool isEnded = false;

private:
    static void CALLBACK EndOnceABoxIsOpen(HWND, UINT, UINT_PTR timer, DWORD) {
        const HWND box = FindWindowA("#32770", nullptr);
        if (!box)
            return;
        KillTimer(nullptr, timer);
        ending_->End();
        if (IsWindow(box))
            PostMessageA(box, WM_COMMAND, IDOK, 0);
    }

    static inline BrowserEnd* ending_ = nullptr;
    TempFolder folder_;
    OfferedClass<Called> ofCalled_;
    OfferedClass<WebBrowser> ofBrowser_;
};

constexpr char calling[] = "<script>new ActiveXObject('nuxTest.Called').Say();</script>";

TEST_P(BrowserEnd, ReleasesAll) {
    const auto [kind, state] = GetParam();
    const long before = LiveObjects();
    container = Make(kind, state);
    ASSERT_TRUE(container->browser);
    switch (state) {
        case State::active:
            EXPECT_EQ(1, OpenControls());
            break;
        case State::loading:
            Navigate("<p>");
            break;
        case State::loaded:
            Navigate("<p>");
            EXPECT_TRUE(Await([&] { return StateOf(container->browser.Get()) == READYSTATE_COMPLETE; }));
            break;
        case State::waiting:
            Called::deed = [&] { End(); };
            Navigate(calling);
            EXPECT_TRUE(Await([&] { return isEnded; }));
            break;
        case State::modal:
            Called::deed = [&] {
                EndInModalWindow();
                MessageBoxA(nullptr, "text", "of the object", MB_OK);
            };
            Navigate(calling);
            EXPECT_TRUE(Await([&] { return isEnded; }));
            break;
        case State::asked:
            EndInModalWindow();
            Navigate("<script>setTimeout(() => confirm('Sure?'), 0)</script>");
            EXPECT_TRUE(Await([&] { return isEnded; }));
            break;
        default:
            break;
    }
    container.reset();
    EXPECT_TRUE(Await([&] { return LiveObjects() == before; })) << LiveObjects() - before;
    EXPECT_EQ(0, OpenControls());
    EXPECT_FALSE(FindWindowA("#32770", nullptr));
}

std::string NameOf(const testing::TestParamInfo<std::pair<Kind, State>>& info) {
    constexpr const char* kinds[] = {"Plain", "HostWindow", "HostedControl", "Script"};
    constexpr const char* states[] = {"Made",   "Sited",   "Active", "Loading",
                                      "Loaded", "Waiting", "Modal",  "Asked"};
    return std::string(kinds[static_cast<int>(info.param.first)]) +
           states[static_cast<int>(info.param.second)];
}

std::vector<std::pair<Kind, State>> All() {
    std::vector<std::pair<Kind, State>> all;
    for (const Kind kind : {Kind::plain, Kind::hostWindow, Kind::hostedControl, Kind::script}) {
        for (const State state : {State::made, State::sited, State::active, State::loading, State::loaded,
                                  State::waiting, State::modal, State::asked}) {
            // The platform's hosts know no control that isn't active, a script none that is.
            const bool isHost = kind == Kind::hostWindow || kind == Kind::hostedControl;
            if ((isHost && state < State::active) ||
                (kind == Kind::script && (state == State::sited || state == State::active)))
                continue;
            all.push_back({kind, state});
        }
    }
    return all;
}

INSTANTIATE_TEST_SUITE_P(InEachContainer, BrowserEnd, testing::ValuesIn(All()), NameOf);

// What pages call, when it goes wrong.

class CalledObject : public ShownBrowser {
protected:
    CalledObject() {
        Activate();
        external = MakeObject<ExternalDouble>();
        site->external = external;
    }
    ~CalledObject() override { site->external.Reset(); }
    ComPtr<ComObject<ExternalDouble>> external;
};

TEST_F(CalledObject, WhicheverCallOfItFailsThePageGoesOn) {
    int calls = 0;
    int failing = 0;
    external->methods[L"Say"] = [&](const ExternalDouble::Arguments&) {
        if (++calls == failing)
            throw HResultError(E_ACCESSDENIED, L"not this one");
        return Number(calls);
    };
    for (failing = 1; failing <= 4; ++failing) {
        calls = 0;
        Show(
            "<script>let told = ''; for (let i = 0; i < 4; ++i) {"
            "try { told += external.Say(); } catch (e) { told += '(' + e.number + e.message + ')'; } }"
            "document.title = told</script>");
        std::wstring expected;
        for (int i = 1; i <= 4; ++i)
            expected +=
                i == failing ? L"(" + std::to_wstring(E_ACCESSDENIED) + L"not this one)" : std::to_wstring(i);
        EXPECT_EQ(expected, OfDocument(L"title"));
    }
}

TEST_F(CalledObject, ThatIsReleasedWhileAPageHoldsItIsAnErrorThere) {
    external->methods[L"Say"] = [](const ExternalDouble::Arguments&) { return Number(1); };
    const auto other = MakeObject<ExternalDouble>();
    other->methods[L"Say"] = [](const ExternalDouble::Arguments&) { return Number(2); };
    external->properties[L"Other"] = Object(ComPtr<IDispatch>(other));
    Show(
        "<script>const held = external, other = external.Other;"
        "function say(what) { try { return what.Say(); } catch (e) { return 'failed'; } }</script>");
    site->external.Reset();
    external.Reset();
    Navigate(L"javascript:document.title = say(held) + ' ' + say(other)");
    EXPECT_TRUE(Await([&] { return OfDocument(L"title") == L"failed 2"; }))
        << "what a page was given by it stays";
}

TEST_F(CalledObject, CallsBackIntoThePageAndServesMessages) {
    external->methods[L"Say"] = [&](const ExternalDouble::Arguments& arguments) {
        bool isPosted = false;
        const UINT_PTR timer = SetTimer(frame, 1, 10, nullptr);
        EXPECT_TRUE(Await([&] { return std::exchange(isPosted, true); }));
        KillTimer(frame, timer);
        Variant result;
        DISPPARAMS none{};
        EXPECT_EQ(S_OK, arguments.at(0).Object()->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_METHOD, &none,
                                                         result.Receive(), nullptr, nullptr));
        return Number(result.Number() + 1);
    };
    Show("<script>document.title = external.Say(() => external.Say2 === undefined ? 6 : 7)</script>");
    EXPECT_EQ(L"7", OfDocument(L"title"));
}

}  // namespace
}  // namespace nux::webbrowser
