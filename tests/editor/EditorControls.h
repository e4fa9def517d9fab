// Finds the editor's controls in its frame by tag, class or place, and reads a display's text.
#pragma once

#include "CFrame.h"
#include "CParamDisplay.h"

#include <string>

namespace EditorControls
{
// The first view of the class with this tag (any tag when tag is negative), or null.
template <typename T> T* find(CFrame* frame, const char* className, int tag = -1)
{
    for (int i = 0; i < frame->getNbViews(); ++i)
    {
        CView* view = frame->getView(i);
        if (!view->isTypeOf(className)) continue;
        auto* control = static_cast<T*>(view);
        if (tag < 0 || control->getTag() == tag) return control;
    }
    return nullptr;
}

// The display whose rectangle starts at (left, top), or null.
inline CParamDisplay* displayAt(CFrame* frame, double left, double top)
{
    for (int i = 0; i < frame->getNbViews(); ++i)
    {
        CView* view = frame->getView(i);
        if (view->isTypeOf("CParamDisplay") && view->getViewSize().left == left &&
            view->getViewSize().top == top)
            return static_cast<CParamDisplay*>(view);
    }
    return nullptr;
}

inline std::string textOf(const CParamDisplay* display)
{
    char text[64] = {};
    display->getStringConvert()(display->getValue(), text);
    return text;
}
} // namespace EditorControls
