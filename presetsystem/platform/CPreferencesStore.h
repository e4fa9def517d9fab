// The plug-in's preferences, in a file of its own under $XDG_CONFIG_HOME (default ~/.config). Changes are
// held until synchronize(), which takes an advisory lock, re-reads the file, applies only this store's
// changes and replaces the file atomically, so that two instances or two hosts never lose each other's
// keys. Lines it does not know and keys it did not change are written back as they were. A file that
// cannot be read at all is ignored (one line on standard error), left alone until something changes, and
// then kept as "preferences.damaged" before a new one is written.
#pragma once

#include "CPreferencesDocument.h"
#include "PreferencesFormat.h"

#include <map>

#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

class CPreferencesStore
{
  public:
    // The file of the given path; the default follows the environment at every use.
    explicit CPreferencesStore(std::string path = std::string());
    CPreferencesStore(const CPreferencesStore&) = delete;
    CPreferencesStore& operator=(const CPreferencesStore&) = delete;

    // $XDG_CONFIG_HOME/zev-spatara/preferences, or ~/.config/zev-spatara/preferences.
    static std::string defaultPath();

    void setString(const std::string& key, const std::string& value);
    void setData(const std::string& key, const std::vector<unsigned char>& value);
    void remove(const std::string& key);
    // The value as stored, merged with this store's changes; nothing for a missing key or another type.
    std::optional<std::string> getString(const std::string& key);
    std::optional<std::vector<unsigned char>> getData(const std::string& key);
    // Writes this store's changes; answers whether the file now holds them. Nothing changed, nothing written.
    bool synchronize();

  private:
    std::string filePath() const;
    struct StoredFile
    {
        CPreferencesDocument document;
        // There, but not readable as preferences at all (reported once on standard error).
        bool unreadable = false;
    };
    // The file's lines; empty for a missing or unreadable file.
    StoredFile readFile(const std::string& path);
    std::optional<PreferenceValue> lookUp(const std::string& key);

    std::string fixedPath;
    std::mutex guard;
    std::map<std::string, PreferenceValue> pendingSets;
    std::set<std::string> pendingRemovals;
    std::string reportedDamage; // the file last reported as damaged, so it is reported once
};
