// The in-frame alert: its message, how it is dismissed, and that nothing behind it can be used meanwhile.
#include "CAlertView.h"
#include "CKickButton.h"
#include "ControlFixture.h"
#include "TestSurface.h"

namespace
{
struct AlertView : ControlFixture
{
    AlertView() : alert(new CAlertView(frame->getViewSize(), "Could not open manual file:\n~/\"a.pdf\""))
    {
        frame->setModalView(alert);
    }
    void draw()
    {
        TestSurface surface(302, 250);
        alert->draw(surface.getContext());
    }
    CAlertView* alert;
};

VstKeyCode virtualKey(unsigned char virt)
{
    VstKeyCode key;
    key.virt = virt;
    return key;
}
} // namespace

TEST_F(AlertView, ShowsTheMessageLineByLine)
{
    EXPECT_EQ(alert->getLines(), (std::vector<std::string>{"Could not open manual file:", "~/\"a.pdf\""}));
}

TEST_F(AlertView, OKDismissesItAndAClickBesideDoesNot)
{
    const CRect ok = alert->okButtonRect();
    CPoint beside(ok.left - 5, ok.top + 5), on(ok.left + 5, ok.top + 5);
    frame->onMouseDown(beside, CButtonState(kLButton));
    EXPECT_FALSE(alert->isDismissed());
    frame->onMouseDown(on, CButtonState(kLButton));
    EXPECT_TRUE(alert->isDismissed());
}

TEST_F(AlertView, ReturnEnterAndEscapeDismissItOtherKeysAreKept)
{
    for (unsigned char virt : {VKEY_RETURN, VKEY_ENTER, VKEY_ESCAPE})
    {
        CAlertView view(frame->getViewSize(), "x");
        VstKeyCode key = virtualKey(virt);
        EXPECT_EQ(view.onKeyDown(key), 1);
        EXPECT_TRUE(view.isDismissed()) << int(virt);
    }
    VstKeyCode letter;
    letter.character = 'a';
    EXPECT_EQ(frame->onKeyDown(letter), 1);
    EXPECT_FALSE(alert->isDismissed());
}

TEST_F(AlertView, ControlsBehindItGetNoClicks)
{
    auto* bitmap = new CBitmap(128);
    auto* button = add(new CKickButton(CRect(10, 10, 40, 40), &recorder, 3, 15, bitmap));
    bitmap->forget();
    CPoint onButton(20, 20);
    frame->onMouseDown(onButton, CButtonState(kLButton));
    EXPECT_TRUE(recorder.values.empty());
    EXPECT_EQ(button->getValue(), 0.0f);
}

TEST_F(AlertView, LongPathIsBrokenIntoLinesThatFitTheBox)
{
    frame->setModalView(nullptr);
    alert->forget();
    alert = new CAlertView(frame->getViewSize(),
                           "Could not open manual file:\n\"/a/rather/long/folder/name/for/a/plug-in/install/"
                           "lib/vst/Spatara-manual.pdf\"");
    frame->setModalView(alert);
    draw();
    ASSERT_GE(alert->getLines().size(), 3u);
    TestSurface surface(302, 250);
    surface.getContext()->setFont(kNormalFontSmall);
    std::string joined;
    for (const std::string& line : alert->getLines())
    {
        EXPECT_LE(surface.getContext()->getStringWidth(line.c_str()), alert->boxRect().getWidth() - 16.0)
            << line;
        joined += line;
    }
    EXPECT_EQ(joined, "Could not open manual file:\"/a/rather/long/folder/name/for/a/plug-in/install/lib/vst/"
                      "Spatara-manual.pdf\"");
    // Broken after a folder's slash, not inside a name.
    EXPECT_EQ(alert->getLines()[1].back(), '/');
}

TEST(AlertViewWithoutWindow, ShowModalReturnsAtOnceWithoutAWindow)
{
    RecordingListener editor;
    CFrame* frame = new CFrame(CRect(0, 0, 302, 250), nullptr, &editor);
    CAlertView::showModal(frame, "nobody to press OK");
    EXPECT_EQ(frame->getModalView(), nullptr);
    frame->forget();
}
