#pragma once

#include <windows.h>

#include <ole2.h>

#include "framework/ComPtr.h"

namespace nux {

/// What the parts of a control share.
class ControlState {
public:
    /// Constants of a control's class.
    struct Identity {
        const CLSID& classId;
        const IID& eventInterface;  ///< default source, a dispatch interface
        const char* userTypeName;   ///< for people, a literal
        DWORD miscStatus;           ///< OLEMISC_ flags, the same as registered
    };

protected:
    virtual ~ControlState() = default;
    virtual const Identity& GetIdentity() const noexcept = 0;

    ComPtr<IOleClientSite> site_;
    SIZEL extent_{5080, 5080};  ///< in 1/100 mm; two inches each way until a container sizes the control
    bool dirty_ = false;        ///< the extent has changed since it was loaded or saved
};

}  // namespace nux
