// How the control behaves towards its site, step by step.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/control/Component.h"
#include "tests/support/ControlSite.h"

namespace nux {
namespace {

class ControlActivation : public PartsTest {
protected:
    void SetUp() override {
        PartsTest::SetUp();
        frame = CreateWindowExA(0, "STATIC", "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 400, 300,
                                nullptr, nullptr, nullptr, nullptr);
        site = MakeObject<ControlSite>(frame);
        object = parts.As<IOleObject>();
        inPlace = parts.As<IOleInPlaceObjectWindowless>();
        EXPECT_EQ(S_OK, object->SetClientSite(site.Get()));
    }

    void TearDown() override {
        if (object)
            object->SetClientSite(nullptr);
        object.Reset();
        inPlace.Reset();
        DestroyWindow(frame);
        PartsTest::TearDown();
        EXPECT_EQ(1u, References(static_cast<IOleClientSite*>(site.Get())));
    }

    HRESULT Do(LONG verb) { return object->DoVerb(verb, nullptr, site.Get(), 0, frame, nullptr); }
    HWND Window() {
        HWND window = nullptr;
        inPlace->GetWindow(&window);
        return window;
    }

    HWND frame = nullptr;
    ComPtr<ComObject<ControlSite>> site;
    ComPtr<IOleObject> object;
    ComPtr<IOleInPlaceObjectWindowless> inPlace;
};

TEST_F(ControlActivation, InPlaceActivationAsksTheSiteInOrderAndMakesTheWindow) {
    EXPECT_EQ(S_OK, Do(OLEIVERB_INPLACEACTIVATE));
    EXPECT_EQ((Journal{"CanInPlaceActivate", "OnInPlaceActivate", "ShowObject"}), site->calls);
    const HWND window = Window();
    ASSERT_TRUE(window);
    EXPECT_EQ(frame, GetParent(window));
    EXPECT_EQ(0x56000000u, static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE)));
    RECT bounds{};
    GetWindowRect(window, &bounds);
    MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&bounds), 2);
    EXPECT_TRUE(EqualRect(&site->position, &bounds));
}

TEST_F(ControlActivation, UserInterfaceActivationComesOnTopAndGoesFirst) {
    EXPECT_EQ(S_OK, Do(OLEIVERB_UIACTIVATE));
    EXPECT_EQ((Journal{"CanInPlaceActivate", "OnInPlaceActivate", "OnUIActivate", "ShowObject"}),
              site->calls);
    site->calls.clear();
    EXPECT_EQ(S_OK, inPlace->InPlaceDeactivate());
    EXPECT_EQ((Journal{"OnUIDeactivate", "OnInPlaceDeactivate"}), site->calls);
    EXPECT_FALSE(Window());
}

TEST_F(ControlActivation, ASecondActivationKeepsTheWindow) {
    Do(OLEIVERB_INPLACEACTIVATE);
    const HWND window = Window();
    site->calls.clear();
    EXPECT_EQ(S_OK, Do(OLEIVERB_INPLACEACTIVATE));
    EXPECT_EQ(window, Window());
    EXPECT_EQ((Journal{"ShowObject"}), site->calls);
    EXPECT_EQ(S_OK, Do(OLEIVERB_PRIMARY));
    EXPECT_EQ(S_OK, Do(OLEIVERB_PRIMARY));
    EXPECT_EQ((Journal{"ShowObject", "OnUIActivate", "ShowObject", "ShowObject"}), site->calls);
}

TEST_F(ControlActivation, ItCanBeActivatedAgain) {
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(S_OK, Do(OLEIVERB_SHOW));
        EXPECT_TRUE(Window());
        EXPECT_EQ(S_OK, inPlace->InPlaceDeactivate());
        EXPECT_FALSE(Window());
    }
}

TEST_F(ControlActivation, ASiteThatRefusesLeavesItInactive) {
    site->canActivate = S_FALSE;
    EXPECT_TRUE(FAILED(Do(OLEIVERB_INPLACEACTIVATE)));
    EXPECT_EQ((Journal{"CanInPlaceActivate"}), site->calls);
    site->canActivate = S_OK;
    site->onActivate = E_ACCESSDENIED;
    EXPECT_EQ(E_ACCESSDENIED, Do(OLEIVERB_INPLACEACTIVATE));
    site->onActivate = S_OK;
    site->offersInPlace = false;
    EXPECT_TRUE(FAILED(Do(OLEIVERB_INPLACEACTIVATE)));
    EXPECT_FALSE(Window());
    HWND window = frame;
    EXPECT_TRUE(FAILED(inPlace->GetWindow(&window)));
    EXPECT_EQ(nullptr, window);
}

