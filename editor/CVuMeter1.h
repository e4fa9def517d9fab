// The stereo-balance meter: a segmented meter that rises at once and falls by the decrease step per redraw.
#pragma once

#include "CVuMeter.h"

class CVuMeter1 : public CVuMeter
{
  public:
    CVuMeter1(const CRect& size, CBitmap* onBitmap, CBitmap* offBitmap, int32_t nbLed, int32_t style);

    // Lit image up to the quantised value, unlit image from the same place beyond it.
    void draw(CDrawContext* context) override;
    // While the shown value still falls it wants redraws, even when the value itself holds still.
    bool isDirty() const override { return CVuMeter::isDirty() || oldValue > value; }

    // Answers as a CVuMeter: nothing needs to tell the two apart.
    CView* newCopy() const override { return new CVuMeter1(*this); }

  protected:
    ~CVuMeter1() override = default;
};
