#include "framework/Window.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <vector>

#include "framework/HResult.h"
#include "framework/Module.h"
#include "tests/support/HandleCount.h"

namespace nux {
namespace {

constexpr UINT question = WM_APP + 1;
constexpr RECT bounds{10, 20, 110, 70};

/// A window that notes its messages and answers as the test tells it to.
class Listener : public Window {
public:
    using Answer = std::function<LRESULT(UINT)>;

    explicit Listener(Answer answer = nullptr, MessageTarget* owner = nullptr)
        : Window(owner), answer_(std::move(answer)) {}

    bool Received(UINT message) const {
        return std::find(received_.begin(), received_.end(), message) != received_.end();
    }
    int failures = 0;
    using Window::RethrowFailure;

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        received_.push_back(message);
        if (answer_) {
            if (const LRESULT given = answer_(message))
                return given;
        }
        return Default(message, wParam, lParam);
    }
    void OnFailure() noexcept override { ++failures; }

private:
    Answer answer_;
    std::vector<UINT> received_;
};

LRESULT ThrowAt(UINT message, UINT when) {
    if (message == when)
        throw std::runtime_error("handler");
    return 0;
}

class WindowTest : public testing::Test {
protected:
    const WindowClass class_{"nuxWindowTest", 0, nullptr};
};

TEST_F(WindowTest, HasNoHandleBeforeItsCreation) {
    const Listener window;
    EXPECT_EQ(nullptr, window.Handle());
}

TEST_F(WindowTest, IsCreatedWithItsBoundsAndStyles) {
    Listener window;
    window.Create(class_, nullptr, bounds, WS_POPUP | WS_DISABLED, WS_EX_TOOLWINDOW);
    ASSERT_TRUE(IsWindow(window.Handle()));
    RECT created;
    GetWindowRect(window.Handle(), &created);
    EXPECT_TRUE(EqualRect(&bounds, &created));
    EXPECT_TRUE(GetWindowLongA(window.Handle(), GWL_STYLE) & WS_DISABLED);
    EXPECT_TRUE(GetWindowLongA(window.Handle(), GWL_EXSTYLE) & WS_EX_TOOLWINDOW);
    char name[64];
    GetClassNameA(window.Handle(), name, sizeof name);
    EXPECT_STREQ(class_.Name(), name);
}

TEST_F(WindowTest, OfAWideClassGetsCharactersOfAnyLanguage) {
    const WindowClass wide(L"nuxWideWindowTest", 0, nullptr);
    wchar_t received = 0;
    class Reader : public Window {
    public:
        explicit Reader(wchar_t& received) : received_(received) {}

    private:
        LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_CHAR)
                received_ = static_cast<wchar_t>(wParam);
            return Default(message, wParam, lParam);
        }
        wchar_t& received_;
    } window(received);
    window.Create(wide, nullptr, bounds, WS_POPUP);
    ASSERT_TRUE(IsWindowUnicode(window.Handle()));
    SendMessageW(window.Handle(), WM_CHAR, 0x5186, 0);
    EXPECT_EQ(0x5186, received);
}

TEST_F(WindowTest, TakesChildBoundsInPixelsOfItsParent) {
    Listener parent;
    parent.Create(class_, nullptr, {100, 100, 300, 300}, WS_POPUP);
    Listener child;
    child.Create(class_, parent.Handle(), bounds, WS_CHILD);
    EXPECT_EQ(parent.Handle(), GetParent(child.Handle()));
    RECT created;
    GetWindowRect(child.Handle(), &created);
    MapWindowPoints(nullptr, parent.Handle(), reinterpret_cast<POINT*>(&created), 2);
    EXPECT_TRUE(EqualRect(&bounds, &created));
}

TEST_F(WindowTest, ReceivesTheMessagesOfItsCreation) {
    Listener window;
    window.Create(class_, nullptr, bounds, WS_POPUP);
    EXPECT_TRUE(window.Received(WM_NCCREATE));
    EXPECT_TRUE(window.Received(WM_CREATE));
}

TEST_F(WindowTest, AnswersWithWhatItsHandlerGives) {
    Listener window([](UINT message) { return message == question ? 42 : 0; });
    window.Create(class_, nullptr, bounds, WS_POPUP);
    EXPECT_EQ(42, SendMessageA(window.Handle(), question, 0, 0));
}

TEST_F(WindowTest, GoesWithItsObject) {
    HWND handle = nullptr;
    {
        Listener window;
        window.Create(class_, nullptr, bounds, WS_POPUP);
        handle = window.Handle();
    }
    EXPECT_FALSE(IsWindow(handle));
}

TEST_F(WindowTest, ForgetsItsHandleWhenTheWindowGoesFirst) {
    Listener window;
    window.Create(class_, nullptr, bounds, WS_POPUP);
    DestroyWindow(window.Handle());
    EXPECT_TRUE(window.Received(WM_NCDESTROY));
    EXPECT_EQ(nullptr, window.Handle());
    window.Destroy();
}

