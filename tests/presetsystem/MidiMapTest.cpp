#include "CPresetSystemEditor.h"
#include "CPresetSystemEffect.h"
#include "ImageBytes.h"
#include "RecordingHost.h"

#include <cstring>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace
{
constexpr std::int32_t kQwsn = CCONST('Q', 'w', 's', 'n');

// An effect that keeps the assignments the MIDI map hands it as pseudo-parameters 6..11.
class AssignmentRecorder : public CPresetSystemEffect
{
  public:
    explicit AssignmentRecorder(audioMasterCallback master) : CPresetSystemEffect(master)
    {
        setUniqueID(kQwsn);
        setEditor(new CPresetSystemEditor(this));
    }
    void setParameter(VstInt32 index, float value) override
    {
        if (index >= 6) assigned.emplace_back(index, value);
    }
    std::vector<std::pair<VstInt32, float>> assigned;
};

class MidiMap : public ::testing::Test
{
  protected:
    bool load(const Bytes& image)
    {
        newpresetheader header;
        std::memcpy(&header, image.data(), sizeof(header));
        return effect.presetEditor()->BufferToMidi(image.data() + 41, image.size() - 41, &header, false);
    }

    RecordingHost host;
    AssignmentRecorder effect{host.callback()};
};
} // namespace

TEST_F(MidiMap, ZeroChunksChangeNothing)
{
    Bytes image = imageHeader(kQwsn, 0x0C, 0, 0);
    appendChunk(image, 2, 0, valuePayload(1, 0.3f));
    EXPECT_FALSE(load(image));
    EXPECT_TRUE(effect.assigned.empty());
}

TEST_F(MidiMap, ValueOf15IsSkippedAndTheFollowingChunksApply)
{
    Bytes image = imageHeader(kQwsn, 0x0C, 3, 0);
    appendChunk(image, 2, 0, valuePayload(0, 1.5f));
    appendChunk(image, 2, 0, valuePayload(1, 0.25f));
    appendChunk(image, 2, 0, valuePayload(9, 0.5f));
    EXPECT_TRUE(load(image));
    ASSERT_EQ(effect.assigned.size(), 1u);
    EXPECT_EQ(effect.assigned[0].first, 7);
    EXPECT_EQ(effect.assigned[0].second, 0.25f);
}

TEST_F(MidiMap, AnOldRunOfEightValuesAppliesAtMostSix)
{
    Bytes run(8 * 4, 0);
    for (std::size_t j = 0; j < 8; ++j)
        putFloat(run, j * 4, 0.1f);
    EXPECT_TRUE(effect.presetEditor()->BufferToMidiOld(run.data(), run.size(), false, 8));
    ASSERT_EQ(effect.assigned.size(), 6u);
    EXPECT_EQ(effect.assigned.back().first, 11);
}

TEST_F(MidiMap, AnOldRunStopsAtABadValueKeepingWhatItApplied)
{
    Bytes run(6 * 4, 0);
    putFloat(run, 0, 0.2f);
    putFloat(run, 4, -1.0f);
    putFloat(run, 8, 0.2f);
    EXPECT_FALSE(effect.presetEditor()->BufferToMidiOld(run.data(), run.size(), false, 6));
    EXPECT_EQ(effect.assigned.size(), 1u);
}

TEST_F(MidiMap, AnOldRunShorterThanItsCountStopsAtTheEnd)
{
    Bytes run(2 * 4, 0);
    EXPECT_FALSE(effect.presetEditor()->BufferToMidiOld(run.data(), run.size(), false, 6));
    EXPECT_EQ(effect.assigned.size(), 2u);
}
