#include "COptionMenuPopup.h"

#include "CDrawContext.h"
#include "CFrame.h"
#include "COptionMenu.h"
#include "SharedPointer.h"

#include <algorithm>
#include <cairo.h>

namespace
{
const CColor kListBack = MakeCColor(28, 31, 36);
const CColor kListFrame = MakeCColor(96, 104, 116);
const CColor kListText = MakeCColor(222, 226, 232);
const CColor kListDisabled = MakeCColor(120, 126, 134);
const CColor kListHighlight = MakeCColor(52, 110, 180);
constexpr double kCheckWidth = 12.0;
constexpr double kPadding = 4.0;

double widestTitle(const COptionMenu* menu)
{
    // Text is measured on a scratch surface: the list is laid out before anything draws it.
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1, 1);
    cairo_t* cr = cairo_create(surface);
    double widest = 0.0;
    {
        const auto context = owned(new CDrawContext(cr));
        context->setFont(kNormalFontSmaller);
        for (int32_t i = 0; i < menu->getNbEntries(); ++i)
            widest = std::max(widest, context->getStringWidth(menu->getEntry(i)->getTitle()));
    }
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    return widest;
}
} // namespace

COptionMenuPopup::COptionMenuPopup(COptionMenu* menu, const CRect& frameRect) : CView(CRect()), menu(menu)
{
    const int32_t count = menu->getNbEntries();
    rows = std::max(1, std::min(menu->getNbItemsPerColumn(), count));
    columns = (count + rows - 1) / rows;
    columnWidth = static_cast<int>(widestTitle(menu) + kCheckWidth + 2 * kPadding + 0.5);
    const double width = std::min(columns * columnWidth + 2.0, frameRect.getWidth());
    const double height = std::min(rows * kRowHeight + 2.0, frameRect.getHeight());
    // Below the menu when it fits, else moved up and left until it does.
    const CRect& anchor = menu->getViewSize();
    double left = std::min(anchor.left, frameRect.right - width);
    double top = anchor.bottom;
    if (top + height > frameRect.bottom) top = frameRect.bottom - height;
    left = std::max(left, frameRect.left);
    top = std::max(top, frameRect.top);
    size = CRect(left, top, left + width, top + height);
    mouseableArea = size;
    highlighted = menu->getCurrentIndex();
}

COptionMenuPopup::~COptionMenuPopup()
{
    if (menu) menu->popupClosed(-1);
}

CRect COptionMenuPopup::entryRect(int32_t index) const
{
    const int32_t column = index / rows;
    const int32_t row = index % rows;
    const double left = size.left + 1.0 + column * columnWidth;
    const double top = size.top + 1.0 + row * kRowHeight;
    return CRect(left, top, left + columnWidth, top + kRowHeight);
}

int32_t COptionMenuPopup::entryAt(const CPoint& where) const
{
    if (!menu) return -1;
    for (int32_t i = 0; i < menu->getNbEntries(); ++i)
        if (entryRect(i).pointInside(where)) return i;
    return -1;
}

void COptionMenuPopup::draw(CDrawContext* context)
{
    context->setFillColor(kListBack);
    context->setFrameColor(kListFrame);
    context->setLineWidth(1.0);
    context->drawRect(size, kDrawFilledAndStroked);
    if (!menu) return;
    for (int32_t column = 1; column < columns; ++column)
    {
        const double x = size.left + 1.0 + column * columnWidth - 1.0;
        context->drawLine(CPoint(x, size.top + 1.0), CPoint(x, size.bottom - 2.0));
    }
    context->setFont(kNormalFontSmaller);
    const bool checkStyle = menu->getStyle() & kCheckStyle;
    for (int32_t i = 0; i < menu->getNbEntries(); ++i)
    {
        const CMenuItem* item = menu->getEntry(i);
        CRect row = entryRect(i);
        if (item->isSeparator())
        {
            const double y = static_cast<int>(row.top + kRowHeight / 2.0);
            context->drawLine(CPoint(row.left + kPadding, y), CPoint(row.right - kPadding - 1.0, y));
            continue;
        }
        if (i == highlighted && item->isEnabled())
        {
            context->setFillColor(kListHighlight);
            context->fillRect(CRect(row.left, row.top, row.right - 1.0, row.bottom));
        }
        if (checkStyle && i == menu->getCurrentIndex())
        {
            // A tick drawn with two strokes: no glyph of the font is needed.
            cairo_t* cr = context->getCairo();
            cairo_move_to(cr, row.left + 3.0, row.top + 6.0);
            cairo_line_to(cr, row.left + 5.5, row.top + 8.5);
            cairo_line_to(cr, row.left + 9.5, row.top + 3.5);
            cairo_set_source_rgb(cr, kListText.red / 255.0, kListText.green / 255.0, kListText.blue / 255.0);
            cairo_set_line_width(cr, 1.5);
            cairo_stroke(cr);
        }
        context->setFontColor(item->isEnabled() ? kListText : kListDisabled);
        CRect textRect(row.left + kCheckWidth, row.top, row.right - kPadding, row.bottom);
        context->drawString(item->getTitle(), textRect, kLeftText);
    }
    setDirty(false);
}

bool COptionMenuPopup::hitTest(const CPoint&, const CButtonState&)
{
    return true;
}

CMouseEventResult COptionMenuPopup::onMouseDown(CPoint& where, const CButtonState& buttons)
{
    const int32_t index = (buttons & kLButton) ? entryAt(where) : -1;
    close(index);
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

CMouseEventResult COptionMenuPopup::onMouseMoved(CPoint& where, const CButtonState&)
{
    const int32_t index = entryAt(where);
    if (index != highlighted)
    {
        highlighted = index;
        invalid();
    }
    return kMouseEventHandled;
}

CMouseEventResult COptionMenuPopup::onMouseUp(CPoint&, const CButtonState&)
{
    return kMouseEventHandled;
}

int32_t COptionMenuPopup::onKeyDown(VstKeyCode& keyCode)
{
    if (!menu) return -1;
    const int32_t count = menu->getNbEntries();
    switch (keyCode.virt)
    {
    case VKEY_ESCAPE:
        close(-1);
        return 1;
    case VKEY_RETURN:
    case VKEY_ENTER:
        close(highlighted);
        return 1;
    case VKEY_UP:
        highlighted = std::max(0, highlighted - 1);
        break;
    case VKEY_DOWN:
        highlighted = std::min(count - 1, highlighted + 1);
        break;
    case VKEY_LEFT:
        highlighted = std::max(0, highlighted - rows);
        break;
    case VKEY_RIGHT:
        highlighted = std::min(count - 1, highlighted + rows);
        break;
    default:
        return -1;
    }
    invalid();
    return 1;
}

void COptionMenuPopup::close(int32_t chosenIndex)
{
    COptionMenu* owner = menu;
    menu = nullptr;
    CFrame* frame = getFrame();
    if (frame)
    {
        frame->setModalView(nullptr);
        frame->invalidRect(size);
    }
    forget();
    if (owner) owner->popupClosed(chosenIndex);
}
