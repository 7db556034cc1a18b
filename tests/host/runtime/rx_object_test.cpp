#include "host/runtime/rx_object.h"

#include "host/runtime/registry.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

class Shape : public AcRxObject {
    ACRX_DECLARE_MEMBERS(Shape)
};

class Ring : public Shape {
    ACRX_DECLARE_MEMBERS(Ring)
};

class Dot : public Shape {
    ACRX_DECLARE_MEMBERS(Dot)
};

ACRX_NO_CONS_DEFINE_MEMBERS(Shape, AcRxObject)
ACRX_DXF_DEFINE_MEMBERS(Ring, Shape, "RING")
ACRX_DXF_DEFINE_MEMBERS(Dot, Shape, "DOT")

TEST(RxObject, CastsToItsOwnKindAndAbove)
{
    Ring ring;
    AcRxObject* object = &ring;
    EXPECT_EQ(Ring::cast(object), &ring);
    EXPECT_EQ(Shape::cast(object), &ring);
    EXPECT_EQ(Dot::cast(object), nullptr);
    EXPECT_EQ(Dot::cast(static_cast<AcRxObject*>(nullptr)), nullptr);
    EXPECT_TRUE(object->isKindOf(AcRxObject::desc()));
    EXPECT_FALSE(object->isKindOf(AcRxClass::desc()));
    EXPECT_TRUE(Ring::desc()->isKindOf(AcRxClass::desc()));
}

TEST(RxObject, MakesObjectsOfConcreteClassesOnly)
{
    const std::unique_ptr<AcRxObject> made(Dot::desc()->create());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->isA(), Dot::desc());
    EXPECT_STREQ(made->isA()->name(), L"Dot");
    EXPECT_STREQ(made->isA()->dxfName(), L"DOT");
    EXPECT_EQ(Shape::desc()->create(), nullptr);
}

TEST(Registry, AnswersWhatANameHeldBefore)
{
    AcRxDictionary registry;
    Ring ring;
    Dot dot;
    EXPECT_EQ(registry.atPut(L"A", &ring), nullptr);
    EXPECT_EQ(registry.atPut(L"A", &dot), &ring);
    EXPECT_EQ(registry.at(L"a"), nullptr);
    EXPECT_EQ(registry.at(L"A"), &dot);
    EXPECT_EQ(registry.remove(L"A"), &dot);
    EXPECT_EQ(registry.remove(L"A"), nullptr);
    EXPECT_FALSE(registry.has(L"A"));
}

} // namespace
