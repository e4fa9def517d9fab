// One line of the preferences file: readable text, "key = value". Strings are quoted with \" \\ and \n
// escapes; binary values are written as base64 after "base64:". A person editing the file may leave out the
// blanks around "=", add blanks at the end, end lines as Windows does or write a string without quotes:
// all of that still reads. Lines starting with "#" are comments.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

using PreferenceValue = std::variant<std::string, std::vector<unsigned char>>;

// Larger files are not preferences of ours.
constexpr std::size_t kMaxPreferencesFileSize = 4 * 1024 * 1024;

// What a line says about a key: the key, and its value when the value can be read.
struct PreferenceEntry
{
    std::string key;
    std::optional<PreferenceValue> value;
};

namespace spatara
{
// Reads one line (without its line ending). Nothing for a blank line, a comment or a line that names no
// key; a key whose value cannot be read comes back without a value.
std::optional<PreferenceEntry> parsePreferenceLine(std::string_view line);
// The line that stores the value, without a line ending.
std::string formatPreferenceLine(const std::string& key, const PreferenceValue& value);
// Whether a key can be stored: letters, digits, "_", "-" and ".".
bool isValidPreferenceKey(std::string_view key);
} // namespace spatara
