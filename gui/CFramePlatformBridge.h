// Turns the window layer's reports into the frame's events: button bits, modifiers, key codes, and window
// pixels into the frame's units (divided by its scale), where they enter the toolkit.
#pragma once

#include "platform/PlatformWindowListener.h"

class CFrame;

class CFramePlatformBridge : public PlatformWindowListener
{
  public:
    explicit CFramePlatformBridge(CFrame* frame) : frame(frame) {}

    void onPlatformDraw(cairo_t* cr) override;
    void onPlatformMouseButton(double x, double y, int button, bool press, unsigned modifiers) override;
    void onPlatformMotion(double x, double y, unsigned modifiers) override;
    void onPlatformScroll(double x, double y, double dx, double dy, unsigned modifiers) override;
    bool onPlatformKey(bool press, unsigned key, unsigned modifiers) override;
    bool onPlatformCharacter(unsigned character, unsigned modifiers) override;
    void onPlatformPointerLeft() override;
    void onPlatformFocusLost() override;

    // The toolkit's bits for the held buttons plus these window-layer modifiers.
    long buttonState(unsigned modifiers) const;
    // The toolkit's button bit for a window-layer button number (1 left, 2 right, 3 middle).
    static long buttonBit(int button);

  private:
    CFrame* frame;
    long heldButtons = 0;
    double lastX = 0.0;
    double lastY = 0.0;
};
