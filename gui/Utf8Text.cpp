#include "Utf8Text.h"

#include <algorithm>
#include <cstring>

namespace spatara
{
namespace
{
constexpr const char* kReplacement = "\xEF\xBF\xBD"; // U+FFFD

bool isContinuation(unsigned char byte)
{
    return (byte & 0xC0) == 0x80;
}

// The length of the character a lead byte starts, 0 for a byte that starts none.
std::size_t sequenceLength(unsigned char lead)
{
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

// The valid range of the byte after a lead: it rules out overlong forms, surrogates and values past
// U+10FFFF.
bool secondByteFits(unsigned char lead, unsigned char second)
{
    if (lead == 0xE0) return second >= 0xA0 && second <= 0xBF;
    if (lead == 0xED) return second >= 0x80 && second <= 0x9F;
    if (lead == 0xF0) return second >= 0x90 && second <= 0xBF;
    if (lead == 0xF4) return second >= 0x80 && second <= 0x8F;
    return isContinuation(second);
}

// How many bytes from text[at] on agree with a valid character: all of them (its length) for a whole
// character, fewer for a broken or cut one, 0 for a byte that starts none. length: the character's length.
std::size_t matchingBytes(std::string_view text, std::size_t at, std::size_t& length)
{
    const auto lead = static_cast<unsigned char>(text[at]);
    length = sequenceLength(lead);
    if (length == 0) return 0;
    std::size_t matched = 1;
    while (matched < length && at + matched < text.size())
    {
        const auto byte = static_cast<unsigned char>(text[at + matched]);
        if (!(matched == 1 ? secondByteFits(lead, byte) : isContinuation(byte))) break;
        ++matched;
    }
    return matched;
}
} // namespace

std::string validUtf8(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();)
    {
        std::size_t length = 0;
        const std::size_t matched = matchingBytes(text, at, length);
        if (matched == length && length)
            result.append(text.substr(at, length));
        else
            result += kReplacement;
        at += std::max<std::size_t>(matched, 1);
    }
    return result;
}

std::size_t utf8CutLength(const char* text, std::size_t limit)
{
    if (!text) return 0;
    // Never more than limit + 1 bytes are read: the text may come in a buffer of exactly that size.
    const std::size_t length = strnlen(text, limit + 1);
    if (length <= limit) return length;
    // Back over the continuation bytes at the cut to the character they belong to.
    std::size_t start = limit;
    while (start > 0 && limit - start < 3 && isContinuation(static_cast<unsigned char>(text[start])))
        --start;
    if (start == limit) return limit;
    const std::string_view known(text, limit + 1);
    std::size_t character = 0;
    const std::size_t matched = matchingBytes(known, start, character);
    // A character whose bytes so far are right and which would end past the limit goes whole.
    return matched == known.size() - start && start + character > limit ? start : limit;
}
} // namespace spatara
