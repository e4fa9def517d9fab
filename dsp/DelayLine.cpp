#include "DelayLine.h"

#include <algorithm>

namespace spatara
{

DelayLine::DelayLine() : samples_(std::make_unique<float[]>(kLength)) {}

void DelayLine::clear()
{
    std::fill_n(samples_.get(), kLength, 0.0f);
}

} // namespace spatara
