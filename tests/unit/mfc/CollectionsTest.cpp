// The ready-made collections and the templates below them: order, growth, positions, and elements of their own.
#include "Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace {

using testing::ElementsAre;

std::vector<CString> contents(const CStringArray& array) {
    std::vector<CString> all;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        all.push_back(array[i]);
    return all;
}

std::vector<const CObject*> contents(const CObList& list) {
    std::vector<const CObject*> all;
    for (POSITION at = list.GetHeadPosition(); at;)
        all.push_back(list.GetNext(at));
    return all;
}

std::vector<const CObject*> backwards(const CObList& list) {
    std::vector<const CObject*> all;
    for (POSITION at = list.GetTailPosition(); at;)
        all.push_back(list.GetPrev(at));
    return all;
}

class Thing : public CObject {};

class ObListTest : public testing::Test {
  protected:
    Thing a, b, c, d;
    CObList list;
};

TEST(StringArray, AddsAtTheEndAndAnswersTheIndex) {
    CStringArray array;
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetUpperBound(), -1);
    EXPECT_EQ(array.Add(L"one"), 0);
    EXPECT_EQ(array.Add(L"two"), 1);
    EXPECT_EQ(array.GetSize(), 2);
    EXPECT_EQ(array.GetCount(), 2);
    EXPECT_EQ(array.GetUpperBound(), 1);
    EXPECT_EQ(array.GetAt(1), L"two");
    EXPECT_EQ(array.GetData()[0], L"one");
}

TEST(StringArray, MayAddAnElementOfItsOwn) {
    CStringArray array;
    array.Add(L"a text too long to lie inside the string object itself");
    for (int i = 0; i < 20; ++i)
        array.Add(array[0]);
    EXPECT_EQ(array[20], array[0]);
    EXPECT_EQ(array[20].GetLength(), 54);
}

TEST(StringArray, SetAtGrowFillsTheGapWithEmptyStrings) {
    CStringArray array;
    array.SetAtGrow(2, L"third");
    EXPECT_THAT(contents(array), ElementsAre(CString(), CString(), CString(L"third")));
    array.SetAtGrow(0, L"first");
    EXPECT_THAT(contents(array), ElementsAre(CString(L"first"), CString(), CString(L"third")));
    array.SetAtGrow(40, array[0]);
    EXPECT_EQ(array[40], L"first");
}

TEST(StringArray, InsertsBeforeAnIndexAndBehindTheEnd) {
    CStringArray array;
    array.Add(L"b");
    array.InsertAt(0, L"a", 2);
    array.InsertAt(4, L"e");
    EXPECT_THAT(contents(array), ElementsAre(CString(L"a"), CString(L"a"), CString(L"b"), CString(), CString(L"e")));
    CStringArray other;
    other.Add(L"x");
    other.Add(L"y");
    array.RemoveAt(1, 3);
    array.InsertAt(1, &other);
    EXPECT_THAT(contents(array), ElementsAre(CString(L"a"), CString(L"x"), CString(L"y"), CString(L"e")));
}

TEST(StringArray, AppendsAndCopiesAnotherOrItself) {
    CStringArray array;
    array.Add(L"a");
    EXPECT_EQ(array.Append(array), 1);
    EXPECT_THAT(contents(array), ElementsAre(CString(L"a"), CString(L"a")));
    CStringArray copy;
    copy.Add(L"gone");
    copy.Copy(array);
    array[0] = L"changed";
    EXPECT_THAT(contents(copy), ElementsAre(CString(L"a"), CString(L"a")));
}

TEST(StringArray, RemovesAndResizes) {
    CStringArray array;
    array.SetSize(3);
    array[1] = L"kept";
    array.RemoveAt(0);
    array.SetSize(1, 10);
    EXPECT_THAT(contents(array), ElementsAre(CString(L"kept")));
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetSize(), 0);
}

TEST(UIntArray, HoldsNumbersAndStartsThemAtZero) {
    CUIntArray array;
    array.SetSize(2);
    array[1] = 7;
    EXPECT_EQ(array[0], 0u);
    EXPECT_EQ(array[1], 7u);
}

TEST_F(ObListTest, KeepsTheOrderInBothDirections) {
    list.AddTail(&b);
    list.AddTail(&c);
    list.AddHead(&a);
    EXPECT_THAT(contents(list), ElementsAre(&a, &b, &c));
    EXPECT_THAT(backwards(list), ElementsAre(&c, &b, &a));
    EXPECT_EQ(list.GetCount(), 3);
    EXPECT_EQ(list.GetHead(), &a);
    EXPECT_EQ(list.GetTail(), &c);
}

TEST_F(ObListTest, RemovesAtTheEndsAndInTheMiddle) {
    list.AddTail(&a);
    const POSITION middle = list.AddTail(&b);
    list.AddTail(&c);
    list.RemoveAt(middle);
    EXPECT_THAT(contents(list), ElementsAre(&a, &c));
    EXPECT_THAT(backwards(list), ElementsAre(&c, &a));
    EXPECT_EQ(list.RemoveHead(), &a);
    EXPECT_EQ(list.RemoveTail(), &c);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.GetHeadPosition(), nullptr);
    EXPECT_EQ(list.GetTailPosition(), nullptr);
}

