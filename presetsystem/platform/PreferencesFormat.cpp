#include "PreferencesFormat.h"

#include "Base64.h"

namespace spatara
{
namespace
{
constexpr char kBinaryPrefix[] = "base64:";

std::string quote(const std::string& text)
{
    std::string out = "\"";
    for (char c : text)
    {
        if (c == '"' || c == '\\')
            out += '\\', out += c;
        else if (c == '\n')
            out += "\\n";
        else
            out += c;
    }
    return out + "\"";
}

std::optional<std::string> unquote(std::string_view text)
{
    if (text.size() < 2 || text.front() != '"' || text.back() != '"') return std::nullopt;
    std::string out;
    for (std::size_t i = 1; i + 1 < text.size(); ++i)
    {
        char c = text[i];
        if (c == '"') return std::nullopt; // a quote inside must be escaped
        if (c == '\\')
        {
            if (i + 2 >= text.size()) return std::nullopt;
            c = text[++i];
            if (c == 'n')
                c = '\n';
            else if (c != '"' && c != '\\')
                return std::nullopt;
        }
        out += c;
    }
    return out;
}

std::optional<PreferenceValue> parseValue(std::string_view text)
{
    if (text.substr(0, sizeof(kBinaryPrefix) - 1) == kBinaryPrefix)
    {
        auto bytes = base64Decode(std::string(text.substr(sizeof(kBinaryPrefix) - 1)));
        if (!bytes) return std::nullopt;
        return PreferenceValue(std::move(*bytes));
    }
    if (text.empty() || text.front() != '"')
        return PreferenceValue(std::string(text)); // typed without quotes
    auto string = unquote(text);
    if (!string) return std::nullopt;
    return PreferenceValue(std::move(*string));
}

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}
} // namespace

bool isValidPreferenceKey(std::string_view key)
{
    if (key.empty() || key.size() > 128) return false;
    for (char c : key)
        if (!((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
              c == '-' || c == '.'))
            return false;
    return true;
}

std::optional<PreferenceEntry> parsePreferenceLine(std::string_view line)
{
    line = trimmed(line);
    const std::size_t separator = line.find('=');
    if (line.empty() || line.front() == '#' || separator == std::string_view::npos) return std::nullopt;
    const std::string_view key = trimmed(line.substr(0, separator));
    if (!isValidPreferenceKey(key)) return std::nullopt;
    return PreferenceEntry{std::string(key), parseValue(trimmed(line.substr(separator + 1)))};
}

std::string formatPreferenceLine(const std::string& key, const PreferenceValue& value)
{
    if (const auto* string = std::get_if<std::string>(&value)) return key + " = " + quote(*string);
    return key + " = " + kBinaryPrefix + base64Encode(std::get<std::vector<unsigned char>>(value));
}
} // namespace spatara
