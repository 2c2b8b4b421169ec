#pragma once

#include <windows.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "framework/ComObject.h"
#include "framework/HResult.h"
#include "framework/Implements.h"

namespace nux {

/// A COM enumerator (`Interface`) over a copy of a list. `Item` is what the list holds;
/// `Item::CopyTo(Element*)` hands one out with the references or memory that its receiver then owns.
template <class Interface, class Item, class Element>
class Enumeration : public Implements<Interface> {
public:
    using Items = std::vector<Item>;

    Enumeration(std::shared_ptr<const Items> items, std::size_t position)
        : items_(std::move(items)), position_(position) {}

    STDMETHODIMP Next(ULONG count, Element* elements, ULONG* fetched) override {
        if (!elements || (!fetched && count != 1))
            return E_POINTER;
        const ULONG given = std::min<ULONG>(count, Left());
        for (ULONG i = 0; i < given; ++i)
            (*items_)[position_++].CopyTo(&elements[i]);
        if (fetched)
            *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Skip(ULONG count) override {
        const ULONG skipped = std::min<ULONG>(count, Left());
        position_ += skipped;
        return skipped == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Reset() override {
        position_ = 0;
        return S_OK;
    }

    STDMETHODIMP Clone(Interface** copy) override {
        if (!copy)
            return E_POINTER;
        *copy = nullptr;
        return Guarded([&] {
            *copy = MakeObject<Enumeration>(items_, position_).Detach();
            return S_OK;
        });
    }

private:
    ULONG Left() const noexcept { return static_cast<ULONG>(items_->size() - position_); }

    std::shared_ptr<const Items> items_;
    std::size_t position_;
};

}  // namespace nux
