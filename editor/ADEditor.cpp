#include "ADEditor.h"

#include "AudioEffect.h"

#include "BitmapIds.h"

#include "CAbout.h"
#include "CBitmap.h"
#include "CClickButton.h"
#include "CHorizontalSlider.h"
#include "COnOffButton.h"
#include "COptionMenu.h"
#include "CParamDisplay.h"
#include "CScopeView.h"
#include "CVuMeter1.h"
#include "EditorZoom.h"
#include "MyFrame.h"
#include "ValueConverters.h"

#include "ModeThresholds.h"
#include "ParameterMapping.h"

#include <array>

namespace
{
// The controls of tags 0 to 5 are the parameters of the same index; the about screen's tag is the editor's.
constexpr int32_t kAboutTag = 7;
constexpr std::uint32_t kOtherChange = 1u << kNumParameters;

// Caption numbers of parameterNameStringConvert.
enum Caption
{
    kCaptionS = 0,
    kCaptionM,
    kCaptionDepth,
    kCaptionFreq,
    kCaptionEmph,
    kCaptionWidth,
};

// The about screen is centred in the main panel, without the preset panel's strip below it.
constexpr double kMainPanelWidth = 302.0;
constexpr double kMainPanelHeight = 214.0;
constexpr int kMeterSegments = 182;
constexpr int kModeStates = 3;

// The displays' styles: plain text on the background. The captions at the left have always carried the
// direction bit, which a display does not read: they draw exactly as the values do.
constexpr int32_t kValueStyle = 0;
constexpr int32_t kCaptionStyle = kVertical;

float modeButtonValue(float mode)
{
    if (mode < spatara::kModeButtonMiddleFrom) return 0.0f;
    return mode < spatara::kModeButtonLastFrom ? 0.5f : 1.0f;
}
} // namespace

ADEditor::ADEditor(AudioEffect* effect, RealValueReader realValue, MeterReader stereoMeter,
                   ScopeSource scopeSource)
    : CPresetSystemEditor(effect), realValue(std::move(realValue)), stereoMeter(std::move(stereoMeter)),
      scopeSource(std::move(scopeSource)), background(owned(new CBitmap(kBackgroundBitmap)))
{
    // 302 x 250 rather than the classic 302 x 214, on purpose: the preset strip at the foot needs the rows.
    setRectFromBitmap(background.get());
}

ADEditor::~ADEditor() = default;

float ADEditor::normalised(VstInt32 index) const
{
    return effect ? effect->getParameter(index) : 0.0f;
}

float ADEditor::widthDisplayValue() const
{
    const double width = realValue(kWidth);
    const float mode = normalised(kMode);
    // Widening reads 100 % to 400 %, narrowing 400 % down to 100 %, emphasis 0 % to 100 %.
    if (mode < spatara::kModeButtonMiddleFrom) return static_cast<float>(width * 3.0 + 1.0);
    if (mode < spatara::kModeButtonLastFrom) return static_cast<float>(width * -3.0 + 4.0);
    return static_cast<float>(width);
}

