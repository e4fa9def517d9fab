#include "ReferenceEngine.h"

#include <cmath>

ReferenceEngine::ReferenceEngine(float sampleRate, float depth, float width, float baseFrequency, float phase,
                                 int mode)
    : sampleRate_(sampleRate), depthTarget_(depth), widthTarget_(width), phase_(phase), mode_(mode),
      lineA_(32768, 0.0f), lineB_(32768, 0.0f)
{
    const float product = sampleRate * 277.0f;
    coefficient_ = static_cast<float>(1.0 - std::pow(0.0625, 1.0 / (product * 0.001)));
    envelopeCoefficient_ = 1.0 - std::pow(0.0625, 1.0 / (static_cast<double>(sampleRate) * 600.0 * 0.001));
    smoothedDepth_ = depth;
    smoothedWidth_ = width;
    setBaseFrequency(baseFrequency);
    position_ = targetPosition_;
}

void ReferenceEngine::setBaseFrequency(float baseFrequency)
{
    targetPosition_ = static_cast<int32_t>(32768.0f - sampleRate_ / baseFrequency);
}

void ReferenceEngine::process(float left, float right, float& outLeft, float& outRight)
{
    smoothedDepth_ += (depthTarget_ - smoothedDepth_) * coefficient_;
    smoothedDepth_ += 1e-16f;
    smoothedDepth_ -= 1e-16f;
    smoothedWidth_ += (widthTarget_ - smoothedWidth_) * coefficient_;
    smoothedWidth_ += 1e-16f;
    smoothedWidth_ -= 1e-16f;

    const double diff = targetPosition_ - position_;
    if (std::fabs(diff) > 0.01)
    {
        double step = coefficient_ * diff;
        if (step < -0.5) step = -0.5;
        if (step > 1.0) step = 1.0;
        position_ += step;
    }
    else
    {
        position_ = targetPosition_;
    }
    const int32_t whole = static_cast<int32_t>(position_);
    const double frac = position_ - whole;
    const int32_t j = (whole + writeIndex_) & 32767;
    const int32_t next = (j + 1) & 32767;
    const float sign = phase_ < 0.5f ? 1.0f : -1.0f;

    if (mode_ == 0)
    {
        const float sum = left + right;
        float side = (smoothedWidth_ * 3.0f + 1.0f) * (left - right);
        side += 1e-16f;
        side -= 1e-16f;
        lineA_[writeIndex_] = sign * (sum + side);
        lineB_[writeIndex_] = sign * (sum - side);
        const float a = static_cast<float>((1.0 - frac) * lineA_[j] + frac * lineA_[next]);
        const float b = static_cast<float>((1.0 - frac) * lineB_[j] + frac * lineB_[next]);
        const float g = smoothedDepth_ * 0.75f;
        outLeft = ((a - b) * g + (sum + side)) * 0.5f;
        outRight = ((b - a) * g + (sum - side)) * 0.5f;
    }
    else
    {
        float mid = 0.0f;
        float side = 0.0f;
        if (mode_ == 1)
        {
            lineA_[writeIndex_] = left + right;
        }
        else
        {
            mid = 0.5f * (left + right);
            mid += 1e-16f;
            mid -= 1e-16f;
            side = 0.5f * (left - right);
            side += 1e-16f;
            side -= 1e-16f;
            lineA_[writeIndex_] = side;
        }
        const float y = static_cast<float>((1.0 - frac) * lineA_[j] + frac * lineA_[next]);
        const float p = previous_;
        previous_ = y;
        double e = (y - p * smoothedWidth_) * sign;
        e += 1e-21;
        e -= 1e-21;
        const float scaled = static_cast<float>(e * (smoothedDepth_ * (mode_ == 1 ? 0.32 : 1.0)));
        if (mode_ == 1)
        {
            outLeft = left + scaled;
            outRight = right - scaled;
        }
        else
        {
            outLeft = scaled + mid + side;
            outRight = mid - scaled - side;
        }
    }
    outLeft += 1e-16f;
    outLeft -= 1e-16f;
    outRight += 1e-16f;
    outRight -= 1e-16f;
    writeIndex_ = (writeIndex_ + 1) & 32767;

    sumEnvelope_ += (std::fabs(outLeft + outRight) - sumEnvelope_) * envelopeCoefficient_;
    sumEnvelope_ += 1e-21;
    sumEnvelope_ -= 1e-21;
    differenceEnvelope_ += (std::fabs(outLeft - outRight) - differenceEnvelope_) * envelopeCoefficient_;
    differenceEnvelope_ += 1e-21;
    differenceEnvelope_ -= 1e-21;
}
