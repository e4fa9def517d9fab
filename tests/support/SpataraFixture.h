// A Spatara built in-process against a recording host, for tests of its answers.
#pragma once

#include "RecordingHost.h"
#include "Spatara.h"

#include <gtest/gtest.h>
#include <string>

class SpataraFixture : public ::testing::Test
{
  protected:
    std::string display(VstInt32 index)
    {
        char text[64] = {};
        effect.getParameterDisplay(index, text);
        return text;
    }

    RecordingHost host;
    Spatara effect{host.callback()};
};
