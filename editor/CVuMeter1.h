// The stereo-balance meter: a segmented meter that rises at once and falls by the decrease step per redraw.
#pragma once

#include "CVuMeter.h"

#include <functional>

class CVuMeter1 : public CVuMeter
{
  public:
    CVuMeter1(const CRect& size, CBitmap* onBitmap, CBitmap* offBitmap, int32_t nbLed, int32_t style);

    // Lit image up to the quantised value, unlit image from the same place beyond it.
    void draw(CDrawContext* context) override;
    // While the shown value still falls it wants redraws, even when the value itself holds still.
    bool isDirty() const override { return CVuMeter::isDirty() || oldValue > value; }

    // What a click on the meter does (the editor opens or closes its scope); nothing when none is set.
    void setClickAction(std::function<void()> action) { clickAction = std::move(action); }
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;

    // Answers as a CVuMeter: nothing needs to tell the two apart.
    CView* newCopy() const override { return new CVuMeter1(*this); }

  protected:
    ~CVuMeter1() override = default;

  private:
    std::function<void()> clickAction;
};
