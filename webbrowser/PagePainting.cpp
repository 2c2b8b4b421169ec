#include "webbrowser/PagePainting.h"

#include <algorithm>

#include "framework/HResult.h"
#include "webbrowser/Base64.h"

namespace nux::webbrowser {

void PagePainting::Begin() {
    size_ = {std::max(size_.width, 1), std::max(size_.height, 1)};
    TellSize();
}

void PagePainting::TellSize() {
    session_.Send(
        "Emulation.setDeviceMetricsOverride",
        {{"width", size_.width}, {"height", size_.height}, {"deviceScaleFactor", 1}, {"mobile", false}});
    if (!isVisible_)
        return;
    // One that goes on would send few pictures of the new size, and of the last one none.
    session_.Send("Page.stopScreencast");
    session_.Send("Page.startScreencast", {{"format", "png"}, {"everyNthFrame", 1}});
}

void PagePainting::Resize(PixelSize size) {
    size = {std::max(size.width, 1), std::max(size.height, 1)};
    if (size == size_)
        return;
    size_ = size;
    TellSize();
}

void PagePainting::SetVisible(bool visible) {
    if (visible == isVisible_)
        return;
    isVisible_ = visible;
    if (visible)
        TellSize();
    else
        session_.Send("Page.stopScreencast");
}

std::shared_ptr<const Picture> PagePainting::Received(const Json& frame) {
    session_.Send("Page.screencastFrameAck", {{"sessionId", NumberMember(frame, "sessionId")}});
    const auto file = DecodeBase64(TextMember(frame, "data"));
    if (!file)
        return nullptr;
    last_ = std::make_shared<const Picture>(DecodePicture(*file));
    return last_;
}

}  // namespace nux::webbrowser
