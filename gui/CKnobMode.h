// How a knob or slider follows a drag, as the host sets it through effSetEditKnobMode.
#pragma once

#include <cstdint>

enum CKnobMode : int32_t
{
    kCircularMode = 0,
    kRelativCircularMode = 1,
    kLinearMode = 2, // a slider follows the mouse along its own axis
};