bool ADEditor::open(void* parent)
{
    AEffGUIEditor::open(parent);
    // Whatever was reported before now is read below anyway.
    pendingChanges.store(0, std::memory_order_relaxed);

    // The controls take their own references; these go when open() returns.
    const auto handle = owned(new CBitmap(kSliderHandleBitmap));
    // Loaded and let go again without a use, on purpose: the panel has always done so.
    const auto unused = owned(new CBitmap(kUnusedHandleBitmap));
    const auto meterOff = owned(new CBitmap(kMeterOffBitmap));
    const auto meterOn = owned(new CBitmap(kMeterOnBitmap));
    const auto processImage = owned(new CBitmap(kProcessButtonBitmap));
    const auto phaseImage = owned(new CBitmap(kPhaseButtonBitmap));
    const auto modeImage = owned(new CBitmap(kModeButtonBitmap));
    const auto aboutImage = owned(new CBitmap(kAboutScreenBitmap));

    ERect* editorRect = nullptr;
    getRect(&editorRect);
    auto* myFrame =
        new MyFrame(CRect(editorRect->left, editorRect->top, editorRect->left + background->getWidth(),
                          editorRect->top + background->getHeight()),
                    parent, this);
    frame = myFrame;
    myFrame->setBackground(background.get());
    setKnobMode(kLinearMode);

    // ---- the balance meter between "S" (anti-phase) and "M" (mono)
    meter = new CVuMeter1(CRect(60, 25, 60 + meterOff->getWidth(), 25 + meterOff->getHeight()), meterOn.get(),
                          meterOff.get(), kMeterSegments, kHorizontal);
    meter->setDecreaseStepValue(0.5f);
    meter->setDefaultValue(1.0f);
    meter->setMax(1.0f);
    meter->setMin(0.0f);
    meter->setValue(0.5f);
    myFrame->addView(meter);

    // Displays draw the background from a point a few pixels below their own top; kept so on purpose, the
    // texts sit where the panel was drawn for them.
    auto display = [&](const CRect& size, int32_t style, const CPoint& backOffset, CHoriTxtAlign align)
    {
        auto* view = new CParamDisplay(size, background.get(), style);
        view->setBackOffset(backOffset);
        view->setHoriAlign(align);
        view->setFont(kNormalFontSmall);
        view->setFontColor(kBlackCColor);
        return view;
    };
    auto caption =
        [&](const CRect& size, int32_t style, const CPoint& backOffset, CHoriTxtAlign align, float number)
    {
        CParamDisplay* view = display(size, style, backOffset, align);
        view->setMax(10.0f);
        view->setValue(number);
        view->setStringConvert(spatara::parameterNameStringConvert);
        return view;
    };
    auto slider = [&](int32_t tag, double top, float value, float defaultValue)
    {
        // kSliderTop leaves a horizontal slider running from the minimum at the left to the maximum at the
        // right.
        auto* view = new CHorizontalSlider(CRect(63, top, 239, top + handle->getHeight()), this, tag, 63,
                                           static_cast<int32_t>(239 - handle->getWidth()), handle.get(),
                                           background.get(), CPoint(63, top), CHorizontalSlider::kSliderTop);
        view->setOffsetHandle(CPoint(0, 0));
        view->setFreeClick(false);
        view->setValue(value);
        view->setDefaultValue(defaultValue);
        return view;
    };
    // A slider's value at the right and its caption at the left stand 3 pixels below the slider's top.
    auto rowValue = [&](double sliderTop, CParamDisplay::StringConvert convert)
    {
        CParamDisplay* view = display(CRect(258, sliderTop + 3, 322, sliderTop + 20), kValueStyle,
                                      CPoint(258, sliderTop + 8), kLeftText);
        view->setStringConvert(convert);
        return view;
    };
    auto rowCaption = [&](double sliderTop, float number)
    {
        return caption(CRect(2, sliderTop + 3, 42, sliderTop + 20), kCaptionStyle, CPoint(2, sliderTop + 8),
                       kRightText, number);
    };
    const double buttonWidth = processImage->getWidth();
    const double buttonHeight = processImage->getHeight() / 2;
    auto buttonRect = [&](double left) { return CRect(left, 151, left + buttonWidth, 151 + buttonHeight); };

    captionS = caption(CRect(2, 24, 42, 41), kCaptionStyle, CPoint(2, 27), kRightText, kCaptionS);
    myFrame->addView(captionS);
    captionM = caption(CRect(258, 24, 298, 41), kValueStyle, CPoint(258, 27), kLeftText, kCaptionM);
    myFrame->addView(captionM);

    // ---- depth
    depthSlider = slider(kDepth, 51, normalised(kDepth), 0.0f);
    myFrame->addView(depthSlider);
    depthValue = rowValue(51, spatara::percentStringConvert);
    depthValue->setValue(normalised(kDepth));
    myFrame->addView(depthValue);
    depthCaption = rowCaption(51, kCaptionDepth);
    myFrame->addView(depthCaption);

    // ---- base frequency
    frequencySlider = slider(kBaseFreq, 83, normalised(kBaseFreq), 0.5f);
    myFrame->addView(frequencySlider);
    frequencyValue = rowValue(83, spatara::frequencyStringConvert);
    frequencyValue->setMax(20000.0f);
    frequencyValue->setValue(realValue(kBaseFreq));
    myFrame->addView(frequencyValue);
    frequencyCaption = rowCaption(83, kCaptionFreq);
    myFrame->addView(frequencyCaption);

    // ---- width or emphasis
    widthSlider = slider(kWidth, 115, normalised(kWidth), 0.0f);
    myFrame->addView(widthSlider);
    widthValue = rowValue(115, spatara::percentStringConvert);
    widthValue->setMax(4.0f);
    widthValue->setValue(widthDisplayValue());
    myFrame->addView(widthValue);
    // The engine's mode here, the button's three quarters when the mode changes later: different on
    // purpose, the same for the three modes.
    const bool emphasis = static_cast<double>(normalised(kMode)) >= spatara::kEmphasisCaptionAtOpenFrom;
    widthCaption = rowCaption(115, emphasis ? kCaptionEmph : kCaptionWidth);
    myFrame->addView(widthCaption);

    // ---- buttons: all three as wide as the process image and half as high, whatever the sizes of the others
    processButton = new COnOffButton(buttonRect(70), this, kProcess, processImage.get());
    processButton->setValue(normalised(kProcess));
    myFrame->addView(processButton);
    phaseButton = new COnOffButton(buttonRect(190), this, kPhase, phaseImage.get());
    phaseButton->setValue(normalised(kPhase));
    myFrame->addView(phaseButton);
    modeButton = new CClickButton(buttonRect(130), this, kMode, modeImage.get(), kModeStates);
    modeButton->setMax(2.0f);
    modeButton->setValue(modeButtonValue(normalised(kMode)));
    myFrame->addView(modeButton);

    // ---- about
    const double aboutLeft = static_cast<int>((kMainPanelWidth - aboutImage->getWidth()) / 2);
    const double aboutTop = static_cast<int>((kMainPanelHeight - aboutImage->getHeight()) / 2);
    about = new CAbout(
        CRect(70, 184, 225, 204), this, kAboutTag, aboutImage.get(),
        CRect(aboutLeft, aboutTop, aboutLeft + aboutImage->getWidth(), aboutTop + aboutImage->getHeight()),
        CPoint(0, 0), CPoint(0, 12));
    myFrame->addView(about);

    // ---- the stereo scope over the sliders and buttons, from a click on the meter or the menu; the meter
    // stays in sight above it
    if (scopeSource.read)
    {
        scope = new CScopeView(CRect(4, 44, 298, 178), [this] { showScope(false); });
        myFrame->addView(scope);
        meter->setClickAction([this] { showScope(!scope->isVisible()); });
        showScope(spatara::scopeWasOpen());
    }

    // ---- the zoom menu, which a right click on the panel opens
    zoomMenu = new COptionMenu(CRect(0, 0, 0, 0), this, spatara::kZoomMenuTag, nullptr, nullptr,
                               kCheckStyle | kNoDrawStyle);
    fillMenu();
    myFrame->addView(zoomMenu);
    myFrame->setBackgroundMenu(zoomMenu);

    // The preset panel goes on top of this editor's controls.
    CPresetSystemEditor::open(parent);
    return true;
}

