// CPresetSystemEditor: preset and bank files through the file dialogs.
#include "CPresetSystemEditor.h"

#include "CNewFileSelector.h"
#include "CPresetSystemEffect.h"
#include "ParamConversion.h"
#include "SharedPointer.h"
#include "XPlatFile.h"

#include <algorithm>
#include <cstring>
#include <sys/stat.h>

namespace
{
struct FileKind
{
    const char* loadTitle;
    const char* reversedTitle;
    const char* saveTitle;
    const char* typeName;
    const char* extension;
};

constexpr FileKind kPresetFiles = {"Load preset", "Load preset (endian-reversed)", "Save preset",
                                   "ZEV Preset", "zev"};
constexpr FileKind kBankFiles = {"Load bank", "Load bank (endian-reversed)", "Save bank", "ZEV Bank", "zvb"};

FileChoice openChoice(const FileKind& kind, bool reversed, const char* directory)
{
    FileChoice choice;
    choice.title = reversed ? kind.reversedTitle : kind.loadTitle;
    choice.directory = directory;
    choice.typeName = kind.typeName;
    choice.extension = kind.extension;
    return choice;
}

FileChoice saveChoice(const FileKind& kind, const char* directory, const char* defaultName)
{
    FileChoice choice;
    choice.save = true;
    choice.title = kind.saveTitle;
    choice.directory = directory;
    choice.defaultName = defaultName;
    choice.typeName = kind.typeName;
    choice.extension = kind.extension;
    return choice;
}

// Whether the file name of path ends in "." + extension (a name that is only the extension does not).
bool hasExtension(const std::string& path, const std::string& extension)
{
    const std::string name = path.substr(path.rfind('/') + 1);
    return name.size() > extension.size() + 1 &&
           name.compare(name.size() - extension.size() - 1, std::string::npos, "." + extension) == 0;
}

// Splits a chosen path into the remembered directory and file name. A path whose parts don't fit the
// 256 characters we remember is not taken: the operation ends as if cancelled.
bool splitChosenPath(const std::string& path, char* name, char* directory, std::size_t size)
{
    const auto slash = path.rfind('/');
    if (slash == std::string::npos || slash + 1 >= size || path.size() - slash - 1 >= size) return false;
    XPlatGetFileNameAndDir(path.c_str(), name, directory);
    return true;
}
} // namespace

std::optional<std::string> CPresetSystemEditor::runFileDialog(const FileChoice& choice)
{
    if (!frame) return std::nullopt;
    const auto selector = owned(CNewFileSelector::create(
        frame, choice.save ? CNewFileSelector::kSelectSaveFile : CNewFileSelector::kSelectFile));
    selector->setTitle(choice.title.c_str());
    selector->setInitialDirectory(choice.directory.c_str());
    if (choice.save) selector->setDefaultSaveName(choice.defaultName.c_str());
    selector->setDefaultExtension(CFileExtension(choice.typeName.c_str(), choice.extension.c_str()));
    selector->setAllowMultiFileSelection(false);
    std::optional<std::string> chosen;
    if (selector->runModal() && selector->getNumSelectedFiles() == 1) chosen = selector->getSelectedFile(0);
    // A name typed without its extension gets it, so the file shows up in the next load dialog's filter
    // ("v1.2" too). The dialog asked about the name as typed only, so a file that the added extension
    // would replace is asked about here.
    if (chosen && choice.save && !choice.extension.empty() && !hasExtension(*chosen, choice.extension))
    {
        *chosen += "." + choice.extension;
        struct stat existing
        {
        };
        if (::lstat(chosen->c_str(), &existing) == 0) chosen = selector->confirmReplacing(*chosen);
    }
    return chosen;
}

std::optional<std::string> CPresetSystemEditor::chooseFile(const FileChoice& choice)
{
    return fileChooser ? fileChooser(choice) : runFileDialog(choice);
}

void CPresetSystemEditor::loadPreset(bool endianReversed)
{
    const auto path = chooseFile(openChoice(kPresetFiles, endianReversed, presetPath));
    if (!path || !splitChosenPath(*path, presetFileName, presetPath, kPathSize)) return;
    if (applyFileImage(presetFileName, presetPath, endianReversed)) redrawFrame();
}

