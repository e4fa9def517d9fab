// Our VST 2.4 interface is written from the interface's published numbers. Debian ships an independent
// clean-room header; every opcode, flag and record offset that both define must agree.
#include "VstInterface.h"

#include <cstddef>
#include <gtest/gtest.h>

#include "/usr/share/dpf/distrho/src/xaymar-vst2/vst.h"

TEST(VstInterface, EffectOpcodesAgreeWithCleanRoomHeader)
{
    EXPECT_EQ(effOpen, VST_EFFECT_OPCODE_CREATE);
    EXPECT_EQ(effClose, VST_EFFECT_OPCODE_DESTROY);
    EXPECT_EQ(effGetParamLabel, VST_EFFECT_OPCODE_PARAM_GETLABEL);
    EXPECT_EQ(effGetParamDisplay, VST_EFFECT_OPCODE_PARAM_GETVALUE);
    EXPECT_EQ(effGetParamName, VST_EFFECT_OPCODE_PARAM_GETNAME);
    EXPECT_EQ(effSetSampleRate, VST_EFFECT_OPCODE_SET_SAMPLE_RATE);
    EXPECT_EQ(effSetBlockSize, VST_EFFECT_OPCODE_SET_BLOCK_SIZE);
    EXPECT_EQ(effMainsChanged, VST_EFFECT_OPCODE_SUSPEND);
    EXPECT_EQ(effEditGetRect, VST_EFFECT_OPCODE_WINDOW_GETRECT);
    EXPECT_EQ(effEditOpen, VST_EFFECT_OPCODE_WINDOW_CREATE);
    EXPECT_EQ(effEditClose, VST_EFFECT_OPCODE_WINDOW_DESTROY);
    EXPECT_EQ(effCanBeAutomated, VST_EFFECT_OPCODE_PARAM_ISAUTOMATABLE);
    EXPECT_EQ(effGetInputProperties, VST_EFFECT_OPCODE_INPUT_CHANNEL_NAME);
    EXPECT_EQ(effGetOutputProperties, VST_EFFECT_OPCODE_OUTPUT_CHANNEL_NAME);
    EXPECT_EQ(effGetPlugCategory, VST_EFFECT_OPCODE_EFFECT_CATEGORY);
    EXPECT_EQ(effSetSpeakerArrangement, VST_EFFECT_OPCODE_SET_SPEAKER_ARRANGEMENT);
    EXPECT_EQ(effSetBypass, VST_EFFECT_OPCODE_BYPASS);
    EXPECT_EQ(effGetEffectName, VST_EFFECT_OPCODE_EFFECT_NAME);
    EXPECT_EQ(effGetErrorText, VST_EFFECT_OPCODE_TRANSLATE_ERROR);
    EXPECT_EQ(effGetVendorString, VST_EFFECT_OPCODE_VENDOR_NAME);
    EXPECT_EQ(effGetProductString, VST_EFFECT_OPCODE_PRODUCT_NAME);
    EXPECT_EQ(effGetVendorVersion, VST_EFFECT_OPCODE_VENDOR_VERSION);
    EXPECT_EQ(effVendorSpecific, VST_EFFECT_OPCODE_CUSTOM);
    EXPECT_EQ(effCanDo, VST_EFFECT_OPCODE_SUPPORTS);
    EXPECT_EQ(effGetTailSize, VST_EFFECT_OPCODE_TAIL_SAMPLES);
    // The clean-room header names the request one number too high; hosts send 56, which it lists as 0x38.
    EXPECT_EQ(effGetParameterProperties, VST_EFFECT_OPCODE_38);
    EXPECT_EQ(effGetParameterProperties + 1, VST_EFFECT_OPCODE_GET_PARAMETER_PROPERTIES);
    EXPECT_EQ(effGetVstVersion, VST_EFFECT_OPCODE_VST_VERSION);
    EXPECT_EQ(effGetSpeakerArrangement, VST_EFFECT_OPCODE_GET_SPEAKER_ARRANGEMENT);
    EXPECT_EQ(effStartProcess, VST_EFFECT_OPCODE_PROCESS_BEGIN);
    EXPECT_EQ(effStopProcess, VST_EFFECT_OPCODE_PROCESS_END);
    // The other header numbers the rest of its opcodes without names, up to the last one it knows.
    EXPECT_EQ(effGetNumMidiOutputChannels, VST_EFFECT_OPCODE_4F);
    EXPECT_EQ(effGetNumMidiOutputChannels + 1, VST_EFFECT_OPCODE_MAX);
}

