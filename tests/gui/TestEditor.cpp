#include "TestEditor.h"

#include "AudioEffect.h"
#include "CBitmap.h"
#include "CFrame.h"
#include "CHorizontalSlider.h"
#include "CKickButton.h"
#include "COnOffButton.h"
#include "CParamDisplay.h"
#include "CVuMeter.h"

#include <cstdio>
#include <cstring>

namespace
{
void percentConvert(float value, char* text)
{
    std::snprintf(text, 16, "%d%%", static_cast<int>(value * 100.0f));
}

void captionConvert(float value, char* text)
{
    static const char* const captions[] = {"S", "M", "depth"};
    const int index = static_cast<int>(value);
    std::strcpy(text, index >= 0 && index < 3 ? captions[index] : "");
}

CParamDisplay* caption(CBitmap* background, const CRect& rect, const CPoint& backOffset, CHoriTxtAlign align,
                       float which)
{
    auto* display = new CParamDisplay(rect, background, 0);
    display->setBackOffset(backOffset);
    display->setHoriAlign(align);
    display->setFont(kNormalFontSmall);
    display->setFontColor(kBlackCColor);
    display->setMax(10.0f);
    display->setValue(which);
    display->setStringConvert(captionConvert);
    return display;
}
} // namespace

TestEditor::TestEditor(AudioEffect* effect) : AEffGUIEditor(effect), background(new CBitmap(128))
{
    setRectFromBitmap(background);
}

TestEditor::~TestEditor()
{
    background->forget();
}

bool TestEditor::open(void* parent)
{
    AEffGUIEditor::open(parent);
    auto* handle = new CBitmap(134);
    auto* buttonImage = new CBitmap(137);
    auto* meterOn = new CBitmap(135);
    auto* meterOff = new CBitmap(136);

    frame = new CFrame(CRect(rect.left, rect.top, rect.right, rect.bottom), parent, this);
    frame->setBackground(background);

    meter = new CVuMeter(CRect(60, 25, 60 + meterOn->getWidth(), 25 + meterOn->getHeight()), meterOn,
                         meterOff, 182, kHorizontal);
    meter->setValue(0.5f);
    frame->addView(meter);
    frame->addView(caption(background, CRect(2, 24, 42, 41), CPoint(2, 24), kRightText, 0));
    frame->addView(caption(background, CRect(258, 24, 298, 41), CPoint(258, 24), kLeftText, 1));

    const int maxPos = 239 - static_cast<int>(handle->getWidth());
    slider = new CHorizontalSlider(CRect(63, kSliderTop, 239, kSliderTop + handle->getHeight()), this, 0, 63,
                                   maxPos, handle, background, CPoint(63, kSliderTop));
    slider->setFreeClick(false);
    slider->setValue(effect->getParameter(0));
    frame->addView(slider);
    sliderValue = new CParamDisplay(CRect(258, 54, 322, 71), background, 0);
    sliderValue->setBackOffset(CPoint(258, 54));
    sliderValue->setHoriAlign(kLeftText);
    sliderValue->setFontColor(kBlackCColor);
    sliderValue->setTextInset(CPoint(3, 0));
    sliderValue->setStringConvert(percentConvert);
    sliderValue->setValue(effect->getParameter(0));
    frame->addView(sliderValue);
    auto* depthCaption = caption(background, CRect(2, 54, 42, 71), CPoint(2, 54), kRightText, 2);
    depthCaption->setTextInset(CPoint(3, 0));
    frame->addView(depthCaption);

    const double buttonHeight = buttonImage->getHeight() / 2;
    button = new COnOffButton(
        CRect(kButtonLeft, kButtonTop, kButtonLeft + buttonImage->getWidth(), kButtonTop + buttonHeight),
        this, 1, buttonImage);
    button->setValue(effect->getParameter(1));
    frame->addView(button);
    kick = new CKickButton(
        CRect(kKickLeft, kButtonTop, kKickLeft + buttonImage->getWidth(), kButtonTop + buttonHeight), this, 2,
        buttonHeight, buttonImage);
    frame->addView(kick);

    handle->forget();
    buttonImage->forget();
    meterOn->forget();
    meterOff->forget();
    ++openCount;
    return true;
}

void TestEditor::close()
{
    slider = nullptr;
    sliderValue = nullptr;
    button = nullptr;
    kick = nullptr;
    meter = nullptr;
    AEffGUIEditor::close();
}

void TestEditor::valueChanged(CControl* control)
{
    if (control->getTag() == 2 && control->getValue() == 1.0f) ++kickPresses;
    if (control->getTag() < 2) setParameterAutomated(control->getTag(), control->getValue());
}

void TestEditor::setParameter(VstInt32 index, float value)
{
    if (!frame) return;
    if (index == 0 && slider)
    {
        slider->setValue(value);
        sliderValue->setValue(value);
    }
    if (index == 1 && button) button->setValue(value);
}
