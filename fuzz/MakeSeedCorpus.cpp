// Writes the seed corpus of every fuzz target: valid images in both byte orders, old forms included.
// usage: fuzz-make-seeds DIR   (creates DIR/chunk, DIR/preset, DIR/bank, DIR/midi)
#include "FuzzEffect.h"
#include "ImageBytes.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

namespace
{
void write(const std::filesystem::path& file, const Bytes& bytes)
{
    std::ofstream out(file, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

Bytes withSelector(char selector, const Bytes& image)
{
    Bytes out{selector};
    out.insert(out.end(), image.begin(), image.end());
    return out;
}

Bytes oldRecords(int presets, int values)
{
    Bytes records;
    for (int n = 0; n < presets; ++n)
    {
        Bytes record(24 + 4 * static_cast<std::size_t>(values), 0);
        std::snprintf(record.data(), 24, "seed %d", n);
        for (int j = 0; j < values; ++j)
            putFloat(record, 24 + static_cast<std::size_t>(j) * 4, 0.5f);
        records.insert(records.end(), record.begin(), record.end());
    }
    return records;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::cerr << "usage: fuzz-make-seeds DIR\n";
        return 2;
    }
    const std::filesystem::path dir = argv[1];
    for (const char* target : {"chunk", "preset", "bank", "midi", "stored"})
        std::filesystem::create_directories(dir / target);

    Spatara& effect = fuzzEffect();
    effect.setPresetNo(5);
    CPresetSystemEditor& editor = *effect.presetEditor();

    void* data = nullptr;
    const VstInt32 size = effect.getChunk(&data, false);
    const Bytes chunk(static_cast<char*>(data), static_cast<char*>(data) + size);
    write(dir / "chunk/native", chunk);
    write(dir / "chunk/swapped", reversedHostChunk(chunk));
    Bytes old(32, 0);
    putInt32(old, 0, 0x01000000);
    putInt32(old, 4, CCONST('Q', 'w', 's', 'n'));
    putInt32(old, 8, 38);
    putInt32(old, 12, 3);
    const Bytes records = oldRecords(38, 6);
    old.insert(old.end(), records.begin(), records.end());
    write(dir / "chunk/old", old);

    const Bytes preset = editor.PresetToBuffer();
    write(dir / "preset/native", withSelector(0, preset));
    write(dir / "preset/swapped", withSelector(1, reversedImage(preset)));
    write(dir / "preset/old", withSelector(2, oldRecords(1, 6)));

    const Bytes bank = editor.BankToBuffer();
    write(dir / "bank/native", withSelector(0, bank));
    write(dir / "bank/swapped", withSelector(1, reversedImage(bank)));
    write(dir / "bank/old", withSelector(2, oldRecords(38, 6)));

    const Bytes midi = editor.MidiToBuffer();
    write(dir / "midi/native", withSelector(0, midi));
    write(dir / "midi/swapped", withSelector(1, reversedImage(midi)));
    Bytes oldMidi(24, 0);
    write(dir / "midi/old", withSelector(2, oldMidi));
    // Whole images as files, defaults and memories hold them; the first byte asks for the reversed load.
    write(dir / "stored/preset", withSelector(0, preset));
    write(dir / "stored/bank-swapped", withSelector(0, reversedImage(bank)));
    Bytes oldPresetFile(5, 0x21);
    putInt32(oldPresetFile, 0, CCONST('Q', 'w', 's', 'n'));
    const Bytes oldRecord = oldRecords(1, 6);
    oldPresetFile.insert(oldPresetFile.end(), oldRecord.begin(), oldRecord.end());
    write(dir / "stored/old-preset", withSelector(0, oldPresetFile));
    write(dir / "stored/preset-reversed-load", withSelector(1, preset));
    return 0;
}
