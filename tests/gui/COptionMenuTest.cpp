#include "COptionMenu.h"
#include "COptionMenuPopup.h"
#include "ControlFixture.h"
#include "TestSurface.h"

#include <string>

namespace
{
struct MenuTest : ControlFixture
{
    MenuTest()
    {
        menu = add(new COptionMenu(CRect(207, 222, 217, 236), &recorder, 1012, nullptr, nullptr,
                                   kPopupStyle | kCheckStyle | kNoTextStyle | kNoDrawStyle));
        menu->setNbItemsPerColumn(16);
        for (int i = 0; i < 38; ++i)
            menu->addEntry(("preset " + std::to_string(i)).c_str());
        menu->setCurrent(5);
    }
    COptionMenuPopup* popup() const { return dynamic_cast<COptionMenuPopup*>(frame->getModalView()); }

    COptionMenu* menu;
};
} // namespace

TEST_F(MenuTest, EntriesCanBeRetitledAndTheCurrentOneSet)
{
    EXPECT_EQ(menu->getNbEntries(), 38);
    EXPECT_EQ(menu->getCurrentIndex(), 5);
    EXPECT_EQ(menu->getValue(), 5.0f);
    menu->getCurrent()->setTitle("renamed");
    EXPECT_STREQ(menu->getEntry(5)->getTitle(), "renamed");
    EXPECT_FALSE(menu->setCurrent(38));
    EXPECT_EQ(menu->getCurrentIndex(), 5);
}

TEST_F(MenuTest, SetCurrentWithoutCountingSeparatorsSkipsThem)
{
    menu->addEntry("-", 2);
    EXPECT_TRUE(menu->getEntry(2)->isSeparator());
    menu->setCurrent(3, false);
    EXPECT_EQ(menu->getCurrentIndex(), 4);
    EXPECT_EQ(menu->getCurrentIndex(false), 3);
}

TEST_F(MenuTest, ClickOpensTheListInColumnsOfTheRowCount)
{
    CPoint p(210, 230);
    EXPECT_EQ(frame->onMouseDown(p, kLButton), kMouseDownEventHandledButDontNeedMovedOrUpEvents);
    ASSERT_NE(popup(), nullptr);
    EXPECT_EQ(popup()->getNbColumns(), 3);
    // Entry 16 starts the second column, level with entry 0.
    EXPECT_EQ(popup()->entryRect(16).top, popup()->entryRect(0).top);
    EXPECT_EQ(popup()->entryRect(1).top - popup()->entryRect(0).top, COptionMenuPopup::kRowHeight);
    EXPECT_GT(popup()->entryRect(16).left, popup()->entryRect(0).left);
    // The list stays inside the frame.
    const CRect list = popup()->getViewSize();
    EXPECT_GE(list.left, 0);
    EXPECT_LE(list.right, 302);
    EXPECT_GE(list.top, 0);
    EXPECT_LE(list.bottom, 250);
    EXPECT_EQ(list.getHeight(), 16 * COptionMenuPopup::kRowHeight + 2);
}

TEST_F(MenuTest, ChoosingAnEntrySetsValueAndCurrentAndTellsTheListener)
{
    CPoint p(210, 230);
    frame->onMouseDown(p, kLButton);
    frame->onMouseUp(p, kLButton);
    const CRect row = popup()->entryRect(37);
    CPoint onEntry(row.left + 5, row.top + 5);
    frame->onMouseDown(onEntry, kLButton);
    EXPECT_EQ(frame->getModalView(), nullptr);
    EXPECT_EQ(menu->getValue(), 37.0f);
    EXPECT_EQ(menu->getCurrentIndex(), 37);
    EXPECT_EQ(recorder.events, (std::vector<std::string>{"begin 1012", "value 1012", "end 1012"}));
}

TEST_F(MenuTest, ClickOutsideTheListDismissesIt)
{
    CPoint p(210, 230);
    frame->onMouseDown(p, kLButton);
    CPoint outside(2, 2);
    ASSERT_EQ(popup()->entryAt(outside), -1);
    frame->onMouseDown(outside, kLButton);
    EXPECT_EQ(frame->getModalView(), nullptr);
    EXPECT_EQ(menu->getCurrentIndex(), 5);
    EXPECT_TRUE(recorder.events.empty());
}

TEST_F(MenuTest, KeysMoveTheHighlightAndChoose)
{
    CPoint p(210, 230);
    frame->onMouseDown(p, kLButton);
    VstKeyCode down;
    down.virt = VKEY_DOWN;
    frame->onKeyDown(down);
    EXPECT_EQ(popup()->getHighlighted(), 6);
    VstKeyCode right;
    right.virt = VKEY_RIGHT;
    frame->onKeyDown(right);
    EXPECT_EQ(popup()->getHighlighted(), 22);
    VstKeyCode enter;
    enter.virt = VKEY_RETURN;
    frame->onKeyDown(enter);
    EXPECT_EQ(menu->getCurrentIndex(), 22);
    frame->onMouseDown(p, kLButton);
    VstKeyCode escape;
    escape.virt = VKEY_ESCAPE;
    frame->onKeyDown(escape);
    EXPECT_EQ(frame->getModalView(), nullptr);
    EXPECT_EQ(menu->getCurrentIndex(), 22);
}

TEST_F(MenuTest, NoDrawStyleDrawsNothingButTheListDoes)
{
    TestSurface surface(302, 250);
    surface.clear(kRedCColor);
    frame->paint(surface.getContext());
    EXPECT_EQ(surface.pixel(210, 230), kRedCColor);
    CPoint p(210, 230);
    frame->onMouseDown(p, kLButton);
    frame->paint(surface.getContext());
    const CRect list = popup()->getViewSize();
    EXPECT_NE(surface.pixel(static_cast<int>(list.left) + 3, static_cast<int>(list.bottom) - 3), kRedCColor);
}

TEST_F(MenuTest, ClosingTheFrameWithTheListOpenIsSafe)
{
    CPoint p(210, 230);
    frame->onMouseDown(p, kLButton);
    EXPECT_TRUE(menu->isPopupOpen());
    menu->remember();
    frame->close();
    frame = new CFrame(CRect(0, 0, 10, 10), nullptr, nullptr);
    // The list went with the frame and told its menu.
    EXPECT_FALSE(menu->isPopupOpen());
    EXPECT_EQ(menu->getNbReference(), 1);
    menu->forget();
}
