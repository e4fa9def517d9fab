// A control that pops up a list of entries, drawn inside the frame in columns; its value is the index chosen.
#pragma once

#include "CMenuItem.h"
#include "CParamDisplay.h"

#include <memory>
#include <vector>

class COptionMenuPopup;

class COptionMenu : public CParamDisplay
{
  public:
    // style: kCheckStyle marks the current entry in the list; kNoTextStyle / kNoDrawStyle as for displays.
    COptionMenu(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background = nullptr,
                CBitmap* bgWhenClick = nullptr, int32_t style = 0);
    COptionMenu(const COptionMenu& other);

    // ---- entries
    // Appends (index -1) or inserts a new entry; "-" makes a separator.
    CMenuItem* addEntry(const char* title, int32_t index = -1);
    CMenuItem* getEntry(int32_t index) const;
    int32_t getNbEntries() const { return static_cast<int32_t>(entries.size()); }
    bool removeEntry(int32_t index);
    void removeAllEntry();
    // The current entry; with countSeparator false the index skips separators.
    bool setCurrent(int32_t index, bool countSeparator = true);
    CMenuItem* getCurrent() const { return getEntry(currentIndex); }
    int32_t getCurrentIndex(bool countSeparator = true) const;
    void setNbItemsPerColumn(int32_t count) { nbItemsPerColumn = count > 0 ? count : 1; }
    int32_t getNbItemsPerColumn() const { return nbItemsPerColumn; }

    // ---- look and behaviour
    // Shows the current entry's title (unless kNoTextStyle / kNoDrawStyle).
    void draw(CDrawContext* context) override;
    // A left click opens the list; choosing an entry sets value and current entry and tells the listener.
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    // Opens the list over the frame (as its modal view); answers whether it opened.
    bool popup();
    bool isPopupOpen() const { return openPopup != nullptr; }
    // Called by the list: index -1 when it was dismissed.
    void popupClosed(int32_t chosenIndex);

    CLASS_METHODS(COptionMenu, CParamDisplay)

  protected:
    ~COptionMenu() override;

  private:
    std::vector<std::unique_ptr<CMenuItem>> entries;
    SharedPointer<CBitmap> bgWhenClick;
    int32_t currentIndex = -1;
    int32_t nbItemsPerColumn = 16;
    COptionMenuPopup* openPopup = nullptr;
};
