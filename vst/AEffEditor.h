// Base of a plug-in's editor as the host sees it: the editor requests of the dispatcher land here.
#pragma once

#include "VstInterface.h"

class AudioEffect;

class AEffEditor
{
  public:
    explicit AEffEditor(AudioEffect* effect);
    virtual ~AEffEditor();
    AEffEditor(const AEffEditor&) = delete;
    AEffEditor& operator=(const AEffEditor&) = delete;

    AudioEffect* getEffect() const { return effect; }

    // Whether this editor can open a window in the host; the host learns it through effFlagsHasEditor.
    virtual bool hasWindow() const { return false; }

    // effEditGetRect (UI thread): points *rect at a rectangle the editor owns.
    virtual bool getRect(ERect** rect);
    // effEditOpen (UI thread): ptr is the host's parent window.
    virtual bool open(void* ptr);
    // effEditClose (UI thread).
    virtual void close();
    // effEditIdle (UI thread, repeatedly while open).
    virtual void idle() {}
    virtual bool isOpen() const { return systemWindow != nullptr; }
    // effEditKeyDown / effEditKeyUp (UI thread): answer true when the key was used.
    virtual bool onKeyDown(VstInt32 character, VstInt32 virtualKey, VstInt32 modifiers);
    virtual bool onKeyUp(VstInt32 character, VstInt32 virtualKey, VstInt32 modifiers);
    // effSetEditKnobMode (UI thread).
    virtual bool setKnobMode(VstInt32 mode);

  protected:
    AudioEffect* effect;
    void* systemWindow = nullptr;
};
