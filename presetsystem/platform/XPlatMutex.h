// A recursive lock behind an opaque handle. The preset system keeps the service, though nothing in this
// program takes a lock through it.
#pragma once

void* XPlatCreateMutex();
// Waits without limit for timeoutMs 0, otherwise at most that long; the caller goes on either way.
void XPlatLockMutex(void* mutex, unsigned long timeoutMs);
// Releases one hold; a release by a thread that holds nothing is ignored.
void XPlatUnlockMutex(void* mutex);
void XPlatDeleteMutex(void* mutex);
