// Making an object where a lack of memory isn't to end what is under way.

#include "NewOrNull.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

/// Its constructor throws what the function throws.
struct Thrower {
    explicit Thrower(void (*fail)()) { fail(); }
};

} // namespace

TEST(NewOrNull, MakesTheObjectOfItsArguments) {
    const std::unique_ptr<CString> made = newOrNull<CString>(L'x', 3);
    ASSERT_TRUE(made);
    EXPECT_EQ(*made, CString(L"xxx"));
}

TEST(NewOrNull, AnswersNullForALackOfMemoryWhoeverReportsIt) {
    EXPECT_EQ(newOrNull<Thrower>([] { throw std::bad_alloc(); }), nullptr);
    EXPECT_EQ(newOrNull<Thrower>([] { AfxThrowMemoryException(); }), nullptr);
}

TEST(NewOrNull, LetsOtherExceptionsPass) {
    EXPECT_THROW(newOrNull<Thrower>([] { throw std::runtime_error("other"); }), std::runtime_error);
}