void ADEditor::close()
{
    CPresetSystemEditor::close();
    meter = nullptr;
    captionS = captionM = nullptr;
    depthSlider = frequencySlider = widthSlider = nullptr;
    depthValue = frequencyValue = widthValue = nullptr;
    depthCaption = frequencyCaption = widthCaption = nullptr;
    processButton = phaseButton = nullptr;
    modeButton = nullptr;
    about = nullptr;
    zoomMenu = nullptr;
    // Closed, the audio thread hands the scope nothing.
    if (scope && scopeSource.setOpen) scopeSource.setOpen(false);
    scope = nullptr;
    AEffGUIEditor::close(); // the frame goes, and every control with it
}

void ADEditor::idle()
{
    // The changes reported since the last idle first, so that this idle's repaint shows them.
    const std::uint32_t changes = pendingChanges.exchange(0, std::memory_order_relaxed);
    if (frame && changes)
    {
        for (VstInt32 index = 0; index < kNumParameters; ++index)
            if (changes & (1u << index)) applyParameter(index);
        frame->setDirty(true);
    }
    // The preset panel's idle is the library editor's own (frame repaints, window events, timers): one call
    // serves both, rather than idling the frame twice.
    CPresetSystemEditor::idle();
    // The meter stands still while the about screen covers the panel.
    if (about && about->getValue() == 0.0f && meter) meter->setValue(0.5f + stereoMeter());
    // The scope takes what the audio thread handed on, and redraws at most 60 times a second.
    const auto now = std::chrono::steady_clock::now();
    if (scope && scope->isVisible() && now - lastScopeDraw >= std::chrono::milliseconds(16))
    {
        lastScopeDraw = now;
        std::array<float, 2 * 1024> pairs;
        for (uint32_t taken = 0; (taken = scopeSource.read(pairs.data(), 1024)) > 0;)
            scope->addPoints(pairs.data(), taken);
        scope->setCorrelation(scopeSource.correlation());
    }
}

