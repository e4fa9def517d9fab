// What a view answers to a mouse event, and the axes of the wheel.
#pragma once

enum CMouseEventResult
{
    kMouseEventNotImplemented = 0,
    kMouseEventHandled = 1,
    kMouseEventNotHandled = 2,
    // Handled on the press; the view wants neither the moves nor the release that follow.
    kMouseDownEventHandledButDontNeedMovedOrUpEvents = 3,
};

enum CMouseWheelAxis
{
    kMouseWheelAxisX = 0,
    kMouseWheelAxisY,
};
