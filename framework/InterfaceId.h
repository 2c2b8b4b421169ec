#pragma once

#include <windows.h>

#include <ole2.h>

namespace nux {

/// The identifier of an interface, from its type.
template <class Interface>
const IID& IdOf() noexcept {
    return __uuidof(Interface);
}

}  // namespace nux

#ifdef __MINGW32__
// The compiler's headers give these types no identifier.
#define NUX_INTERFACE_ID(Interface)                     \
    struct Interface;                                   \
    EXTERN_C const IID IID_##Interface;                 \
    template <>                                         \
    inline const IID& nux::IdOf<Interface>() noexcept { \
        return IID_##Interface;                         \
    }
NUX_INTERFACE_ID(IObjectSafety)
NUX_INTERFACE_ID(IXMLDOMDocument)
NUX_INTERFACE_ID(IXMLDOMElement)
NUX_INTERFACE_ID(IXMLDOMNode)
NUX_INTERFACE_ID(IXMLDOMNodeList)
#undef NUX_INTERFACE_ID
#endif