TEST(VstInterface, HostOpcodeRangeAgreesWithCleanRoomHeader)
{
    EXPECT_EQ(audioMasterAutomate, VST_HOST_OPCODE_00);
    EXPECT_EQ(audioMasterCurrentId, VST_HOST_OPCODE_02);
    EXPECT_EQ(audioMasterPinConnected, VST_HOST_OPCODE_04);
    EXPECT_EQ(audioMasterGetSampleRate, VST_HOST_OPCODE_10);
    EXPECT_EQ(audioMasterGetBlockSize, VST_HOST_OPCODE_11);
    EXPECT_EQ(audioMasterGetOutputLatency, VST_HOST_OPCODE_13);
    EXPECT_EQ(audioMasterUpdateDisplay, VST_HOST_OPCODE_2A);
    EXPECT_EQ(audioMasterBeginEdit, VST_HOST_OPCODE_2B);
    EXPECT_EQ(audioMasterEndEdit, VST_HOST_OPCODE_2C);
    // The other header stops at the deprecated file-edit request, one before the chunk-file request.
    EXPECT_EQ(audioMasterEditFile, VST_HOST_OPCODE_2F);
    EXPECT_EQ(audioMasterGetChunkFile, VST_HOST_OPCODE_MAX);
}

TEST(VstInterface, ConstantsAgreeWithCleanRoomHeader)
{
    EXPECT_EQ(kVstVersion, VST_VERSION_2_4_0_0);
    EXPECT_EQ(kEffectMagic, static_cast<VstInt32>(VST_MAGICNUMBER));
    EXPECT_EQ(kPlugCategRestoration, VST_CATEGORY_RESTORATION);
    EXPECT_EQ(kPlugCategShell, VST_CATEGORY_CONTAINER);
    EXPECT_EQ(kPlugCategMaxCount, VST_CATEGORY_MAX);
    EXPECT_EQ(kVstMaxEffectNameLen, VST_EFFECT_BUFFER_SIZE);
    EXPECT_EQ(kVstMaxVendorStrLen, VST_VENDOR_BUFFER_SIZE);
    EXPECT_EQ(kSpeakerArrUserDefined, VST_ARRANGEMENT_TYPE_CUSTOM);
    EXPECT_EQ(kSpeakerArrEmpty, VST_ARRANGEMENT_TYPE_UNKNOWN);
    EXPECT_EQ(kSpeakerArrMono, VST_ARRANGEMENT_TYPE_MONO);
    EXPECT_EQ(kSpeakerArrStereo, VST_ARRANGEMENT_TYPE_STEREO);
    EXPECT_EQ(kVstParameterIsSwitch, VST_PARAMETER_FLAGS_SWITCH);
    EXPECT_EQ(kVstParameterUsesIntegerMinMax, VST_PARAMETER_FLAGS_INTEGER_LIMITS);
    EXPECT_EQ(kVstParameterUsesFloatStep, VST_PARAMETER_FLAGS_STEP_FLOAT);
    EXPECT_EQ(kVstParameterUsesIntStep, VST_PARAMETER_FLAGS_STEP_INT);
    EXPECT_EQ(kVstParameterSupportsDisplayIndex, VST_PARAMETER_FLAGS_INDEX);
    EXPECT_EQ(kVstParameterSupportsDisplayCategory, VST_PARAMETER_FLAGS_CATEGORY);
    EXPECT_EQ(kVstParameterCanRamp, VST_PARAMETER_FLAGS_UNKNOWN6);
}

TEST(VstInterface, EffectRecordLayoutAgreesWithCleanRoomHeader)
{
    EXPECT_EQ(sizeof(AEffect), sizeof(vst_effect));
    EXPECT_EQ(offsetof(AEffect, magic), offsetof(vst_effect, magic_number));
    EXPECT_EQ(offsetof(AEffect, dispatcher), offsetof(vst_effect, control));
    EXPECT_EQ(offsetof(AEffect, process), offsetof(vst_effect, process));
    EXPECT_EQ(offsetof(AEffect, setParameter), offsetof(vst_effect, set_parameter));
    EXPECT_EQ(offsetof(AEffect, getParameter), offsetof(vst_effect, get_parameter));
    EXPECT_EQ(offsetof(AEffect, numPrograms), offsetof(vst_effect, num_programs));
    EXPECT_EQ(offsetof(AEffect, numParams), offsetof(vst_effect, num_params));
    EXPECT_EQ(offsetof(AEffect, numInputs), offsetof(vst_effect, num_inputs));
    EXPECT_EQ(offsetof(AEffect, numOutputs), offsetof(vst_effect, num_outputs));
    EXPECT_EQ(offsetof(AEffect, flags), offsetof(vst_effect, flags));
    EXPECT_EQ(offsetof(AEffect, resvd1), offsetof(vst_effect, _unknown_ptr_00));
    EXPECT_EQ(offsetof(AEffect, initialDelay), offsetof(vst_effect, delay));
    EXPECT_EQ(offsetof(AEffect, realQualities), offsetof(vst_effect, _unknown_int32_00));
    EXPECT_EQ(offsetof(AEffect, ioRatio), offsetof(vst_effect, _unknown_float_00));
    EXPECT_EQ(offsetof(AEffect, object), offsetof(vst_effect, effect_internal));
    EXPECT_EQ(offsetof(AEffect, user), offsetof(vst_effect, host_internal));
    EXPECT_EQ(offsetof(AEffect, uniqueID), offsetof(vst_effect, unique_id));
    EXPECT_EQ(offsetof(AEffect, version), offsetof(vst_effect, version));
    EXPECT_EQ(offsetof(AEffect, processReplacing), offsetof(vst_effect, process_float));
    EXPECT_EQ(offsetof(AEffect, processDoubleReplacing), offsetof(vst_effect, process_double));
    EXPECT_EQ(offsetof(AEffect, future), offsetof(vst_effect, _unknown));
}

