// The control in a container that is not ours: the platform's own host window makes it by ProgID, shows it,
// sizes it, saves and loads it, and closes it.

#include <windows.h>

#include <gtest/gtest.h>
#include <ocidl.h>
#include <ole2.h>

#include <string>

#include "tests/control/Component.h"

namespace nux {
namespace {

constexpr char controlClass[] = "nuxStdPartsControl";

/// The platform's host windows, and the functions of atl.dll that go with them.
struct HostWindows {
    HostWindows() {
        const HMODULE atl = LoadLibraryA("atl.dll");
        BOOL(WINAPI * init)() = nullptr;
        Find(atl, "AtlAxWinInit", init);
        Find(atl, "AtlAxGetControl", getControl);
        Find(atl, "AtlAxCreateControl", createControl);
        EXPECT_TRUE(init && init());
    }

    HRESULT(WINAPI* getControl)(HWND, IUnknown**) = nullptr;
    HRESULT(WINAPI* createControl)(LPCOLESTR, HWND, IStream*, IUnknown**) = nullptr;

private:
    template <class Function>
    static void Find(HMODULE module, const char* name, Function& function) {
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    }
};

const HostWindows& Atl() {
    static const HostWindows atl;  // the window class is registered once for the process
    return atl;
}

HWND FindControlWindow(HWND host) {
    return FindWindowExA(host, nullptr, controlClass, nullptr);
}

SIZE ClientSize(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

ComPtr<IStream> MemoryStream() {
    ComPtr<IStream> stream;
    EXPECT_EQ(S_OK, CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive()));
    return stream;
}

void Rewind(const ComPtr<IStream>& stream) {
    EXPECT_EQ(S_OK, stream->Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr));
}

class ControlInThePlatformsHost : public testing::Test {
protected:
    void SetUp() override {
        Atl();
        frame = CreateWindowExA(0, "STATIC", "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 400, 300,
                                nullptr, nullptr, nullptr, nullptr);
        ASSERT_TRUE(frame);
    }

    void TearDown() override {
        DestroyWindow(frame);
        EXPECT_EQ(S_OK, ModuleCanUnload()) << "an object of the component is still alive";
    }

    /// A host window that makes the control from its text.
    HWND CreateHost(const char* text = "Tarnvale.nuxStdParts") {
        const HWND host = CreateWindowExA(0, "AtlAxWin", text, WS_CHILD | WS_VISIBLE, 0, 0, 200, 100, frame,
                                          nullptr, nullptr, nullptr);
        EXPECT_TRUE(host);
        return host;
    }

    ComPtr<IUnknown> ControlIn(HWND host) {
        ComPtr<IUnknown> control;
        EXPECT_EQ(S_OK, Atl().getControl(host, control.Receive()));
        return control;
    }

    HWND frame = nullptr;
};

TEST_F(ControlInThePlatformsHost, IsMadeByProgIdAndIsTheAutomationObject) {
    const HWND host = CreateHost();
    const ComPtr<IUnknown> control = ControlIn(host);
    ASSERT_TRUE(control);
    const auto parts = control.As<InuxStdParts>();
    ASSERT_TRUE(parts);
    EXPECT_EQ(S_OK, parts->put_UserData(Bstr(L"hosted").Get()));
    EXPECT_EQ(L"hosted", ReadText(parts, &InuxStdParts::get_UserData));
}

TEST_F(ControlInThePlatformsHost, HasAWindowOfItsOwnThatFillsTheHost) {
    const HWND host = CreateHost();
    const HWND window = FindControlWindow(host);
    ASSERT_TRUE(window);
    EXPECT_EQ(0x56000000u, static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE)));
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(host, GetParent(window));
    EXPECT_EQ(200, ClientSize(window).cx);
    EXPECT_EQ(100, ClientSize(window).cy);

    const auto inPlace = ControlIn(host).As<IOleInPlaceObject>();
    HWND told = nullptr;
    EXPECT_EQ(S_OK, inPlace->GetWindow(&told));
    EXPECT_EQ(window, told);
}

TEST_F(ControlInThePlatformsHost, FollowsTheSizeOfTheHost) {
    const HWND host = CreateHost();
    const HWND window = FindControlWindow(host);
    MoveWindow(host, 0, 0, 320, 240, TRUE);
    EXPECT_EQ(320, ClientSize(window).cx);
    EXPECT_EQ(240, ClientSize(window).cy);
    MoveWindow(host, 0, 0, 0, 0, TRUE);
    EXPECT_EQ(0, ClientSize(window).cx);
}

TEST_F(ControlInThePlatformsHost, IsGivenASiteAndKeepsIt) {
    const HWND host = CreateHost();
    const auto object = ControlIn(host).As<IOleObject>();
    ComPtr<IOleClientSite> site;
    EXPECT_EQ(S_OK, object->GetClientSite(site.Receive()));
    EXPECT_TRUE(site);
}

