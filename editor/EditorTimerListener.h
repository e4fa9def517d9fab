// The target of an editor timer's firings: idles its editor, or does nothing once the editor is cleared.
#pragma once

#include "platform/PlatformTimerTarget.h"

class AEffGUIEditor;

class EditorTimerListener : public PlatformTimerTarget
{
  public:
    explicit EditorTimerListener(AEffGUIEditor* editor) : editor(editor) {}

    // Null makes every later firing (also one already queued) do nothing.
    void setListenerEditor(AEffGUIEditor* newEditor) { editor = newEditor; }
    AEffGUIEditor* getListenerEditor() const { return editor; }
    // Each firing: the editor's idle.
    void onPlatformTimer() override;

  private:
    AEffGUIEditor* editor;
};
