// Base64 (RFC 4648, with padding) for binary values in the preferences file.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace spatara
{
std::string base64Encode(const std::vector<unsigned char>& bytes);
// Nothing for text that is not well-formed base64.
std::optional<std::vector<unsigned char>> base64Decode(const std::string& text);
} // namespace spatara
