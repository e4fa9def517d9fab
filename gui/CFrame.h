// The top view of an editor: owns the controls, tracks repaints, routes the window's events, holds a
// modal view and the keyboard focus, and lives in the host's window when given one.
#pragma once

#include "CViewContainer.h"

#include <chrono>
#include <memory>

class PlatformWindow;
class VSTGUIEditorInterface;
class CFramePlatformBridge;

class CFrame : public CViewContainer
{
  public:
    // systemWindow: the host's parent window (an X11 window id); null makes a frame without a window. The
    // window is the size times the editor's scale; the frame and every view keep their units.
    CFrame(const CRect& size, void* systemWindow, VSTGUIEditorInterface* editor);

    // Releases every view and the window, then the frame itself.
    virtual void close();
    VSTGUIEditorInterface* getEditor() const { return editor; }
    // The window layer, null for a frame without a window.
    PlatformWindow* getPlatformWindow() const { return platformWindow.get(); }
    CFrame* getFrame() const override { return const_cast<CFrame*>(this); }

    // ---- scale: window pixels per unit
    double getScale() const { return scale; }
    // Resizes the window to the frame's size times the scale and repaints all of it.
    void setScale(double newScale);
    // A window length in pixels for a length in units.
    int toWindowPixels(double units) const;

    // ---- repaints
    // Idle work of the frame: repaints what changed.
    virtual void idle();
    void invalidRect(const CRect& rect) override;
    void invalid() override { invalidRect(size); }
    // The area asked to be repainted since the last paint (empty when none).
    const CRect& getInvalidRect() const { return invalidArea; }
    // Paints what the window shows: the whole frame, or only updateRect.
    void paint(CDrawContext* context);
    void paint(CDrawContext* context, const CRect& updateRect);

    // ---- modal view: gets every mouse event while it is held; the frame adds it as a child
    // Fails while another is held. null removes the held one from the children without freeing it.
    bool setModalView(CView* view);
    CView* getModalView() const { return modalView; }

    // ---- keyboard focus: the focus view gets the keys; the window asks the desktop for the keyboard
    void setFocusView(CView* view);
    CView* getFocusView() const { return focusView; }

    // ---- editor services for the controls
    void beginEdit(int32_t index);
    void endEdit(int32_t index);
    int32_t getKnobMode() const;

    // ---- mouse routing of the frame itself (the modal view first, then the children)
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    bool onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                 const CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    int32_t onKeyUp(VstKeyCode& keyCode) override;

    // ---- events from the window (frame coordinates); they reach the routing above
    // Adds kDoubleClick to a second press of the same button within 300 ms and 4 px.
    virtual CMouseEventResult platformOnMouseDown(CPoint& where, const CButtonState& buttons);
    virtual CMouseEventResult platformOnMouseUp(CPoint& where, const CButtonState& buttons);
    // Also moves the hover: the view left gets onMouseExited, the view entered onMouseEntered.
    virtual CMouseEventResult platformOnMouseMoved(CPoint& where, const CButtonState& buttons);
    // The pointer left the window: the hovered view is exited.
    virtual CMouseEventResult platformOnMouseExited(CPoint& where, const CButtonState& buttons);
    virtual bool platformOnMouseWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                                      const CButtonState& buttons);
    virtual int32_t platformOnKeyDown(VstKeyCode& keyCode);
    virtual int32_t platformOnKeyUp(VstKeyCode& keyCode);
    // The window lost the keyboard to another window: the focus view lets go.
    virtual void platformOnFocusLost();
    CView* getMouseOverView() const { return mouseOverView; }

    // Called by a view leaving the tree, so the frame holds no pointer to it.
    void onViewRemoved(CView* view);

    bool isTypeOf(const char* s) const override
    {
        return std::strcmp(s, "CFrame") == 0 || CViewContainer::isTypeOf(s);
    }

  protected:
    ~CFrame() override;
    bool isInTree() const override { return true; }

  private:
    double scale = 1.0;
    void updateMouseOverView(CPoint& where, const CButtonState& buttons);

    VSTGUIEditorInterface* editor;
    std::unique_ptr<CFramePlatformBridge> bridge;
    std::unique_ptr<PlatformWindow> platformWindow;
    CRect invalidArea;
    CView* modalView = nullptr;
    CView* focusView = nullptr;
    CView* mouseOverView = nullptr;
    long lastPressButton = 0;
    CPoint lastPressPoint;
    std::chrono::steady_clock::time_point lastPressTime;
};
