// The open list of an option menu: its entries in columns over the frame; a click chooses or dismisses.
#pragma once

#include "CView.h"

class COptionMenu;

class COptionMenuPopup : public CView
{
  public:
    static constexpr double kRowHeight = 12.0;

    // Lays the entries out in columns of the menu's row count, below the menu and inside frameRect.
    COptionMenuPopup(COptionMenu* menu, const CRect& frameRect);

    void draw(CDrawContext* context) override;
    // Takes every click: on an entry it chooses it, anywhere else it dismisses the list.
    bool hitTest(const CPoint& where, const CButtonState& buttons = CButtonState()) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    // Arrows move the highlight, Return chooses it, Escape dismisses.
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    bool wantsKeyboard() const override { return true; }

    // The entry under where, or -1.
    int32_t entryAt(const CPoint& where) const;
    // The rectangle of an entry's row (frame pixels).
    CRect entryRect(int32_t index) const;
    int32_t getHighlighted() const { return highlighted; }
    int32_t getNbColumns() const { return columns; }
    // The menu went away while the list was open.
    void detachMenu() { menu = nullptr; }

    bool isTypeOf(const char* s) const override
    {
        return std::strcmp(s, "COptionMenuPopup") == 0 || CView::isTypeOf(s);
    }
    CView* newCopy() const override { return nullptr; }

  protected:
    // Freed with the frame while still open: the menu forgets it.
    ~COptionMenuPopup() override;

  private:
    // Leaves the frame and frees itself, then tells the menu (index -1: dismissed).
    void close(int32_t chosenIndex);

    COptionMenu* menu;
    int32_t rows = 1;
    int32_t columns = 1;
    double columnWidth = 0.0;
    int32_t highlighted = -1;
};
