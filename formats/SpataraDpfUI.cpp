#include "SpataraDpfUI.h"

#include "AEffGUIEditor.h"
#include "AudioEffect.h"
#include "CFrame.h"
#include "ParameterTable.h"
#include "SpataraDpfPlugin.h"
#include "platform/PlatformWindow.h"

#include <algorithm>

namespace spatara
{
namespace
{
// The editor's units, its size at scale 1; also the size the framework starts from, before the editor
// tells its own (which follows at once).
constexpr uint kUnitsWide = 302, kUnitsHigh = 250;
// Ours: the user dragged the window to this scale.
constexpr VstInt32 kZoomRequest = CCONST('Z', 'v', 'Z', 'm');
// The request VST 2.4 hosts send with the screen's scale, which the editor understands.
constexpr VstInt32 kScaleRequest = CCONST('P', 'r', 'e', 'S');
constexpr VstIntPtr kScaleRequestValue = CCONST('A', 'e', 'C', 's');
} // namespace

SpataraDpfUI::SpataraDpfUI() : UI(kUnitsWide, kUnitsHigh)
{
    plugin = static_cast<SpataraDpfPlugin*>(getPluginInstancePointer());
    vst = plugin ? plugin->vstEffect() : nullptr;
    if (!vst) return;
    // The host's scale (LV2's ui:scaleFactor, VST3's content scale, CLAP's set_scale), read by the framework
    // when the UI is made. The framework's own automatic scaling is not used: it would enlarge a picture the
    // editor already draws at the scale.
    passScale(getScaleFactor());
    // A window the user drags keeps the editor's proportions and never gets smaller than at scale 1.
    setGeometryConstraints(kUnitsWide, kUnitsHigh, true);
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

void SpataraDpfUI::passScale(double scaleFactor) const
{
    // 1 is also what the framework reports when the host said nothing; the desktop may know better then.
    if (scaleFactor > 0.0 && scaleFactor != 1.0)
        vst->dispatcher(vst, effVendorSpecific, kScaleRequest, kScaleRequestValue, nullptr,
                        static_cast<float>(scaleFactor));
}

void SpataraDpfUI::uiScaleFactorChanged(double scaleFactor)
{
    if (!vst) return;
    passScale(scaleFactor);
    // Closed, the editor has no window to resize: the next size the host asks for is the new one.
    if (open) return;
    ERect* rect = nullptr;
    if (dispatch(effEditGetRect, &rect) && rect)
        setSize(static_cast<uint>(rect->right - rect->left), static_cast<uint>(rect->bottom - rect->top));
}

bool SpataraDpfUI::editorResized(int width, int height)
{
    if (width <= 0 || height <= 0) return false;
    settling = true;
    setSize(static_cast<uint>(width), static_cast<uint>(height));
    settling = false;
    return getWidth() == static_cast<uint>(width) && getHeight() == static_cast<uint>(height);
}

void SpataraDpfUI::sizeChanged(uint width, uint height)
{
    UI::sizeChanged(width, height);
    if (!open || settling) return;
    const double scale =
        std::min(static_cast<double>(width) / kUnitsWide, static_cast<double>(height) / kUnitsHigh);
    vst->dispatcher(vst, effVendorSpecific, kZoomRequest, 0, nullptr, static_cast<float>(scale));
    // The editor's size at the zoom it took, which the window settles on.
    ERect* rect = nullptr;
    if (dispatch(effEditGetRect, &rect) && rect)
        editorResized(rect->right - rect->left, rect->bottom - rect->top);
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
