#include "MidiNames.h"

#include "ParamConversion.h"

#include <array>
#include <cstdio>
#include <cstring>

namespace spatara
{
namespace
{
constexpr int kNameSize = 13;

struct NamedController
{
    int slot;
    const char* name;
};

// Controllers with a name of their own; every other controller is "control <number>".
constexpr NamedController kNamedControllers[] = {
    {0, "bank sel MSB"},  {1, "modulation"},     {2, "breath"},         {4, "foot"},
    {5, "portamento"},    {6, "data ent MSB"},   {7, "main volume"},    {8, "balance"},
    {10, "pan"},          {11, "expression"},    {16, "gen purp 1"},    {17, "gen purp 2"},
    {18, "gen purp 3"},   {19, "gen purp 4"},    {32, "bank sel LSB"},  {33, "modul. LSB"},
    {34, "breath LSB"},   {36, "foot LSB"},      {37, "porta LSB"},     {38, "data ent LSB"},
    {39, "main vol LSB"}, {40, "balance LSB"},   {42, "pan LSB"},       {43, "express. LSB"},
    {64, "sustain"},      {65, "porta on/off"},  {66, "sostenuto"},     {67, "soft pedal"},
    {68, "legato FS"},    {69, "hold 2"},        {70, "sound var"},     {71, "harmonic"},
    {72, "release time"}, {73, "attack time"},   {74, "brightness"},    {80, "gen purp 5"},
    {81, "gen purp 6"},   {82, "gen purp 7"},    {83, "gen purp 8"},    {84, "porta ctrl"},
    {91, "ext FX"},       {92, "tremolo"},       {93, "chorus"},        {94, "detune"},
    {95, "phaser"},       {96, "data incr"},     {97, "data decr"},     {98, "NRPN LSB"},
    {99, "NRPN MSB"},     {100, "RPN LSB"},      {101, "RPN MSB"},      {120, "all snd off"},
    {121, "reset ctrl"},  {122, "local ctrl"},   {123, "all note off"}, {124, "omni off"},
    {125, "omni on"},     {126, "mono mode on"}, {127, "poly mode on"},
};

using NameTable = std::array<std::array<char, kNameSize>, kNumControllerSlots>;

NameTable buildTable()
{
    NameTable table{};
    for (int slot = 0; slot < 128; ++slot)
        std::snprintf(table[slot].data(), kNameSize, "control %d", slot);
    for (const auto& named : kNamedControllers)
        std::snprintf(table[named.slot].data(), kNameSize, "%s", named.name);
    std::snprintf(table[128].data(), kNameSize, "not assigned");
    return table; // slot 129 stays empty
}

const NameTable& ccnames()
{
    static const NameTable table = buildTable();
    return table;
}
} // namespace

const char* ccname(int slot)
{
    if (slot < 0 || slot >= kNumControllerSlots) return "";
    return ccnames()[slot].data();
}

void convertCC(float value, char* text)
{
    // A negative value has no slot; it reads as blank rather than outside the table.
    std::strcpy(text, ccname(static_cast<int>(float2long(value, kNumControllerSlots))));
}
} // namespace spatara