TEST_F(ObListTest, InsertsAroundAPositionAndAtTheEndsWithoutOne) {
    const POSITION at = list.AddTail(&b);
    list.InsertBefore(at, &a);
    list.InsertAfter(at, &c);
    EXPECT_THAT(contents(list), ElementsAre(&a, &b, &c));
    list.InsertBefore(nullptr, &d);
    list.InsertAfter(nullptr, &d);
    EXPECT_THAT(contents(list), ElementsAre(&d, &a, &b, &c, &d));
    EXPECT_THAT(backwards(list), ElementsAre(&d, &c, &b, &a, &d));
}

TEST_F(ObListTest, FindsByValueBehindAPositionAndByNumber) {
    const POSITION first = list.AddTail(&a);
    list.AddTail(&b);
    const POSITION second = list.AddTail(&a);
    EXPECT_EQ(list.Find(&a), first);
    EXPECT_EQ(list.Find(&a, first), second);
    EXPECT_EQ(list.Find(&a, second), nullptr);
    EXPECT_EQ(list.Find(&d), nullptr);
    EXPECT_EQ(list.FindIndex(2), second);
    EXPECT_EQ(list.FindIndex(3), nullptr);
    EXPECT_EQ(list.FindIndex(-1), nullptr);
}

TEST_F(ObListTest, SetsAValueInPlaceAndAddsAnotherList) {
    const POSITION at = list.AddTail(&a);
    list.SetAt(at, &b);
    CObList other;
    other.AddTail(&c);
    other.AddTail(&d);
    list.AddTail(&other);
    EXPECT_THAT(contents(list), ElementsAre(&b, &c, &d));
    list.AddHead(&other);
    EXPECT_THAT(contents(list), ElementsAre(&c, &d, &b, &c, &d));
    EXPECT_EQ(other.GetCount(), 2);
}

TEST_F(ObListTest, LeavesItsObjectsAliveWhenItGoes) {
    auto* const owned = new Thing;
    {
        CObList passing;
        passing.AddTail(owned);
    }
    list.AddTail(owned);
    list.RemoveAll();
    EXPECT_TRUE(owned->IsKindOf(RUNTIME_CLASS(CObject)));
    delete owned;
}

TEST(List, GoesThroughWhileTheElementJustVisitedIsRemoved) {
    CStringList list;
    for (const LPCTSTR text : {L"a", L"b", L"c"})
        list.AddTail(text);
    for (POSITION at = list.GetHeadPosition(); at;) {
        const POSITION here = at;
        if (list.GetNext(at) != L"b")
            list.RemoveAt(here);
    }
    ASSERT_EQ(list.GetCount(), 1);
    EXPECT_EQ(list.GetHead(), L"b");
}

// MFC throws its exceptions as pointers, which gtest's macros can't take apart.
template <class Action> bool isRefused(Action action) {
    try {
        action();
        return false;
    } catch (CInvalidArgException* exception) {
        exception->Delete();
        return true;
    }
}

TEST(StringArray, RefusesWhatIsOutsideByTheLibrarysOwnException) {
    CStringArray array;
    array.Add(L"one");
    for (const INT_PTR outside : {INT_PTR{-1}, INT_PTR{1}}) {
        EXPECT_TRUE(isRefused([&] { array.GetAt(outside); })) << outside;
        EXPECT_TRUE(isRefused([&] { static_cast<const CStringArray&>(array).GetAt(outside); })) << outside;
        EXPECT_TRUE(isRefused([&] { array.ElementAt(outside); })) << outside;
        EXPECT_TRUE(isRefused([&] { array[outside]; })) << outside;
        EXPECT_TRUE(isRefused([&] { array.SetAt(outside, L"two"); })) << outside;
        EXPECT_TRUE(isRefused([&] { array.RemoveAt(outside); })) << outside;
    }
    EXPECT_TRUE(isRefused([&] { array.RemoveAt(0, 2); }));
    EXPECT_TRUE(isRefused([&] { array.RemoveAt(0, -1); }));
    EXPECT_TRUE(isRefused([&] { array.SetSize(-1); }));
    EXPECT_TRUE(isRefused([&] { array.SetAtGrow(-1, L"two"); }));
    EXPECT_TRUE(isRefused([&] { array.InsertAt(-1, L"two"); }));
    EXPECT_TRUE(isRefused([&] { array.InsertAt(0, L"two", 0); }));
    EXPECT_TRUE(isRefused([&] { array.InsertAt(-1, &array); }));
    EXPECT_TRUE(isRefused([&] { array.InsertAt(0, nullptr); }));
    EXPECT_THAT(contents(array), ElementsAre(L"one"));
}

TEST_F(ObListTest, RefusesANullPositionAndTheEndsOfAnEmptyListByTheLibrarysOwnException) {
    const CObList& read = list;
    POSITION none = nullptr;
    EXPECT_TRUE(isRefused([&] { list.GetHead(); }));
    EXPECT_TRUE(isRefused([&] { read.GetHead(); }));
    EXPECT_TRUE(isRefused([&] { list.GetTail(); }));
    EXPECT_TRUE(isRefused([&] { read.GetTail(); }));
    EXPECT_TRUE(isRefused([&] { list.RemoveHead(); }));
    EXPECT_TRUE(isRefused([&] { list.RemoveTail(); }));
    list.AddTail(&a);
    EXPECT_TRUE(isRefused([&] { list.GetNext(none); }));
    EXPECT_TRUE(isRefused([&] { read.GetPrev(none); }));
    EXPECT_TRUE(isRefused([&] { list.GetAt(none); }));
    EXPECT_TRUE(isRefused([&] { list.SetAt(none, &b); }));
    EXPECT_TRUE(isRefused([&] { list.RemoveAt(none); }));
    EXPECT_THAT(contents(list), ElementsAre(&a));
}

} // namespace
