// The factory presets against the parameter table: every stored value comes back from its unit exactly.
#include "FactoryPresets.h"
#include "ParameterTable.h"

#include <cstring>
#include <gtest/gtest.h>

using spatara::parameterInfo;

TEST(ParameterTable, EveryFactoryPresetValueSurvivesTheTripThroughItsUnit)
{
    for (const FactoryPreset& preset : kFactoryPresets)
        for (int i = 0; i < kNumParameters; ++i)
        {
            const float v = preset.values[i];
            const float back = parameterInfo(i).fromUnit(parameterInfo(i).toUnit(v));
            EXPECT_EQ(std::memcmp(&back, &v, sizeof v), 0)
                << preset.name << " " << parameterInfo(i).name << ": " << v << " came back as " << back;
        }
}
