#include "ui/look/main_layout.h"

#include <algorithm>
#include <cstdint>

#include "imaging/thumbnail.h"

namespace tarnwell {
namespace {

constexpr int kMenusHeight = 5 * kGrid;
constexpr int kToolsHeight = 6 * kGrid;
constexpr int kStatusHeight = 4 * kGrid;
constexpr int kTitleHeight = 4 * kGrid;
constexpr int kActionsHeight = 4 * kGrid;
constexpr int kHistogramHeight = 14 * kGrid;
constexpr int kMargin = 2 * kGrid;
constexpr int kPanelWidth = 50 * kGrid;
constexpr int kLeastPreviewSide = 25 * kGrid;
// The preview gives way a little so that the histogram, which says what a limit cuts off, stays.
constexpr int kSideBesideHistogram = 34 * kGrid;
constexpr int kLeastPhotoWidth = kThumbnailSide + 2 * kMargin;

// Over, below and around the preview, without the histogram.
constexpr int kColumnHeight = kTitleHeight + kGrid + kMargin + kActionsHeight;
constexpr int kFrameHeight = kMenusHeight + kToolsHeight + kStatusHeight;

}  // namespace

MainLayout LayOutMain(int width, int height, Scale scale) {
  const auto px = [scale](int size) { return scale.Px(size); };
  const Scale across = ScaleAcross(width, scale);
  MainLayout layout;
  layout.menus = {0, 0, width, px(kMenusHeight)};
  layout.tools = {0, layout.menus.bottom(), width, px(kToolsHeight)};
  const int status_top = std::max(layout.tools.bottom(), height - px(kStatusHeight));
  layout.status = {0, status_top, width, px(kStatusHeight)};

  const int panel_left = std::max(0, width - across.Px(kPanelWidth));
  const int work_top = layout.tools.bottom();
  layout.panel = {panel_left, work_top, width - panel_left, status_top - work_top};

  const int room = status_top - work_top;
  const int width_of_column = across.Px(kThumbnailSide);
  const int histogram = px(kMargin) + px(kHistogramHeight);
  const int left_for_both = room - px(kColumnHeight) - 2 * px(kGrid);
  layout.histogram_visible =
      left_for_both >= std::min(width_of_column, px(kSideBesideHistogram)) + histogram;
  const int below = layout.histogram_visible ? histogram : 0;
  const int side = std::clamp(left_for_both - below, px(kGrid), width_of_column);
  const int column = px(kColumnHeight) + side + below;
  const int left = std::max(0, (panel_left - width_of_column) / 2);
  int y = work_top + std::max(px(kGrid), (room - column) / 2);
  layout.title = {left, y, width_of_column, px(kTitleHeight)};
  y = layout.title.bottom() + px(kGrid);
  layout.preview = {left + (width_of_column - side) / 2, y, side, side};
  y = layout.preview.bottom() + px(kMargin);
  layout.actions = {left, y, width_of_column, px(kActionsHeight)};
  y = layout.actions.bottom() + px(kMargin);
  layout.histogram = {left, y, width_of_column, px(kHistogramHeight)};
  return layout;
}

ClientSize StartClientSize(Scale scale) {
  return {scale.Px(kLeastPhotoWidth + 6 * kGrid + kPanelWidth),
          scale.Px(kFrameHeight + kColumnHeight + kThumbnailSide + kHistogramHeight + 4 * kMargin)};
}

ClientSize LeastClientSize(Scale scale) {
  return {scale.Px(kLeastPhotoWidth + kPanelWidth),
          scale.Px(kFrameHeight + kColumnHeight + kLeastPreviewSide + 2 * kGrid)};
}

Scale ScaleAcross(int width, Scale scale) {
  const int least = LeastClientSize(scale).width;
  if (width >= least) return scale;
  return {static_cast<int>(std::int64_t{scale.dpi} * std::max(width, 1) / least)};
}

std::vector<Box> LayOutRow(const Box& row, const std::vector<int>& widths, int gap, Scale scale) {
  std::vector<Box> boxes;
  int x = row.x;
  for (const int width : widths) {
    if (width == 0) {
      x += scale.Px(kGrid);
      boxes.push_back({});
      continue;
    }
    boxes.push_back({x, row.y, scale.Px(width), row.height});
    x += scale.Px(width) + scale.Px(gap);
  }
  return boxes;
}

}  // namespace tarnwell
