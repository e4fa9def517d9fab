// The preferences file's text as lines, each kept as it was found: changing a key rewrites that key's line
// only, so comments, lines of other programs or later versions, Windows line endings and keys that were
// not changed are written back exactly as they were read.
#pragma once

#include "PreferencesFormat.h"

#include <optional>
#include <string>
#include <vector>

class CPreferencesDocument
{
  public:
    // Every line of text, with its own line ending.
    explicit CPreferencesDocument(const std::string& text = std::string());

    // The value of the first line of key that can be read; nothing when no line of it can.
    std::optional<PreferenceValue> get(const std::string& key) const;
    // Rewrites the first line of key (later lines of it go, so the file gives one answer) or adds a line.
    void set(const std::string& key, const PreferenceValue& value);
    // Takes out every line of key.
    void remove(const std::string& key);
    // The whole text again: what was read, with the changes made.
    std::string text() const;

  private:
    struct Line
    {
        std::string text; // without its ending
        std::string ending;
        std::optional<PreferenceEntry> entry;
    };
    // The line ending of the lines we add: the file's own, Unix's for a new file.
    std::string newLine() const;

    std::vector<Line> lines;
};
