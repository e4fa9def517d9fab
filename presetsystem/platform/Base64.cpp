#include "Base64.h"

namespace spatara
{
namespace
{
constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int valueOf(char c)
{
    if (c >= 'A' && c <= 'Z') return c - 'A';
    if (c >= 'a' && c <= 'z') return c - 'a' + 26;
    if (c >= '0' && c <= '9') return c - '0' + 52;
    if (c == '+') return 62;
    if (c == '/') return 63;
    return -1;
}
} // namespace

std::string base64Encode(const std::vector<unsigned char>& bytes)
{
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3)
    {
        const std::size_t left = bytes.size() - i;
        const unsigned int group = (static_cast<unsigned int>(bytes[i]) << 16) |
                                   (left > 1 ? static_cast<unsigned int>(bytes[i + 1]) << 8 : 0u) |
                                   (left > 2 ? static_cast<unsigned int>(bytes[i + 2]) : 0u);
        text += kAlphabet[(group >> 18) & 63];
        text += kAlphabet[(group >> 12) & 63];
        text += left > 1 ? kAlphabet[(group >> 6) & 63] : '=';
        text += left > 2 ? kAlphabet[group & 63] : '=';
    }
    return text;
}

std::optional<std::vector<unsigned char>> base64Decode(const std::string& text)
{
    if (text.size() % 4 != 0) return std::nullopt;
    std::vector<unsigned char> bytes;
    bytes.reserve(text.size() / 4 * 3);
    for (std::size_t i = 0; i < text.size(); i += 4)
    {
        const bool last = i + 4 == text.size();
        const int padding = last ? (text[i + 3] == '=') + (text[i + 2] == '=') : 0;
        if (padding == 1 && text[i + 2] == '=') return std::nullopt; // "x=y=" is not a padding
        unsigned int group = 0;
        for (int j = 0; j < 4; ++j)
        {
            const int v = j >= 4 - padding ? 0 : valueOf(text[i + static_cast<std::size_t>(j)]);
            if (v < 0) return std::nullopt;
            group = (group << 6) | static_cast<unsigned int>(v);
        }
        bytes.push_back(static_cast<unsigned char>(group >> 16));
        if (padding < 2) bytes.push_back(static_cast<unsigned char>((group >> 8) & 0xff));
        if (padding < 1) bytes.push_back(static_cast<unsigned char>(group & 0xff));
    }
    return bytes;
}
} // namespace spatara
