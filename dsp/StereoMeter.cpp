#include "StereoMeter.h"

#include <cmath>

namespace spatara
{

float stereoMeter(double sumEnvelope, double differenceEnvelope)
{
    if (sumEnvelope > 0.001 && differenceEnvelope > 0.001)
    {
        // log10(4) and 1 / log10(16).
        double meter =
            (std::log10(sumEnvelope / differenceEnvelope) + 0.6020599913279624) * 0.8304820237218405 - 0.5;
        // Comparisons rather than std::clamp: a NaN is passed through as it is.
        if (meter < -0.5) meter = -0.5;
        if (meter > 0.5) meter = 0.5;
        return static_cast<float>(meter);
    }
    // One envelope too small to divide by: the meter sits at the side of the other one.
    if (sumEnvelope > 0.00001) return 0.5f;
    if (differenceEnvelope > 0.0000001) return -0.5f;
    return 0.0f;
}

} // namespace spatara
