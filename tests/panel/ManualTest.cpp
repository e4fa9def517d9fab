// The user manual is built as a PDF from its source and covers what the product offers.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace
{
std::string slurp(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

int count(const std::string& text, const std::string& what)
{
    int n = 0;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++n;
    return n;
}
} // namespace

TEST(Manual, BuildsToAPdfOfSeveralPages)
{
    const std::string pdf = slurp(SPATARA_MANUAL_PDF);
    ASSERT_GE(pdf.size(), 5u) << SPATARA_MANUAL_PDF;
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    // Page objects, not the page tree.
    EXPECT_GE(count(pdf, "/Type /Page\n"), 4);
    // The pictures of the editor at scale 2, the zoom menu, the preset list and the scope three times.
    EXPECT_GE(count(pdf, "/Subtype /Image"), 6);
}

TEST(Manual, SourceCoversModesParametersPanelFilesDefaultsMemoriesAndTheRenderTool)
{
    const std::string source = slurp(SPATARA_SOURCE_DIR "/docs/manual/manual.ms");
    for (const char* topic : {"Mode1",
                              "Mode2",
                              "Mode3",
                              "depth",
                              "baseFreq",
                              "wdth/emph",
                              "process",
                              "phase",
                              "mode",
                              "preset panel",
                              ".zev",
                              ".zvb",
                              "Default bank and default preset",
                              "Memories A and B",
                              "endian-reversed",
                              "spatara-render",
                              "Spatara-manual.pdf",
                              "Zoom 100 %",
                              "Follow the desktop",
                              "Xft.dpi",
                              "goniometer",
                              "correlation"})
        EXPECT_NE(source.find(topic), std::string::npos) << topic;
}
