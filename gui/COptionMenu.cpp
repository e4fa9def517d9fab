#include "COptionMenu.h"

#include "CBitmap.h"
#include "CFrame.h"
#include "COptionMenuPopup.h"
#include "SharedPointer.h"

COptionMenu::COptionMenu(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background,
                         CBitmap* bgWhenClick, int32_t style)
    : CParamDisplay(size, background, style), bgWhenClick(bgWhenClick)
{
    setListener(listener);
    setTag(tag);
    vmin = 0.0f;
    vmax = 0.0f;
}

COptionMenu::COptionMenu(const COptionMenu& other)
    : CParamDisplay(other), bgWhenClick(other.bgWhenClick), currentIndex(other.currentIndex),
      nbItemsPerColumn(other.nbItemsPerColumn)
{
    for (const auto& entry : other.entries)
        entries.push_back(std::make_unique<CMenuItem>(*entry));
}

COptionMenu::~COptionMenu()
{
    if (openPopup) openPopup->detachMenu();
}

CMenuItem* COptionMenu::addEntry(const char* title, int32_t index)
{
    auto item = std::make_unique<CMenuItem>(title);
    CMenuItem* result = item.get();
    if (index < 0 || index >= getNbEntries())
        entries.push_back(std::move(item));
    else
        entries.insert(entries.begin() + index, std::move(item));
    vmax = static_cast<float>(getNbEntries() - 1);
    return result;
}

CMenuItem* COptionMenu::getEntry(int32_t index) const
{
    return index >= 0 && index < getNbEntries() ? entries[static_cast<size_t>(index)].get() : nullptr;
}

bool COptionMenu::removeEntry(int32_t index)
{
    if (!getEntry(index)) return false;
    entries.erase(entries.begin() + index);
    vmax = static_cast<float>(std::max(0, getNbEntries() - 1));
    if (currentIndex >= getNbEntries()) currentIndex = getNbEntries() - 1;
    return true;
}

void COptionMenu::removeAllEntry()
{
    entries.clear();
    currentIndex = -1;
    vmax = 0.0f;
}

bool COptionMenu::setCurrent(int32_t index, bool countSeparator)
{
    int32_t position = index;
    if (!countSeparator)
    {
        // index counts only real entries: find the entry it names.
        position = -1;
        for (int32_t i = 0, real = 0; i < getNbEntries(); ++i)
        {
            if (entries[static_cast<size_t>(i)]->isSeparator()) continue;
            if (real++ == index)
            {
                position = i;
                break;
            }
        }
    }
    if (!getEntry(position)) return false;
    currentIndex = position;
    value = static_cast<float>(position);
    setDirty();
    return true;
}

int32_t COptionMenu::getCurrentIndex(bool countSeparator) const
{
    if (countSeparator || currentIndex < 0) return currentIndex;
    int32_t real = 0;
    for (int32_t i = 0; i < currentIndex; ++i)
        if (!entries[static_cast<size_t>(i)]->isSeparator()) ++real;
    return real;
}

void COptionMenu::draw(CDrawContext* context)
{
    CMenuItem* current = getCurrent();
    drawText(context, current ? current->getTitle() : "");
    if (openPopup && bgWhenClick && !(style & kNoDrawStyle)) bgWhenClick->draw(context, size, backOffset);
}

CMouseEventResult COptionMenu::onMouseDown(CPoint&, const CButtonState& buttons)
{
    if (!(buttons & kLButton)) return kMouseEventNotHandled;
    popup();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

bool COptionMenu::popup()
{
    CFrame* frame = getFrame();
    if (!frame || openPopup || entries.empty()) return false;
    auto list = owned(new COptionMenuPopup(this, frame->getViewSize()));
    if (!frame->setModalView(list.get())) return false;
    openPopup = list.release(); // the list lets itself go when it closes
    setDirty();
    return true;
}

void COptionMenu::popupClosed(int32_t chosenIndex)
{
    openPopup = nullptr;
    setDirty();
    if (!getEntry(chosenIndex) || !getEntry(chosenIndex)->isEnabled()) return;
    beginEdit();
    setCurrent(chosenIndex);
    valueChanged();
    endEdit();
}
