#include "CLineEditor.h"
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
} // namespace

TEST(CLineEditor, CharactersInsertAtTheCaret)
{
    CLineEditor editor("ac");
    EXPECT_EQ(editor.getCaret(), 2u);
    EXPECT_EQ(editor.onKey(virtualKey(VKEY_LEFT)), CLineEditor::kEdited);
    EXPECT_EQ(editor.onKey(character('b')), CLineEditor::kEdited);
    EXPECT_EQ(editor.getText(), "abc");
    EXPECT_EQ(editor.getCaret(), 2u);
}

TEST(CLineEditor, TheSpaceBarSentAsAVirtualKeyTypesASpace)
{
    CLineEditor editor("warm");
    EXPECT_EQ(editor.onKey(virtualKey(VKEY_SPACE)), CLineEditor::kEdited);
    editor.onKey(character('r'));
    EXPECT_EQ(editor.getText(), "warm r");
}

TEST(CLineEditor, ReturnAndEnterConfirmEscapeCancels)
{
    CLineEditor editor("x");
    EXPECT_EQ(editor.onKey(virtualKey(VKEY_RETURN)), CLineEditor::kConfirmed);
    EXPECT_EQ(editor.onKey(virtualKey(VKEY_ENTER)), CLineEditor::kConfirmed);
    EXPECT_EQ(editor.onKey(virtualKey(VKEY_ESCAPE)), CLineEditor::kCancelled);
    EXPECT_EQ(editor.getText(), "x");
}

TEST(CLineEditor, AKeyWithTheCommandModifierConfirmsAndInsertsNothing)
{
    CLineEditor editor("x");
    VstKeyCode save = character('s');
    save.modifier = MODIFIER_COMMAND;
    EXPECT_EQ(editor.onKey(save), CLineEditor::kConfirmed);
    VstKeyCode left = virtualKey(VKEY_LEFT);
    left.modifier = MODIFIER_COMMAND;
    EXPECT_EQ(editor.onKey(left), CLineEditor::kConfirmed);
    EXPECT_EQ(editor.getText(), "x");
    // Shift, Alt and Control type as ever.
    VstKeyCode shifted = character('S');
    shifted.modifier = MODIFIER_SHIFT;
    EXPECT_EQ(editor.onKey(shifted), CLineEditor::kEdited);
    EXPECT_EQ(editor.getText(), "xS");
}

TEST(CLineEditor, BackspaceDeleteHomeAndEndEdit)
{
    CLineEditor editor("/tmp/a.zev");
    editor.onKey(virtualKey(VKEY_BACK));
    EXPECT_EQ(editor.getText(), "/tmp/a.ze");
    editor.onKey(virtualKey(VKEY_HOME));
    editor.onKey(virtualKey(VKEY_DELETE));
    EXPECT_EQ(editor.getText(), "tmp/a.ze");
    editor.onKey(virtualKey(VKEY_END));
    editor.onKey(character('v'));
    EXPECT_EQ(editor.getText(), "tmp/a.zev");
    // At the ends nothing more goes.
    editor.onKey(virtualKey(VKEY_DELETE));
    editor.onKey(virtualKey(VKEY_HOME));
    editor.onKey(virtualKey(VKEY_BACK));
    EXPECT_EQ(editor.getText(), "tmp/a.zev");
}

TEST(CLineEditor, NonAsciiCharactersAreStoredAsUtf8AndEditedWhole)
{
    CLineEditor editor("a");
    editor.onKey(character(0xE9));
    editor.onKey(character(0x20AC));
    EXPECT_EQ(editor.getText(), "a\xC3\xA9\xE2\x82\xAC");
    editor.onKey(virtualKey(VKEY_LEFT));
    EXPECT_EQ(editor.getCaret(), 3u);
    editor.onKey(virtualKey(VKEY_LEFT));
    EXPECT_EQ(editor.getCaret(), 1u);
    editor.onKey(virtualKey(VKEY_RIGHT));
    editor.onKey(virtualKey(VKEY_BACK));
    EXPECT_EQ(editor.getText(), "a\xE2\x82\xAC");
}

TEST(CLineEditor, ControlCharactersAndUnknownKeysAreNotHandled)
{
    CLineEditor editor("a");
    EXPECT_EQ(editor.onKey(character(0x08)), CLineEditor::kNotHandled);
    EXPECT_EQ(editor.onKey(virtualKey(VKEY_TAB)), CLineEditor::kNotHandled);
    EXPECT_EQ(editor.getText(), "a");
}

TEST(CLineEditor, SetTextPutsTheCaretAtTheEnd)
{
    CLineEditor editor;
    editor.setText("preset");
    EXPECT_EQ(editor.getText(), "preset");
    EXPECT_EQ(editor.getCaret(), 6u);
}

TEST(CLineEditor, DrawsCentredTextWithTheCaretAfterIt)
{
    CLineEditor editor("MMM");
    TestSurface surface(100, 20);
    surface.clear(kBlackCColor);
    auto* context = surface.getContext();
    context->setFont(kNormalFont);
    context->setFontColor(kWhiteCColor);
    editor.draw(context, CRect(0, 0, 100, 20), kCenterText, true);
    const int textWidth = static_cast<int>(context->getStringWidth("MMM"));
    const int caretX = static_cast<int>((100 - context->getStringWidth("MMM")) / 2.0 + textWidth);
    EXPECT_EQ(surface.pixel(caretX, 10), kWhiteCColor);
    // Nothing left of the centred text.
    for (int x = 0; x < 100 / 2 - textWidth / 2 - 2; ++x)
        EXPECT_EQ(surface.pixel(x, 10), kBlackCColor) << x;
}

TEST(CLineEditor, LongTextScrollsToKeepTheCaretInView)
{
    CLineEditor editor("a long path that is much wider than the field");
    TestSurface surface(60, 20);
    surface.clear(kBlackCColor);
    auto* context = surface.getContext();
    context->setFontColor(kWhiteCColor);
    editor.draw(context, CRect(0, 0, 60, 20), kLeftText, true);
    // The caret at the end of the text stands at the right edge of the field.
    EXPECT_EQ(surface.pixel(59, 10), kWhiteCColor);
    // Drawing stays inside the rectangle and the clip comes back.
    CRect clip;
    EXPECT_EQ(context->getClipRect(clip), CRect(0, 0, 60, 20));
}
