#include "AEffGUIEditor.h"
#include "CFrame.h"
#include "CHorizontalSlider.h"
#include "HostRecorder.h"
#include "ProbeView.h"
#include "TestEditor.h"
#include "TestEffect.h"
#include "TestSurface.h"

#include <gtest/gtest.h>

namespace
{
struct EditorTest : ::testing::Test
{
    EditorTest() : effect(HostRecorder::callback), editor(static_cast<TestEditor*>(effect.getEditor()))
    {
        HostRecorder::clear();
    }
    VstIntPtr dispatch(VstInt32 opcode, void* ptr = nullptr)
    {
        AEffect* record = effect.getAeffect();
        return record->dispatcher(record, opcode, 0, 0, ptr, 0.0f);
    }

    TestEffect effect;
    TestEditor* editor;
};
} // namespace

TEST_F(EditorTest, HostSeesAnEditorWithTheBackgroundsRectangle)
{
    EXPECT_TRUE(effect.getAeffect()->flags & effFlagsHasEditor);
    ERect* rect = nullptr;
    EXPECT_EQ(dispatch(effEditGetRect, &rect), 1);
    ASSERT_NE(rect, nullptr);
    EXPECT_EQ(rect->top, 0);
    EXPECT_EQ(rect->left, 0);
    EXPECT_EQ(rect->bottom, 250);
    EXPECT_EQ(rect->right, 302);
}

TEST_F(EditorTest, OpenCloseOpenBuildsTheFrameAnew)
{
    // Without a parent window the frame exists without a window (headless).
    EXPECT_EQ(dispatch(effEditOpen), 1);
    ASSERT_NE(editor->getFrame(), nullptr);
    const int views = editor->getFrame()->getNbViews();
    EXPECT_GT(views, 5);
    dispatch(effEditClose);
    EXPECT_EQ(editor->getFrame(), nullptr);
    EXPECT_EQ(dispatch(effEditOpen), 1);
    ASSERT_NE(editor->getFrame(), nullptr);
    EXPECT_EQ(editor->getFrame()->getNbViews(), views);
    EXPECT_EQ(editor->getOpenCount(), 2);
    dispatch(effEditClose);
}

TEST_F(EditorTest, SliderDragReachesTheHostAsBeginAutomateEnd)
{
    dispatch(effEditOpen);
    CFrame* frame = editor->getFrame();
    CPoint grab(70, TestEditor::kSliderTop + 8);
    frame->onMouseDown(grab, kLButton);
    CPoint moved(70 + 81, TestEditor::kSliderTop + 8);
    frame->onMouseMoved(moved, kLButton);
    frame->onMouseUp(moved, kLButton);
    EXPECT_EQ(HostRecorder::opcodes(),
              (std::vector<VstInt32>{audioMasterBeginEdit, audioMasterAutomate, audioMasterEndEdit}));
    EXPECT_EQ(HostRecorder::requests()[1].index, 0);
    EXPECT_NEAR(HostRecorder::requests()[1].opt, 0.5f, 1e-6);
    EXPECT_NEAR(effect.getParameter(0), 0.5f, 1e-6);
    dispatch(effEditClose);
}

TEST_F(EditorTest, SetParameterAutomatedSetsTheEffectAndTellsTheHost)
{
    editor->setParameterAutomated(1, 1.0f);
    EXPECT_EQ(effect.getParameter(1), 1.0f);
    ASSERT_EQ(HostRecorder::requests().size(), 1u);
    EXPECT_EQ(HostRecorder::requests()[0].opcode, audioMasterAutomate);
    EXPECT_EQ(HostRecorder::requests()[0].index, 1);
}

TEST_F(EditorTest, IdleRepaintsWhatTheEffectChanged)
{
    dispatch(effEditOpen);
    CFrame* frame = editor->getFrame();
    TestSurface surface(302, 250);
    frame->paint(surface.getContext());
    effect.setParameter(0, 1.0f);
    EXPECT_TRUE(frame->getInvalidRect().isEmpty());
    dispatch(effEditIdle);
    EXPECT_TRUE(frame->getInvalidRect().rectOverlap(editor->getSlider()->getViewSize()));
    dispatch(effEditClose);
}

TEST_F(EditorTest, KnobModeAndWindowAreReported)
{
    EXPECT_TRUE(editor->hasWindow());
    EXPECT_TRUE(editor->setKnobMode(2));
    EXPECT_EQ(editor->getKnobMode(), 2);
}

TEST_F(EditorTest, KeysGoToTheFramesFocusView)
{
    dispatch(effEditOpen);
    auto* probe = new ProbeView(CRect(0, 0, 5, 5), kRedCColor);
    editor->getFrame()->addView(probe);
    EXPECT_FALSE(editor->onKeyDown('a', 0, 0));
    editor->getFrame()->setFocusView(probe);
    EXPECT_TRUE(editor->onKeyDown('a', 0, 0));
    EXPECT_EQ(probe->events.back(), "key 97 0");
    dispatch(effEditClose);
    EXPECT_FALSE(editor->onKeyDown('a', 0, 0));
}

namespace
{
// A frame whose idle idles the editor again, as a timer firing inside an idle pass would.
class ReenteringFrame : public CFrame
{
  public:
    ReenteringFrame(VSTGUIEditorInterface* editor) : CFrame(CRect(0, 0, 10, 10), nullptr, editor) {}
    void idle() override
    {
        ++idles;
        getEditor()->doIdleStuff();
    }
    int idles = 0;
};

class ReentrantEditor : public AEffGUIEditor
{
  public:
    using AEffGUIEditor::AEffGUIEditor;
    bool open(void* parent) override
    {
        AEffGUIEditor::open(parent);
        frame = new ReenteringFrame(this);
        return true;
    }
};
} // namespace

TEST(AEffGUIEditor, IdleIsNeverReentered)
{
    ReentrantEditor editor(nullptr);
    editor.open(nullptr);
    auto* frame = static_cast<ReenteringFrame*>(editor.getFrame());
    editor.idle();
    EXPECT_EQ(frame->idles, 1);
    editor.idle();
    EXPECT_EQ(frame->idles, 2);
    editor.close();
    EXPECT_EQ(editor.getFrame(), nullptr);
}
