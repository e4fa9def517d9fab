// The numbers of the editor's bitmaps: resources/bmpNNNNN.png, embedded into the plug-in and loaded by
// number.
#pragma once

#include <cstdint>

enum BitmapId : int32_t
{
    // ---- the editor
    kBackgroundBitmap = 128,   // 302 x 250: the panel, the preset strip at its foot included
    kUnusedHandleBitmap = 133, // a copy of the handle, loaded and let go again unused
    kSliderHandleBitmap = 134,
    kMeterOnBitmap = 135,
    kMeterOffBitmap = 136,
    kProcessButtonBitmap = 137, // two images stacked: off, on
    kPhaseButtonBitmap = 138,
    kModeButtonBitmap = 139, // three images stacked, one a mode
    kAboutScreenBitmap = 140,

    // ---- the preset panel
    kManualButtonBitmap = 989,
    // 19899, not 1999x: the default-preset image has always had this number.
    kDefaultPresetButtonBitmap = 19899,
    kDefaultBankButtonBitmap = 19990,
    kRecallAButtonBitmap = 19991,
    kRecallBButtonBitmap = 19992,
    kLoadBankButtonBitmap = 19993,
    kSaveBankButtonBitmap = 19994,
    kStoreAButtonBitmap = 19995,
    kStoreBButtonBitmap = 19996,
    kStepRockerBitmap = 19997,
    kLoadPresetButtonBitmap = 19998,
    kSavePresetButtonBitmap = 19999,
};