TEST_F(ControlInThePlatformsHost, ShowsTheColourOfWindows) {
    const HWND host = CreateHost();
    const HWND window = FindControlWindow(host);
    const HDC surface = GetDC(window);
    SetPixel(surface, 5, 5, RGB(1, 2, 3));
    EXPECT_TRUE(RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW));
    EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE));
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), GetPixel(surface, 5, 5));
    ReleaseDC(window, surface);
}

TEST_F(ControlInThePlatformsHost, TakesTheFocusAndGivesItUp) {
    const HWND host = CreateHost();
    const auto object = ControlIn(host).As<IOleObject>();
    const auto inPlace = object.As<IOleInPlaceObject>();
    ComPtr<IOleClientSite> site;
    object->GetClientSite(site.Receive());
    EXPECT_EQ(S_OK, object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, host, nullptr));
    EXPECT_EQ(FindControlWindow(host), GetFocus());
    EXPECT_EQ(S_OK, inPlace->UIDeactivate());
    EXPECT_TRUE(FindControlWindow(host)) << "still active in place";
}

TEST_F(ControlInThePlatformsHost, IsHiddenAndShownByItsVerbs) {
    const HWND host = CreateHost();
    const HWND window = FindControlWindow(host);
    const auto object = ControlIn(host).As<IOleObject>();
    EXPECT_EQ(S_OK, object->DoVerb(OLEIVERB_HIDE, nullptr, nullptr, 0, host, nullptr));
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(S_OK, object->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, host, nullptr));
    EXPECT_TRUE(IsWindowVisible(window));
}

TEST_F(ControlInThePlatformsHost, IsSavedToAStreamAndMadeFromItAgain) {
    const ComPtr<IStream> stream = MemoryStream();
    SIZEL saved{12345, 6789};
    ULONGLONG length = 0;
    {
        const HWND host = CreateHost();
        const auto object = ControlIn(host).As<IOleObject>();
        EXPECT_EQ(S_OK, object->SetExtent(DVASPECT_CONTENT, &saved));
        const auto persist = object.As<IPersistStreamInit>();
        EXPECT_EQ(S_OK, persist->IsDirty());
        EXPECT_EQ(S_OK, persist->Save(stream.Get(), TRUE));
        EXPECT_EQ(S_FALSE, persist->IsDirty());
        ULARGE_INTEGER room{};
        EXPECT_EQ(S_OK, persist->GetSizeMax(&room));
        length = room.QuadPart;
    }
    Rewind(stream);
    const HWND host = CreateHost("");
    ComPtr<IUnknown> container;
    ASSERT_EQ(S_OK, Atl().createControl(L"Tarnvale.nuxStdParts", host, stream.Get(), container.Receive()));
    ULARGE_INTEGER position{};
    EXPECT_EQ(S_OK, stream->Seek(LARGE_INTEGER{}, STREAM_SEEK_CUR, &position));
    EXPECT_EQ(length, position.QuadPart) << "the host has loaded the control";
    // Since then the host has fitted the control to its window, so what was loaded is seen at a second
    // loading.
    const ComPtr<IUnknown> control = ControlIn(host);
    ASSERT_TRUE(control);
    Rewind(stream);
    EXPECT_EQ(S_OK, control.As<IPersistStreamInit>()->Load(stream.Get()));
    SIZEL loaded{};
    EXPECT_EQ(S_OK, control.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &loaded));
    EXPECT_EQ(saved.cx, loaded.cx);
    EXPECT_EQ(saved.cy, loaded.cy);
}

TEST_F(ControlInThePlatformsHost, ClosingTakesItsWindowAway) {
    const HWND host = CreateHost();
    const HWND window = FindControlWindow(host);
    const auto object = ControlIn(host).As<IOleObject>();
    EXPECT_EQ(S_OK, object->Close(OLECLOSE_NOSAVE));
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(S_OK, object->Close(OLECLOSE_NOSAVE)) << "twice";
}

TEST_F(ControlInThePlatformsHost, TheEndOfTheHostClosesItAndTheObjectLivesOnForWhoHoldsIt) {
    const HWND host = CreateHost();
    const HWND window = FindControlWindow(host);
    const auto parts = ControlIn(host).As<InuxStdParts>();
    EXPECT_TRUE(DestroyWindow(host));
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(S_FALSE, ModuleCanUnload());
    EXPECT_EQ(S_OK, parts->AssertFail());
}

TEST_F(ControlInThePlatformsHost, ManyStandBesideOneAnother) {
    HWND hosts[5];
    for (HWND& host : hosts)
        host = CreateHost();
    for (const HWND host : hosts)
        EXPECT_TRUE(FindControlWindow(host));
    DestroyWindow(hosts[2]);
    EXPECT_TRUE(FindControlWindow(hosts[4]));
}

}  // namespace
}  // namespace nux
