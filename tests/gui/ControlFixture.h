// A frame with a recording editor and listener, for the control tests.
#pragma once

#include "CBitmap.h"
#include "CFrame.h"
#include "RecordingListener.h"

#include <gtest/gtest.h>

struct ControlFixture : ::testing::Test
{
    ControlFixture() : frame(new CFrame(CRect(0, 0, 302, 250), nullptr, &recorder)) {}
    ~ControlFixture() override { frame->forget(); }

    // Adds the control to the frame (which takes it over) and returns it.
    template <typename T> T* add(T* control)
    {
        frame->addView(control);
        return control;
    }

    RecordingListener recorder;
    CFrame* frame;
};
