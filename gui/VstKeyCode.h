// A key event as the VST 2.4 editor requests carry it: a character, a virtual key and modifier bits.
#pragma once

#include <cstdint>

struct VstKeyCode
{
    int32_t character = 0;
    unsigned char virt = 0;
    unsigned char modifier = 0;
};

// Virtual keys (the subset the toolkit produces), numbered as in the VST 2.4 interface.
enum VstVirtualKey
{
    VKEY_BACK = 1,
    VKEY_TAB = 2,
    VKEY_RETURN = 4,
    VKEY_ESCAPE = 6,
    VKEY_SPACE = 7,
    VKEY_END = 9,
    VKEY_HOME = 10,
    VKEY_LEFT = 11,
    VKEY_UP = 12,
    VKEY_RIGHT = 13,
    VKEY_DOWN = 14,
    VKEY_ENTER = 19,
    VKEY_DELETE = 22,
};

enum VstModifierKey
{
    MODIFIER_SHIFT = 1 << 0,
    MODIFIER_ALTERNATE = 1 << 1,
    MODIFIER_COMMAND = 1 << 2,
    MODIFIER_CONTROL = 1 << 3,
};
