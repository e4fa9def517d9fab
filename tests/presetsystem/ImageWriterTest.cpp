#include "ImageWriter.h"
#include "PresetImageFormat.h"
#include "PresetRecord.h"

#include <cstring>
#include <gtest/gtest.h>

namespace
{
std::int32_t int32At(const std::vector<char>& image, std::size_t offset)
{
    std::int32_t value = 0;
    std::memcpy(&value, image.data() + offset, sizeof(value));
    return value;
}
} // namespace

TEST(ImageWriter, ValueChunkIsHeadNumberTwoZerosValueAndAZero)
{
    ImageWriter writer(0);
    writer.valueChunk(kChunkMidiAssignment, 7, 3, 0.25f);
    const std::vector<char> image = writer.take();
    ASSERT_EQ(image.size(), static_cast<std::size_t>(kChunkHeadSize + kValuePayloadSize));
    EXPECT_EQ(int32At(image, 0), kChunkMidiAssignment);
    EXPECT_EQ(int32At(image, 4), kValuePayloadSize);
    EXPECT_EQ(int32At(image, 8), 7);
    EXPECT_EQ(int32At(image, 12), 3);
    EXPECT_EQ(int32At(image, 16), 0);
    EXPECT_EQ(int32At(image, 20), 0);
    float value = 0.0f;
    std::memcpy(&value, image.data() + kChunkHeadSize + kValueOffsetInPayload, sizeof(value));
    EXPECT_EQ(value, 0.25f);
    EXPECT_EQ(int32At(image, 28), 0);
}

TEST(ImageWriter, NameChunkIsHeadAllTwentyFourNameBytesAndZerosToThePayloadSize)
{
    char name[kPresetNameSize];
    std::memset(name, 'x', sizeof(name)); // the bytes are copied as they are, the last one too
    ImageWriter writer(0);
    writer.nameChunk(5, name);
    const std::vector<char> image = writer.take();
    ASSERT_EQ(image.size(), static_cast<std::size_t>(kChunkHeadSize + kNamePayloadSize));
    EXPECT_EQ(int32At(image, 0), kChunkName);
    EXPECT_EQ(int32At(image, 4), kNamePayloadSize);
    EXPECT_EQ(int32At(image, 8), 5);
    EXPECT_EQ(std::memcmp(image.data() + kChunkHeadSize, name, kPresetNameSize), 0);
    for (std::size_t i = kChunkHeadSize + kPresetNameSize; i < image.size(); ++i)
        EXPECT_EQ(image[i], 0) << i;
}
