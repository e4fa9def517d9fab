// What the window layer reports to the view tree: drawing, mouse, wheel, keys, crossings and focus.
#pragma once

typedef struct _cairo cairo_t;

enum PlatformMouseButton
{
    kPlatformButtonLeft = 1,
    kPlatformButtonRight = 2,
    kPlatformButtonMiddle = 3,
};

enum PlatformModifier
{
    kPlatformModifierShift = 1 << 0,
    kPlatformModifierControl = 1 << 1,
    kPlatformModifierAlt = 1 << 2,
    kPlatformModifierSuper = 1 << 3,
};

// Keys that are not characters; characters arrive as their Unicode value.
enum PlatformKey : unsigned
{
    kPlatformKeyBackspace = 0x08,
    kPlatformKeyTab = 0x09,
    kPlatformKeyReturn = 0x0D,
    kPlatformKeyEscape = 0x1B,
    kPlatformKeyDelete = 0x7F,
    kPlatformKeyLeft = 0xE00C,
    kPlatformKeyUp = 0xE00D,
    kPlatformKeyRight = 0xE00E,
    kPlatformKeyDown = 0xE00F,
    kPlatformKeyHome = 0xE012,
    kPlatformKeyEnd = 0xE013,
};

class PlatformWindowListener
{
  public:
    virtual ~PlatformWindowListener() = default;

    // Paint the whole window on cr.
    virtual void onPlatformDraw(cairo_t* cr) = 0;
    virtual void onPlatformMouseButton(double x, double y, int button, bool press, unsigned modifiers) = 0;
    virtual void onPlatformMotion(double x, double y, unsigned modifiers) = 0;
    // dx: +1 right, dy: +1 up, per notch.
    virtual void onPlatformScroll(double x, double y, double dx, double dy, unsigned modifiers) = 0;
    // A key that is not a character (PlatformKey); answer whether it was used.
    virtual bool onPlatformKey(bool press, unsigned key, unsigned modifiers) = 0;
    // A typed character (never a control character); answer whether it was used.
    virtual bool onPlatformCharacter(unsigned character, unsigned modifiers) = 0;
    virtual void onPlatformPointerLeft() = 0;
    virtual void onPlatformFocusLost() = 0;
};
