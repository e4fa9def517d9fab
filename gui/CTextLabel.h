// A display of a fixed text instead of a value.
#pragma once

#include "CParamDisplay.h"

#include <string>

class CTextLabel : public CParamDisplay
{
  public:
    explicit CTextLabel(const CRect& size, const char* text = nullptr, CBitmap* background = nullptr,
                        int32_t style = 0);

    virtual void setText(const char* text);
    const char* getText() const { return text.c_str(); }
    void draw(CDrawContext* context) override;

    CLASS_METHODS(CTextLabel, CParamDisplay)

  private:
    std::string text;
};
