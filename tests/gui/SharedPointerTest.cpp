#include "SharedPointer.h"
#include "CBaseObject.h"

#include <gtest/gtest.h>
#include <utility>

namespace
{
// Counts how many of its kind are alive, so a test sees when the last reference frees one.
class Counted : public CBaseObject
{
  public:
    explicit Counted(int& alive) : alive(alive) { ++alive; }

  protected:
    ~Counted() override { --alive; }

  private:
    int& alive;
};
} // namespace

TEST(SharedPointer, OwnedTakesOverTheReferenceOfNewAndFreesTheObjectWhenItGoes)
{
    int alive = 0;
    {
        const SharedPointer<Counted> pointer = owned(new Counted(alive));
        EXPECT_EQ(alive, 1);
        EXPECT_EQ(pointer->getNbReference(), 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST(SharedPointer, SharingAnObjectTakesOneMoreReferenceAndGivesItBack)
{
    int alive = 0;
    auto* object = new Counted(alive);
    {
        const SharedPointer<Counted> pointer(object);
        EXPECT_EQ(pointer.get(), object);
        EXPECT_EQ(object->getNbReference(), 2);
        const SharedPointer<Counted> copy = pointer;
        EXPECT_EQ(object->getNbReference(), 3);
    }
    EXPECT_EQ(object->getNbReference(), 1);
    EXPECT_EQ(alive, 1);
    object->forget();
    EXPECT_EQ(alive, 0);
}

TEST(SharedPointer, MovingHandsTheReferenceOverWithoutCountingIt)
{
    int alive = 0;
    SharedPointer<Counted> pointer = owned(new Counted(alive));
    const SharedPointer<Counted> moved = std::move(pointer);
    EXPECT_FALSE(pointer);
    EXPECT_EQ(moved->getNbReference(), 1);
    EXPECT_EQ(alive, 1);
}

TEST(SharedPointer, ReleaseHandsTheReferenceOnWithoutGivingItBack)
{
    int alive = 0;
    SharedPointer<Counted> pointer = owned(new Counted(alive));
    Counted* object = pointer.release();
    EXPECT_FALSE(pointer);
    pointer = SharedPointer<Counted>();
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(object->getNbReference(), 1);
    object->forget();
    EXPECT_EQ(alive, 0);
}

TEST(SharedPointer, AssigningGivesBackTheOldObjectAndKeepsTheSameOneAlive)
{
    int alive = 0;
    SharedPointer<Counted> pointer = owned(new Counted(alive));
    Counted* first = pointer.get();
    pointer = SharedPointer<Counted>(first);
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(first->getNbReference(), 1);
    pointer = owned(new Counted(alive));
    EXPECT_EQ(alive, 1);
    EXPECT_NE(pointer.get(), first);
    pointer = SharedPointer<Counted>();
    EXPECT_FALSE(pointer);
    EXPECT_EQ(alive, 0);
}
