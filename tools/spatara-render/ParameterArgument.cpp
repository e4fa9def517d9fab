#include "ParameterArgument.h"

#include "ParameterMapping.h"
#include "ParameterTable.h"

#include <cmath>
#include <cstdlib>
#include <strings.h>

namespace
{
using spatara::ParameterInfo;
using spatara::ParameterKind;

// The whole of text as a finite number; nothing when anything is left over.
std::optional<float> number(const std::string& text)
{
    char* end = nullptr;
    const float parsed = std::strtof(text.c_str(), &end);
    if (text.empty() || *end != 0 || !std::isfinite(parsed)) return std::nullopt;
    return parsed;
}

bool endsWith(const std::string& text, const std::string& suffix)
{
    return text.size() > suffix.size() &&
           strcasecmp(text.c_str() + text.size() - suffix.size(), suffix.c_str()) == 0;
}

const ParameterInfo* parameterNamed(const std::string& name)
{
    for (int i = 0; i < kNumParameters; ++i)
        if (name == spatara::parameterInfo(i).name) return &spatara::parameterInfo(i);
    return nullptr;
}

std::optional<float> inRange(const ParameterInfo& info, float unitValue)
{
    if (unitValue < info.minimum || unitValue > info.maximum) return std::nullopt;
    return info.fromUnit(unitValue);
}

// A value name ("on", "Mode2"), or for the mode its number as shown (1 to 3).
std::optional<float> namedValue(const ParameterInfo& info, const std::string& text)
{
    for (int i = 0; i < info.valueNameCount; ++i)
        if (strcasecmp(text.c_str(), info.valueNames[i]) == 0) return info.fromUnit(static_cast<float>(i));
    // A mode written as its number, digits only: "2" is Mode2, where "1.0" stays the normalised top.
    if (info.kind != ParameterKind::Enumeration || text.empty() ||
        text.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    const std::optional<float> shown = number(text);
    if (!shown || *shown < 1.0f || *shown > static_cast<float>(info.valueNameCount)) return std::nullopt;
    return info.fromUnit(*shown - 1.0f);
}

std::string expected(const ParameterInfo& info)
{
    const std::string name = info.name;
    if (info.kind == ParameterKind::Toggle) return name + " takes on, off or a number from 0 to 1";
    if (info.kind == ParameterKind::Enumeration)
        return name + " takes Mode1, Mode2, Mode3 (or 1, 2, 3) or a number from 0 to 1";
    const std::string low = std::to_string(static_cast<int>(info.minimum));
    const std::string high = std::to_string(static_cast<int>(info.maximum));
    return name + " takes " + low + " to " + high + info.unit + " or a number from 0 to 1";
}
} // namespace

std::optional<float> normalisedParameterValue(const std::string& name, const std::string& text,
                                              std::string& error)
{
    const ParameterInfo* info = parameterNamed(name);
    const std::optional<float> plain = number(text);
    std::optional<float> value;
    if (info && info->valueNames) value = namedValue(*info, text);
    if (!value && info && *info->unit && endsWith(text, info->unit))
    {
        const std::optional<float> unitValue =
            number(text.substr(0, text.size() - std::string(info->unit).size()));
        if (unitValue) value = inRange(*info, *unitValue);
    }
    // Hertz are told from a normalised value by their range, which lies above 1.
    if (!value && info && std::string(info->unit) == "Hz" && plain && *plain > 1.0f)
        value = inRange(*info, *plain);
    if (!value && plain && *plain >= 0.0f && *plain <= 1.0f) value = plain;
    if (!value)
        error = info ? expected(*info) + ", got '" + text + "'"
                     : "value of " + name + " must be a number from 0 to 1, got '" + text + "'";
    return value;
}
