// The input of a page.

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "webbrowser/BrowserPage.h"
#include "webbrowser/KeyNames.h"
#include "webbrowser/Utf.h"

namespace nux::webbrowser {
namespace {

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

int Modifiers() {
    return (IsDown(VK_MENU) ? 1 : 0) | (IsDown(VK_CONTROL) ? 2 : 0) | (IsDown(VK_SHIFT) ? 8 : 0);
}

struct MouseAction {
    const char* type;
    const char* button;
    int clicks;
};

MouseAction ActionOf(UINT message) {
    switch (message) {
        case WM_LBUTTONDOWN:
            return {"mousePressed", "left", 1};
        case WM_LBUTTONDBLCLK:
            return {"mousePressed", "left", 2};
        case WM_LBUTTONUP:
            return {"mouseReleased", "left", 0};
        case WM_RBUTTONDOWN:
            return {"mousePressed", "right", 1};
        case WM_RBUTTONDBLCLK:
            return {"mousePressed", "right", 2};
        case WM_RBUTTONUP:
            return {"mouseReleased", "right", 0};
        case WM_MBUTTONDOWN:
            return {"mousePressed", "middle", 1};
        case WM_MBUTTONDBLCLK:
            return {"mousePressed", "middle", 2};
        case WM_MBUTTONUP:
            return {"mouseReleased", "middle", 0};
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
            return {"mouseWheel", "none", 0};
        default:
            return {"mouseMoved", "none", 0};
    }
}

/// What a key writes, for pages that ask for it before it is written.
std::string CharacterOf(WPARAM virtualKey) {
    auto character =
        static_cast<wchar_t>(MapVirtualKeyW(static_cast<UINT>(virtualKey), MAPVK_VK_TO_CHAR) & 0xffff);
    if (character == 0)
        return {};
    if (!IsDown(VK_SHIFT) && (GetKeyState(VK_CAPITAL) & 1) == 0)
        character = static_cast<wchar_t>(reinterpret_cast<UINT_PTR>(
            CharLowerW(reinterpret_cast<LPWSTR>(static_cast<UINT_PTR>(character)))));
    return ToUtf8(std::wstring_view(&character, 1));
}

/// So many pixels scroll by one notch of the wheel.
constexpr int pixelsOfNotch = 100;

}  // namespace

void BrowserPage::Mouse(UINT message, WPARAM wParam, POINT at) {
    const MouseAction action = ActionOf(message);
    if (action.clicks > 0)
        clicks_ = action.clicks;
    if (message == WM_MOUSELEAVE) {
        at = {-1, -1};
        wParam = 0;
    }
    const WORD keys = GET_KEYSTATE_WPARAM(wParam);
    Json event = {
        {"type", action.type},
        {"x", at.x},
        {"y", at.y},
        {"button", action.button},
        {"buttons", (keys & MK_LBUTTON ? 1 : 0) | (keys & MK_RBUTTON ? 2 : 0) | (keys & MK_MBUTTON ? 4 : 0)},
        {"clickCount", action.type == std::string_view("mouseMoved") ? 0 : clicks_},
        {"modifiers", Modifiers()}};
    if (message == WM_MOUSEWHEEL || message == WM_MOUSEHWHEEL) {
        const int pixels = GET_WHEEL_DELTA_WPARAM(wParam) * pixelsOfNotch / WHEEL_DELTA;
        event["deltaX"] = message == WM_MOUSEHWHEEL ? pixels : 0;
        event["deltaY"] = message == WM_MOUSEWHEEL ? -pixels : 0;
    }
    session_.Send("Input.dispatchMouseEvent", event);
}

void BrowserPage::Key(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CHAR || message == WM_SYSCHAR) {
        const auto unit = static_cast<wchar_t>(wParam);
        std::wstring text;
        if (IS_HIGH_SURROGATE(unit)) {
            firstHalf_ = unit;
            return;
        }
        if (IS_LOW_SURROGATE(unit) && firstHalf_ != 0)
            text = firstHalf_;
        firstHalf_ = 0;
        text += unit;
        // Keys without a character have done all that they do.
        if (message == WM_SYSCHAR || (unit < L' ' && unit != L'\r') || unit == 0x7f)
            return;
        SendKey({{"type", "char"}, {"text", ToUtf8(text)}, {"modifiers", Modifiers()}});
        return;
    }
    const bool isDown = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
    const bool isExtended = (HIWORD(lParam) & KF_EXTENDED) != 0;
    const KeyName name = KeyNameOf(static_cast<unsigned>(wParam), isExtended);
    SendKey({{"type", isDown ? "rawKeyDown" : "keyUp"},
             {"windowsVirtualKeyCode", static_cast<int>(wParam)},
             {"nativeVirtualKeyCode", static_cast<int>(wParam)},
             {"code", name.code},
             {"key", name.key.empty() ? CharacterOf(wParam) : name.key},
             {"location", name.location == 3 ? 0 : name.location},
             {"isKeypad", name.location == 3},
             {"isSystemKey", message == WM_SYSKEYDOWN || message == WM_SYSKEYUP},
             {"autoRepeat", isDown && (HIWORD(lParam) & KF_REPEAT) != 0},
             {"modifiers", Modifiers()}});
}

