// The stereo scope, over the sliders and buttons as the about screen lies over the panel: a goniometer of
// the output turned 45 degrees (mono a vertical line, the side a horizontal one) with a fading trail, and
// the correlation as a bar from -1 to +1 with its value as text. The balance meter above stays in sight. A
// click on it closes it.
#pragma once

#include "CView.h"

#include <array>
#include <cstdint>
#include <functional>

class CScopeView : public CView
{
  public:
    // closed: what a click on the view does (the editor closes it).
    CScopeView(const CRect& size, std::function<void()> closed);

    // Points of the output, pairs of left and right; the newest are drawn brightest.
    void addPoints(const float* pairs, uint32_t count);
    void setCorrelation(float value);
    float getCorrelation() const { return correlation; }

    void draw(CDrawContext* context) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;

    // The goniometer's square, in frame coordinates.
    CRect goniometerRect() const;

  protected:
    ~CScopeView() override = default;

  private:
    // About a quarter of a second of points: the trail.
    static constexpr uint32_t kTrail = 1024;
    std::array<float, 2 * kTrail> trail{};
    uint32_t newest = 0; // where the next point goes
    uint32_t count = 0;  // points held, up to kTrail
    float correlation = 0.0f;
    std::function<void()> closed;
};
