#include "CNewFileSelector.h"

#include "CFrame.h"
#include "CPathEntryView.h"
#include "SharedPointer.h"
#include "platform/PlatformFileDialog.h"
#include "platform/PlatformWindow.h"

#include <unistd.h>

CNewFileSelector* CNewFileSelector::create(CFrame* frame, Style style)
{
    return new CNewFileSelector(frame, style);
}

void CNewFileSelector::setDefaultExtension(const CFileExtension& extension)
{
    extensions.insert(extensions.begin(), extension);
}

const char* CNewFileSelector::getSelectedFile(uint32_t index) const
{
    return index < selected.size() ? selected[index].c_str() : nullptr;
}

bool CNewFileSelector::runModal()
{
    selected.clear();
    PlatformFileDialogRequest request;
    request.save = style == kSelectSaveFile;
    request.directory = style == kSelectDirectory;
    request.title = title;
    request.initialDirectory = initialDirectory;
    request.defaultName = defaultSaveName;
    for (const auto& extension : extensions)
        request.filters.push_back({extension.getDescription(), extension.getExtension()});

    std::string path;
    switch (PlatformFileDialog::run(request, path))
    {
    case PlatformFileDialog::Outcome::chosen:
        lastRoute = Route::dialogProgram;
        selected.push_back(path);
        return true;
    case PlatformFileDialog::Outcome::cancelled:
        lastRoute = Route::dialogProgram;
        return false;
    case PlatformFileDialog::Outcome::unavailable:
        break;
    }
    return runFallback();
}

std::optional<std::string> CNewFileSelector::confirmReplacing(const std::string& path)
{
    const std::string name = path.substr(path.rfind('/') + 1);
    PlatformFileDialogRequest request;
    request.title = title;
    request.question = "\"" + name + "\" already exists. Do you want to replace it?";
    std::string unused;
    switch (PlatformFileDialog::run(request, unused))
    {
    case PlatformFileDialog::Outcome::chosen:
        return path;
    case PlatformFileDialog::Outcome::cancelled:
        return std::nullopt;
    case PlatformFileDialog::Outcome::unavailable:
        break;
    }
    // Asked where the name was typed: Return replaces, another name saves there instead, Escape keeps it.
    return runPathEntry("\"" + name + "\" exists: Return replaces it", path);
}

bool CNewFileSelector::runFallback()
{
    PlatformWindow* window = frame ? frame->getPlatformWindow() : nullptr;
    if (!window)
    {
        lastRoute = Route::none;
        return false;
    }
    if (style == kSelectFile)
    {
        lastRoute = Route::builtInBrowser;
        const auto chosen = window->runBuiltInOpenDialog(
            title.c_str(), initialDirectory.empty() ? nullptr : initialDirectory.c_str());
        if (chosen) selected.push_back(*chosen);
        return chosen.has_value();
    }
    // Saving (or choosing a folder) without any dialog program: the user types the path into the frame.
    lastRoute = Route::pathEntry;
    std::string start = initialDirectory;
    if (!start.empty() && start.back() != '/') start += '/';
    start += defaultSaveName;
    if (auto typed = runPathEntry(title, start)) selected.push_back(*typed);
    return !selected.empty();
}

std::optional<std::string> CNewFileSelector::runPathEntry(const std::string& prompt, const std::string& start)
{
    PlatformWindow* window = frame ? frame->getPlatformWindow() : nullptr;
    if (!window) return std::nullopt;
    // Ours for the whole wait, even if the frame closes meanwhile.
    const auto entry = owned(new CPathEntryView(frame->getViewSize(), prompt.c_str(), start.c_str()));
    if (!frame->setModalView(entry.get())) return std::nullopt;
    entry->remember(); // the frame's, as its modal view: closing the frame lets it go
    frame->setFocusView(entry.get());
    while (!entry->isFinished() && frame->getPlatformWindow())
    {
        window->idle();
        usleep(10000);
    }
    std::optional<std::string> typed;
    if (entry->isConfirmed() && *entry->getText()) typed = entry->getText();
    if (frame->getModalView() == entry.get())
    {
        frame->setFocusView(nullptr);
        frame->setModalView(nullptr);
        entry->forget(); // the frame's, which taking the view out leaves to us
    }
    return typed;
}
