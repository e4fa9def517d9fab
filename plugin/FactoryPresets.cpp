#include "FactoryPresets.h"

#include <cstring>

namespace
{
constexpr FactoryPreset kInit = {"init", {0.0f, 0.5f, 0.0f, 1.0f, 0.0f, 0.0f}};
}

// The two "enahnced" spellings are the names users know these presets by; they stay.
const std::array<FactoryPreset, kNumPresets> kFactoryPresets = {{
    kInit,
    {"enhanced mix 1", {0.5f, 0.25f, 0.0f, 1.0f, 0.0f, 0.0f}},
    {"enhanced mix 2", {0.35f, 0.75f, 0.0f, 1.0f, 0.0f, 0.0f}},
    {"enhanced mix 3", {0.6f, 0.5f, 0.0f, 1.0f, 0.0f, 0.0f}},
    {"enhanced mix 4", {0.0f, 0.0f, 0.25f, 1.0f, 0.0f, 0.0f}},
    {"enhanced space 1", {0.75f, 0.25f, 0.5f, 1.0f, 0.0f, 0.5f}},
    {"enhanced space 2", {0.75f, 0.4f, 0.0f, 1.0f, 0.0f, 0.5f}},
    {"enahnced space 3", {0.82f, 0.0125f, 0.18f, 1.0f, 0.0f, 0.5f}},
    {"enahnced space 4", {1.0f, 0.25f, 0.5f, 1.0f, 0.0f, 0.5f}},
    {"room space 1", {1.0f, 0.25f, 0.5f, 1.0f, 0.0f, 1.0f}},
    {"room space 2", {0.75f, 0.5f, 0.0f, 1.0f, 0.0f, 1.0f}},
    {"room space 3", {0.75f, 0.25f, 0.25f, 1.0f, 0.0f, 1.0f}},
    {"room space 4", {1.0f, 0.5f, 0.25f, 1.0f, 0.0f, 1.0f}},
    {"tight 1", {0.75f, 0.75f, 0.0f, 1.0f, 0.0f, 0.5f}},
    {"tight 2", {0.75f, 0.75f, 0.0f, 1.0f, 0.0f, 1.0f}},
    {"tight 3", {1.0f, 0.75f, 0.0f, 1.0f, 0.0f, 0.5f}},
    {"tight 4", {1.0f, 0.75f, 0.0f, 1.0f, 0.0f, 1.0f}},
    {"delayed 1", {0.35f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f}},
    {"delayed 2", {0.75f, 0.0f, 0.25f, 1.0f, 0.0f, 0.5f}},
    {"delayed 3", {1.0f, 0.0f, 0.5f, 1.0f, 0.0f, 0.5f}},
    {"delayed 4", {1.0f, 0.0f, 0.5f, 1.0f, 0.0f, 1.0f}},
    {"piano 1", {0.6f, 0.24f, 0.0f, 1.0f, 0.0f, 0.5f}},
    {"piano 2", {0.75f, 0.15f, 0.24f, 1.0f, 0.0f, 0.5f}},
    {"guitar 1", {0.55f, 0.8f, 0.0f, 1.0f, 0.0f, 0.5f}},
    {"guitar 2", {0.6f, 0.23f, 0.0f, 1.0f, 0.0f, 1.0f}},
    {"bas 1", {0.4f, 0.5f, 0.0f, 1.0f, 0.0f, 0.5f}},
    {"bas 2", {0.65f, 0.18f, 0.37f, 1.0f, 0.0f, 0.5f}},
    {"kick", {0.5f, 0.38f, 0.0f, 1.0f, 0.0f, 0.5f}},
    {"toms", {0.7f, 0.5f, 0.25f, 1.0f, 0.0f, 0.5f}},
    {"over heads", {0.8f, 0.3f, 0.4f, 1.0f, 0.0f, 0.5f}},
    kInit,
    kInit,
    kInit,
    kInit,
    kInit,
    kInit,
    kInit,
    kInit,
}};

namespace
{
bool repeatsAnEarlierPreset(std::size_t index)
{
    const FactoryPreset& preset = kFactoryPresets[index];
    for (std::size_t earlier = 0; earlier < index; ++earlier)
        if (std::strcmp(kFactoryPresets[earlier].name, preset.name) == 0 &&
            std::memcmp(kFactoryPresets[earlier].values, preset.values, sizeof preset.values) == 0)
            return true;
    return false;
}
} // namespace

int distinctFactoryPresetCount()
{
    int count = 0;
    for (std::size_t i = 0; i < kFactoryPresets.size(); ++i)
        count += repeatsAnEarlierPreset(i) ? 0 : 1;
    return count;
}

int distinctFactoryPresetIndex(int n)
{
    for (std::size_t i = 0; i < kFactoryPresets.size(); ++i)
        if (!repeatsAnEarlierPreset(i) && n-- == 0) return static_cast<int>(i);
    return -1;
}
