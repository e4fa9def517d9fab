#include "XPlatMutex.h"

#include "XPlatRecursiveLock.h"

void* XPlatCreateMutex()
{
    return new XPlatRecursiveLock();
}

void XPlatLockMutex(void* mutex, unsigned long timeoutMs)
{
    if (mutex) static_cast<XPlatRecursiveLock*>(mutex)->lock(timeoutMs);
}

void XPlatUnlockMutex(void* mutex)
{
    if (mutex) static_cast<XPlatRecursiveLock*>(mutex)->unlock();
}

void XPlatDeleteMutex(void* mutex)
{
    delete static_cast<XPlatRecursiveLock*>(mutex);
}
