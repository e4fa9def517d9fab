#include "CPresetSystemEditor.h"
#include "ImageBytes.h"
#include "RecordingHost.h"
#include "Spatara.h"

#include <cstring>
#include <gtest/gtest.h>

namespace
{
constexpr std::int32_t kQwsn = CCONST('Q', 'w', 's', 'n');

class HostChunk : public ::testing::Test
{
  protected:
    Bytes getChunk(bool isPreset = false)
    {
        void* data = nullptr;
        const VstInt32 size = effect.getChunk(&data, isPreset);
        if (size <= 0 || !data) return {};
        const auto* bytes = static_cast<const char*>(data);
        return Bytes(bytes, bytes + size);
    }

    VstInt32 setChunk(Bytes chunk)
    {
        return effect.setChunk(chunk.data(), static_cast<VstInt32>(chunk.size()), false);
    }

    Bytes table()
    {
        Bytes all;
        for (int n = 0; n < kNumPresets; ++n)
        {
            const auto* p = reinterpret_cast<const char*>(&effect.preset(n));
            all.insert(all.end(), p, p + sizeof(PresetRecord));
        }
        return all;
    }

    // An old chunk: version 1, identifier, count, current, 16 bytes, then records of 24 + 4 × values.
    Bytes oldChunk(std::int32_t count, std::int32_t current, int values)
    {
        return oldHostChunk(kQwsn, count, current, values,
                            [](int, int j) { return 0.125f * static_cast<float>(j % 8); });
    }

    RecordingHost host;
    Spatara effect{host.callback()};
};
} // namespace

TEST_F(HostChunk, IsTheWholeBankBehindAnEightByteHead)
{
    const Bytes chunk = getChunk();
    ASSERT_EQ(chunk.size(), 13729u);
    EXPECT_EQ(int32At(chunk, 0), 0x02000000);
    EXPECT_EQ(int32At(chunk, 4), kQwsn);
    EXPECT_EQ(Bytes(chunk.begin() + 8, chunk.end()), effect.presetEditor()->BankToBuffer());
}

TEST_F(HostChunk, AskingForASingleProgramStillGivesTheWholeBank)
{
    EXPECT_EQ(getChunk(true), getChunk(false));
    EXPECT_EQ(getChunk(true).size(), 13729u);
}

TEST_F(HostChunk, RoundTripRestoresTheTableAndCurrentPreset)
{
    effect.setPresetNo(11);
    effect.setParameter(0, 0.33f);
    char name[] = "my room";
    effect.setProgramName(name);
    const Bytes chunk = getChunk();
    const Bytes before = table();

    effect.setPresetNo(2);
    effect.setParameter(0, 0.9f);
    ASSERT_EQ(setChunk(chunk), 0);
    EXPECT_EQ(table(), before);
    EXPECT_EQ(effect.getPresetNo(), 11);
    EXPECT_EQ(effect.getParameter(0), 0.33f);
}

TEST_F(HostChunk, ChunkFromTheOtherByteOrderLoadsTheSameValues)
{
    effect.setPresetNo(20);
    const Bytes chunk = getChunk();
    const Bytes before = table();
    effect.preset(20).values[1] = 0.99f;
    effect.setPresetNo(0);
    ASSERT_EQ(setChunk(reversedHostChunk(chunk)), 0);
    EXPECT_EQ(table(), before);
    EXPECT_EQ(effect.getPresetNo(), 20);
}

TEST_F(HostChunk, UnknownIdentifierIsRefusedAndChangesNothing)
{
    Bytes chunk = getChunk();
    putInt32(chunk, 4, CCONST('N', 'o', 'p', 'e'));
    effect.setPresetNo(5);
    const Bytes before = table();
    EXPECT_EQ(setChunk(chunk), -1);
    EXPECT_EQ(table(), before);
    EXPECT_EQ(effect.getPresetNo(), 5);
}

TEST_F(HostChunk, UnknownVersionNullAndShortChunksAreRefused)
{
    Bytes chunk = getChunk();
    putInt32(chunk, 0, 0x03000000);
    EXPECT_EQ(setChunk(chunk), -1);
    EXPECT_EQ(effect.setChunk(nullptr, 100, false), -1);
    Bytes tiny = getChunk();
    EXPECT_EQ(effect.setChunk(tiny.data(), 7, false), -1);
    EXPECT_EQ(effect.setChunk(tiny.data(), 30, false), -1);
}

TEST_F(HostChunk, OldChunkWithCurrentPreset40EndsOnPresetZero)
{
    effect.setPresetNo(8);
    ASSERT_EQ(setChunk(oldChunk(38, 40, 6)), 0);
    EXPECT_EQ(effect.getPresetNo(), 0);
    EXPECT_STREQ(effect.preset(37).name, "legacy 37");
    EXPECT_EQ(effect.preset(37).values[3], 0.375f);
}

TEST_F(HostChunk, OldChunkSelectsItsCurrentPreset)
{
    ASSERT_EQ(setChunk(oldChunk(38, 12, 6)), 0);
    EXPECT_EQ(effect.getPresetNo(), 12);
    EXPECT_EQ(effect.getParameter(5), 0.625f);
}

TEST_F(HostChunk, OldChunkInTheOtherByteOrderLoads)
{
    Bytes chunk = oldChunk(38, 3, 6);
    for (std::size_t w = 0; w < 32; w += 4)
        reverseWord(chunk, w);
    for (std::size_t r = 32; r < chunk.size(); r += 48)
        for (std::size_t v = 24; v < 48; v += 4)
            reverseWord(chunk, r + v);
    ASSERT_EQ(setChunk(chunk), 0);
    EXPECT_EQ(effect.getPresetNo(), 3);
    EXPECT_EQ(effect.preset(3).values[2], 0.25f);
}

TEST_F(HostChunk, OldChunkWithZeroPresetsIsRefused)
{
    const Bytes before = table();
    EXPECT_EQ(setChunk(oldChunk(0, 0, 6)), -1);
    EXPECT_EQ(table(), before);
}

TEST_F(HostChunk, OldChunkShorterThanItClaimsIsRefused)
{
    Bytes chunk = oldChunk(38, 0, 6);
    putInt32(chunk, 8, 30); // the records are 48 bytes each, but now it claims more per preset than there is
    chunk.resize(32 + 10 * 48);
    const Bytes before = table();
    EXPECT_EQ(setChunk(chunk), -1);
    EXPECT_EQ(table(), before);
}

TEST_F(HostChunk, OldChunkStopsAtTheFirstBadValueKeepingWhatItRead)
{
    Bytes chunk = oldChunk(38, 5, 6);
    putFloat(chunk, 32 + 2 * 48 + 24, 1.5f); // preset 2, value 0
    effect.setPresetNo(9);
    EXPECT_EQ(setChunk(chunk), -1);
    EXPECT_STREQ(effect.preset(1).name, "legacy 1");
    EXPECT_STREQ(effect.preset(3).name, "enhanced mix 3");
    EXPECT_EQ(effect.getPresetNo(), 9);
}

TEST_F(HostChunk, ThroughTheDispatcher)
{
    void* data = nullptr;
    const VstIntPtr size = effect.dispatcher(effGetChunk, 0, 0, &data, 0.0f);
    ASSERT_EQ(size, 13729);
    Bytes copy(static_cast<char*>(data), static_cast<char*>(data) + size);
    EXPECT_EQ(effect.dispatcher(effSetChunk, 0, static_cast<VstIntPtr>(copy.size()), copy.data(), 0.0f), 0);
}
