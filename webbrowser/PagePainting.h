#pragma once

#include <memory>

#include "framework/PixelGeometry.h"
#include "webbrowser/PageListener.h"
#include "webbrowser/Session.h"

namespace nux::webbrowser {

/// What a page looks like, from the browser's screencast.
class PagePainting {
public:
    PagePainting(Session& session, PixelSize size) : session_(session), size_(size) {}

    /// Once the session is there.
    void Begin();
    void Resize(PixelSize size);
    void SetVisible(bool visible);
    /// An event of the screencast. @return the picture, or null if there is none to show
    std::shared_ptr<const Picture> Received(const Json& frame);
    const std::shared_ptr<const Picture>& Last() const noexcept { return last_; }

private:
    void TellSize();

    Session& session_;
    PixelSize size_;
    bool isVisible_ = true;
    std::shared_ptr<const Picture> last_;
};

}  // namespace nux::webbrowser
