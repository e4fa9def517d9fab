// The editor's frame: the toolkit's frame plus a modal view of its own, which takes every mouse and wheel
// event while it is held and is drawn over everything on every repaint that touches it.
#pragma once

#include "CFrame.h"

class COptionMenu;

class MyFrame : public CFrame
{
  public:
    // The same arguments as the frame's: rectangle, the host's parent window, the editor.
    MyFrame(const CRect& size, void* systemWindow, VSTGUIEditorInterface* editor);

    // ---- the frame's operations, in the library's order
    // Draws the children within updateRect, then the modal view when it touches updateRect (edges count).
    void drawRect(CDrawContext* context, const CRect& updateRect) override;
    // With a modal view held, the mouse goes to it unchanged (frame coordinates) and the children see
    // nothing.
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    bool onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                 const CButtonState& buttons) override;
    // Repaints the whole frame while a modal view is held, then every dirty view.
    void idle() override;
    CMouseEventResult platformOnMouseDown(CPoint& where, const CButtonState& buttons) override;

    // ---- the menu a right click on the panel itself opens (where no control takes the click); not owned,
    // one of the frame's views. null for none.
    void setBackgroundMenu(COptionMenu* menu) { backgroundMenu = menu; }

    // ---- the modal view: not owned; whoever sets it clears it (closeModal) before freeing it
    // Stores the view; nothing else (no repaint, no attaching).
    void makeModal(CView* view) { modalView = view; }
    // Clears the modal view and repaints the whole frame, where the view was.
    void closeModal();
    void setGetsFocus(bool state) { getsFocus = state; }
    bool getGetsFocus() const { return getsFocus; }
    virtual CView* getModal() const { return modalView; }

  protected:
    ~MyFrame() override = default;

  private:
    CView* modalView = nullptr;
    COptionMenu* backgroundMenu = nullptr;
    bool getsFocus = true;
};
