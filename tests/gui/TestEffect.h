// A small effect with three parameters and the test editor, for the editor tests (in-process and under X11).
#pragma once

#include "AudioEffectX.h"

#include <array>

class TestEffect : public AudioEffectX
{
  public:
    explicit TestEffect(audioMasterCallback audioMaster);

    void setParameter(VstInt32 index, float value) override;
    float getParameter(VstInt32 index) override;

  private:
    std::array<float, 3> values{0.0f, 0.0f, 0.0f};
};
