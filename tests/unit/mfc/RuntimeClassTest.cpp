// Run-time class information: names, kinds, casts and making objects by their class.
#include <afx.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

class Shape : public CObject {
    DECLARE_DYNAMIC(Shape)
};
class Circle : public Shape {
    DECLARE_DYNCREATE(Circle)
  public:
    int radius = 3;
};
class Square : public Shape {
    DECLARE_DYNCREATE(Square)
};
/// Has no information of its own.
class BigCircle : public Circle {};

IMPLEMENT_DYNAMIC(Shape, CObject)
IMPLEMENT_DYNCREATE(Circle, Shape)
IMPLEMENT_DYNCREATE(Square, Shape)

TEST(RuntimeClass, TellsNameSizeAndBase) {
    const CRuntimeClass* const circle = RUNTIME_CLASS(Circle);
    EXPECT_STREQ(circle->m_lpszClassName, "Circle");
    EXPECT_EQ(circle->m_nObjectSize, static_cast<int>(sizeof(Circle)));
    EXPECT_EQ(circle->m_pfnGetBaseClass(), RUNTIME_CLASS(Shape));
    EXPECT_STREQ(RUNTIME_CLASS(CObject)->m_lpszClassName, "CObject");
}

TEST(RuntimeClass, OfAnObjectIsItsOwnAndNotItsPointers) {
    const Circle circle;
    const CObject& object = circle;
    EXPECT_EQ(object.GetRuntimeClass(), RUNTIME_CLASS(Circle));
}

TEST(RuntimeClass, KindIncludesAllBasesAndNoSiblings) {
    const Circle circle;
    EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(Circle)));
    EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(Shape)));
    EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(circle.IsKindOf(RUNTIME_CLASS(Square)));
    EXPECT_FALSE(RUNTIME_CLASS(Shape)->IsDerivedFrom(RUNTIME_CLASS(Circle)));
}

TEST(RuntimeClass, OfAClassWithoutTheMacroIsTheNearestBases) {
    const BigCircle big;
    EXPECT_EQ(big.GetRuntimeClass(), RUNTIME_CLASS(Circle));
}

TEST(RuntimeClass, MakesObjectsOfClassesDeclaredForIt) {
    const std::unique_ptr<CObject> made(RUNTIME_CLASS(Circle)->CreateObject());
    ASSERT_TRUE(made);
    const auto* const circle = DYNAMIC_DOWNCAST(Circle, made.get());
    ASSERT_TRUE(circle);
    EXPECT_EQ(circle->radius, 3);
}

TEST(RuntimeClass, MakesNothingOfAClassThatIsOnlyDynamic) {
    EXPECT_EQ(RUNTIME_CLASS(Shape)->CreateObject(), nullptr);
}

TEST(RuntimeClass, DownCastAnswersNullForAnotherKindAndForNull) {
    Circle circle;
    Shape* const shape = &circle;
    EXPECT_EQ(DYNAMIC_DOWNCAST(Circle, shape), &circle);
    EXPECT_EQ(DYNAMIC_DOWNCAST(Square, shape), nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(Square, static_cast<CObject*>(nullptr)), nullptr);
    EXPECT_EQ(STATIC_DOWNCAST(Circle, shape), &circle);
}

TEST(RuntimeClass, CollectionsHaveTheirOwn) {
    const std::unique_ptr<CObject> made(RUNTIME_CLASS(CStringArray)->CreateObject());
    ASSERT_TRUE(made);
    EXPECT_TRUE(made->IsKindOf(RUNTIME_CLASS(CStringArray)));
    EXPECT_FALSE(made->IsKindOf(RUNTIME_CLASS(CObList)));
}

} // namespace
