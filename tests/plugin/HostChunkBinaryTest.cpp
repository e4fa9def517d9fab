// The host chunk as a host meets it: the built Spatara.so, effGetChunk and effSetChunk through the
// dispatcher, and what the table then says through the program names and parameter values.
#include "ImageBytes.h"
#include "StartedPluginTest.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace
{
constexpr std::int32_t kQwsn = CCONST('Q', 'w', 's', 'n');

class HostChunkThroughTheBinary : public StartedPluginTest
{
  protected:
    Bytes getChunk()
    {
        void* data = nullptr;
        const VstIntPtr size = host->dispatch(effGetChunk, 0, 0, &data);
        if (size <= 0 || !data) return {};
        return Bytes(static_cast<char*>(data), static_cast<char*>(data) + size);
    }

    VstIntPtr setChunk(Bytes chunk)
    {
        return host->dispatch(effSetChunk, 0, static_cast<VstIntPtr>(chunk.size()), chunk.data());
    }

    std::string presetName(int n)
    {
        char name[64] = {};
        host->dispatch(effGetProgramNameIndexed, n, 0, name);
        return name;
    }

    float parameter(int index) { return host->effect()->getParameter(host->effect(), index); }

    static float oldValue(int preset, int value) { return 0.01f * static_cast<float>(preset) + 0.1f * value; }

    static Bytes oldChunk(std::int32_t count, std::int32_t current, int values)
    {
        return oldHostChunk(kQwsn, count, current, values, oldValue);
    }

    // A host chunk around a hand-made bank image.
    static Bytes hostChunk(const Bytes& bank)
    {
        Bytes chunk(8, 0);
        putInt32(chunk, 0, 0x02000000);
        putInt32(chunk, 4, kQwsn);
        chunk.insert(chunk.end(), bank.begin(), bank.end());
        return chunk;
    }
};
} // namespace

TEST_F(HostChunkThroughTheBinary, OldChunkWithEightValuesPerPresetIsReadAtItsOwnStride)
{
    const std::string eleventh = presetName(10);
    ASSERT_EQ(setChunk(oldChunk(10, 3, 8)), 0);
    for (int n = 0; n < 10; ++n)
        EXPECT_EQ(presetName(n), "legacy " + std::to_string(n));
    EXPECT_EQ(presetName(10), eleventh); // beyond the stored presets the table is untouched
    for (int j = 0; j < 6; ++j)
        EXPECT_EQ(parameter(j), oldValue(3, j)) << j;
}

TEST_F(HostChunkThroughTheBinary, OldChunkWhoseRecordsDoNotFitTheOldScratchIsRefused)
{
    const Bytes before = getChunk();
    // 38 records of 24 + 8 × 4 bytes behind the 32-byte head need 2160 bytes, more than the 1856 it reads.
    EXPECT_EQ(setChunk(oldChunk(38, 0, 8)), -1);
    EXPECT_EQ(getChunk(), before);
    EXPECT_EQ(presetName(1), "enhanced mix 1");
}

TEST_F(HostChunkThroughTheBinary, BankRefusedByTheReaderAnswersZeroAndKeepsTheTable)
{
    Bytes chunk = getChunk();
    ASSERT_EQ(chunk.size(), 13729u);
    char newName[] = "before the chunk";
    host->dispatch(effSetProgramName, 0, 0, newName);
    const Bytes before = getChunk();
    // Preset 5's third value chunk claims a negative size: the bank reader gives up half-way and puts the
    // table back.
    const std::size_t chunkAt = 8 + 41 + 5 * 360 + 168 + 2 * 32;
    ASSERT_EQ(int32At(chunk, chunkAt + 8), 5);
    putInt32(chunk, chunkAt + 4, -1);
    EXPECT_EQ(setChunk(chunk), 0);
    EXPECT_EQ(getChunk(), before);
    EXPECT_EQ(presetName(0), "before the chunk");
}

TEST_F(HostChunkThroughTheBinary, ChunksShorterThanTheirFieldsAreReadWithinTheBuffer)
{
    Bytes bank = imageHeader(kQwsn, 0x38, 3, 4);
    // A name chunk that declares 20 bytes: the name's last four bytes are the next chunk's type word.
    Bytes name(20, 0);
    std::snprintf(name.data(), name.size(), "short chunks");
    appendChunk(bank, 0, 4, name);
    appendChunk(bank, 1, 4, valuePayload(0, 0.5f));
    // A value chunk that declares 12 bytes: its value lies in the 4 bytes after it, still in the buffer.
    Bytes number(12, 0);
    putInt32(number, 0, 1);
    appendChunk(bank, 1, 4, number);
    Bytes after(4, 0);
    putFloat(after, 0, 0.75f);
    bank.insert(bank.end(), after.begin(), after.end());

    ASSERT_EQ(setChunk(hostChunk(bank)), 0);
    EXPECT_EQ(presetName(4), "short chunks");
    EXPECT_EQ(parameter(0), 0.5f);
    EXPECT_EQ(parameter(1), 0.75f);
}

TEST_F(HostChunkThroughTheBinary, ShortChunkWhoseFieldsRunPastTheBufferChangesNothing)
{
    Bytes bank = imageHeader(kQwsn, 0x38, 2, 4);
    appendChunk(bank, 0, 4, namePayload("not taken"));
    Bytes number(12, 0);
    putInt32(number, 0, 1);
    appendChunk(bank, 1, 4, number); // its value would be the 4 bytes after the buffer's end
    const Bytes before = getChunk();
    EXPECT_EQ(setChunk(hostChunk(bank)), 0);
    EXPECT_EQ(getChunk(), before);
}
