#include "SpataraDpfUI.h"

#include "AEffGUIEditor.h"
#include "AudioEffect.h"
#include "CFrame.h"
#include "ParameterTable.h"
#include "SpataraDpfPlugin.h"
#include "platform/PlatformWindow.h"

namespace spatara
{
namespace
{
// The framework asks for a size before the editor tells its own; the editor's rectangle follows at once.
constexpr uint kFallbackWidth = 302, kFallbackHeight = 250;
} // namespace

SpataraDpfUI::SpataraDpfUI() : UI(kFallbackWidth, kFallbackHeight)
{
    plugin = static_cast<SpataraDpfPlugin*>(getPluginInstancePointer());
    vst = plugin ? plugin->vstEffect() : nullptr;
    if (!vst) return;
    ERect* rect = nullptr;
    if (dispatch(effEditGetRect, &rect) && rect)
        setSize(static_cast<uint>(rect->right - rect->left), static_cast<uint>(rect->bottom - rect->top));
    // Without a window of the host's to live in, there is nothing to open.
    if (!isEmbed()) return;
    open = dispatch(effEditOpen, reinterpret_cast<void*>(getParentWindowHandle())) != 0;
    plugin->setEditListener(this);
}

SpataraDpfUI::~SpataraDpfUI()
{
    if (!open) return;
    plugin->setEditListener(nullptr);
    dispatch(effEditClose);
}

VstIntPtr SpataraDpfUI::dispatch(VstInt32 opcode, void* ptr) const
{
    return vst->dispatcher(vst, opcode, 0, 0, ptr, 0.0f);
}

uintptr_t SpataraDpfUI::getNativeWindowHandle() const noexcept
{
    const auto* effect = open ? static_cast<const AudioEffect*>(vst->object) : nullptr;
    const auto* editor = effect ? dynamic_cast<const AEffGUIEditor*>(effect->getEditor()) : nullptr;
    const CFrame* frame = editor ? editor->getFrame() : nullptr;
    const PlatformWindow* window = frame ? frame->getPlatformWindow() : nullptr;
    return window ? window->getNativeWindowHandle() : 0;
}

void SpataraDpfUI::uiIdle()
{
    if (open) dispatch(effEditIdle);
}

void SpataraDpfUI::parameterChanged(uint32_t index, float value)
{
    if (isParameter(static_cast<int>(index))) ports[index] = value;
}

void SpataraDpfUI::parameterEdited(uint32_t index, float normalised)
{
    if (!isParameter(static_cast<int>(index))) return;
    ports[index] = parameterInfo(static_cast<int>(index)).toUnit(normalised);
    setParameterValue(index, ports[index]);
}

void SpataraDpfUI::parametersChanged()
{
    for (uint32_t index = 0; index < kNumParameters; ++index)
    {
        const float value = parameterInfo(static_cast<int>(index)).toUnit(vst->getParameter(vst, index));
        if (value == ports[index]) continue;
        ports[index] = value;
        setParameterValue(index, value);
    }
}

void SpataraDpfUI::editGesture(uint32_t index, bool started)
{
    if (isParameter(static_cast<int>(index))) editParameter(index, started);
}
} // namespace spatara

START_NAMESPACE_DISTRHO

UI* createUI()
{
    return new spatara::SpataraDpfUI();
}

END_NAMESPACE_DISTRHO
