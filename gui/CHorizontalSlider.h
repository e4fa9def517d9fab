// A horizontal slider: a handle bitmap dragged over a background, each drag one edit gesture.
#pragma once

#include "CControl.h"
#include "CControlStyle.h"

class CHorizontalSlider : public CControl
{
  public:
    // A slider's own style bits, numbered as the library numbers them for sliders (not the control-wide
    // bits of CControlStyle.h). Only kRight moves the minimum to the right end; kTop and kBottom say
    // nothing about a horizontal slider, which then runs from left to right.
    enum SliderStyle : int32_t
    {
        kSliderHorizontal = 1 << 0,
        kSliderVertical = 1 << 1,
        kSliderLeft = 1 << 2,
        kSliderRight = 1 << 3,
        kSliderTop = 1 << 4,
        kSliderBottom = 1 << 5,
    };

    // minPos and maxPos: the leftmost and rightmost x (frame pixels) of the handle's left edge; offset: the
    // point of the background bitmap drawn behind the slider; style: SliderStyle bits.
    CHorizontalSlider(const CRect& size, CControlListener* listener, int32_t tag, int32_t minPos,
                      int32_t maxPos, CBitmap* handle, CBitmap* background,
                      const CPoint& offset = CPoint(0, 0), int32_t style = kSliderLeft);
    CHorizontalSlider(const CHorizontalSlider& other);

    void draw(CDrawContext* context) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    // One notch moves by the wheel increment of the range (a tenth of it with Shift).
    bool onWheel(const CPoint& where, const float& distance, const CButtonState& buttons) override;

    // Where the handle's top-left sits relative to the slider's top (y) and to minPos (x).
    void setOffsetHandle(const CPoint& offset) { offsetHandle = offset; }
    const CPoint& getOffsetHandle() const { return offsetHandle; }
    void setOffset(const CPoint& newOffset) { offset = newOffset; }
    const CPoint& getOffset() const { return offset; }
    // With free click on, a click anywhere jumps the handle there; off, only the handle can be grabbed.
    void setFreeClick(bool state) { freeClick = state; }
    bool getFreeClick() const { return freeClick; }
    // How much finer the handle follows the mouse while Shift is held.
    void setZoomFactor(float factor) { zoomFactor = factor; }
    int32_t getStyle() const { return style; }
    CBitmap* getHandle() const { return handle.get(); }
    // The handle's rectangle for the current value (frame pixels).
    CRect getHandleRect() const;

    CLASS_METHODS(CHorizontalSlider, CControl)

  protected:
    ~CHorizontalSlider() override;

  private:
    // The value's position 0..1 from the minimum end, as drawn.
    float normalizedPosition() const;
    void setFromPosition(float position);
    bool minimumAtLeft() const { return !(style & kSliderRight); }

    SharedPointer<CBitmap> handle;
    CPoint offset;
    CPoint offsetHandle;
    int32_t minPos;
    int32_t maxPos;
    int32_t style;
    bool freeClick = true;
    float zoomFactor = 10.0f;
    double grabDelta = 0.0;
    double fineStartX = 0.0;
    float fineStartPosition = 0.0f;
    bool fine = false;
    bool dragging = false;
};
