// The process calls of a running effect never allocate or free memory.
#include "RecordingHost.h"
#include "Spatara.h"

#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>
#include <vector>

namespace
{
std::atomic<long> allocations{0};
std::atomic<long> frees{0};
} // namespace

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* p = std::malloc(size ? size : 1)) return p;
    throw std::bad_alloc();
}
void operator delete(void* p) noexcept
{
    if (p) ++frees;
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept
{
    if (p) ++frees;
    std::free(p);
}

TEST(ProcessAllocation, ProcessingNeverAllocatesOrFrees)
{
    RecordingHost host;
    Spatara effect(host.callback());
    AEffect* e = effect.getAeffect();
    e->dispatcher(e, effSetSampleRate, 0, 0, nullptr, 48000.0f);
    e->dispatcher(e, effMainsChanged, 0, 1, nullptr, 0.0f);

    std::vector<float> l(512, 0.25f), r(512, -0.1f), ol(512), orr(512);
    std::vector<double> dl(512, 0.25), dr(512, -0.1), dol(512), dor(512);
    float* in[2] = {l.data(), r.data()};
    float* out[2] = {ol.data(), orr.data()};
    double* din[2] = {dl.data(), dr.data()};
    double* dout[2] = {dol.data(), dor.data()};

    const long allocatedBefore = allocations, freedBefore = frees;
    for (int block = 0; block < 200; ++block)
    {
        e->setParameter(e, block % 6, static_cast<float>(block % 10) / 10.0f); // automation while running
        e->processReplacing(e, in, out, 512);
        e->processDoubleReplacing(e, din, dout, 512);
        e->processReplacing(e, in, out, 0);
    }
    EXPECT_EQ(allocations - allocatedBefore, 0);
    EXPECT_EQ(frees - freedBefore, 0);
}
