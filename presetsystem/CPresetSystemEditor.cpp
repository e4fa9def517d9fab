#include "CPresetSystemEditor.h"

#include "CPresetSystemEffect.h"

CPresetSystemEditor::CPresetSystemEditor(AudioEffect* effect) : AEffEditor(effect) {}

CPresetSystemEditor::~CPresetSystemEditor() = default;

void CPresetSystemEditor::setParameter(long, float) {}

void CPresetSystemEditor::loadDefaults()
{
    presetEffect()->setPresetNo(0);
}

void CPresetSystemEditor::nameChangedExternal(const char*) {}

CPresetSystemEffect* CPresetSystemEditor::presetEffect() const
{
    return static_cast<CPresetSystemEffect*>(effect);
}
