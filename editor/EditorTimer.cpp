#include "EditorTimer.h"

#include "EditorTimerListener.h"
#include "platform/PlatformTimer.h"

EditorTimer::EditorTimer() = default;

EditorTimer::~EditorTimer()
{
    if (listener) listener->setListenerEditor(nullptr);
    if (timer) timer->invalidate();
    timer.reset();
    listener.reset();
}

void EditorTimer::makeTimer()
{
    listener = std::make_shared<EditorTimerListener>(editor);
    timer = std::make_unique<PlatformTimer>(interval / 1000.0, listener);
}

bool EditorTimer::isRunning() const
{
    return timer && timer->isValid();
}

namespace spatara
{
void* createTimer(AEffGUIEditor* editor, int intervalMs)
{
    auto* timer = new EditorTimer;
    timer->setEditor(editor);
    timer->setInterval(intervalMs);
    timer->makeTimer();
    return timer;
}

void destroyTimer(void* handle)
{
    if (handle) static_cast<EditorTimer*>(handle)->forget();
}
} // namespace spatara
