// The VST 2.4 binary interface between a host and a plug-in: records, opcodes, flags and string limits.
// Written from the interface's published numbers and layouts; every record is laid out exactly as hosts
// expect it on the platform's C ABI (natural alignment, pointer-sized integers where the interface has them).
#pragma once

#include <cstdint>

using VstInt16 = std::int16_t;
using VstInt32 = std::int32_t;
using VstInt64 = std::int64_t;
using VstIntPtr = std::intptr_t;

struct AEffect;

using audioMasterCallback = VstIntPtr (*)(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                                          void* ptr, float opt);
using AEffectDispatcherProc = VstIntPtr (*)(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                                            void* ptr, float opt);
using AEffectProcessProc = void (*)(AEffect* effect, float** inputs, float** outputs, VstInt32 sampleFrames);
using AEffectProcessDoubleProc = void (*)(AEffect* effect, double** inputs, double** outputs,
                                          VstInt32 sampleFrames);
using AEffectSetParameterProc = void (*)(AEffect* effect, VstInt32 index, float parameter);
using AEffectGetParameterProc = float (*)(AEffect* effect, VstInt32 index);

// Four characters packed big-endian into an integer, the interface's way of writing identifiers.
constexpr VstInt32 CCONST(char a, char b, char c, char d)
{
    return static_cast<VstInt32>((static_cast<std::uint32_t>(static_cast<unsigned char>(a)) << 24) |
                                 (static_cast<std::uint32_t>(static_cast<unsigned char>(b)) << 16) |
                                 (static_cast<std::uint32_t>(static_cast<unsigned char>(c)) << 8) |
                                 static_cast<std::uint32_t>(static_cast<unsigned char>(d)));
}

constexpr VstInt32 kEffectMagic = CCONST('V', 's', 't', 'P');
constexpr VstInt32 kVstVersion = 2400;

// The record a plug-in hands to its host.
struct AEffect
{
    VstInt32 magic;
    AEffectDispatcherProc dispatcher;
    AEffectProcessProc process; // deprecated accumulating process
    AEffectSetParameterProc setParameter;
    AEffectGetParameterProc getParameter;
    VstInt32 numPrograms;
    VstInt32 numParams;
    VstInt32 numInputs;
    VstInt32 numOutputs;
    VstInt32 flags;
    VstIntPtr resvd1;
    VstIntPtr resvd2;
    VstInt32 initialDelay;
    VstInt32 realQualities;
    VstInt32 offQualities;
    float ioRatio;
    void* object;
    void* user;
    VstInt32 uniqueID;
    VstInt32 version;
    AEffectProcessProc processReplacing;
    AEffectProcessDoubleProc processDoubleReplacing;
    char future[56];
};

enum VstAEffectFlags : VstInt32
{
    effFlagsHasEditor = 1 << 0,
    effFlagsHasClip = 1 << 1, // deprecated
    effFlagsHasVu = 1 << 2,   // deprecated
    effFlagsCanMono = 1 << 3, // deprecated
    effFlagsCanReplacing = 1 << 4,
    effFlagsProgramChunks = 1 << 5,
    effFlagsIsSynth = 1 << 8,
    effFlagsNoSoundInStop = 1 << 9,
    effFlagsExtIsAsync = 1 << 10,   // deprecated
    effFlagsExtHasBuffer = 1 << 11, // deprecated
    effFlagsCanDoubleReplacing = 1 << 12,
};