void ADEditor::valueChanged(CControl* control)
{
    if (control == zoomMenu)
    {
        const int32_t chosen = zoomMenu->getCurrentIndex();
        if (spatara::chooseZoom(chosen))
            applyScale();
        else if (scope && chosen == zoomMenu->getNbEntries() - 1)
            showScope(!scope->isVisible());
        fillMenu();
        return;
    }
    CPresetSystemEditor::valueChanged(control);
    const int32_t tag = control->getTag();
    if (tag < 0 || tag >= kNumParameters) return;
    // Sliders bracket their drags with beginEdit / endEdit themselves; buttons send single changes.
    setParameterAutomated(tag, control->getValue());
    control->setDirty();
}

void ADEditor::beginEdit(int32_t index)
{
    if (index != spatara::kZoomMenuTag) CPresetSystemEditor::beginEdit(index);
}

void ADEditor::endEdit(int32_t index)
{
    if (index != spatara::kZoomMenuTag) CPresetSystemEditor::endEdit(index);
}

bool ADEditor::zoomTo(double scale)
{
    if (!(scale > 0.0) || !spatara::chooseZoom(spatara::nearestZoomEntry(scale))) return false;
    applyScale();
    if (zoomMenu) fillMenu();
    return true;
}

void ADEditor::showScope(bool shown)
{
    if (!scope) return;
    scope->setVisible(shown);
    if (scopeSource.setOpen) scopeSource.setOpen(shown);
    spatara::rememberScopeOpen(shown);
    if (frame) frame->invalid();
}

void ADEditor::fillMenu()
{
    spatara::fillZoomMenu(*zoomMenu);
    if (!scope) return;
    zoomMenu->addEntry("-");
    zoomMenu->addEntry(scope->isVisible() ? "Hide stereo scope" : "Show stereo scope");
}

std::optional<double> ADEditor::userScale() const
{
    return spatara::chosenZoom();
}

void ADEditor::setParameter(VstInt32 index, float)
{
    // May run on the audio thread (host automation): no control is touched here, the index is noted and the
    // next idle moves the controls, reading the effect's values back then.
    const std::uint32_t bit = index >= 0 && index < kNumParameters ? 1u << index : kOtherChange;
    pendingChanges.fetch_or(bit, std::memory_order_relaxed);
}

void ADEditor::applyParameter(VstInt32 index)
{
    switch (index)
    {
    case kDepth:
        if (depthSlider) depthSlider->setValue(normalised(kDepth));
        if (depthValue) depthValue->setValue(normalised(kDepth));
        break;
    case kBaseFreq:
        if (frequencySlider) frequencySlider->setValue(normalised(kBaseFreq));
        if (frequencyValue) frequencyValue->setValue(realValue(kBaseFreq));
        break;
    case kWidth:
        if (widthSlider) widthSlider->setValue(normalised(kWidth));
        if (widthValue) widthValue->setValue(widthDisplayValue());
        break;
    case kProcess:
        if (processButton) processButton->setValue(normalised(kProcess) < 0.5f ? 0.0f : 1.0f);
        break;
    case kPhase:
        if (phaseButton) phaseButton->setValue(normalised(kPhase) < 0.5f ? 0.0f : 1.0f);
        break;
    case kMode:
    {
        const float mode = normalised(kMode);
        if (modeButton) modeButton->setValue(modeButtonValue(mode));
        if (widthCaption)
            widthCaption->setValue(mode < spatara::kModeButtonLastFrom ? kCaptionWidth : kCaptionEmph);
        if (widthSlider) widthSlider->setValue(normalised(kWidth));
        if (widthValue)
        {
            widthValue->setValue(widthDisplayValue());
            widthValue->invalid();
        }
        if (modeButton) modeButton->invalid();
        break;
    }
    default:
        break;
    }
}

void ADEditor::suspend()
{
    if (meter) meter->setValue(0.5f);
}
