// The preset name's in-place editor: opening, typing, confirming and cancelling, and what it draws.
#include "CZEVTextEdit.h"
#include "ControlFixture.h"
#include "TestSurface.h"

namespace
{
VstKeyCode character(char c)
{
    VstKeyCode key;
    key.character = c;
    return key;
}

VstKeyCode virtualKey(unsigned char virt, unsigned char modifier = 0)
{
    VstKeyCode key;
    key.virt = virt;
    key.modifier = modifier;
    return key;
}

const CColor kLabelBack = MakeCColor(189, 207, 218);
const CColor kLabelText = MakeCColor(36, 36, 32);

struct ZEVTextEdit : ControlFixture
{
    ZEVTextEdit()
    {
        edit = add(new CZEVTextEdit(CRect(91, 222.5, 201, 237.5), &recorder, 1000, "room space 1", nullptr, 0,
                                    false));
        edit->setBackColor(kLabelBack);
        edit->setFontColor(kLabelText);
        edit->setFrameColor(kLabelText);
    }

    void press(VstKeyCode key) { frame->onKeyDown(key); }
    void type(const char* text)
    {
        for (const char* c = text; *c; ++c)
            press(character(*c));
    }
    // Pixels of the text colour inside the label, away from its frame line.
    int textPixels()
    {
        TestSurface surface(302, 250);
        surface.clear(kWhiteCColor);
        edit->draw(surface.getContext());
        int count = 0;
        for (int y = 225; y < 236; ++y)
            for (int x = 94; x < 198; ++x)
            {
                const CColor c = surface.pixel(x, y);
                if (c.red < 120 && c.green < 120 && c.blue < 120) ++count;
            }
        return count;
    }

    CPoint onLabel{140, 230};
    CZEVTextEdit* edit;
};
} // namespace

TEST_F(ZEVTextEdit, ClickOpensTheEditorWithTheKeyboard)
{
    EXPECT_EQ(frame->onMouseDown(onLabel, CButtonState(kLButton)), kMouseEventHandled);
    EXPECT_TRUE(edit->isBeingEdited());
    EXPECT_EQ(frame->getFocusView(), edit);
    EXPECT_EQ(edit->getEditedText(), "room space 1");
}

TEST_F(ZEVTextEdit, ReturnConfirmsTheTypedNameAndTellsTheListenerOnce)
{
    frame->onMouseDown(onLabel, CButtonState(kLButton));
    type(" b");
    press(virtualKey(VKEY_RETURN));
    EXPECT_FALSE(edit->isBeingEdited());
    EXPECT_STREQ(edit->getText(), "room space 1 b");
    // One edit of the name's tag: begin, the change, end.
    EXPECT_EQ(recorder.events, (std::vector<std::string>{"begin 1000", "value 1000", "end 1000"}));
    EXPECT_EQ(frame->getFocusView(), nullptr);
}

TEST_F(ZEVTextEdit, EnterConfirmsLikeReturn)
{
    frame->onMouseDown(onLabel, CButtonState(kLButton));
    type("!");
    press(virtualKey(VKEY_ENTER));
    EXPECT_STREQ(edit->getText(), "room space 1!");
    EXPECT_EQ(recorder.values.size(), 1u);
}

TEST_F(ZEVTextEdit, AKeyPressedWithTheCommandModifierConfirmsAndTypesNothing)
{
    frame->onMouseDown(onLabel, CButtonState(kLButton));
    type("!");
    VstKeyCode save = character('s');
    save.modifier = MODIFIER_COMMAND;
    press(save);
    EXPECT_FALSE(edit->isBeingEdited());
    EXPECT_STREQ(edit->getText(), "room space 1!");
    EXPECT_EQ(recorder.events, (std::vector<std::string>{"begin 1000", "value 1000", "end 1000"}));
}

TEST_F(ZEVTextEdit, TheLabelKeepsTheNameAsTypedWhateverItsLength)
{
    frame->onMouseDown(onLabel, CButtonState(kLButton));
    type(" and a name far longer than any store");
    press(virtualKey(VKEY_RETURN));
    EXPECT_STREQ(edit->getText(), "room space 1 and a name far longer than any store");
}

TEST_F(ZEVTextEdit, EscapeLeavesTheNameAndTellsNobody)
{
    frame->onMouseDown(onLabel, CButtonState(kLButton));
    type("xyz");
    press(virtualKey(VKEY_ESCAPE));
    EXPECT_FALSE(edit->isBeingEdited());
    EXPECT_STREQ(edit->getText(), "room space 1");
    EXPECT_TRUE(recorder.events.empty());
    EXPECT_EQ(frame->getFocusView(), nullptr);
}

