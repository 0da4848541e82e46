// Exceptions thrown as pointers: kinds, texts, and who frees them.
#include "Text.h"

#include <gtest/gtest.h>

namespace {

template <class Exception, class Throw> CString textThrownBy(const Throw& thrower) {
    try {
        thrower();
    } catch (Exception* exception) {
        TCHAR text[100];
        EXPECT_TRUE(exception->GetErrorMessage(text, 100));
        EXPECT_TRUE(exception->IsKindOf(RUNTIME_CLASS(Exception)));
        exception->Delete();
        return text;
    } catch (CException* exception) {
        exception->Delete();
        ADD_FAILURE() << "another kind of exception";
    }
    return CString();
}

TEST(Exceptions, ThrowFunctionsThrowTheirKindWithAText) {
    EXPECT_EQ(textThrownBy<CMemoryException>(AfxThrowMemoryException), L"Out of memory.");
    EXPECT_EQ(textThrownBy<CNotSupportedException>(AfxThrowNotSupportedException),
              L"An unsupported operation was attempted.");
    EXPECT_EQ(textThrownBy<CResourceException>(AfxThrowResourceException), L"A required resource was unavailable.");
    EXPECT_EQ(textThrownBy<CInvalidArgException>(AfxThrowInvalidArgException), L"An invalid argument was encountered.");
}

TEST(Exceptions, TheUsersIsSilent) {
    try {
        AfxThrowUserException();
    } catch (CException* exception) {
        TCHAR text[10] = L"before";
        EXPECT_TRUE(exception->IsKindOf(RUNTIME_CLASS(CUserException)));
        EXPECT_FALSE(exception->GetErrorMessage(text, 10));
        EXPECT_EQ(text[0], L'\0');
        exception->Delete();
    }
}

TEST(Exceptions, ATextIsCutToTheRoomForIt) {
    const CSimpleException exception(L"explanation", FALSE);
    TCHAR text[5];
    EXPECT_TRUE(exception.GetErrorMessage(text, 5));
    EXPECT_EQ(CString(text), L"expl");
    EXPECT_FALSE(exception.GetErrorMessage(text, 0));
    EXPECT_FALSE(exception.GetErrorMessage(nullptr, 5));
}

TEST(Exceptions, HelpContextIsZero) {
    UINT help = 99;
    TCHAR text[5];
    CSimpleException(L"x", FALSE).GetErrorMessage(text, 5, &help);
    EXPECT_EQ(help, 0u);
}

TEST(Exceptions, DeleteLeavesObjectsAloneThatAreNotOnTheHeap) {
    CSimpleException exception(L"kept", FALSE);
    exception.Delete();
    TCHAR text[10];
    EXPECT_TRUE(exception.GetErrorMessage(text, 10));
    EXPECT_EQ(CString(text), L"kept");
}

} // namespace
