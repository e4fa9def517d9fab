// A view that fills itself with one colour and records the events it receives.
#pragma once

#include "CDrawContext.h"
#include "CView.h"

#include <string>
#include <vector>

class ProbeView : public CView
{
  public:
    ProbeView(const CRect& size, const CColor& color, CMouseEventResult answer = kMouseEventHandled)
        : CView(size), color(color), answer(answer)
    {
    }

    void draw(CDrawContext* context) override
    {
        ++draws;
        context->setFillColor(color);
        context->fillRect(size);
        setDirty(false);
    }
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override
    {
        return record("down", where, buttons);
    }
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override
    {
        return record("up", where, buttons);
    }
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override
    {
        return record("moved", where, buttons);
    }
    CMouseEventResult onMouseEntered(CPoint& where, const CButtonState& buttons) override
    {
        return record("entered", where, buttons);
    }
    CMouseEventResult onMouseExited(CPoint& where, const CButtonState& buttons) override
    {
        return record("exited", where, buttons);
    }
    bool onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                 const CButtonState&) override
    {
        events.push_back("wheel " + std::to_string(static_cast<int>(axis)) + " " +
                         std::to_string(static_cast<int>(distance)));
        lastPoint = where;
        return true;
    }
    int32_t onKeyDown(VstKeyCode& key) override
    {
        events.push_back("key " + std::to_string(key.character) + " " + std::to_string(key.virt));
        return 1;
    }
    void takeFocus() override { events.push_back("takeFocus"); }
    void looseFocus() override { events.push_back("looseFocus"); }

    std::vector<std::string> events;
    CPoint lastPoint;
    long lastButtons = 0;
    int draws = 0;

  private:
    CMouseEventResult record(const char* what, CPoint& where, const CButtonState& buttons)
    {
        events.push_back(what);
        lastPoint = where;
        lastButtons = buttons;
        return answer;
    }

    CColor color;
    CMouseEventResult answer;
};
