#pragma once

#if defined(__SSE__) || defined(_M_X64)
#include <xmmintrin.h>
#endif

namespace spatara
{

// Flush-to-zero and denormals-are-zero for as long as it lives, then the caller's floating-point mode
// again. Denormal input would otherwise cost the processor many times a normal sample; the engine's own
// flushes already keep its results clear of them, so results for normal audio stay as they are. The
// host's mode, exception flags included, is handed back exactly as it was found.
class DenormalGuard
{
  public:
#if defined(__SSE__) || defined(_M_X64)
    DenormalGuard() : saved_(_mm_getcsr())
    {
        _mm_setcsr(saved_ | kFlushToZero | kDenormalsAreZero);
    }
    ~DenormalGuard()
    {
        _mm_setcsr(saved_);
    }
#else
    // Other processors keep the host's mode; the engine's flushes still keep its state clear of denormals.
    DenormalGuard() = default;
#endif
    DenormalGuard(const DenormalGuard&) = delete;
    DenormalGuard& operator=(const DenormalGuard&) = delete;

  private:
#if defined(__SSE__) || defined(_M_X64)
    static constexpr unsigned kFlushToZero = 0x8000;      // MXCSR.FTZ
    static constexpr unsigned kDenormalsAreZero = 0x0040; // MXCSR.DAZ
    unsigned saved_;
#endif
};

} // namespace spatara
