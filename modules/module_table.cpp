#include "modules/module_table.h"

namespace tarnwell {

const std::array<ModuleInfo, kModuleCount> kModules = {{
    {"Camera and Mode", "Chooses whose settings and learnt corrections are used", true},
    {"Smart Photo Correction", "Measures the photo and proposes tone and color", true},
    {"Smart White Balance", "Corrects colors towards a reference white", false},
    {"Adjust Brightness", "Makes the photo brighter or darker", false},
    {"Adjust Contrast", "Strengthens or softens contrast", false},
    {"Adjust Saturation", "Strengthens or softens colors", false},
    {"Adjust Hue", "Tints the photo towards a chosen hue", false},
    {"Noise Reduction", "Smooths grain and keeps edges", false},
    {"Dead Pixel Correction", "Repairs the camera's stuck pixels", false},
    {"Rotation", "Turns the finished photo", false},
    {"JPEG Quality", "Quality of the saved JPEG file", true},
    {"Save Photo As...", "Name of the saved file, and learning from it", true},
    {"Adjust Focus", "Sharpens the photo", false},
    {"Color Rotation", "Turns every color around the color circle", false},
}};

const std::array<SliderInfo, kSliderCount> kSliders = {{
    {"White limit", kSmartPhotoCorrection, SliderScale::kPercent, 0, 100, 0},
    {"Black limit", kSmartPhotoCorrection, SliderScale::kPercent, 0, 100, 0},
    {"White balance strength", kSmartWhiteBalance, SliderScale::kPercent, 0, 100, 91},
    {"Brightness", kAdjustBrightness, SliderScale::kSignedPercent, -100, 100, 91},
    {"Contrast", kAdjustContrast, SliderScale::kSignedPercent, -100, 100, 91},
    {"Saturation", kAdjustSaturation, SliderScale::kSignedPercent, -100, 100, 91},
    {"JPEG quality", kJpegQuality, SliderScale::kPercent, 0, 100, 145},
    {"Noise threshold", kNoiseReduction, SliderScale::kPercent, 0, 100, 73},
    {"Noise radius", kNoiseReduction, SliderScale::kPercent, 0, 100, 55},
    {"Dead pixel threshold", kDeadPixelCorrection, SliderScale::kPercent, 0, 100, 91},
    {"Focus distance", kAdjustFocus, SliderScale::kOneToTen, 1, 10, 55},
    {"Focus amount", kAdjustFocus, SliderScale::kSignedPercent, -100, 100, 109},
    {"Color rotation in degrees", kColorRotation, SliderScale::kDegrees, -180, 180, 91},
}};

const std::array<CheckInfo, kCheckCount> kChecks = {{
    {"Set white limit by hand", kSmartPhotoCorrection, false},
    {"Set black limit by hand", kSmartPhotoCorrection, false},
    {"Learn from saved photos", kSavePhotoAs, true},
    {"Use learnt corrections", kSmartPhotoCorrection, true},
    {"Protect light areas", kNoiseReduction, true},
}};

const std::array<const char*, kSaveSwitchCount> kSaveSwitches = {
    "Quality as the original's", "Leave the place out of saved photos"};

}  // namespace tarnwell
