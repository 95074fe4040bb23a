// The clock behind GetTickCount on the posix backend, replaceable for tests and for hosts that
// keep their own time. Not available on Windows, where GetTickCount is the system's.
#ifndef TESSIK_HEADLESS_TIME_H
#define TESSIK_HEADLESS_TIME_H

#include <tessik/platform.h>

// From now on GetTickCount returns source(); null puts the monotonic clock back.
TESSIK_API void SetTickSource(DWORD (*source)());

#endif
