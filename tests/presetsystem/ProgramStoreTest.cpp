#include "CPresetSystemEffect.h"
#include "RecordingHost.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace
{
class ProgramStore : public ::testing::Test
{
  protected:
    RecordingHost host;
    CPresetSystemEffect store{host.callback()};
};
} // namespace

TEST_F(ProgramStore, ReportsOneHostProgramSixParametersAndChunks)
{
    const AEffect* e = store.getAeffect();
    EXPECT_EQ(e->numPrograms, 1);
    EXPECT_EQ(e->numParams, 6);
    EXPECT_TRUE(e->flags & effFlagsProgramChunks);
    EXPECT_EQ(store.getProgram(), 0);
}

TEST_F(ProgramStore, GetProgramNameIndexedAnswersUpTo37AndRefuses38)
{
    store.setPresetName("last one");
    char text[64];
    std::memset(text, 'x', sizeof(text));
    store.setPresetNo(37);
    store.setPresetName("slot 37");
    EXPECT_TRUE(store.getProgramNameIndexed(0, 37, text));
    EXPECT_STREQ(text, "slot 37");

    std::memset(text, 'x', sizeof(text));
    EXPECT_FALSE(store.getProgramNameIndexed(0, 38, text));
    EXPECT_EQ(text[0], 'x') << "nothing is written for an index above 37";
}

TEST_F(ProgramStore, AThirtyCharacterNameKeepsItsFirst23Characters)
{
    char name[] = "abcdefghijklmnopqrstuvwxyz1234";
    ASSERT_EQ(std::strlen(name), 30u);
    store.setProgramName(name);
    char text[64] = {};
    store.getProgramName(text);
    EXPECT_EQ(std::string(text), "abcdefghijklmnopqrstuvw");
    EXPECT_EQ(store.preset(0).name[23], 0);

    store.setPresetName(name);
    store.getProgramName(text);
    EXPECT_EQ(std::string(text), "abcdefghijklmnopqrstuvw");
}

TEST_F(ProgramStore, AShortNameClearsTheRestOfTheField)
{
    store.setPresetName("a very long name indeed");
    store.setPresetName("short");
    for (int i = 5; i < kPresetNameSize; ++i)
        EXPECT_EQ(store.preset(0).name[i], 0) << "byte " << i;
}

TEST_F(ProgramStore, BaseGetParameterAnswersMinusOneOutsideZeroToFive)
{
    EXPECT_EQ(store.getParameter(6), -1.0f);
    EXPECT_EQ(store.getParameter(-1), -1.0f);
}

TEST_F(ProgramStore, SetParameterStoresIntoTheCurrentPresetWithoutRangeCheck)
{
    store.setPresetNo(3);
    store.setParameter(2, 1.7f);
    EXPECT_EQ(store.preset(3).values[2], 1.7f);
    EXPECT_EQ(store.getParameter(2), 1.7f);
    store.setParameter(6, 0.5f); // ignored
    EXPECT_EQ(store.preset(0).values[2], 0.0f);
}

TEST_F(ProgramStore, SetPresetNoSendsAnEditGestureOnParameterZero)
{
    host.clear();
    store.setPresetNo(5);
    EXPECT_EQ(store.getPresetNo(), 5);
    ASSERT_EQ(host.requestsOf(audioMasterUpdateDisplay).size(), 1u);
    const auto begins = host.requestsOf(audioMasterBeginEdit);
    const auto ends = host.requestsOf(audioMasterEndEdit);
    ASSERT_EQ(begins.size(), 1u);
    ASSERT_EQ(ends.size(), 1u);
    EXPECT_EQ(begins[0].index, 0);
    EXPECT_EQ(ends[0].index, 0);
}

TEST_F(ProgramStore, SetProgramDoesNothingAndGetProgramIsZero)
{
    store.setPresetNo(4);
    store.dispatcher(effSetProgram, 0, 0, nullptr, 0.0f);
    store.setProgram(12);
    EXPECT_EQ(store.getProgram(), 0);
    EXPECT_EQ(store.getPresetNo(), 4);
}

TEST_F(ProgramStore, InitializePresetCopiesTheDefaultRecord)
{
    store.setPresetName("factory zero");
    store.setParameter(1, 0.5f);
    store.loadDefaults();
    store.setPresetNo(9);
    store.setPresetName("to be reset");
    store.setParameter(1, 0.9f);
    store.initializePreset(9);
    EXPECT_STREQ(store.preset(9).name, "factory zero");
    EXPECT_EQ(store.preset(9).values[1], 0.5f);
}

TEST_F(ProgramStore, MidiOperationsAreInert)
{
    store.attachMidi(7, 1);
    EXPECT_EQ(store.getMidiCC(1), 0);
    EXPECT_EQ(store.getMidiParam(7), 0);
    EXPECT_EQ(store.getMidiActivity(), 0);
    store.beginLearn();
    store.setLearnParam(2);
    store.endLearn();
    EXPECT_EQ(store.getMidiActivity(), 0);
}

TEST_F(ProgramStore, ProcessEventsTakesNothingAndChangesNothing)
{
    VstMidiEvent note{};
    note.type = kVstMidiType;
    note.byteSize = sizeof(note);
    note.midiData[0] = static_cast<char>(0xB0);
    note.midiData[1] = 7;
    note.midiData[2] = 100;
    VstEvents events{};
    events.numEvents = 1;
    events.events[0] = reinterpret_cast<VstEvent*>(&note);
    const PresetRecord before = store.preset(0);
    EXPECT_EQ(store.dispatcher(effProcessEvents, 0, 0, &events, 0.0f), 0);
    EXPECT_EQ(std::memcmp(&before, &store.preset(0), sizeof(before)), 0);
    EXPECT_EQ(store.getMidiActivity(), 0);
}
