// What would not compile with MFC must not compile here: the module is built with both.
#include "afx.h"

#include <gtest/gtest.h>

#include <new>
#include <type_traits>
#include <utility>

namespace {

template <class T>
concept hasNothrowNew = requires {
    new (std::nothrow) T;
};
static_assert(hasNothrowNew<int>, "the question is one");
static_assert(!hasNothrowNew<CObList>, "a class derived from CObject hides the form without an exception");

using Read = const CObList&;
template <class Answer, class Expected> constexpr bool isExactly = std::is_same_v<Answer, Expected>;
static_assert(isExactly<decltype(std::declval<Read>().GetHead()), const CObject*>);
static_assert(isExactly<decltype(std::declval<Read>().GetTail()), const CObject*>);
static_assert(isExactly<decltype(std::declval<Read>().GetNext(std::declval<POSITION&>())), const CObject*>);
static_assert(isExactly<decltype(std::declval<Read>().GetPrev(std::declval<POSITION&>())), const CObject*>);
static_assert(isExactly<decltype(std::declval<Read>().GetAt(nullptr)), const CObject*>);
static_assert(isExactly<decltype(std::declval<CObList&>().GetHead()), CObject*&>);
static_assert(isExactly<decltype(std::declval<CObList&>().GetNext(std::declval<POSITION&>())), CObject*&>);

static_assert(!std::is_copy_constructible_v<CObject> && !std::is_copy_assignable_v<CObList>);

// What the checks above leave open: that hiding the other forms of `new` leaves this one whole.
TEST(Signatures, AnObjectIsMadeAndDeletedThroughItsBase) {
    CObject* const object = new CObList;
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CObList)));
    delete object;
    alignas(CObList) std::byte place[sizeof(CObList)];
    auto* const inPlace = new (static_cast<void*>(place)) CObList;
    EXPECT_EQ(static_cast<void*>(inPlace), static_cast<void*>(place));
    inPlace->~CObList();
}

} // namespace
