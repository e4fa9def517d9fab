// The preferences that the preset system keeps for the user (remembered folder and files, default bank and
// preset, memories A and B), in the plug-in's own preferences file. UI thread.
#pragma once

#include <cstddef>
#include <vector>

class CPreferencesStore;

constexpr std::size_t kPrefStringSize = 256; // 255 characters and the terminator

void XPlatSetPrefString(const char* key, const char* value);
// Copies the string into out (kPrefStringSize bytes); a missing key or a string of 256 characters or more
// answers false and leaves out as it was.
bool XPlatGetPrefString(const char* key, char* out);
void XPlatSetPrefData(const char* key, const void* data, std::size_t size);
bool XPlatGetPrefData(const char* key, std::vector<unsigned char>& out);
void XPlatRemovePref(const char* key);
// Writes the changes to disk; answers whether they are there.
bool XPlatSynchronizePrefs();
// The process's store, shared by every instance of the plug-in in this host.
CPreferencesStore& XPlatPreferences();