// Requests from the host to the plug-in (the dispatcher's opcode).
enum AEffectOpcodes : VstInt32
{
    effOpen = 0,
    effClose = 1,
    effSetProgram = 2,
    effGetProgram = 3,
    effSetProgramName = 4,
    effGetProgramName = 5,
    effGetParamLabel = 6,
    effGetParamDisplay = 7,
    effGetParamName = 8,
    effGetVu = 9, // deprecated
    effSetSampleRate = 10,
    effSetBlockSize = 11,
    effMainsChanged = 12,
    effEditGetRect = 13,
    effEditOpen = 14,
    effEditClose = 15,
    effEditDraw = 16,  // deprecated
    effEditMouse = 17, // deprecated
    effEditKey = 18,   // deprecated
    effEditIdle = 19,
    effEditTop = 20,   // deprecated
    effEditSleep = 21, // deprecated
    effIdentify = 22,  // deprecated
    effGetChunk = 23,
    effSetChunk = 24,
    effProcessEvents = 25,
    effCanBeAutomated = 26,
    effString2Parameter = 27,
    effGetNumProgramCategories = 28, // deprecated
    effGetProgramNameIndexed = 29,
    effCopyProgram = 30,   // deprecated
    effConnectInput = 31,  // deprecated
    effConnectOutput = 32, // deprecated
    effGetInputProperties = 33,
    effGetOutputProperties = 34,
    effGetPlugCategory = 35,
    effGetCurrentPosition = 36,   // deprecated
    effGetDestinationBuffer = 37, // deprecated
    effOfflineNotify = 38,
    effOfflinePrepare = 39,
    effOfflineRun = 40,
    effProcessVarIo = 41,
    effSetSpeakerArrangement = 42,
    effSetBlockSizeAndSampleRate = 43, // deprecated
    effSetBypass = 44,
    effGetEffectName = 45,
    effGetErrorText = 46, // deprecated
    effGetVendorString = 47,
    effGetProductString = 48,
    effGetVendorVersion = 49,
    effVendorSpecific = 50,
    effCanDo = 51,
    effGetTailSize = 52,
    effIdle = 53,            // deprecated
    effGetIcon = 54,         // deprecated
    effSetViewPosition = 55, // deprecated
    effGetParameterProperties = 56,
    effKeysRequired = 57, // deprecated
    effGetVstVersion = 58,
    effEditKeyDown = 59,
    effEditKeyUp = 60,
    effSetEditKnobMode = 61,
    effGetMidiProgramName = 62,
    effGetCurrentMidiProgram = 63,
    effGetMidiProgramCategory = 64,
    effHasMidiProgramsChanged = 65,
    effGetMidiKeyName = 66,
    effBeginSetProgram = 67,
    effEndSetProgram = 68,
    effGetSpeakerArrangement = 69,
    effShellGetNextPlugin = 70,
    effStartProcess = 71,
    effStopProcess = 72,
    effSetTotalSampleToProcess = 73,
    effSetPanLaw = 74,
    effBeginLoadBank = 75,
    effBeginLoadProgram = 76,
    effSetProcessPrecision = 77,
    effGetNumMidiInputChannels = 78,
    effGetNumMidiOutputChannels = 79,
};

// Requests from the plug-in to the host (the host callback's opcode).
enum AudioMasterOpcodes : VstInt32
{
    audioMasterAutomate = 0,
    audioMasterVersion = 1,
    audioMasterCurrentId = 2,
    audioMasterIdle = 3,
    audioMasterPinConnected = 4, // deprecated; answers 0 for a connected pin
    audioMasterWantMidi = 6,     // deprecated
    audioMasterGetTime = 7,
    audioMasterProcessEvents = 8,
    audioMasterSetTime = 9,                      // deprecated
    audioMasterTempoAt = 10,                     // deprecated
    audioMasterGetNumAutomatableParameters = 11, // deprecated
    audioMasterGetParameterQuantization = 12,    // deprecated
    audioMasterIOChanged = 13,
    audioMasterNeedIdle = 14, // deprecated
    audioMasterSizeWindow = 15,
    audioMasterGetSampleRate = 16,
    audioMasterGetBlockSize = 17,
    audioMasterGetInputLatency = 18,
    audioMasterGetOutputLatency = 19,
    audioMasterGetPreviousPlug = 20,         // deprecated
    audioMasterGetNextPlug = 21,             // deprecated
    audioMasterWillReplaceOrAccumulate = 22, // deprecated
    audioMasterGetCurrentProcessLevel = 23,
    audioMasterGetAutomationState = 24,
    audioMasterOfflineStart = 25,
    audioMasterOfflineRead = 26,
    audioMasterOfflineWrite = 27,
    audioMasterOfflineGetCurrentPass = 28,
    audioMasterOfflineGetCurrentMetaPass = 29,
    audioMasterSetOutputSampleRate = 30,         // deprecated
    audioMasterGetOutputSpeakerArrangement = 31, // deprecated
    audioMasterGetVendorString = 32,
    audioMasterGetProductString = 33,
    audioMasterGetVendorVersion = 34,
    audioMasterVendorSpecific = 35,
    audioMasterSetIcon = 36, // deprecated
    audioMasterCanDo = 37,
    audioMasterGetLanguage = 38,
    audioMasterOpenWindow = 39,  // deprecated
    audioMasterCloseWindow = 40, // deprecated
    audioMasterGetDirectory = 41,
    audioMasterUpdateDisplay = 42,
    audioMasterBeginEdit = 43,
    audioMasterEndEdit = 44,
    audioMasterOpenFileSelector = 45,
    audioMasterCloseFileSelector = 46,
    audioMasterEditFile = 47,                   // deprecated
    audioMasterGetChunkFile = 48,               // deprecated
    audioMasterGetInputSpeakerArrangement = 49, // deprecated
};

