#include "CPresetSystemEditor.h"
#include "ImageBytes.h"
#include "RecordingHost.h"
#include "Spatara.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace
{
constexpr std::int32_t kQwsn = CCONST('Q', 'w', 's', 'n');

class Images : public ::testing::Test
{
  protected:
    CPresetSystemEditor& editor() { return *effect.presetEditor(); }

    bool loadPreset(const Bytes& image, bool swap)
    {
        newpresetheader header;
        std::memcpy(&header, image.data(), sizeof(header));
        if (swap) spatara::byteSwapHeader(&header);
        return editor().BufferToPreset(image.data() + 41, image.size() - 41, &header, swap);
    }

    bool loadBank(const Bytes& image, bool swap)
    {
        newpresetheader header;
        std::memcpy(&header, image.data(), sizeof(header));
        if (swap) spatara::byteSwapHeader(&header);
        return editor().BufferToBank(image.data() + 41, image.size() - 41, &header, swap);
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

    void scrambleTable()
    {
        for (int n = 0; n < kNumPresets; ++n)
        {
            std::snprintf(effect.preset(n).name, kPresetNameSize, "scrambled %d", n);
            for (int i = 0; i < kNumStoredValues; ++i)
                effect.preset(n).values[i] = 0.01f * static_cast<float>((n + i) % 100);
        }
    }

    RecordingHost host;
    Spatara effect{host.callback()};
};
} // namespace

TEST_F(Images, PresetImageIs401BytesWithSevenChunks)
{
    effect.setPresetNo(1);
    const Bytes image = editor().PresetToBuffer();
    ASSERT_EQ(image.size(), 401u);
    EXPECT_EQ(int32At(image, 0), kQwsn);
    EXPECT_EQ(image[4], 0x22);
    EXPECT_EQ(int32At(image, 5), 0x01090900);
    EXPECT_EQ(int32At(image, 9), 6);
    EXPECT_EQ(int32At(image, 13), 7);
    EXPECT_EQ(int32At(image, 17), 0);
    EXPECT_EQ(int32At(image, 21), 360);
    for (int w = 25; w < 41; w += 4)
        EXPECT_EQ(int32At(image, static_cast<std::size_t>(w)), 0);
    // name chunk
    EXPECT_EQ(int32At(image, 41), 0);
    EXPECT_EQ(int32At(image, 45), 156);
    EXPECT_EQ(int32At(image, 49), 0);
    EXPECT_EQ(std::string(image.data() + 53), "enhanced mix 1");
    for (std::size_t b = 53 + 24; b < 53 + 156; ++b)
        EXPECT_EQ(image[b], 0) << b;
    // first value chunk: depth 0.5
    const std::size_t v0 = 41 + 168;
    EXPECT_EQ(int32At(image, v0), 1);
    EXPECT_EQ(int32At(image, v0 + 4), 20);
    EXPECT_EQ(int32At(image, v0 + 12), 0);
    EXPECT_EQ(int32At(image, v0 + 16), 0);
    EXPECT_EQ(int32At(image, v0 + 20), 0);
    EXPECT_EQ(floatAt(image, v0 + 24), 0.5f);
    EXPECT_EQ(int32At(image, v0 + 28), 0);
    // last value chunk: mode
    EXPECT_EQ(int32At(image, 401 - 32 + 12), 5);
}

TEST_F(Images, BankImageIs13721BytesWith266Chunks)
{
    effect.setPresetNo(3);
    const Bytes image = editor().BankToBuffer();
    ASSERT_EQ(image.size(), 13721u);
    EXPECT_EQ(image[4], 0x38);
    EXPECT_EQ(int32At(image, 13), 266);
    EXPECT_EQ(int32At(image, 17), 3);
    EXPECT_EQ(int32At(image, 21), 13680);
    // preset 37's name chunk carries its index
    const std::size_t last = 41 + 37 * 360;
    EXPECT_EQ(int32At(image, last + 8), 37);
    EXPECT_EQ(int32At(image, last + 168 + 8), 37);
}

TEST_F(Images, MidiMapImageIs233Bytes)
{
    const Bytes image = editor().MidiToBuffer();
    ASSERT_EQ(image.size(), 233u);
    EXPECT_EQ(image[4], 0x0C);
    EXPECT_EQ(int32At(image, 13), 6);
    EXPECT_EQ(int32At(image, 21), 192);
    EXPECT_EQ(int32At(image, 41), 2);
    EXPECT_EQ(floatAt(image, 41 + 24), 0.0f) << "every assignment reads as controller 0 in this effect";
}

TEST_F(Images, BankWrittenNativelyAndReadSwappedGivesTheSameTable)
{
    effect.setPresetNo(2);
    const Bytes native = editor().BankToBuffer();
    const Bytes before = table();
    scrambleTable();
    ASSERT_NE(table(), before);

    ASSERT_TRUE(loadBank(reversedImage(native), true));
    EXPECT_EQ(table(), before);
    EXPECT_EQ(effect.getPresetNo(), 2);
}

TEST_F(Images, PresetMadeByteReversedLoadsTheSameValues)
{
    effect.setPresetNo(22); // piano 2
    const Bytes native = editor().PresetToBuffer();
    effect.setPresetNo(4);
    ASSERT_TRUE(loadPreset(reversedImage(native), true));
    EXPECT_STREQ(effect.preset(4).name, "piano 2");
    EXPECT_EQ(effect.preset(4).values[0], 0.75f);
    EXPECT_EQ(effect.preset(4).values[1], 0.15f);
    EXPECT_EQ(effect.preset(4).values[2], 0.24f);
    EXPECT_EQ(effect.getParameter(1), 0.15f) << "the values reach the effect";
    char name[32] = {};
    effect.getProgramName(name);
    EXPECT_STREQ(name, "piano 2");
}

TEST_F(Images, BankWithCurrentPreset45EndsOnPresetZero)
{
    effect.setPresetNo(9);
    Bytes image = editor().BankToBuffer();
    putInt32(image, 17, 45);
    effect.setPresetNo(12);
    ASSERT_TRUE(loadBank(image, false));
    EXPECT_EQ(effect.getPresetNo(), 0);
}

TEST_F(Images, NegativeCurrentPresetEndsOnPresetZero)
{
    Bytes image = editor().BankToBuffer();
    putInt32(image, 17, -3);
    effect.setPresetNo(12);
    ASSERT_TRUE(loadBank(image, false));
    EXPECT_EQ(effect.getPresetNo(), 0);
}

TEST_F(Images, NameOnlyPresetImageGivesDefaultValues)
{
    Bytes image = imageHeader(kQwsn, 0x22, 1, 0);
    appendChunk(image, 0, 0, namePayload("only a name"));
    effect.setPresetNo(13); // tight 1: far from the defaults
    ASSERT_TRUE(loadPreset(image, false));
    EXPECT_STREQ(effect.preset(13).name, "only a name");
    for (int i = 0; i < kNumStoredValues; ++i)
        EXPECT_EQ(effect.preset(13).values[i], effect.defaultPreset().values[i]) << i;
    EXPECT_EQ(effect.getParameter(1), 0.5f);
}

TEST_F(Images, ValueChunkForParameter7IsSkipped)
{
    Bytes image = imageHeader(kQwsn, 0x22, 3, 0);
    appendChunk(image, 0, 0, namePayload("seven"));
    appendChunk(image, 1, 0, valuePayload(7, 0.9f));
    appendChunk(image, 1, 0, valuePayload(0, 0.4f));
    ASSERT_TRUE(loadPreset(image, false));
    EXPECT_EQ(effect.preset(0).values[0], 0.4f);
}

TEST_F(Images, BankValueAbove1LoadsAs1WithTheLoadMessage)
{
    Bytes image = editor().BankToBuffer();
    putFloat(image, 41 + 360 * 2 + 168 + 32 * 1 + 24, 1.2f); // preset 2, parameter 1
    testing::internal::CaptureStderr();
    ASSERT_TRUE(loadBank(image, false));
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_EQ(err, "Invalid parameter 1 value 1.200000 on load of preset 2 enhanced mix 2\n");
    EXPECT_EQ(effect.preset(2).values[1], 1.0f);
}

TEST_F(Images, BankSaveRepairsAndReportsButKeepsTheTable)
{
    effect.preset(5).values[3] = -0.5f;
    testing::internal::CaptureStderr();
    const Bytes image = editor().BankToBuffer();
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_EQ(err, "Invalid parameter 3 value -0.500000 on save of preset 5 enhanced space 1\n");
    EXPECT_EQ(floatAt(image, 41 + 360 * 5 + 168 + 32 * 3 + 24), 0.0f);
    EXPECT_EQ(effect.preset(5).values[3], -0.5f);
}

TEST_F(Images, PresetValueAbove1RefusesTheWholeImage)
{
    effect.setPresetNo(1);
    Bytes image = editor().PresetToBuffer();
    putFloat(image, 41 + 168 + 32 * 2 + 24, 1.2f);
    effect.setPresetNo(14);
    const PresetRecord before = effect.preset(14);
    EXPECT_FALSE(loadPreset(image, false));
    EXPECT_EQ(std::memcmp(&before, &effect.preset(14), sizeof(before)), 0);
}

TEST_F(Images, UnknownChunkTypeOfSize40IsSteppedOver)
{
    Bytes image = imageHeader(kQwsn, 0x22, 3, 0);
    appendChunk(image, 0, 0, namePayload("stepped"));
    appendChunk(image, 9, 0, Bytes(40, 0x7f));
    appendChunk(image, 1, 0, valuePayload(2, 0.6f));
    ASSERT_TRUE(loadPreset(image, false));
    EXPECT_STREQ(effect.preset(0).name, "stepped");
    EXPECT_EQ(effect.preset(0).values[2], 0.6f);
}

TEST_F(Images, PresetChunksShorterThanTheirFieldsAreReadWithinTheImage)
{
    Bytes image = imageHeader(kQwsn, 0x22, 3, 0);
    // The name chunk declares no payload at all: its 24 name bytes are the next two chunks' heads.
    appendChunk(image, 0, 0, Bytes());
    // A value chunk declaring 12 bytes: the next chunk starts right after them, the value lies in its head.
    Bytes number(12, 0);
    putInt32(number, 0, 3);
    appendChunk(image, 1, 0, number);
    appendChunk(image, 1, 0, valuePayload(4, 1.0f));
    effect.setPresetNo(6);
    ASSERT_TRUE(loadPreset(image, false));
    // The value of parameter 3 is the third chunk's type word (1), read as a float.
    EXPECT_EQ(int32At(image, 41 + 3 * 12), 1);
    float typeWordAsFloat;
    const std::int32_t one = 1;
    std::memcpy(&typeWordAsFloat, &one, 4);
    EXPECT_EQ(effect.preset(6).values[3], typeWordAsFloat);
    EXPECT_EQ(effect.preset(6).values[4], 1.0f);
    // The name's bytes are the second chunk's head: type 1, size 12, then the rest.
    EXPECT_EQ(effect.preset(6).name[0], '\x01');
}

TEST_F(Images, PresetShortChunkWhoseFieldsRunPastTheImageIsRefused)
{
    Bytes image = imageHeader(kQwsn, 0x22, 2, 0);
    appendChunk(image, 0, 0, namePayload("kept out"));
    Bytes number(12, 0);
    putInt32(number, 0, 1);
    appendChunk(image, 1, 0, number);
    effect.setPresetNo(6);
    const PresetRecord before = effect.preset(6);
    EXPECT_FALSE(loadPreset(image, false));
    EXPECT_EQ(std::memcmp(&before, &effect.preset(6), sizeof(before)), 0);
}

TEST_F(Images, NegativeChunkCountLeavesThePresetReinitialised)
{
    effect.setPresetNo(13);
    Bytes image = editor().PresetToBuffer();
    putInt32(image, 13, -1);
    EXPECT_FALSE(loadPreset(image, false));
    EXPECT_EQ(std::memcmp(&effect.preset(13), &effect.defaultPreset(), sizeof(PresetRecord)), 0);
}

TEST_F(Images, TruncatedImagesAreRefusedAndChangeNothing)
{
    const Bytes preset = editor().PresetToBuffer();
    const Bytes bank = editor().BankToBuffer();
    effect.setPresetNo(2);
    const Bytes before = table();
    for (std::size_t cut = 41; cut < preset.size(); cut += 7)
        EXPECT_FALSE(
            loadPreset(Bytes(preset.begin(), preset.begin() + static_cast<std::ptrdiff_t>(cut)), false))
            << cut;
    for (std::size_t cut = 41; cut < bank.size(); cut += 331)
        EXPECT_FALSE(loadBank(Bytes(bank.begin(), bank.begin() + static_cast<std::ptrdiff_t>(cut)), false))
            << cut;
    EXPECT_EQ(table(), before);
}

TEST_F(Images, ChunkClaimingMoreThanThereIsIsRefused)
{
    Bytes image = imageHeader(kQwsn, 0x38, 2, 0);
    appendChunk(image, 0, 4, namePayload("fine"));
    appendChunk(image, 1, 4, valuePayload(0, 0.2f));
    putInt32(image, 41 + 168 + 4, 0x7ffffff0); // size of the value chunk
    const Bytes before = table();
    EXPECT_FALSE(loadBank(image, false));
    EXPECT_EQ(table(), before);
    putInt32(image, 41 + 168 + 4, -20);
    EXPECT_FALSE(loadBank(image, false));
    EXPECT_EQ(table(), before);
}

TEST_F(Images, HugeChunkCountIsRefused)
{
    Bytes image = editor().BankToBuffer();
    putInt32(image, 13, 0x7fffffff);
    const Bytes before = table();
    EXPECT_FALSE(loadBank(image, false));
    EXPECT_EQ(table(), before);
}

TEST_F(Images, BankChunksForPresetsOutOfRangeAreSkipped)
{
    Bytes image = imageHeader(kQwsn, 0x38, 3, 0);
    appendChunk(image, 0, -1, namePayload("negative"));
    appendChunk(image, 0, 38, namePayload("too far"));
    appendChunk(image, 0, 6, namePayload("six"));
    ASSERT_TRUE(loadBank(image, false));
    EXPECT_STREQ(effect.preset(6).name, "six");
    EXPECT_STREQ(effect.preset(37).name, "init");
}

TEST_F(Images, ATwentyFourCharacterNameInAnImageIsCutTo23)
{
    Bytes image = imageHeader(kQwsn, 0x22, 1, 0);
    Bytes payload = namePayload("abcdefghijklmnopqrstuvwx");
    appendChunk(image, 0, 0, payload);
    ASSERT_TRUE(loadPreset(image, false));
    EXPECT_EQ(std::string(effect.preset(0).name), "abcdefghijklmnopqrstuvw");
}

TEST_F(Images, OldPresetRecordLoadsNameAndValues)
{
    Bytes record(24 + 6 * 4, 0);
    std::strcpy(record.data(), "old one");
    for (int j = 0; j < 6; ++j)
        putFloat(record, 24 + static_cast<std::size_t>(j) * 4, 0.1f * static_cast<float>(j));
    effect.setPresetNo(3);
    ASSERT_TRUE(editor().BufferToPresetOld(record.data(), record.size(), false, 6));
    EXPECT_STREQ(effect.preset(3).name, "old one");
    EXPECT_EQ(effect.preset(3).values[5], 0.5f);

    putFloat(record, 24 + 8, 2.0f);
    const PresetRecord before = effect.preset(3);
    EXPECT_FALSE(editor().BufferToPresetOld(record.data(), record.size(), false, 6));
    EXPECT_EQ(std::memcmp(&before, &effect.preset(3), sizeof(before)), 0);
    EXPECT_FALSE(editor().BufferToPresetOld(record.data(), 30, false, 6)) << "too short for six values";
}

TEST_F(Images, OldBankAlwaysEndsOnPresetZero)
{
    Bytes records(38 * 48, 0);
    for (int n = 0; n < 38; ++n)
    {
        std::snprintf(records.data() + n * 48, 24, "old %d", n);
        for (int j = 0; j < 6; ++j)
            putFloat(records, static_cast<std::size_t>(n * 48 + 24 + j * 4), 0.25f);
    }
    Bytes swapped = records;
    for (int n = 0; n < 38; ++n)
        for (int j = 0; j < 6; ++j)
            reverseWord(swapped, static_cast<std::size_t>(n * 48 + 24 + j * 4));
    effect.setPresetNo(17);
    ASSERT_TRUE(editor().BufferToBankOld(swapped.data(), swapped.size(), true, 38, 6));
    EXPECT_EQ(effect.getPresetNo(), 0);
    EXPECT_STREQ(effect.preset(37).name, "old 37");
    EXPECT_EQ(effect.preset(37).values[4], 0.25f);
}
