// A view that holds child views (frame coordinates), draws them over its background and routes the mouse.
#pragma once

#include "CColor.h"
#include "CView.h"

#include <vector>

class CViewContainer : public CView
{
  public:
    explicit CViewContainer(const CRect& size);
    CViewContainer(const CViewContainer&) = delete;

    // ---- children; the container takes over the caller's reference
    virtual bool addView(CView* view);
    // Lets the view go; withForget drops the container's reference (usually freeing it).
    virtual bool removeView(CView* view, bool withForget = true);
    virtual bool removeAll(bool withForget = true);
    bool isChild(CView* view) const;
    int getNbViews() const { return static_cast<int>(children.size()); }
    CView* getView(int index) const;
    // The topmost visible child under where (deep: inside nested containers too), or null.
    CView* getViewAt(const CPoint& where, bool deep = false) const;

    void setBackgroundColor(const CColor& color);
    const CColor& getBackgroundColor() const { return backgroundColor; }

    // ---- drawing: background, then every visible child that overlaps the update rectangle
    void draw(CDrawContext* context) override;
    void drawRect(CDrawContext* context, const CRect& updateRect) override;
    virtual void drawBackgroundRect(CDrawContext* context, const CRect& rect);
    bool isDirty() const override;
    // Repaints every dirty view of the tree.
    virtual bool invalidateDirtyViews();

    // ---- mouse: a press goes to the topmost child under it; moves and the release follow that child;
    // moves without a press go to the child under the pointer
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    bool onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                 const CButtonState& buttons) override;

    bool attached(CView* parent) override;
    bool removed(CView* parent) override;

    bool isTypeOf(const char* s) const override
    {
        return std::strcmp(s, "CViewContainer") == 0 || CView::isTypeOf(s);
    }
    // Children belong to one container only, so a container is not copied.
    CView* newCopy() const override { return nullptr; }

  protected:
    ~CViewContainer() override;
    // Whether the container hangs in a frame (the frame itself always does).
    virtual bool isInTree() const { return isAttached(); }
    // Forgets the child that holds the mouse, if it is view (it is being removed).
    void releaseMouseDownView(CView* view);

    std::vector<CView*> children;
    CView* mouseDownView = nullptr;
    CColor backgroundColor = kTransparentCColor;
};
