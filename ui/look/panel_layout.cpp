#include "ui/look/panel_layout.h"

#include <cmath>

namespace tarnwell {
namespace {

constexpr int kHeaderHeight = 4 * kGrid;
constexpr int kCardGap = kGrid;
constexpr int kSideMargin = 2 * kGrid;
constexpr int kPadding = 2 * kGrid;
constexpr int kRowGap = kGrid;

int RowHeight(RowKind kind) {
  switch (kind) {
    case RowKind::kSlider:
      return 6 * kGrid;
    case RowKind::kCheck:
    case RowKind::kSaveSwitch:
      return 3 * kGrid;
    case RowKind::kProfileList:
    case RowKind::kOutputName:
    case RowKind::kSkinTone:
      return 7 * kGrid;
    case RowKind::kWhiteModes:
      return 13 * kGrid;
    case RowKind::kWhiteCommands:
    case RowKind::kDeadPixels:
      return 4 * kGrid;
    case RowKind::kHue:
      return 14 * kGrid;
    case RowKind::kRotation:
      return 7 * kGrid;
  }
  return 0;
}

}  // namespace

std::vector<PanelRow> RowsOf(int module) {
  switch (module) {
    case kCameraAndMode:
      return {{RowKind::kProfileList, 0}, {RowKind::kProfileList, 1}};
    case kSmartPhotoCorrection:
      return {{RowKind::kCheck, kUseLearntCorrections},
              {RowKind::kCheck, kWhiteLimitByHand},
              {RowKind::kSlider, kWhiteLimitSlider},
              {RowKind::kCheck, kBlackLimitByHand},
              {RowKind::kSlider, kBlackLimitSlider}};
    case kSmartWhiteBalance:
      return {{RowKind::kWhiteModes},
              {RowKind::kWhiteCommands},
              {RowKind::kSlider, kWhiteBalanceSlider},
              {RowKind::kSkinTone}};
    case kAdjustBrightness:
      return {{RowKind::kSlider, kBrightnessSlider}};
    case kAdjustContrast:
      return {{RowKind::kSlider, kContrastSlider}};
    case kAdjustSaturation:
      return {{RowKind::kSlider, kSaturationSlider}};
    case kAdjustHue:
      return {{RowKind::kHue}};
    case kNoiseReduction:
      return {{RowKind::kSlider, kNoiseThresholdSlider},
              {RowKind::kSlider, kNoiseRadiusSlider},
              {RowKind::kCheck, kProtectLightAreas}};
    case kDeadPixelCorrection:
      return {{RowKind::kSlider, kDeadPixelSlider}, {RowKind::kDeadPixels}};
    case kRotation:
      return {{RowKind::kRotation}};
    case kJpegQuality:
      return {{RowKind::kSlider, kJpegQualitySlider}, {RowKind::kSaveSwitch, kQualityAsOriginal}};
    case kSavePhotoAs:
      return {{RowKind::kOutputName},
              {RowKind::kCheck, kLearnFromSavedPhotos},
              {RowKind::kSaveSwitch, kLeavePlaceOut}};
    case kAdjustFocus:
      return {{RowKind::kSlider, kFocusDistanceSlider}, {RowKind::kSlider, kFocusAmountSlider}};
    case kColorRotation:
      return {{RowKind::kSlider, kColorRotationSlider}};
    default:
      return {};
  }
}

PanelLayout StackFunctions(const frmModules& panel, int width, Scale scale) {
  const auto px = [scale](int size) { return scale.Px(size); };
  PanelLayout layout;
  const int left = px(kSideMargin);
  const int card_width = std::max(0, width - 2 * left);
  int y = px(kGrid);
  for (int module = 0; module < kModuleCount; ++module) {
    ModulePlace& place = layout.modules[module];
    place.header = {left, y, card_width, px(kHeaderHeight)};
    int bottom = place.header.bottom();
    if (panel.IsOpen(module)) {
      int row_top = bottom + px(kGrid);
      for (const PanelRow& row : RowsOf(module)) {
        place.rows.push_back(
            {left + px(kPadding), row_top, card_width - 2 * px(kPadding), px(RowHeight(row.kind))});
        row_top = place.rows.back().bottom() + px(kRowGap);
      }
      bottom = row_top + px(kRowGap);
    }
    place.card = {left, y, card_width, bottom - y};
    y = bottom + px(kCardGap);
  }
  layout.height = y + px(kGrid);
  return layout;
}

int LastScroll(int content_height, int view_height) {
  return std::max(0, content_height - view_height);
}

int ClampScroll(int offset, int content_height, int view_height) {
  return std::clamp(offset, 0, LastScroll(content_height, view_height));
}

int ScrollToShow(int offset, int top, int bottom, int view_height) {
  if (bottom > offset + view_height) offset = bottom - view_height;
  if (top < offset) offset = top;
  return offset;
}

int KnobX(int position, int left, int width) {
  return left + static_cast<int>(std::lround(static_cast<double>(position) * width / kKnobLast));
}

int PositionAtX(int x, int left, int width) {
  if (width <= 0) return 0;
  const double position = static_cast<double>(x - left) * kKnobLast / width;
  return static_cast<int>(std::lround(std::clamp(position, 0.0, static_cast<double>(kKnobLast))));
}

}  // namespace tarnwell
