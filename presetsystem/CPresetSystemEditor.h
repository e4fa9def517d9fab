// Editor-side base of the preset system. It exists for the whole life of the effect, window or not: the
// effect reaches the preset and bank images, the defaults and the name hooks through it.
#pragma once

#include "AEffEditor.h"

class CPresetSystemEffect;

class CPresetSystemEditor : public AEffEditor
{
  public:
    explicit CPresetSystemEditor(AudioEffect* effect);
    ~CPresetSystemEditor() override;

    // ---- hooks the effect calls (any thread for setParameter, UI thread otherwise)
    // A parameter changed in the effect; the main editor brings its controls up to date.
    virtual void setParameter(long index, float value);
    virtual void suspend() {}
    // Loads the user's default bank and preset at construction, then selects preset 0.
    virtual void loadDefaults();
    // The host renamed the current program.
    virtual void nameChangedExternal(const char* name);

  protected:
    CPresetSystemEffect* presetEffect() const;
};
