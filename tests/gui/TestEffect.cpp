#include "TestEffect.h"

#include "TestEditor.h"

#include <cstddef>

TestEffect::TestEffect(audioMasterCallback audioMaster) : AudioEffectX(audioMaster, 1, 3)
{
    setUniqueID(0x54737431); // "Tst1"
    setNumInputs(2);
    setNumOutputs(2);
    setEditor(new TestEditor(this));
}

void TestEffect::setParameter(VstInt32 index, float value)
{
    if (index < 0 || index >= static_cast<VstInt32>(values.size())) return;
    values[static_cast<std::size_t>(index)] = value;
    if (auto* testEditor = static_cast<TestEditor*>(editor)) testEditor->setParameter(index, value);
}

float TestEffect::getParameter(VstInt32 index)
{
    return index >= 0 && index < static_cast<VstInt32>(values.size())
               ? values[static_cast<std::size_t>(index)]
               : 0.0f;
}
