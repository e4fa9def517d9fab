// The preferences file: readable text, one "key = value" a line. Strings are quoted with \" \\ and \n
// escapes; binary values are written as base64 after "base64:". Lines starting with "#" are comments.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

using PreferenceValue = std::variant<std::string, std::vector<unsigned char>>;
using PreferenceMap = std::map<std::string, PreferenceValue>;

// Larger files are not preferences of ours.
constexpr std::size_t kMaxPreferencesFileSize = 4 * 1024 * 1024;

// Reads a whole file's text; nothing, with the number of the first bad line, when any line is damaged.
std::optional<PreferenceMap> parsePreferences(const std::string& text, int& badLine);
std::string formatPreferences(const PreferenceMap& values);
// Whether a key can be stored: letters, digits, "_", "-" and ".".
bool isValidPreferenceKey(const std::string& key);
