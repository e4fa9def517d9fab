// A repeating timer that calls an editor's idle at a fixed interval on the user-interface thread, and
// createTimer / destroyTimer, which hand it out as an opaque handle.
#pragma once

#include "CBaseObject.h"

#include <cstdint>
#include <memory>

class AEffGUIEditor;
class EditorTimerListener;
class PlatformTimer;

class EditorTimer : public CBaseObject
{
  public:
    EditorTimer();

    // The editor to idle (not owned; it must outlive the timer).
    void setEditor(AEffGUIEditor* newEditor) { editor = newEditor; }
    AEffGUIEditor* getEditor() const { return editor; }
    void setInterval(int32_t milliseconds) { interval = milliseconds; }
    int32_t getInterval() const { return interval; }
    // Starts the repeating platform timer: every interval / 1000 seconds the listener idles the editor.
    void makeTimer();
    bool isRunning() const;

  protected:
    // Tears down: the listener forgets the editor first (so a queued firing does nothing), then the
    // platform timer stops, then both are released.
    ~EditorTimer() override;

  private:
    AEffGUIEditor* editor = nullptr;
    int32_t interval = 0;
    std::shared_ptr<EditorTimerListener> listener;
    std::unique_ptr<PlatformTimer> timer;
};

namespace spatara
{
// Makes a running timer that idles editor every intervalMs milliseconds; the handle is for destroyTimer.
void* createTimer(AEffGUIEditor* editor, int intervalMs);
// Releases the handle; the timer is torn down with its last reference.
void destroyTimer(void* handle);
} // namespace spatara
