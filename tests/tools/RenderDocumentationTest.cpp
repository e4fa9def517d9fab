// What spatara-render tells about itself: its version, and the manual page made from its --help.
#include "RunCommand.h"
#include "SpataraVersion.h"

#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <string>

namespace
{
const std::string kRender = SPATARA_RENDER_PATH;
const std::string kManualPage = SPATARA_RENDER_MAN_PATH;

std::set<std::string> optionsIn(const std::string& text)
{
    std::set<std::string> options;
    const std::regex option("--[a-z][a-z-]+");
    for (auto it = std::sregex_iterator(text.begin(), text.end(), option); it != std::sregex_iterator(); ++it)
        options.insert(it->str());
    return options;
}
} // namespace

TEST(RenderDocumentation, VersionIsTheProjectVersion)
{
    const CommandResult result = runCommand(shellQuote(kRender) + " --version");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, std::string("spatara-render ") + SPATARA_VERSION_STRING + "\n");
    EXPECT_EQ(std::string(SPATARA_VERSION_STRING), SPATARA_PROJECT_VERSION);
}

TEST(RenderDocumentation, ManualPageNamesEveryOptionOfTheHelp)
{
    const CommandResult help = runCommand(shellQuote(kRender) + " --help");
    ASSERT_EQ(help.exitCode, 0);
    const std::set<std::string> helpOptions = optionsIn(help.out);
    EXPECT_EQ(helpOptions.size(), 10u);

    // groff writes a hyphen in an option as "\-"; undo that before looking for the options.
    const CommandResult page = runCommand("gzip -dc " + shellQuote(kManualPage) + " | sed 's/\\\\-/-/g'");
    ASSERT_EQ(page.exitCode, 0);
    EXPECT_NE(page.out.find(".TH SPATARA-RENDER \"1\""), std::string::npos);
    EXPECT_NE(page.out.find(std::string("spatara-render ") + SPATARA_VERSION_STRING), std::string::npos);
    for (const std::string& option : helpOptions)
        EXPECT_TRUE(optionsIn(page.out).count(option)) << option << " is missing from the manual page";
}
