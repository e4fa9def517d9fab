#include "CControl.h"
#include "ControlFixture.h"

using CControlTest = ControlFixture;

TEST_F(CControlTest, StartsWithClassicDefaults)
{
    auto* control = add(new CControl(CRect(0, 0, 10, 10), &recorder, 7));
    EXPECT_EQ(control->getTag(), 7);
    EXPECT_EQ(control->getValue(), 0.0f);
    EXPECT_EQ(control->getMin(), 0.0f);
    EXPECT_EQ(control->getMax(), 1.0f);
    EXPECT_EQ(control->getDefaultValue(), 0.5f);
    EXPECT_EQ(control->getListener(), &recorder);
}

TEST_F(CControlTest, ValueChangedTellsTheListener)
{
    auto* control = add(new CControl(CRect(0, 0, 10, 10), &recorder, 4));
    control->setValue(0.25f);
    control->valueChanged();
    EXPECT_EQ(recorder.values, std::vector<float>{0.25f});
}

TEST_F(CControlTest, EditGesturesGoToTheEditorWithTheTag)
{
    auto* control = add(new CControl(CRect(0, 0, 10, 10), &recorder, 5));
    control->beginEdit();
    EXPECT_TRUE(control->isEditing());
    control->endEdit();
    EXPECT_FALSE(control->isEditing());
    EXPECT_EQ(recorder.events, (std::vector<std::string>{"begin 5", "end 5"}));
}

TEST_F(CControlTest, BounceValueKeepsTheRange)
{
    CControl control(CRect(0, 0, 10, 10));
    control.setMax(2.0f);
    control.setValue(3.0f);
    control.bounceValue();
    EXPECT_EQ(control.getValue(), 2.0f);
    control.setValue(-1.0f);
    control.bounceValue();
    EXPECT_EQ(control.getValue(), 0.0f);
}

TEST_F(CControlTest, ControlClickRestoresTheDefaultAsOneGesture)
{
    auto* control = add(new CControl(CRect(0, 0, 10, 10), &recorder, 2));
    control->setDefaultValue(0.75f);
    EXPECT_FALSE(control->checkDefaultValue(kLButton));
    EXPECT_TRUE(control->checkDefaultValue(kLButton | kControl));
    EXPECT_EQ(control->getValue(), 0.75f);
    EXPECT_EQ(recorder.events, (std::vector<std::string>{"begin 2", "value 2", "end 2"}));
}

TEST_F(CControlTest, ChangedValueMakesItDirtyUntilDrawn)
{
    auto* control = add(new CControl(CRect(0, 0, 10, 10)));
    control->setDirty(false);
    EXPECT_FALSE(control->isDirty());
    control->setValue(0.5f);
    EXPECT_TRUE(control->isDirty());
    control->setDirty(false);
    EXPECT_FALSE(control->isDirty());
}

TEST_F(CControlTest, CopyTakesItsOwnBitmapReference)
{
    auto* bitmap = new CBitmap(137);
    auto* control = new CControl(CRect(0, 0, 10, 10), &recorder, 1, bitmap);
    EXPECT_EQ(bitmap->getNbReference(), 2);
    CView* copy = control->newCopy();
    EXPECT_EQ(bitmap->getNbReference(), 3);
    EXPECT_TRUE(copy->isTypeOf("CControl"));
    EXPECT_TRUE(copy->isTypeOf("CView"));
    EXPECT_FALSE(copy->isTypeOf("CFrame"));
    copy->forget();
    control->forget();
    EXPECT_EQ(bitmap->getNbReference(), 1);
    bitmap->forget();
}