void CPresetSystemEditor::loadBank(bool endianReversed)
{
    const auto path = chooseFile(openChoice(kBankFiles, endianReversed, presetPath));
    if (!path || !splitChosenPath(*path, bankFileName, presetPath, kPathSize)) return;
    // A file that was not taken ends the load: the current preset stays.
    if (!applyFileImage(bankFileName, presetPath, endianReversed)) return;
    // After a bank, the first preset is current and shown, whatever the bank's own choice was.
    selectListEntry(0);
    showPresetName(presetEffect()->preset(0).name);
    presetEffect()->setPresetNo(0);
    redrawFrame();
}

void CPresetSystemEditor::savePreset()
{
    const auto path = chooseFile(saveChoice(kPresetFiles, presetPath, presetFileName));
    if (!path || !splitChosenPath(*path, presetFileName, presetPath, kPathSize)) return;
    writeFileImage(presetFileName, presetPath, PresetToBuffer());
}

void CPresetSystemEditor::saveBank()
{
    const auto path = chooseFile(saveChoice(kBankFiles, presetPath, bankFileName));
    if (!path || !splitChosenPath(*path, bankFileName, presetPath, kPathSize)) return;
    writeFileImage(bankFileName, presetPath, BankToBuffer());
}

bool CPresetSystemEditor::applyFileImage(const char* fileName, const char* directory, bool endianReversed)
{
    void* handle = nullptr;
    const long length = XPlatFileOpen(fileName, directory, &handle, false);
    if (length <= 4) return false; // nothing to load; the handle is left as it is, as it always has been
    // The identifier and type first: another plug-in's file is not read any further.
    const long head = std::min<long>(length, kOldImageHeadSize);
    std::vector<char> image(static_cast<std::size_t>(head));
    XPlatFileRead(handle, image.data(), head);
    if (!isOwnImage(image))
        return false; // another plug-in's file: silently not ours, and again the handle is left as it is
    image.resize(static_cast<std::size_t>(length));
    XPlatFileRead(handle, image.data() + head, length - head);
    XPlatFileClose(handle);
    return applyImage(image, endianReversed);
}

bool CPresetSystemEditor::isOwnImage(const std::vector<char>& image) const
{
    if (image.size() < 4) return false;
    std::int32_t id;
    std::memcpy(&id, image.data(), sizeof(id));
    std::int32_t reversed = presetEffect()->getUniqueID();
    spatara::mySwapBytes(&reversed);
    return id == presetEffect()->getUniqueID() || id == reversed;
}

bool CPresetSystemEditor::applyImage(const std::vector<char>& image, bool endianReversed)
{
    if (image.size() <= 4 || !isOwnImage(image)) return false;
    newpresetheader header{};
    std::memcpy(&header, image.data(), std::min(image.size(), std::size_t{kOldImageHeadSize}));
    // Written on a machine of the other byte order when the identifier reads reversed; the reversed load
    // turns that decision round.
    const bool swap = (header.uniqueID != presetEffect()->getUniqueID()) != endianReversed;

    const char* rest = image.data() + kOldImageHeadSize;
    const std::size_t restSize = image.size() - kOldImageHeadSize;
    const long length = static_cast<long>(image.size());
    switch (header.fileType)
    {
    case kFileTypeOldPreset:
        return BufferToPresetOld(rest, restSize, swap, static_cast<int>((length - 29) / 4));
    case kFileTypeOldBank:
        return BufferToBankOld(
            rest, restSize, swap, kNumPresets,
            static_cast<int>(((length - kOldImageHeadSize) / kNumPresets - kPresetNameSize) / 4));
    case kFileTypePreset:
    case kFileTypeBank:
    {
        if (image.size() < sizeof(newpresetheader))
            return false; // a head without the rest of its header: nothing usable
        std::memcpy(&header, image.data(), sizeof(header));
        if (swap) spatara::byteSwapHeader(&header);
        // What the header announces, but never more than the image holds.
        const std::size_t available = image.size() - sizeof(newpresetheader);
        const std::size_t announced = header.dataSize > 0 ? static_cast<std::size_t>(header.dataSize) : 0;
        const char* chunks = image.data() + sizeof(newpresetheader);
        if (header.fileType == kFileTypePreset)
            return BufferToPreset(chunks, std::min(available, announced), &header, swap);
        return BufferToBank(chunks, std::min(available, announced), &header, swap);
    }
    default:
        return false; // a type we don't know: nothing is loaded
    }
}

bool CPresetSystemEditor::writeFileImage(const char* fileName, const char* directory,
                                         const std::vector<char>& image)
{
    return !image.empty() &&
           XPlatFileSave(fileName, directory, image.data(), static_cast<long>(image.size()));
}
