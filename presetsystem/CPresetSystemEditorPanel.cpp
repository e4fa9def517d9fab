// CPresetSystemEditor: the preset panel at the foot of the editor, its actions, and the hooks that keep it
// in step with the program store.
#include "CPresetSystemEditor.h"

#include "BitmapIds.h"
#include "CAlertView.h"
#include "CBitmap.h"
#include "CFrame.h"
#include "CMenuItem.h"
#include "COptionMenu.h"
#include "CPSKickButton.h"
#include "CPSRockerSwitch.h"
#include "CPresetSystemEffect.h"
#include "CSaveLoadButton.h"
#include "CZEVTextEdit.h"
#include "ManualDocument.h"
#include "SharedPointer.h"
#include "Utf8Text.h"
#include "XPlatAlert.h"
#include "XPlatAlertScope.h"

#include <algorithm>
#include <optional>
#include <string>

namespace
{
// Pop-up, check mark, and neither text nor background of its own: the menu is a click area beside the
// name, which shows the current preset.
constexpr int32_t kPresetMenuStyle = kPopupStyle | kCheckStyle | kNoTextStyle | kNoDrawStyle;
constexpr int32_t kNameEditStyle = 0;
constexpr int kImagesPerButton = 3;
constexpr int kImagesPerRocker = 5;
constexpr int32_t kPresetsPerColumn = 16;
const CColor kNameBackColor = MakeCColor(189, 207, 218, 255);
const CColor kNameFontColor = MakeCColor(36, 36, 32, 255);
const CColor kNameFrameColor = MakeCColor(36, 36, 32, 255);

// A program name as the store keeps it: at most 23 bytes, cut before a character that would not fit.
std::string storedName(const char* text)
{
    return std::string(text ? text : "", spatara::utf8CutLength(text, kPresetNameSize - 1));
}

// Adds view to frame and answers it; the frame takes over our reference.
template <class View> View* addTo(CFrame* frame, View* view)
{
    frame->addView(view);
    return view;
}

// The height of one image of a bitmap that stacks images of equal height.
double imageHeight(const CBitmap* bitmap, int images)
{
    return bitmap->getHeight() / images;
}
} // namespace

bool CPresetSystemEditor::open(void*)
{
    if (!frame || !effect) return false;
    createPresetPanel();
    return true;
}

void CPresetSystemEditor::close()
{
    nameEdit = nullptr;
    presetMenu = nullptr;
    stepRocker = nullptr;
    manualButton = nullptr;
}

void CPresetSystemEditor::createPresetPanel()
{
    CPresetSystemEffect* fx = presetEffect();
    const auto background = owned(new CBitmap(kBackgroundBitmap));

    // The name, centred on its line whatever the font's height.
    const double fontHeight = kNormalFontSmall->getSize();
    const double middle = (223.0 + 237.0) / 2.0;
    const CRect nameRect(91, middle - fontHeight / 2.0 - 2.0, 201, middle + fontHeight / 2.0 + 2.0);
    nameEdit =
        new CZEVTextEdit(nameRect, this, kNameTag, storedName(fx->preset(fx->getPresetNo()).name).c_str(),
                         background.get(), kNameEditStyle, false);
    nameEdit->setBackOffset(CPoint(nameRect.left, nameRect.top));
    nameEdit->setBackColor(kNameBackColor);
    nameEdit->setFont(kNormalFontSmall);
    nameEdit->setFontColor(kNameFontColor);
    nameEdit->setFrameColor(kNameFrameColor);
    nameEdit->setHoriAlign(kCenterText);
    addTo(frame, nameEdit);

    presetMenu = new COptionMenu(CRect(207, 222, 217, 236), this, kPresetListTag, background.get(), nullptr,
                                 kPresetMenuStyle);
    presetMenu->setBackOffset(CPoint(207, 222));
    presetMenu->setNbItemsPerColumn(kPresetsPerColumn);
    for (int i = 0; i < kProgramCount; ++i)
        presetMenu->addEntry(storedName(fx->preset(i).name).c_str());
    presetMenu->setCurrent(static_cast<int32_t>(fx->getPresetNo()));
    addTo(frame, presetMenu);

    const auto rockerBitmap = owned(new CBitmap(kStepRockerBitmap));
    stepRocker = addTo(frame, new CPSRockerSwitch(CRect(219, 222, 250, 236), this, kStepTag,
                                                  imageHeight(rockerBitmap.get(), kImagesPerRocker),
                                                  rockerBitmap.get(), CPoint(0, 0), kHorizontal));

    const auto fileButton = [this](const CRect& rect, int32_t tag, int32_t bitmapId)
    {
        const auto bitmap = owned(new CBitmap(bitmapId));
        frame->addView(new CSaveLoadButton(rect, this, tag, imageHeight(bitmap.get(), kImagesPerButton),
                                           bitmap.get(), CPoint(0, 0)));
    };
    const auto kickButton = [this](const CRect& rect, int32_t tag, int32_t bitmapId, bool doubleClickOnly)
    {
        const auto bitmap = owned(new CBitmap(bitmapId));
        return addTo(frame, new CPSKickButton(rect, this, tag, imageHeight(bitmap.get(), kImagesPerButton),
                                              bitmap.get(), CPoint(0, 0), doubleClickOnly));
    };
    // Save buttons at the left, load buttons at the right; presets above, banks below.
    fileButton(CRect(71, 230, 83, 244), kLoadBankTag, kLoadBankButtonBitmap);
    fileButton(CRect(8, 230, 20, 244), kSaveBankTag, kSaveBankButtonBitmap);
    kickButton(CRect(26, 232, 63, 242), kDefaultBankTag, kDefaultBankButtonBitmap, true);
    fileButton(CRect(71, 215, 83, 229), kLoadPresetTag, kLoadPresetButtonBitmap);
    fileButton(CRect(8, 215, 20, 229), kSavePresetTag, kSavePresetButtonBitmap);
    kickButton(CRect(22, 217, 69, 227), kDefaultPresetTag, kDefaultPresetButtonBitmap, true);
    kickButton(CRect(279, 215, 291, 229), kRecallATag, kRecallAButtonBitmap, false);
    kickButton(CRect(254, 215, 266, 229), kStoreATag, kStoreAButtonBitmap, false);
    kickButton(CRect(279, 230, 291, 244), kRecallBTag, kRecallBButtonBitmap, false);
    kickButton(CRect(254, 230, 266, 244), kStoreBTag, kStoreBButtonBitmap, false);
    manualButton = kickButton(CRect(262, 187, 278, 201), kManualTag, kManualButtonBitmap, false);
}

