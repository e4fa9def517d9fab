// A --param value as a user writes it: the normalised value hosts see (depth=0.6), or the value the editor
// shows, in its unit (depth=60%, baseFreq=265Hz or 265, wdth/emph=40%, process=on, mode=Mode2 or 2).
#pragma once

#include <optional>
#include <string>

// The normalised value of text for the parameter of that name; nothing, and the reason in error, when the
// text is neither. A name the effect's own parameters do not have takes normalised values only, since the
// plug-in to be loaded may be another.
std::optional<float> normalisedParameterValue(const std::string& name, const std::string& text,
                                              std::string& error);