void BrowserPage::SendKey(Json key) {
    if (clipboardWrites_ > 0)
        waitingKeys_.push_back(std::move(key));
    else
        session_.Send("Input.dispatchKeyEvent", key);
}

void BrowserPage::InsertText(std::wstring_view text) {
    session_.Send("Input.insertText", {{"text", ToUtf8(text)}});
}

void BrowserPage::SetClipboardText(std::wstring_view text) {
    if (!session_.isOpen || isCrashed_)
        return;
    // Keys reach the page by another way than commands: those that come later wait.
    ++clipboardWrites_;
    const std::weak_ptr<Page> weak = shared_from_this();
    // Only what a user does may write there, so it is said to be the user's doing.
    session_.Ask(
        "Runtime.evaluate",
        {{"expression", "__nuxPage.setClipboard(" + Json(ToUtf8(text)).dump() + ")"}, {"userGesture", true}},
        [this, weak](const ChannelMessage&) {
            const std::shared_ptr<Page> page = weak.lock();
            if (!page || clipboardWrites_ == 0 || --clipboardWrites_ > 0)
                return;
            for (Json& key : std::exchange(waitingKeys_, {}))
                SendKey(std::move(key));
        });
}

void BrowserPage::ChooseInList(const PageReference& element, int entry) {
    Variant arguments[2];
    arguments[0].SetObject(ObjectOf(element));
    arguments[1].SetNumber(entry);
    Post(R"((select, entry) => {
        if (select.selectedIndex === entry)
            return;
        select.selectedIndex = entry;
        select.dispatchEvent(new Event('input', {bubbles: true}));
        select.dispatchEvent(new Event('change', {bubbles: true}));
    })",
         arguments);
}

void BrowserPage::OnListOpened(const ScriptArray& list) {
    const auto* const element = std::get_if<PageObjectId>(&list[1].content);
    const auto* const lines = std::get_if<std::u16string>(&list[7].content);
    PageList opened;
    // What the page has sent is counted, whatever else it says.
    if (element)
        opened.element = bridge_->Hold(*element);
    int numbers[5] = {};
    for (int i = 0; i < 5; ++i) {
        const auto* const number = std::get_if<double>(&list[i + 2].content);
        if (!number || !(*number > -1e6 && *number < 1e6))
            return;
        numbers[i] = static_cast<int>(*number);
    }
    if (!element || !lines)
        return;
    opened.place = {numbers[0], numbers[1], numbers[2], numbers[3]};
    opened.selected = numbers[4];
    std::size_t begin = 0;
    while (begin < lines->size()) {
        const std::size_t end = std::min(lines->find(u'\n', begin), lines->size());
        opened.entries.push_back({{lines->begin() + static_cast<std::ptrdiff_t>(begin) + 1,
                                   lines->begin() + static_cast<std::ptrdiff_t>(end)},
                                  (*lines)[begin] == u'+'});
        begin = end + 1;
    }
    listener_->ListOpened(opened);
}

void BrowserPage::SetFocus(bool focused) {
    session_.Send("Emulation.setFocusEmulationEnabled", {{"enabled", focused}});
}

void BrowserPage::TabInto(bool forward) {
    if (!session_.isOpen || isCrashed_)
        return;
    Variant argument;
    VARIANT value{};
    value.vt = VT_BOOL;
    value.boolVal = forward ? VARIANT_TRUE : VARIANT_FALSE;
    argument.SetCopy(value);
    Post(R"(forward => {
        const all = Array.from(document.querySelectorAll(
            'a[href], area[href], input, select, textarea, button, iframe, [tabindex], [contenteditable]'))
            .filter(each => each.tabIndex >= 0 && !each.disabled && each.getClientRects().length > 0);
        const ordered = [...all.filter(each => each.tabIndex > 0).sort((a, b) => a.tabIndex - b.tabIndex),
            ...all.filter(each => each.tabIndex === 0)];
        ordered.at(forward ? 0 : -1)?.focus();
    })",
         {&argument, 1});
}

}  // namespace nux::webbrowser
