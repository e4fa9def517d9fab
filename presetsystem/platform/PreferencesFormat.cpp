#include "PreferencesFormat.h"

#include "Base64.h"

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

std::optional<std::string> unquote(const std::string& text)
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

std::optional<PreferenceValue> parseValue(const std::string& text)
{
    if (text.rfind(kBinaryPrefix, 0) == 0)
    {
        auto bytes = base64Decode(text.substr(sizeof(kBinaryPrefix) - 1));
        if (!bytes) return std::nullopt;
        return PreferenceValue(std::move(*bytes));
    }
    auto string = unquote(text);
    if (!string) return std::nullopt;
    return PreferenceValue(std::move(*string));
}
} // namespace

bool isValidPreferenceKey(const std::string& key)
{
    if (key.empty() || key.size() > 128) return false;
    for (char c : key)
        if (!((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
              c == '-' || c == '.'))
            return false;
    return true;
}

std::optional<PreferenceMap> parsePreferences(const std::string& text, int& badLine)
{
    badLine = 0;
    if (text.size() > kMaxPreferencesFileSize) return std::nullopt;
    PreferenceMap values;
    std::size_t start = 0;
    int lineNumber = 0;
    while (start < text.size())
    {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        const std::string line = text.substr(start, end - start);
        start = end + 1;
        ++lineNumber;
        if (line.empty() || line[0] == '#') continue;
        const std::size_t separator = line.find(" = ");
        std::optional<PreferenceValue> value;
        if (separator != std::string::npos) value = parseValue(line.substr(separator + 3));
        const std::string key = separator == std::string::npos ? std::string() : line.substr(0, separator);
        if (!value || !isValidPreferenceKey(key) || values.count(key))
        {
            badLine = lineNumber;
            return std::nullopt;
        }
        values.emplace(key, std::move(*value));
    }
    return values;
}

std::string formatPreferences(const PreferenceMap& values)
{
    std::string text =
        "# ZEV Spatara preferences, kept by the plug-in. One key a line; binary values in base64.\n";
    for (const auto& [key, value] : values)
    {
        text += key + " = ";
        if (const auto* string = std::get_if<std::string>(&value))
            text += quote(*string);
        else
            text += kBinaryPrefix + base64Encode(std::get<std::vector<unsigned char>>(value));
        text += '\n';
    }
    return text;
}
