// CPresetSystemEditor: default bank and preset, memories A and B, remembered paths, names.
#include "CPresetSystemEditor.h"

#include "CPresetSystemEffect.h"
#include "XPlatPrefs.h"

#include <cstring>

namespace
{
constexpr char kCurrentDirectoryKey[] = "CurrDir";
constexpr char kCurrentBankKey[] = "CurrBank";
constexpr char kCurrentPresetKey[] = "CurrPreset";
constexpr char kDefaultBankKey[] = "DefaultBank";
constexpr char kDefaultPresetKey[] = "DefaultPreset";
constexpr char kDefaultMidiKey[] = "DefaultMidi";
constexpr char kMemoryAKey[] = "MemoAPreset";
constexpr char kMemoryBKey[] = "MemoBPreset";
} // namespace

void CPresetSystemEditor::storeImage(const char* key, const std::vector<char>& image)
{
    if (image.empty()) return;
    XPlatSetPrefData(key, image.data(), image.size());
    XPlatSynchronizePrefs();
}

void CPresetSystemEditor::removeKey(const char* key)
{
    XPlatRemovePref(key);
    XPlatSynchronizePrefs();
}

void CPresetSystemEditor::applyStoredImage(const char* key)
{
    std::vector<unsigned char> stored;
    if (!XPlatGetPrefData(key, stored) || stored.size() <= 4) return;
    // Read by exactly the rules of a file, without the reversed option.
    applyImage(std::vector<char>(stored.begin(), stored.end()), false);
}

void CPresetSystemEditor::saveDefaultBank()
{
    storeImage(kDefaultBankKey, BankToBuffer());
}

void CPresetSystemEditor::resetDefaultBank()
{
    removeKey(kDefaultBankKey);
}

void CPresetSystemEditor::loadDefaultBank()
{
    applyStoredImage(kDefaultBankKey);
}

void CPresetSystemEditor::saveDefaultPreset()
{
    storeImage(kDefaultPresetKey, PresetToBuffer());
}

void CPresetSystemEditor::resetDefaultPreset()
{
    removeKey(kDefaultPresetKey);
}

void CPresetSystemEditor::loadDefaultPreset()
{
    applyStoredImage(kDefaultPresetKey);
}

void CPresetSystemEditor::resetDefaultMidi()
{
    removeKey(kDefaultMidiKey);
}

void CPresetSystemEditor::storeA()
{
    storeImage(kMemoryAKey, PresetToBuffer());
}

void CPresetSystemEditor::storeB()
{
    storeImage(kMemoryBKey, PresetToBuffer());
}

void CPresetSystemEditor::recallA()
{
    applyStoredImage(kMemoryAKey);
}

void CPresetSystemEditor::recallB()
{
    applyStoredImage(kMemoryBKey);
}

void CPresetSystemEditor::storePathsAndFilenames()
{
    XPlatSetPrefString(kCurrentDirectoryKey, presetPath);
    XPlatSetPrefString(kCurrentBankKey, bankFileName);
    XPlatSetPrefString(kCurrentPresetKey, presetFileName);
    XPlatSynchronizePrefs();
}

void CPresetSystemEditor::recallPathsAndFilenames()
{
    // Each only if it is there (and fits): a missing key leaves the buffer as it was.
    XPlatGetPrefString(kCurrentDirectoryKey, presetPath);
    XPlatGetPrefString(kCurrentBankKey, bankFileName);
    XPlatGetPrefString(kCurrentPresetKey, presetFileName);
}

void CPresetSystemEditor::loadDefaults()
{
    // A saved default bank replaces all presets, the first becomes current, and a saved default preset
    // then replaces it.
    loadDefaultBank();
    presetEffect()->setPresetNo(0);
    loadDefaultPreset();
    loadDefaultMidi();
    recallPathsAndFilenames();
}

void CPresetSystemEditor::nameChangedInternal(const char* name)
{
    nameChangedExternal(name);
    presetEffect()->setPresetName(name);
}
