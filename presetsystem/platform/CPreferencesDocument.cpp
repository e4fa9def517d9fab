#include "CPreferencesDocument.h"

#include <algorithm>

namespace
{
constexpr char kHeading[] =
    "# ZEV Spatara preferences, kept by the plug-in. One key a line; binary values in base64.";
} // namespace

CPreferencesDocument::CPreferencesDocument(const std::string& text)
{
    std::size_t start = 0;
    while (start < text.size())
    {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        const std::size_t next = std::min(end + 1, text.size());
        const std::size_t textEnd = end > start && text[end - 1] == '\r' ? end - 1 : end;
        Line line{text.substr(start, textEnd - start), text.substr(textEnd, next - textEnd), std::nullopt};
        line.entry = spatara::parsePreferenceLine(line.text);
        lines.push_back(std::move(line));
        start = next;
    }
}

std::optional<PreferenceValue> CPreferencesDocument::get(const std::string& key) const
{
    for (const Line& line : lines)
        if (line.entry && line.entry->key == key && line.entry->value) return line.entry->value;
    return std::nullopt;
}

void CPreferencesDocument::set(const std::string& key, const PreferenceValue& value)
{
    Line changed{spatara::formatPreferenceLine(key, value), newLine(), PreferenceEntry{key, value}};
    const auto first = std::find_if(lines.begin(), lines.end(),
                                    [&](const Line& line) { return line.entry && line.entry->key == key; });
    if (first != lines.end())
    {
        changed.ending = first->ending;
        const auto at = first - lines.begin();
        remove(key);
        lines.insert(lines.begin() + at, std::move(changed));
        return;
    }
    if (lines.empty()) lines.push_back(Line{kHeading, newLine(), std::nullopt});
    // The last line may have ended without a line feed.
    if (Line& last = lines.back(); last.ending.empty())
        last.ending = newLine();
    else if (last.ending == "\r")
        last.ending = "\r\n";
    lines.push_back(std::move(changed));
}

void CPreferencesDocument::remove(const std::string& key)
{
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [&](const Line& line) { return line.entry && line.entry->key == key; }),
                lines.end());
}

std::string CPreferencesDocument::text() const
{
    std::string out;
    for (const Line& line : lines)
        out += line.text + line.ending;
    return out;
}

std::string CPreferencesDocument::newLine() const
{
    for (const Line& line : lines)
        if (line.ending == "\r\n" || line.ending == "\n") return line.ending;
    return "\n";
}
