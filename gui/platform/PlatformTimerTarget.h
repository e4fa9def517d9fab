// The receiver of a repeating platform timer's firings.
#pragma once

class PlatformTimerTarget
{
  public:
    virtual ~PlatformTimerTarget() = default;
    virtual void onPlatformTimer() = 0;
};
