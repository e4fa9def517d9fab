#include "AEffGUIEditor.h"

#include "AudioEffectX.h"
#include "CBitmap.h"
#include "CFrame.h"
#include "platform/PlatformWindow.h"

AEffGUIEditor::AEffGUIEditor(AudioEffect* effect) : AEffEditor(effect) {}

AEffGUIEditor::~AEffGUIEditor()
{
    if (frame) AEffGUIEditor::close();
}

bool AEffGUIEditor::getRect(ERect** outRect)
{
    if (!outRect) return false;
    *outRect = &rect;
    return true;
}

bool AEffGUIEditor::open(void* ptr)
{
    AEffEditor::open(ptr);
    return true;
}

void AEffGUIEditor::close()
{
    if (frame)
    {
        CFrame* closing = frame;
        frame = nullptr;
        closing->close();
    }
    AEffEditor::close();
}

void AEffGUIEditor::idle()
{
    if (inIdle || !frame) return;
    inIdle = true;
    // Repaints are asked for first, so the window's pass below already draws them.
    frame->idle();
    if (frame)
        if (PlatformWindow* window = frame->getPlatformWindow()) window->idle();
    inIdle = false;
}

bool AEffGUIEditor::setKnobMode(VstInt32 mode)
{
    knobMode = mode;
    return true;
}

namespace
{
VstKeyCode keyCodeOf(VstInt32 character, VstInt32 virtualKey, VstInt32 modifiers)
{
    VstKeyCode code;
    code.character = character;
    code.virt = static_cast<unsigned char>(virtualKey);
    code.modifier = static_cast<unsigned char>(modifiers);
    return code;
}
} // namespace

bool AEffGUIEditor::onKeyDown(VstInt32 character, VstInt32 virtualKey, VstInt32 modifiers)
{
    if (!frame) return false;
    VstKeyCode code = keyCodeOf(character, virtualKey, modifiers);
    return frame->onKeyDown(code) == 1;
}

bool AEffGUIEditor::onKeyUp(VstInt32 character, VstInt32 virtualKey, VstInt32 modifiers)
{
    if (!frame) return false;
    VstKeyCode code = keyCodeOf(character, virtualKey, modifiers);
    return frame->onKeyUp(code) == 1;
}

void AEffGUIEditor::beginEdit(int32_t index)
{
    if (auto* effectX = dynamic_cast<AudioEffectX*>(effect)) effectX->beginEdit(index);
}

void AEffGUIEditor::endEdit(int32_t index)
{
    if (auto* effectX = dynamic_cast<AudioEffectX*>(effect)) effectX->endEdit(index);
}

void AEffGUIEditor::setParameterAutomated(VstInt32 index, float value)
{
    if (effect) effect->setParameterAutomated(index, value);
}

void AEffGUIEditor::setParameter(VstInt32, float) {}

void AEffGUIEditor::setRectFromBitmap(const CBitmap* bitmap)
{
    rect.top = 0;
    rect.left = 0;
    rect.bottom = static_cast<VstInt16>(bitmap ? bitmap->getHeight() : 0);
    rect.right = static_cast<VstInt16>(bitmap ? bitmap->getWidth() : 0);
}
