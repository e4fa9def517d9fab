#include "AEffGUIEditor.h"

#include "AudioEffectX.h"
#include "CBitmap.h"
#include "CFrame.h"
#include "platform/DesktopScale.h"
#include "platform/PlatformWindow.h"

#include <cmath>

AEffGUIEditor::AEffGUIEditor(AudioEffect* effect) : AEffEditor(effect) {}

AEffGUIEditor::~AEffGUIEditor()
{
    if (frame) AEffGUIEditor::close();
}

bool AEffGUIEditor::getRect(ERect** outRect)
{
    if (!outRect) return false;
    const double scale = getScale();
    const auto scaled = [scale](VstInt16 units) { return static_cast<VstInt16>(std::lround(units * scale)); };
    scaledRect = ERect{scaled(rect.top), scaled(rect.left), scaled(rect.bottom), scaled(rect.right)};
    *outRect = &scaledRect;
    return true;
}

bool AEffGUIEditor::open(void* ptr)
{
    // The desktop may have changed since the last open; a host's scale stays.
    desktopScaleRead = 0.0;
    AEffEditor::open(ptr);
    return true;
}

double AEffGUIEditor::getScale() const
{
    return frame ? frame->getScale() : wantedScale();
}

double AEffGUIEditor::wantedScale() const
{
    if (const std::optional<double> chosen = userScale()) return *chosen;
    if (hostScale > 0.0) return hostScale;
    if (desktopScaleRead == 0.0) desktopScaleRead = spatara::desktopScale();
    return desktopScaleRead;
}

bool AEffGUIEditor::setHostScale(double scale)
{
    if (!(scale >= 1.0 && scale <= 4.0)) return false;
    hostScale = scale;
    applyScale();
    return true;
}

// Resizes an open frame and the host's window to the wanted scale.
void AEffGUIEditor::applyScale()
{
    const double scale = wantedScale();
    if (!frame || scale == frame->getScale()) return;
    const auto pixels = [scale](VstInt16 units) { return static_cast<VstInt32>(std::lround(units * scale)); };
    auto* effectX = dynamic_cast<AudioEffectX*>(effect);
    // A host that does not resize its window would cut the editor off: the frame keeps its scale then.
    if (!effectX || !effectX->sizeWindow(pixels(rect.right - rect.left), pixels(rect.bottom - rect.top)))
        return;
    frame->setScale(scale);
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
