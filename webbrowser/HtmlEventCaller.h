#pragma once

#include "framework/Variant.h"
#include "webbrowser/PageReference.h"

namespace nux::webbrowser {

/// What a page's listener calls in the place of a handler of C++: an object with the one method
/// `call(source, event)`. It calls the handler's default member, with the event as the argument if there is
/// one (that isn't null), and tells a handler that knows IDispatchEx the source as `this`.
/// @param page  any object of the page
/// @return empty for a handler that the page calls itself: a function of its own; and for none
Variant MakeEventCaller(const Variant& handler, const PageReference& page);

}  // namespace nux::webbrowser