// Text limits, terminator included.
enum VstStringConstants : VstInt32
{
    kVstMaxProgNameLen = 24,
    kVstMaxParamStrLen = 8,
    kVstMaxVendorStrLen = 64,
    kVstMaxProductStrLen = 64,
    kVstMaxEffectNameLen = 32,
    kVstMaxNameLen = 64,
    kVstMaxLabelLen = 64,
    kVstMaxShortLabelLen = 8,
    kVstMaxCategLabelLen = 24,
    kVstMaxFileNameLen = 100,
};

enum VstPlugCategory : VstInt32
{
    kPlugCategUnknown = 0,
    kPlugCategEffect,
    kPlugCategSynth,
    kPlugCategAnalysis,
    kPlugCategMastering,
    kPlugCategSpacializer,
    kPlugCategRoomFx,
    kPlugSurroundFx,
    kPlugCategRestoration,
    kPlugCategOfflineProcess,
    kPlugCategShell,
    kPlugCategGenerator,
    kPlugCategMaxCount,
};

// Editor window rectangle; the plug-in owns it and hands the host a pointer.
struct ERect
{
    VstInt16 top;
    VstInt16 left;
    VstInt16 bottom;
    VstInt16 right;
};

enum VstPinPropertiesFlags : VstInt32
{
    kVstPinIsActive = 1 << 0,
    kVstPinIsStereo = 1 << 1,
    kVstPinUseSpeaker = 1 << 2,
};

struct VstPinProperties
{
    char label[kVstMaxLabelLen];
    VstInt32 flags;
    VstInt32 arrangementType;
    char shortLabel[kVstMaxShortLabelLen];
    char future[48];
};

enum VstParameterFlags : VstInt32
{
    kVstParameterIsSwitch = 1 << 0,
    kVstParameterUsesIntegerMinMax = 1 << 1,
    kVstParameterUsesFloatStep = 1 << 2,
    kVstParameterUsesIntStep = 1 << 3,
    kVstParameterSupportsDisplayIndex = 1 << 4,
    kVstParameterSupportsDisplayCategory = 1 << 5,
    kVstParameterCanRamp = 1 << 6,
};

struct VstParameterProperties
{
    float stepFloat;
    float smallStepFloat;
    float largeStepFloat;
    char label[kVstMaxLabelLen];
    VstInt32 flags;
    VstInt32 minInteger;
    VstInt32 maxInteger;
    VstInt32 stepInteger;
    VstInt32 largeStepInteger;
    char shortLabel[kVstMaxShortLabelLen];
    VstInt16 displayIndex;
    VstInt16 category;
    VstInt16 numParametersInCategory;
    VstInt16 reserved;
    char categoryLabel[kVstMaxCategLabelLen];
    char future[16];
};

enum VstSpeakerArrangementType : VstInt32
{
    kSpeakerArrUserDefined = -2,
    kSpeakerArrEmpty = -1,
    kSpeakerArrMono = 0,
    kSpeakerArrStereo = 1,
};

struct VstSpeakerProperties
{
    float azimuth;
    float elevation;
    float radius;
    float reserved;
    char name[kVstMaxNameLen];
    VstInt32 type;
    char future[28];
};

struct VstSpeakerArrangement
{
    VstInt32 type;
    VstInt32 numChannels;
    VstSpeakerProperties speakers[8];
};

enum VstEventTypes : VstInt32
{
    kVstMidiType = 1,
    kVstSysExType = 6,
};

struct VstEvent
{
    VstInt32 type;
    VstInt32 byteSize;
    VstInt32 deltaFrames;
    VstInt32 flags;
    char data[16];
};

struct VstEvents
{
    VstInt32 numEvents;
    VstIntPtr reserved;
    VstEvent* events[2]; // variable length in practice
};

struct VstMidiEvent
{
    VstInt32 type;
    VstInt32 byteSize;
    VstInt32 deltaFrames;
    VstInt32 flags;
    VstInt32 noteLength;
    VstInt32 noteOffset;
    char midiData[4];
    char detune;
    char noteOffVelocity;
    char reserved1;
    char reserved2;
};

enum VstProcessPrecision : VstInt32
{
    kVstProcessPrecision32 = 0,
    kVstProcessPrecision64 = 1,
};

// The entry every plug-in exports.
using VstPluginMainProc = AEffect* (*)(audioMasterCallback audioMaster);
