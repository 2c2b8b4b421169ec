#include "framework/HResult.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "framework/ProcessWide.h"

namespace nux {
namespace {

TEST(Guarded, GivesTheAnswerOfItsBody) {
    EXPECT_EQ(S_OK, Guarded([] { return S_OK; }));
    EXPECT_EQ(S_FALSE, Guarded([] { return S_FALSE; }));
    EXPECT_EQ(E_NOTIMPL, Guarded([] { return E_NOTIMPL; }));
}

TEST(Guarded, TurnsAFailureIntoItsCode) {
    EXPECT_EQ(E_ACCESSDENIED, Guarded([]() -> HRESULT { throw HResultError(E_ACCESSDENIED); }));
}

TEST(Guarded, TurnsExhaustedMemoryIntoItsCode) {
    EXPECT_EQ(E_OUTOFMEMORY, Guarded([]() -> HRESULT { throw std::bad_alloc(); }));
    EXPECT_EQ(E_OUTOFMEMORY, Guarded([]() -> HRESULT { throw std::bad_array_new_length(); }));
}

TEST(Guarded, TurnsAnyOtherExceptionIntoUnexpected) {
    EXPECT_EQ(E_UNEXPECTED, Guarded([]() -> HRESULT { throw std::runtime_error("other"); }));
    EXPECT_EQ(E_UNEXPECTED, Guarded([]() -> HRESULT { throw 5; }));
}

TEST(ThrowIfFailed, ThrowsForFailuresOnly) {
    EXPECT_NO_THROW(ThrowIfFailed(S_OK));
    EXPECT_NO_THROW(ThrowIfFailed(S_FALSE));
    try {
        ThrowIfFailed(E_ABORT);
        FAIL() << "nothing thrown";
    } catch (const HResultError& error) {
        EXPECT_EQ(E_ABORT, error.Code());
        EXPECT_STRNE("", error.what());
    }
}

struct Counted {
    Counted() { ++made; }
    ~Counted() { ++destroyed; }
    static inline int made = 0;
    static inline int destroyed = 0;
};

TEST(ProcessWide, IsMadeAtFirstUseAndNeverDestroyed) {
    {
        ProcessWide<Counted> object;
        EXPECT_EQ(0, Counted::made);
        EXPECT_EQ(&object.Get(), &object.Get());
        EXPECT_EQ(1, Counted::made);
    }
    EXPECT_EQ(0, Counted::destroyed);
}

}  // namespace
}  // namespace nux