TEST_F(WindowTest, CanBeCreatedAgainAfterItsEnd) {
    Listener window;
    window.Create(class_, nullptr, bounds, WS_POPUP);
    window.Destroy();
    window.Create(class_, nullptr, bounds, WS_POPUP);
    EXPECT_TRUE(IsWindow(window.Handle()));
}

TEST_F(WindowTest, IsNotFollowedByMessagesAfterItsObjectHasGone) {
    Listener parent;
    parent.Create(class_, nullptr, bounds, WS_POPUP);
    auto child = std::make_unique<Listener>();
    child->Create(class_, parent.Handle(), bounds, WS_CHILD);
    child.reset();
    EXPECT_EQ(nullptr, GetWindow(parent.Handle(), GW_CHILD));
}

TEST_F(WindowTest, KeepsAnExceptionOfAHandlerUntilItIsRaisedAgain) {
    Listener window([](UINT message) { return ThrowAt(message, question); });
    window.Create(class_, nullptr, bounds, WS_POPUP);
    EXPECT_EQ(0, SendMessageA(window.Handle(), question, 0, 0));
    EXPECT_EQ(1, window.failures);
    EXPECT_TRUE(IsWindow(window.Handle()));
    EXPECT_THROW(window.RethrowFailure(), std::runtime_error);
    EXPECT_NO_THROW(window.RethrowFailure());
}

TEST_F(WindowTest, KeepsTheFirstOfSeveralExceptions) {
    int calls = 0;
    Listener window([&](UINT message) -> LRESULT {
        if (message != question)
            return 0;
        if (++calls == 1)
            throw std::out_of_range("first");
        throw std::logic_error("later");
    });
    window.Create(class_, nullptr, bounds, WS_POPUP);
    SendMessageA(window.Handle(), question, 0, 0);
    SendMessageA(window.Handle(), question, 0, 0);
    EXPECT_EQ(2, window.failures);
    EXPECT_THROW(window.RethrowFailure(), std::out_of_range);
}

TEST_F(WindowTest, GivesItsExceptionToTheOutermostOwner) {
    Listener outer;
    Listener middle(nullptr, &outer);
    Listener inner([](UINT message) { return ThrowAt(message, question); }, &middle);
    inner.Create(class_, nullptr, bounds, WS_POPUP);
    SendMessageA(inner.Handle(), question, 0, 0);
    EXPECT_EQ(1, inner.failures);
    EXPECT_EQ(1, middle.failures) << "each owner is told, so that it can end its run";
    EXPECT_EQ(1, outer.failures);
    EXPECT_THROW(outer.RethrowFailure(), std::runtime_error);
    EXPECT_NO_THROW(inner.RethrowFailure()) << "it is raised once";
}

TEST_F(WindowTest, IsUnboundAlsoWhenItsLastHandlerThrows) {
    Listener window([](UINT message) { return ThrowAt(message, WM_NCDESTROY); });
    window.Create(class_, nullptr, bounds, WS_POPUP);
    window.Destroy();
    EXPECT_EQ(nullptr, window.Handle());
    EXPECT_THROW(window.RethrowFailure(), std::runtime_error);
}

TEST_F(WindowTest, IsNotCreatedWhenTheHandlerOfItsCreationThrows) {
    for (const UINT message : {UINT{WM_NCCREATE}, UINT{WM_CREATE}}) {
        Listener window([=](UINT received) { return ThrowAt(received, message); });
        EXPECT_THROW(window.Create(class_, nullptr, bounds, WS_POPUP), std::runtime_error) << message;
        EXPECT_EQ(nullptr, window.Handle()) << message;
        EXPECT_NO_THROW(window.RethrowFailure()) << message;
    }
}

TEST_F(WindowTest, ThrowsTheCodeOfThePlatformWhenItIsRefused) {
    Listener window;
    try {
        window.Create(class_, nullptr, bounds, WS_CHILD);
        FAIL() << "a child without a parent";
    } catch (const HResultError& error) {
        EXPECT_TRUE(FAILED(error.Code()));
    }
    EXPECT_EQ(nullptr, window.Handle());
}

TEST_F(WindowTest, GivesAWholeFamilyOfHandlesBack) {
    Listener warmUp;
    warmUp.Create(class_, nullptr, bounds, WS_POPUP);
    const unsigned before = HandleCount();
    const DWORD objects = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    for (int i = 0; i < 100; ++i) {
        Listener window;
        window.Create(class_, nullptr, bounds, WS_POPUP);
    }
    EXPECT_EQ(before, HandleCount());
    EXPECT_EQ(objects, GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
}

TEST(WindowClassTest, IsUnregisteredAtItsEnd) {
    WNDCLASSEXA description{};
    description.cbSize = sizeof description;
    {
        const WindowClass windowClass("nuxWindowClassTest", CS_DBLCLKS, nullptr);
        ASSERT_TRUE(GetClassInfoExA(ThisModule(), windowClass.Name(), &description));
        EXPECT_TRUE(description.style & CS_DBLCLKS);
    }
    EXPECT_FALSE(GetClassInfoExA(ThisModule(), "nuxWindowClassTest", &description));
}

}  // namespace
}  // namespace nux
