// Base of everything drawn in the frame: a rectangle that draws itself and answers mouse and keys.
#pragma once

#include "CBaseObject.h"
#include "CButtonState.h"
#include "CMouseEventResult.h"
#include "CRect.h"
#include "SharedPointer.h"
#include "VstKeyCode.h"

#include <cstdint>
#include <cstring>

class CBitmap;
class CDrawContext;
class CFrame;

// isTypeOf and newCopy for a class with a copy constructor.
#define CLASS_METHODS(name, parent)                                                                          \
    bool isTypeOf(const char* s) const override                                                              \
    {                                                                                                        \
        return std::strcmp(s, #name) == 0 || parent::isTypeOf(s);                                            \
    }                                                                                                        \
    CView* newCopy() const override                                                                          \
    {                                                                                                        \
        return new name(*this);                                                                              \
    }

class CView : public CBaseObject
{
  public:
    explicit CView(const CRect& size);
    // A copy takes its own reference on the background and is not attached anywhere.
    CView(const CView& other);

    // ---- drawing
    // Draws the background bitmap over the view's rectangle.
    virtual void draw(CDrawContext* context);
    // Draws what lies in updateRect; a plain view draws itself whole.
    virtual void drawRect(CDrawContext* context, const CRect& updateRect);
    virtual void setBackground(CBitmap* bitmap);
    CBitmap* getBackground() const { return background.get(); }

    // ---- dirty state and repaints
    // Marks the view for the frame's next pass over dirty views.
    virtual void setDirty(bool state = true) { dirty = state; }
    virtual bool isDirty() const { return dirty; }
    // Asks the frame to repaint the view now and clears the dirty mark.
    virtual void invalid();
    // Asks the frame to repaint rect (frame coordinates).
    virtual void invalidRect(const CRect& rect);

    // ---- mouse and keys (frame coordinates); the default answers "not implemented"
    virtual CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons);
    virtual CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons);
    virtual CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons);
    virtual CMouseEventResult onMouseEntered(CPoint& where, const CButtonState& buttons);
    virtual CMouseEventResult onMouseExited(CPoint& where, const CButtonState& buttons);
    // Vertical wheel; distance +1 per notch up.
    virtual bool onWheel(const CPoint& where, const float& distance, const CButtonState& buttons);
    // Either axis; the default hands the vertical axis to the form above.
    virtual bool onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                         const CButtonState& buttons);
    // Answer 1 when the key was used, -1 when not.
    virtual int32_t onKeyDown(VstKeyCode& keyCode);
    virtual int32_t onKeyUp(VstKeyCode& keyCode);
    // Called when the view gains or loses the frame's keyboard focus.
    virtual void takeFocus() {}
    virtual void looseFocus() {}
    // A modal view that answers true gets the window's keyboard while it is shown (popup lists, alerts),
    // so its keys never go to the host meanwhile.
    virtual bool wantsKeyboard() const { return false; }
    // Whether a click at where belongs to the view (its mouseable area).
    virtual bool hitTest(const CPoint& where, const CButtonState& buttons = CButtonState());

    // ---- geometry and flags
    virtual void setViewSize(const CRect& rect, bool invalidate = true);
    const CRect& getViewSize() const { return size; }
    CRect& getViewSize(CRect& rect) const { return rect = size; }
    double getWidth() const { return size.getWidth(); }
    double getHeight() const { return size.getHeight(); }
    virtual void setMouseableArea(const CRect& rect) { mouseableArea = rect; }
    const CRect& getMouseableArea() const { return mouseableArea; }
    virtual void setVisible(bool state);
    bool isVisible() const { return visible; }
    virtual void setMouseEnabled(bool state) { mouseEnabled = state; }
    bool getMouseEnabled() const { return mouseEnabled; }

    // ---- place in the tree
    // Called by the container that takes the view; the frame is found through it.
    virtual bool attached(CView* parent);
    // Called by the container that lets the view go.
    virtual bool removed(CView* parent);
    bool isAttached() const { return parentView != nullptr; }
    CView* getParentView() const { return parentView; }
    virtual CFrame* getFrame() const { return frame; }

    // ---- class information
    virtual bool isTypeOf(const char* s) const { return std::strcmp(s, "CView") == 0; }
    // A new view with the same settings (the caller owns it), or null for views that cannot be copied.
    virtual CView* newCopy() const { return new CView(*this); }

  protected:
    ~CView() override;

    CRect size;
    CRect mouseableArea;
    SharedPointer<CBitmap> background;

  private:
    CView* parentView = nullptr;
    CFrame* frame = nullptr;
    bool dirty = false;
    bool visible = true;
    bool mouseEnabled = true;
};
