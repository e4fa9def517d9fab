#include "CFramePlatformBridge.h"

#include "CDrawContext.h"
#include "CFrame.h"
#include "SharedPointer.h"

long CFramePlatformBridge::buttonBit(int button)
{
    switch (button)
    {
    case kPlatformButtonLeft:
        return kLButton;
    case kPlatformButtonRight:
        return kRButton;
    case kPlatformButtonMiddle:
        return kMButton;
    default:
        return 0;
    }
}

long CFramePlatformBridge::buttonState(unsigned modifiers) const
{
    long state = heldButtons;
    if (modifiers & kPlatformModifierShift) state |= kShift;
    if (modifiers & kPlatformModifierControl) state |= kControl;
    if (modifiers & kPlatformModifierAlt) state |= kAlt;
    if (modifiers & kPlatformModifierSuper) state |= kApple;
    return state;
}

void CFramePlatformBridge::onPlatformDraw(cairo_t* cr)
{
    const auto context = owned(new CDrawContext(cr, frame->getScale()));
    frame->paint(context.get());
}

void CFramePlatformBridge::onPlatformMouseButton(double x, double y, int button, bool press,
                                                 unsigned modifiers)
{
    const long bit = buttonBit(button);
    CPoint where(x / frame->getScale(), y / frame->getScale());
    lastX = where.x;
    lastY = where.y;
    if (press)
    {
        heldButtons |= bit;
        // The press reports the button that went down (with the modifiers), not all held ones.
        frame->platformOnMouseDown(where, CButtonState(bit | (buttonState(modifiers) & ~heldButtons)));
    }
    else
    {
        heldButtons &= ~bit;
        frame->platformOnMouseUp(where, CButtonState(bit | buttonState(modifiers)));
    }
}

void CFramePlatformBridge::onPlatformMotion(double x, double y, unsigned modifiers)
{
    CPoint where(x / frame->getScale(), y / frame->getScale());
    lastX = where.x;
    lastY = where.y;
    frame->platformOnMouseMoved(where, CButtonState(buttonState(modifiers)));
}

void CFramePlatformBridge::onPlatformScroll(double x, double y, double dx, double dy, unsigned modifiers)
{
    const CPoint where(x / frame->getScale(), y / frame->getScale());
    if (dy != 0.0)
        frame->platformOnMouseWheel(where, kMouseWheelAxisY, static_cast<float>(dy),
                                    CButtonState(buttonState(modifiers)));
    if (dx != 0.0)
        frame->platformOnMouseWheel(where, kMouseWheelAxisX, static_cast<float>(dx),
                                    CButtonState(buttonState(modifiers)));
}

namespace
{
unsigned char virtualKey(unsigned key)
{
    switch (key)
    {
    case kPlatformKeyBackspace:
        return VKEY_BACK;
    case kPlatformKeyTab:
        return VKEY_TAB;
    case kPlatformKeyReturn:
        return VKEY_RETURN;
    case kPlatformKeyEscape:
        return VKEY_ESCAPE;
    case kPlatformKeyDelete:
        return VKEY_DELETE;
    case kPlatformKeyLeft:
        return VKEY_LEFT;
    case kPlatformKeyUp:
        return VKEY_UP;
    case kPlatformKeyRight:
        return VKEY_RIGHT;
    case kPlatformKeyDown:
        return VKEY_DOWN;
    case kPlatformKeyHome:
        return VKEY_HOME;
    case kPlatformKeyEnd:
        return VKEY_END;
    default:
        return 0;
    }
}

unsigned char vstModifiers(unsigned modifiers)
{
    unsigned char result = 0;
    if (modifiers & kPlatformModifierShift) result |= MODIFIER_SHIFT;
    if (modifiers & kPlatformModifierAlt) result |= MODIFIER_ALTERNATE;
    if (modifiers & kPlatformModifierSuper) result |= MODIFIER_COMMAND;
    if (modifiers & kPlatformModifierControl) result |= MODIFIER_CONTROL;
    return result;
}
} // namespace

bool CFramePlatformBridge::onPlatformKey(bool press, unsigned key, unsigned modifiers)
{
    VstKeyCode code;
    code.virt = virtualKey(key);
    code.modifier = vstModifiers(modifiers);
    if (code.virt == 0) return false;
    return (press ? frame->platformOnKeyDown(code) : frame->platformOnKeyUp(code)) == 1;
}

bool CFramePlatformBridge::onPlatformCharacter(unsigned character, unsigned modifiers)
{
    VstKeyCode code;
    code.character = static_cast<int32_t>(character);
    code.modifier = vstModifiers(modifiers);
    return frame->platformOnKeyDown(code) == 1;
}

void CFramePlatformBridge::onPlatformPointerLeft()
{
    CPoint where(lastX, lastY);
    frame->platformOnMouseExited(where, CButtonState(heldButtons));
}

void CFramePlatformBridge::onPlatformFocusLost()
{
    frame->platformOnFocusLost();
}
