#include "XPlatPrefs.h"

#include "CPreferencesStore.h"

#include <cstring>

CPreferencesStore& XPlatPreferences()
{
    static CPreferencesStore store;
    return store;
}

void XPlatSetPrefString(const char* key, const char* value)
{
    XPlatPreferences().setString(key, value);
}

bool XPlatGetPrefString(const char* key, char* out)
{
    const auto value = XPlatPreferences().getString(key);
    if (!value || value->size() >= kPrefStringSize) return false;
    std::memcpy(out, value->c_str(), value->size() + 1);
    return true;
}

void XPlatSetPrefData(const char* key, const void* data, std::size_t size)
{
    const auto* bytes = static_cast<const unsigned char*>(data);
    XPlatPreferences().setData(key, std::vector<unsigned char>(bytes, bytes + size));
}

bool XPlatGetPrefData(const char* key, std::vector<unsigned char>& out)
{
    auto value = XPlatPreferences().getData(key);
    if (!value) return false;
    out = std::move(*value);
    return true;
}

void XPlatRemovePref(const char* key)
{
    XPlatPreferences().remove(key);
}

bool XPlatSynchronizePrefs()
{
    return XPlatPreferences().synchronize();
}
