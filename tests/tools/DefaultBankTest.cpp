// A default bank saved by one instance is what a fresh instance of the real plug-in starts with.
#include "CPresetSystemEditor.h"
#include "RecordingHost.h"
#include "RunCommand.h"
#include "Spatara.h"
#include "TempDir.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace
{
std::string freshInstanceInfo(const TempDir& config)
{
    const auto result =
        runCommand("XDG_CONFIG_HOME=" + shellQuote(config.path()) + " " + shellQuote(SPATARA_RENDER_PATH) +
                   " --info " + shellQuote(SPATARA_PLUGIN_PATH));
    EXPECT_EQ(result.exitCode, 0) << result.err;
    return result.out;
}
} // namespace

TEST(DefaultBank, AFreshInstanceOfThePluginStartsWithTheSavedDefaultBank)
{
    TempDir config;
    setenv("XDG_CONFIG_HOME", config.path().c_str(), 1);
    RecordingHost host;
    Spatara effect(host.callback());
    effect.setPresetNo(3);
    char name[] = "studio three";
    effect.setProgramName(name);
    effect.presetEditor()->saveDefaultBank();

    std::string info = freshInstanceInfo(config);
    EXPECT_NE(info.find("\n  3 studio three\n"), std::string::npos) << info;

    effect.presetEditor()->resetDefaultBank();
    info = freshInstanceInfo(config);
    EXPECT_NE(info.find("\n  3 enhanced mix 3\n"), std::string::npos) << info;
    EXPECT_EQ(info.find("studio three"), std::string::npos) << info;
}
