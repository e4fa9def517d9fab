#include "CPresetSystemEditor.h"

#include "CPresetSystemEffect.h"

CPresetSystemEditor::CPresetSystemEditor(AudioEffect* effect) : AEffGUIEditor(effect) {}

CPresetSystemEditor::~CPresetSystemEditor()
{
    releaseAlerts();
    storePathsAndFilenames();
}

CPresetSystemEffect* CPresetSystemEditor::presetEffect() const
{
    return static_cast<CPresetSystemEffect*>(effect);
}
