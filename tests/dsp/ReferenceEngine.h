#pragma once

#include <cstdint>
#include <vector>

// A deliberately plain, sample-by-sample model of the engine in single precision, written straight
// from the product's description: no templates, no block-level shortcuts. The engine must match it
// bit for bit.
class ReferenceEngine
{
  public:
    ReferenceEngine(float sampleRate, float depth, float width, float baseFrequency, float phase, int mode);

    void setDepth(float depth) { depthTarget_ = depth; }
    void setWidth(float width) { widthTarget_ = width; }
    void setBaseFrequency(float baseFrequency);

    void process(float left, float right, float& outLeft, float& outRight);

    double sumEnvelope() const { return sumEnvelope_; }
    double differenceEnvelope() const { return differenceEnvelope_; }

  private:
    float sampleRate_;
    float depthTarget_, widthTarget_, phase_;
    int mode_;
    float coefficient_;
    double envelopeCoefficient_;
    float smoothedDepth_, smoothedWidth_;
    int32_t targetPosition_ = 0;
    double position_ = 0.0;
    std::vector<float> lineA_, lineB_;
    int32_t writeIndex_ = 0;
    float previous_ = 0.0f;
    double sumEnvelope_ = 0.0, differenceEnvelope_ = 0.0;
};
