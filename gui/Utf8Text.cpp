#include "Utf8Text.h"

#include <cstring>

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

// The bytes of the valid character at text[at], or 0 with invalid set to the length of the maximal
// invalid part there (at least 1).
std::size_t validCharacterAt(std::string_view text, std::size_t at, std::size_t& invalid)
{
    const auto lead = static_cast<unsigned char>(text[at]);
    const std::size_t length = sequenceLength(lead);
    invalid = 1;
    if (length == 0) return 0;
    for (std::size_t i = 1; i < length; ++i)
    {
        if (at + i >= text.size()) return 0;
        const auto byte = static_cast<unsigned char>(text[at + i]);
        if (!(i == 1 ? secondByteFits(lead, byte) : isContinuation(byte))) return 0;
        invalid = i + 1;
    }
    return length;
}
} // namespace

std::string validUtf8(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();)
    {
        std::size_t invalid = 0;
        const std::size_t length = validCharacterAt(text, at, invalid);
        if (length)
        {
            result.append(text.substr(at, length));
            at += length;
        }
        else
        {
            result += kReplacement;
            at += invalid;
        }
    }
    return result;
}

std::size_t utf8CutLength(const char* text, std::size_t limit)
{
    if (!text) return 0;
    const std::size_t length = strnlen(text, limit + 1);
    if (length <= limit) return length;
    // Back over the continuation bytes at the cut to the character they belong to.
    std::size_t start = limit;
    while (start > 0 && limit - start < 3 && isContinuation(static_cast<unsigned char>(text[start])))
        --start;
    if (start == limit) return limit;
    // A character of up to four bytes may reach past limit + 1.
    const std::string_view around(text, strnlen(text, limit + 4));
    std::size_t invalid = 0;
    const std::size_t character = validCharacterAt(around, start, invalid);
    return character && start + character > limit ? start : limit;
}
