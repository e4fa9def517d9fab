#include "CColor.h"

const CColor kTransparentCColor = {255, 255, 255, 0};
const CColor kBlackCColor = {0, 0, 0, 255};
const CColor kWhiteCColor = {255, 255, 255, 255};
const CColor kGreyCColor = {127, 127, 127, 255};
const CColor kRedCColor = {255, 0, 0, 255};
const CColor kGreenCColor = {0, 255, 0, 255};
const CColor kBlueCColor = {0, 0, 255, 255};
const CColor kYellowCColor = {255, 255, 0, 255};
const CColor kCyanCColor = {0, 255, 255, 255};
const CColor kMagentaCColor = {255, 0, 255, 255};
