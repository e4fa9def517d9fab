// A level meter in segments: the lit image up to the value, the unlit image beyond; falls back slowly.
#pragma once

#include "CControl.h"
#include "CControlStyle.h"

class CVuMeter : public CControl
{
  public:
    // onBitmap becomes the background (the lit image); style kHorizontal or kVertical.
    CVuMeter(const CRect& size, CBitmap* onBitmap, CBitmap* offBitmap, int32_t nbLed,
             int32_t style = kVertical);
    CVuMeter(const CVuMeter& other);

    // Shows max(value, last shown − decrease step), in whole segments.
    void draw(CDrawContext* context) override;

    void setDecreaseStepValue(float step) { decreaseValue = step; }
    float getDecreaseStepValue() const { return decreaseValue; }
    CBitmap* getOnBitmap() const { return background.get(); }
    CBitmap* getOffBitmap() const { return offBitmap.get(); }
    int32_t getNbLed() const { return nbLed; }
    int32_t getStyle() const { return style; }

    CLASS_METHODS(CVuMeter, CControl)

  protected:
    ~CVuMeter() override;

    SharedPointer<CBitmap> offBitmap;
    int32_t nbLed;
    int32_t style;
    float decreaseValue = 0.1f;
    // The value shown by the last draw.
    float oldValue = 0.0f;
};
