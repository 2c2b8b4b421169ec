#pragma once

#include <windows.h>

#include <ole2.h>

#include "framework/InterfaceId.h"

namespace nux {

/// An interface in the list of Implements, with the bases whose identifiers it answers to as well.
template <class Interface, class... Bases>
struct AlsoAs;

template <class Offer>
struct OfferedInterface {
    using Type = Offer;
    static bool Answers(REFIID iid) noexcept { return iid == IdOf<Offer>(); }
};

template <class Interface, class... Bases>
struct OfferedInterface<AlsoAs<Interface, Bases...>> {
    using Type = Interface;
    static bool Answers(REFIID iid) noexcept {
        return iid == IdOf<Interface>() || (... || (iid == IdOf<Bases>()));
    }
};

/// Base of a class that implements these interfaces: derives it from each, and finds each by its identifier.
/// IUnknown is the first one's, so that a class with several lists asks the same one first each time.
template <class First, class... Rest>
class Implements : public OfferedInterface<First>::Type, public OfferedInterface<Rest>::Type... {
protected:
    /// The pointer for an interface of the list, or null.
    void* FindInterface(REFIID iid) noexcept {
        if (iid == IdOf<IUnknown>())
            return static_cast<typename OfferedInterface<First>::Type*>(this);
        void* found = nullptr;
        (void)(Look<First>(iid, found) || ... || Look<Rest>(iid, found));
        return found;
    }

private:
    template <class Offer>
    bool Look(REFIID iid, void*& found) noexcept {
        if (!OfferedInterface<Offer>::Answers(iid))
            return false;
        found = static_cast<typename OfferedInterface<Offer>::Type*>(this);
        return true;
    }
};

}  // namespace nux
