#include "CPathEntryView.h"
#include "CFrame.h"
#include "TestSurface.h"

#include <gtest/gtest.h>

namespace
{
VstKeyCode character(int32_t c)
{
    VstKeyCode key;
    key.character = c;
    return key;
}

VstKeyCode virtualKey(unsigned char v)
{
    VstKeyCode key;
    key.virt = v;
    return key;
}

struct PathEntryTest : ::testing::Test
{
    PathEntryTest() : entry(new CPathEntryView(CRect(0, 0, 302, 250), "Save Preset", "/tmp/a.zev")) {}
    ~PathEntryTest() override { entry->forget(); }
    void press(VstKeyCode key) { entry->onKeyDown(key); }

    CPathEntryView* entry;
};
} // namespace

TEST_F(PathEntryTest, TypingInsertsAtTheCaretAndReturnConfirms)
{
    EXPECT_EQ(entry->getCaret(), 10u);
    for (int i = 0; i < 4; ++i)
        press(virtualKey(VKEY_LEFT));
    press(character('b'));
    EXPECT_STREQ(entry->getText(), "/tmp/ab.zev");
    EXPECT_FALSE(entry->isFinished());
    press(virtualKey(VKEY_RETURN));
    EXPECT_TRUE(entry->isFinished());
    EXPECT_TRUE(entry->isConfirmed());
}

TEST_F(PathEntryTest, EscapeCancels)
{
    press(virtualKey(VKEY_ESCAPE));
    EXPECT_TRUE(entry->isFinished());
    EXPECT_FALSE(entry->isConfirmed());
}

TEST_F(PathEntryTest, ClickTakesTheKeyboardFocusOfItsFrame)
{
    auto* frame = new CFrame(CRect(0, 0, 302, 250), nullptr, nullptr);
    entry->remember();
    frame->setModalView(entry);
    CPoint p(5, 5);
    frame->onMouseDown(p, kLButton);
    EXPECT_EQ(frame->getFocusView(), entry);
    VstKeyCode key = character('x');
    EXPECT_EQ(frame->onKeyDown(key), 1);
    EXPECT_STREQ(entry->getText(), "/tmp/a.zevx");
    frame->forget();
}

TEST_F(PathEntryTest, DrawsAPanelOverADimmedFrame)
{
    TestSurface surface(302, 250);
    surface.clear(kWhiteCColor);
    entry->draw(surface.getContext());
    const CColor dimmed = surface.pixel(2, 2);
    EXPECT_LT(dimmed.red, 128);
    const CRect panel = entry->panelRect();
    EXPECT_NE(surface.pixel(static_cast<int>(panel.left) + 3, static_cast<int>(panel.top) + 3), dimmed);
}
