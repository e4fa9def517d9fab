// A test that speaks to the built Spatara.so as a host does: loaded with dlopen, opened and switched on
// at 44.1 kHz with blocks of 512, then reached only through the VST 2.4 interface.
#pragma once

#include "VstPluginHost.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

class StartedPluginTest : public ::testing::Test
{
  protected:
    void SetUp() override
    {
        std::string error;
        host = VstPluginHost::load(SPATARA_PLUGIN_PATH, error);
        ASSERT_TRUE(host) << error;
        host->open();
        host->start(44100.0f, 512);
    }

    std::unique_ptr<VstPluginHost> host;
};
