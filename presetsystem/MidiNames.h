// Names of MIDI continuous controllers, as shown for a controller assignment.
#pragma once

constexpr int kNumControllerSlots = 130; // controllers 0..127, "not assigned", blank

namespace spatara
{
// The name of controller slot 0..129 (slot 128 "not assigned", slot 129 empty).
const char* ccname(int slot);
// Writes the name of the controller that a normalised assignment value encodes; text holds 13 bytes or more.
void convertCC(float value, char* text);
} // namespace spatara
