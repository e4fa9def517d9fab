#include "AEffEditor.h"

AEffEditor::AEffEditor(AudioEffect* effect) : effect(effect) {}

AEffEditor::~AEffEditor() = default;

bool AEffEditor::getRect(ERect** rect)
{
    if (rect) *rect = nullptr;
    return false;
}

bool AEffEditor::open(void* ptr)
{
    systemWindow = ptr;
    return false;
}

void AEffEditor::close()
{
    systemWindow = nullptr;
}

bool AEffEditor::onKeyDown(VstInt32, VstInt32, VstInt32)
{
    return false;
}

bool AEffEditor::onKeyUp(VstInt32, VstInt32, VstInt32)
{
    return false;
}

bool AEffEditor::setKnobMode(VstInt32)
{
    return false;
}
