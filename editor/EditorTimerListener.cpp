#include "EditorTimerListener.h"

#include "AEffGUIEditor.h"

void EditorTimerListener::onPlatformTimer()
{
    if (editor) editor->idle();
}
