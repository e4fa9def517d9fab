#include "CPresetSystemEditor.h"

#include "CPresetSystemEffect.h"

CPresetSystemEditor::CPresetSystemEditor(AudioEffect* effect) : AEffGUIEditor(effect) {}

CPresetSystemEditor::~CPresetSystemEditor()
{
    storePathsAndFilenames();
}

CPresetSystemEffect* CPresetSystemEditor::presetEffect() const
{
    return static_cast<CPresetSystemEffect*>(effect);
}
