#include "CPresetSystemEditor.h"

#include "CPresetSystemEffect.h"

CPresetSystemEditor::CPresetSystemEditor(AudioEffect* effect) : AEffGUIEditor(effect) {}

CPresetSystemEditor::~CPresetSystemEditor()
{
    storePathsAndFilenames();
}

void CPresetSystemEditor::valueChanged(CControl*) {}

void CPresetSystemEditor::nameChangedExternal(const char*) {}

void CPresetSystemEditor::showPresetName(const char*) {}

void CPresetSystemEditor::setListEntryTitle(long, const char*) {}

void CPresetSystemEditor::selectListEntry(long) {}

CPresetSystemEffect* CPresetSystemEditor::presetEffect() const
{
    return static_cast<CPresetSystemEffect*>(effect);
}