void CPresetSystemEditor::valueChanged(CControl* control)
{
    if (!control) return;
    const float value = control->getValue();
    switch (control->getTag())
    {
    case kNameTag:
        renamePreset(static_cast<CZEVTextEdit*>(control));
        break;
    case kStepTag:
        stepPreset(value);
        break;
    case kPresetListTag:
        choosePreset(value);
        break;
    // A plain right click (0.5) loads a file written in the other byte order.
    case kLoadBankTag:
        loadBank(value == 0.5f);
        break;
    case kSaveBankTag:
        saveBank();
        break;
    case kLoadPresetTag:
        loadPreset(value == 0.5f);
        break;
    case kSavePresetTag:
        savePreset();
        break;
    // A double-click sends 1.0, with Control 0.5: save the default, or remove it.
    case kDefaultBankTag:
        if (value >= 0.75f)
            saveDefaultBank();
        else
            resetDefaultBank();
        break;
    case kDefaultPresetTag:
        if (value >= 0.75f)
            saveDefaultPreset();
        else
            resetDefaultPreset();
        break;
    case kStoreATag:
        storeA();
        break;
    case kStoreBTag:
        storeB();
        break;
    case kRecallATag:
        recallA();
        break;
    case kRecallBTag:
        recallB();
        break;
    case kManualTag:
        openManualDocument();
        break;
    default:
        break;
    }
}

void CPresetSystemEditor::renamePreset(CZEVTextEdit* edit)
{
    // The field and the list entry keep the name as typed; only the store cuts it to what it holds.
    const std::string name = edit->getText();
    edit->setText(name.c_str());
    if (presetMenu)
        if (CMenuItem* entry = presetMenu->getCurrent())
        {
            entry->setTitle(name.c_str());
            presetMenu->setDirty();
        }
    presetEffect()->setPresetName(name.c_str());
}

void CPresetSystemEditor::stepPreset(float direction)
{
    if (direction == 0.0f) return;
    const long current = presetEffect()->getPresetNo();
    // No wrap-around: stepping past either end stays there and re-applies that preset.
    const long index =
        direction > 0.0f ? std::min(current + 1, long{kProgramCount - 1}) : std::max(current - 1, 0L);
    selectPreset(index, storedName(presetEffect()->preset(index).name).c_str());
}

void CPresetSystemEditor::choosePreset(float menuValue)
{
    const long index = static_cast<long>(menuValue + 0.5f);
    if (index < 0 || index >= kProgramCount || !presetMenu || !presetMenu->getEntry(index)) return;
    // A copy: renaming the preset below also retitles this very entry.
    const std::string title = presetMenu->getEntry(index)->getTitle();
    selectPreset(index, title.c_str());
}

void CPresetSystemEditor::selectPreset(long index, const char* name)
{
    selectListEntry(index);
    // The name as given: a list entry keeps its title as it was typed, and so does the field.
    if (nameEdit) nameEdit->setText(name);
    presetEffect()->setPresetNo(index);
    presetEffect()->setPresetName(name);
}

void CPresetSystemEditor::openManualDocument()
{
    // The alert belongs to this editor: it shows in this window, or as the desktop's dialog when the
    // editor has none, never in another instance's window.
    std::optional<XPlatAlertScope> inThisWindow;
    if (frame && frame->getPlatformWindow())
        inThisWindow.emplace([this](const char* message) { CAlertView::showModal(frame, message); });
    if (!spatara::openManual()) XPlatDisplayAlert(spatara::manualAlertText().c_str());
    // The viewer (or the alert) took the pointer away without the button seeing it leave.
    if (manualButton)
    {
        manualButton->setHover(false);
        manualButton->setDirty();
    }
}

void CPresetSystemEditor::showPresetName(const char* name)
{
    if (nameEdit) nameEdit->setText(storedName(name).c_str());
}

void CPresetSystemEditor::setListEntryTitle(long index, const char* name)
{
    if (!presetMenu) return;
    if (CMenuItem* entry = presetMenu->getEntry(static_cast<int32_t>(index)))
    {
        entry->setTitle(storedName(name).c_str());
        presetMenu->setDirty();
    }
}

void CPresetSystemEditor::selectListEntry(long index)
{
    if (presetMenu) presetMenu->setCurrent(static_cast<int32_t>(index), false);
}

void CPresetSystemEditor::nameChangedExternal(const char* name)
{
    showPresetName(name);
    if (presetMenu) setListEntryTitle(presetMenu->getCurrentIndex(), name);
}

void CPresetSystemEditor::redrawFrame()
{
    if (frame) frame->invalid();
}
