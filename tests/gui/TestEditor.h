// An editor like the product's: background, balance meter, a slider with its value, an on/off button and
// a kick button, laid out on the real background bitmap.
#pragma once

#include "AEffGUIEditor.h"
#include "CControlListener.h"

class CBitmap;
class CHorizontalSlider;
class COnOffButton;
class CKickButton;
class CParamDisplay;
class CVuMeter;

class TestEditor : public AEffGUIEditor, public CControlListener
{
  public:
    // Where the controls lie (editor pixels), for the tests that click them.
    static constexpr int kSliderTop = 51;
    static constexpr int kButtonLeft = 70;
    static constexpr int kButtonTop = 151;
    static constexpr int kKickLeft = 190;

    explicit TestEditor(AudioEffect* effect);
    ~TestEditor() override;

    bool open(void* parent) override;
    void close() override;
    void valueChanged(CControl* control) override;
    void setParameter(VstInt32 index, float value) override;

    int getOpenCount() const { return openCount; }
    int getKickPresses() const { return kickPresses; }
    CHorizontalSlider* getSlider() const { return slider; }

  private:
    CBitmap* background;
    CHorizontalSlider* slider = nullptr;
    CParamDisplay* sliderValue = nullptr;
    COnOffButton* button = nullptr;
    CKickButton* kick = nullptr;
    CVuMeter* meter = nullptr;
    int openCount = 0;
    int kickPresses = 0;
};
