// Text as the toolkit draws it: UTF-8, made valid before it reaches the font layer, and cut only at
// character boundaries.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace spatara
{
// The text with every byte sequence that is not valid UTF-8 replaced by U+FFFD, one for each maximal
// invalid part, so that names from old files or other machines draw instead of stopping the drawing.
std::string validUtf8(std::string_view text);

// How many bytes of the NUL-terminated text to keep within limit bytes without splitting a UTF-8 character:
// the whole text when it fits; otherwise limit, moved back to the start of a character the cut would split.
// Bytes that are no UTF-8 at all are cut at limit as they are.
std::size_t utf8CutLength(const char* text, std::size_t limit);
} // namespace spatara