TEST_F(ControlActivation, ASiteThatFailsHalfwayIsToldOfTheEnd) {
    for (HRESULT ControlSite::*step : {&ControlSite::windowResult, &ControlSite::contextResult}) {
        site->calls.clear();
        (*site.Get()).*step = E_ACCESSDENIED;
        EXPECT_EQ(E_ACCESSDENIED, Do(OLEIVERB_INPLACEACTIVATE));
        EXPECT_EQ((Journal{"CanInPlaceActivate", "OnInPlaceActivate", "OnInPlaceDeactivate"}), site->calls);
        EXPECT_FALSE(Window());
        (*site.Get()).*step = S_OK;
    }
    EXPECT_EQ(S_OK, Do(OLEIVERB_INPLACEACTIVATE));
}

TEST_F(ControlActivation, WithoutASiteNothingIsActivated) {
    object->SetClientSite(nullptr);
    EXPECT_TRUE(FAILED(Do(OLEIVERB_SHOW)));
    EXPECT_EQ(S_OK, inPlace->InPlaceDeactivate());
    EXPECT_EQ(S_OK, inPlace->UIDeactivate());
}

TEST_F(ControlActivation, TakingTheSiteAwayDeactivates) {
    Do(OLEIVERB_UIACTIVATE);
    const HWND window = Window();
    site->calls.clear();
    EXPECT_EQ(S_OK, object->SetClientSite(nullptr));
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ((Journal{"OnUIDeactivate", "OnInPlaceDeactivate"}), site->calls);
    ComPtr<IOleClientSite> none;
    EXPECT_EQ(S_OK, object->GetClientSite(none.Receive()));
    EXPECT_FALSE(none);
}

TEST_F(ControlActivation, ClosingSavesWhatHasChangedIfAskedTo) {
    Do(OLEIVERB_SHOW);
    site->calls.clear();
    EXPECT_EQ(S_OK, object->Close(OLECLOSE_SAVEIFDIRTY));
    EXPECT_EQ((Journal{"OnUIDeactivate", "OnInPlaceDeactivate"}), site->calls) << "nothing has changed";
    SIZEL size{111, 222};
    object->SetExtent(DVASPECT_CONTENT, &size);
    site->calls.clear();
    EXPECT_EQ(S_OK, object->Close(OLECLOSE_NOSAVE));
    EXPECT_TRUE(site->calls.empty());
    EXPECT_EQ(S_OK, object->Close(OLECLOSE_SAVEIFDIRTY));
    EXPECT_EQ((Journal{"SaveObject"}), site->calls);
}

TEST_F(ControlActivation, UnknownVerbsAreRefused) {
    EXPECT_EQ(OLEOBJ_S_INVALIDVERB, Do(100));
    EXPECT_EQ(E_NOTIMPL, Do(OLEIVERB_OPEN));
    EXPECT_EQ(E_NOTIMPL, Do(-1000));
    EXPECT_EQ(S_OK, Do(OLEIVERB_DISCARDUNDOSTATE));
    EXPECT_FALSE(Window());
}

TEST_F(ControlActivation, ItIsMovedAndClipped) {
    Do(OLEIVERB_INPLACEACTIVATE);
    const RECT position{10, 20, 110, 70};
    const RECT clip{0, 0, 60, 1000};
    EXPECT_EQ(S_OK, inPlace->SetObjectRects(&position, &clip));
    RECT bounds{};
    GetWindowRect(Window(), &bounds);
    MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&bounds), 2);
    EXPECT_TRUE(EqualRect(&position, &bounds));
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(SIMPLEREGION, GetWindowRgn(Window(), region));
    RECT visible{};
    GetRgnBox(region, &visible);
    EXPECT_EQ(50, visible.right);
    EXPECT_EQ(50, visible.bottom);
    const RECT all{0, 0, 1000, 1000};
    EXPECT_EQ(S_OK, inPlace->SetObjectRects(&position, &all));
    EXPECT_EQ(ERROR, GetWindowRgn(Window(), region)) << "no region";
    DeleteObject(region);
    EXPECT_EQ(E_POINTER, inPlace->SetObjectRects(nullptr, &clip));
    EXPECT_EQ(E_POINTER, inPlace->SetObjectRects(&position, nullptr));
}

