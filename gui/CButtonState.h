// Mouse buttons and modifier keys held during a mouse event, as bits of one integer.
#pragma once

enum CButton
{
    kLButton = 1 << 1,
    kMButton = 1 << 2,
    kRButton = 1 << 3,
    kShift = 1 << 4,
    kControl = 1 << 5,
    kAlt = 1 << 6,
    kApple = 1 << 7,
    kDoubleClick = 1 << 8,
};

class CButtonState
{
  public:
    constexpr CButtonState(long state = 0) : state(state) {}

    constexpr operator long() const { return state; }
    constexpr long getButtonState() const { return state & (kLButton | kMButton | kRButton); }
    constexpr long getModifierState() const { return state & (kShift | kControl | kAlt | kApple); }
    constexpr bool isLeftButton() const { return state & kLButton; }
    constexpr bool isRightButton() const { return state & kRButton; }
    constexpr bool isDoubleClick() const { return state & kDoubleClick; }

  private:
    long state;
};