TEST(VstInterface, SmallRecordLayoutsAgreeWithCleanRoomHeader)
{
    EXPECT_EQ(sizeof(ERect), sizeof(vst_rect));
    EXPECT_EQ(offsetof(ERect, top), offsetof(vst_rect, top));
    EXPECT_EQ(offsetof(ERect, left), offsetof(vst_rect, left));
    EXPECT_EQ(offsetof(ERect, bottom), offsetof(vst_rect, bottom));
    EXPECT_EQ(offsetof(ERect, right), offsetof(vst_rect, right));

    EXPECT_EQ(sizeof(VstSpeakerProperties), sizeof(vst_speaker_properties));
    EXPECT_EQ(offsetof(VstSpeakerProperties, name), offsetof(vst_speaker_properties, name));
    EXPECT_EQ(offsetof(VstSpeakerProperties, type), offsetof(vst_speaker_properties, type));
    EXPECT_EQ(offsetof(VstSpeakerArrangement, type), offsetof(vst_speaker_arrangement, type));
    // Its arrangement type is an enum holding both -2 and 0xFFFFFFFF, which C++ widens to 8 bytes; the
    // record hosts pass has a 32-bit type, so everything after it sits 4 bytes earlier in ours.
    ASSERT_EQ(sizeof(VST_ARRANGEMENT_TYPE), 8u);
    constexpr std::size_t kWidenedType = 4;
    EXPECT_EQ(offsetof(VstSpeakerArrangement, numChannels) + kWidenedType,
              offsetof(vst_speaker_arrangement, channels));
    EXPECT_EQ(offsetof(VstSpeakerArrangement, speakers) + kWidenedType,
              offsetof(vst_speaker_arrangement, speakers));
    EXPECT_EQ(offsetof(VstSpeakerArrangement, numChannels), 4u);
    EXPECT_EQ(offsetof(VstSpeakerArrangement, speakers), 8u);
}

TEST(VstInterface, ParameterPropertiesAgreeUpToTheIntegerSteps)
{
    EXPECT_EQ(offsetof(VstParameterProperties, stepFloat), offsetof(vst_parameter_properties, step_f32));
    EXPECT_EQ(offsetof(VstParameterProperties, smallStepFloat),
              offsetof(vst_parameter_properties, step_small_f32));
    EXPECT_EQ(offsetof(VstParameterProperties, largeStepFloat),
              offsetof(vst_parameter_properties, step_large_f32));
    EXPECT_EQ(offsetof(VstParameterProperties, label), offsetof(vst_parameter_properties, name));
    EXPECT_EQ(offsetof(VstParameterProperties, flags), offsetof(vst_parameter_properties, flags));
    EXPECT_EQ(offsetof(VstParameterProperties, minInteger),
              offsetof(vst_parameter_properties, min_value_i32));
    EXPECT_EQ(offsetof(VstParameterProperties, maxInteger),
              offsetof(vst_parameter_properties, max_value_i32));
    EXPECT_EQ(offsetof(VstParameterProperties, stepInteger), offsetof(vst_parameter_properties, step_i32));
    // The clean-room header has no large integer step, so every later field sits 4 bytes earlier there.
    // Hosts use the published record of 152 bytes, with the large step; we keep that.
    constexpr std::size_t kMissingLargeStep = sizeof(VstInt32);
    EXPECT_EQ(offsetof(VstParameterProperties, shortLabel),
              offsetof(vst_parameter_properties, label) + kMissingLargeStep);
    EXPECT_EQ(offsetof(VstParameterProperties, displayIndex),
              offsetof(vst_parameter_properties, index) + kMissingLargeStep);
    EXPECT_EQ(offsetof(VstParameterProperties, categoryLabel),
              offsetof(vst_parameter_properties, category_label) + kMissingLargeStep);
    EXPECT_EQ(sizeof(VstParameterProperties), sizeof(vst_parameter_properties) + kMissingLargeStep);
    EXPECT_EQ(sizeof(VstParameterProperties), 152u);
}

TEST(VstInterface, PinPropertiesHaveThePublishedLayout)
{
    EXPECT_EQ(offsetof(VstPinProperties, flags), 64u);
    EXPECT_EQ(offsetof(VstPinProperties, arrangementType), 68u);
    EXPECT_EQ(offsetof(VstPinProperties, shortLabel), 72u);
    EXPECT_EQ(sizeof(VstPinProperties), 128u);
}