TEST_F(ControlActivation, NothingIsSeenOfAControlThatIsClippedAway) {
    Do(OLEIVERB_INPLACEACTIVATE);
    const RECT position{10, 20, 110, 70};
    const RECT elsewhere{500, 500, 600, 600};
    EXPECT_EQ(S_OK, inPlace->SetObjectRects(&position, &elsewhere));
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(NULLREGION, GetWindowRgn(Window(), region));
    DeleteObject(region);
}

TEST_F(ControlActivation, ItsEndWhileActiveTakesTheWindowAlong) {
    Do(OLEIVERB_SHOW);
    const HWND window = Window();
    object.Reset();
    inPlace.Reset();
    site->calls.clear();
    ReleaseParts();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ((Journal{"OnUIDeactivate", "OnInPlaceDeactivate"}), site->calls);
}

TEST_F(ControlActivation, TheFrameIsToldWhichObjectIsActive) {
    const auto containerFrame = MakeObject<ControlFrame>();
    site->frame = ComPtr<IOleInPlaceFrame>(containerFrame.Get());
    Do(OLEIVERB_INPLACEACTIVATE);
    EXPECT_TRUE(containerFrame->calls.empty());
    Do(OLEIVERB_UIACTIVATE);
    EXPECT_EQ((Journal{"active nuxStdParts Class", "SetBorderSpace none"}), containerFrame->calls);
    containerFrame->calls.clear();
    inPlace->UIDeactivate();
    EXPECT_EQ((Journal{"active none"}), containerFrame->calls);
    site->frame.Reset();
    EXPECT_EQ(1u, References(containerFrame.Get()));
}

const char* const callsOfTheSite[] = {"CanInPlaceActivate", "OnInPlaceActivate", "OnUIActivate",
                                      "ShowObject",         "OnUIDeactivate",    "OnInPlaceDeactivate"};

TEST_F(ControlActivation, ASiteMayCloseItWhileItIsCalled) {
    for (const char* step : callsOfTheSite) {
        SCOPED_TRACE(step);
        site->calls.clear();
        int closed = 0;
        site->during = [&](const std::string& call) {
            if (call == step && ++closed == 1)
                object->Close(OLECLOSE_NOSAVE);
        };
        Do(OLEIVERB_UIACTIVATE);
        inPlace->InPlaceDeactivate();
        site->during = nullptr;
        EXPECT_FALSE(Window());
        EXPECT_LE(1, closed);
        EXPECT_EQ(1, std::count(site->calls.begin(), site->calls.end(), "OnInPlaceDeactivate"));
        EXPECT_EQ(std::count(site->calls.begin(), site->calls.end(), "OnUIActivate"),
                  std::count(site->calls.begin(), site->calls.end(), "OnUIDeactivate"));
    }
}

TEST_F(ControlActivation, ASiteMayTakeItselfAwayWhileItIsCalled) {
    for (const char* step : callsOfTheSite) {
        SCOPED_TRACE(step);
        object->SetClientSite(site.Get());
        site->during = [&](const std::string& call) {
            if (call == step)
                object->SetClientSite(nullptr);
        };
        Do(OLEIVERB_UIACTIVATE);
        inPlace->InPlaceDeactivate();
        site->during = nullptr;
        EXPECT_FALSE(Window());
        ComPtr<IOleClientSite> none;
        object->GetClientSite(none.Receive());
        EXPECT_FALSE(none);
    }
}

TEST_F(ControlActivation, ASiteMayLetGoOfItWhileItIsCalled) {
    inPlace.Reset();
    for (const char* step : callsOfTheSite) {
        SCOPED_TRACE(step);
        parts.Reset();
        bool gone = false;
        site->during = [&](const std::string& call) {
            if (call == step && !gone) {
                gone = true;
                object->Release();
            }
        };
        Do(OLEIVERB_UIACTIVATE);
        if (!gone)
            object->Close(OLECLOSE_NOSAVE);
        site->during = nullptr;
        EXPECT_TRUE(gone);
        (void)object.Detach();
        EXPECT_EQ(S_OK, ModuleCanUnload());
        EXPECT_EQ(1u, References(static_cast<IOleClientSite*>(site.Get())));
        parts = CreateParts();
        object = parts.As<IOleObject>();
        object->SetClientSite(site.Get());
    }
    inPlace = parts.As<IOleInPlaceObjectWindowless>();
}

}  // namespace
}  // namespace nux