TEST_F(ZEVTextEdit, SecondClickWhileOpenDoesNothing)
{
    frame->onMouseDown(onLabel, CButtonState(kLButton));
    type("Q");
    CPoint elsewhereOnLabel(95, 226);
    EXPECT_EQ(frame->onMouseDown(elsewhereOnLabel, CButtonState(kLButton)), kMouseEventHandled);
    EXPECT_TRUE(edit->isBeingEdited());
    EXPECT_EQ(edit->getEditedText(), "room space 1Q");
    EXPECT_EQ(frame->getFocusView(), edit);
    EXPECT_TRUE(recorder.events.empty());
}

TEST_F(ZEVTextEdit, ClickingElsewhereConfirmsTheTypedName)
{
    frame->onMouseDown(onLabel, CButtonState(kLButton));
    type("2");
    CPoint elsewhere(20, 20);
    frame->onMouseDown(elsewhere, CButtonState(kLButton));
    EXPECT_FALSE(edit->isBeingEdited());
    EXPECT_STREQ(edit->getText(), "room space 12");
    EXPECT_EQ(recorder.events, (std::vector<std::string>{"begin 1000", "value 1000", "end 1000"}));
}

TEST_F(ZEVTextEdit, LosingTheKeyboardToAnotherWindowConfirms)
{
    frame->onMouseDown(onLabel, CButtonState(kLButton));
    type("3");
    frame->platformOnFocusLost();
    EXPECT_FALSE(edit->isBeingEdited());
    EXPECT_STREQ(edit->getText(), "room space 13");
    EXPECT_EQ(recorder.values.size(), 1u);
}

TEST_F(ZEVTextEdit, EmptyFieldConfirmsAnEmptyName)
{
    frame->onMouseDown(onLabel, CButtonState(kLButton));
    for (int i = 0; i < 12; ++i)
        press(virtualKey(VKEY_BACK));
    EXPECT_EQ(edit->getEditedText(), "");
    press(virtualKey(VKEY_RETURN));
    EXPECT_STREQ(edit->getText(), "");
    EXPECT_EQ(recorder.events, (std::vector<std::string>{"begin 1000", "value 1000", "end 1000"}));
}

TEST_F(ZEVTextEdit, EveryKeyIsKeptFromTheHostWhileOpenAndNoneAfterwards)
{
    VstKeyCode space = virtualKey(VKEY_SPACE);
    VstKeyCode controlS = character('s');
    controlS.modifier = MODIFIER_CONTROL;
    VstKeyCode arrow = virtualKey(VKEY_UP);
    EXPECT_EQ(frame->onKeyDown(space), -1);
    frame->onMouseDown(onLabel, CButtonState(kLButton));
    EXPECT_EQ(frame->onKeyDown(space), 1);
    EXPECT_EQ(frame->onKeyDown(controlS), 1);
    EXPECT_EQ(frame->onKeyDown(arrow), 1);
    EXPECT_EQ(frame->onKeyUp(arrow), 1);
    press(virtualKey(VKEY_ESCAPE));
    EXPECT_EQ(frame->onKeyDown(space), -1);
    EXPECT_EQ(frame->onKeyUp(space), -1);
}

TEST_F(ZEVTextEdit, LabelHidesItsOwnTextWhileEditing)
{
    const int shown = textPixels();
    EXPECT_GT(shown, 40);
    frame->onMouseDown(onLabel, CButtonState(kLButton));
    for (int i = 0; i < 12; ++i)
        press(virtualKey(VKEY_BACK));
    // Only the caret remains of the text colour inside the label: the label's own name is not drawn.
    EXPECT_LT(textPixels(), 12);
    EXPECT_STREQ(edit->getText(), "room space 1");
}

TEST_F(ZEVTextEdit, EditionColourDrawsTheTypedText)
{
    const CColor red = MakeCColor(220, 0, 0);
    edit->setCustomFontEditionColor(red);
    frame->onMouseDown(onLabel, CButtonState(kLButton));
    TestSurface surface(302, 250);
    surface.clear(kWhiteCColor);
    edit->draw(surface.getContext());
    int reddish = 0;
    for (int y = 225; y < 236; ++y)
        for (int x = 94; x < 198; ++x)
        {
            const CColor c = surface.pixel(x, y);
            if (c.red > 150 && c.green < 90 && c.blue < 90) ++reddish;
        }
    EXPECT_GT(reddish, 40);
}

TEST_F(ZEVTextEdit, GetTextCopiesIntoTheCallersBuffer)
{
    char out[32] = "unchanged";
    edit->getText(out);
    EXPECT_STREQ(out, "room space 1");
    edit->getText(nullptr);
}
