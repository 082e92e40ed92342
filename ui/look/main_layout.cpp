#include "ui/look/main_layout.h"

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
constexpr int kLeastPhotoWidth = kThumbnailSide + 2 * kMargin;

constexpr int kColumnHeight =
    kTitleHeight + kGrid + kThumbnailSide + kMargin + kActionsHeight;  // without the histogram
constexpr int kFrameHeight = kMenusHeight + kToolsHeight + kStatusHeight;

}  // namespace

MainLayout LayOutMain(int width, int height, Scale scale) {
  const auto px = [scale](int size) { return scale.Px(size); };
  MainLayout layout;
  layout.menus = {0, 0, width, px(kMenusHeight)};
  layout.tools = {0, layout.menus.bottom(), width, px(kToolsHeight)};
  const int status_top = std::max(layout.tools.bottom(), height - px(kStatusHeight));
  layout.status = {0, status_top, width, px(kStatusHeight)};

  const int panel_left = std::max(0, width - px(kPanelWidth));
  const int work_top = layout.tools.bottom();
  layout.panel = {panel_left, work_top, width - panel_left, status_top - work_top};

  const int room = status_top - work_top;
  const int with_histogram = px(kColumnHeight) + px(kMargin) + px(kHistogramHeight);
  layout.histogram_visible = room >= with_histogram + 2 * px(kGrid);
  const int column = layout.histogram_visible ? with_histogram : px(kColumnHeight);
  const int side = px(kThumbnailSide);
  const int left = std::max(0, (panel_left - side) / 2);
  int y = work_top + std::max(px(kGrid), (room - column) / 2);
  layout.title = {left, y, side, px(kTitleHeight)};
  y = layout.title.bottom() + px(kGrid);
  layout.preview = {left, y, side, side};
  y = layout.preview.bottom() + px(kMargin);
  layout.actions = {left, y, side, px(kActionsHeight)};
  y = layout.actions.bottom() + px(kMargin);
  layout.histogram = {left, y, side, px(kHistogramHeight)};
  return layout;
}

ClientSize StartClientSize(Scale scale) {
  return {scale.Px(kLeastPhotoWidth + 6 * kGrid + kPanelWidth),
          scale.Px(kFrameHeight + kColumnHeight + kHistogramHeight + 4 * kMargin)};
}

ClientSize LeastClientSize(Scale scale) {
  return {scale.Px(kLeastPhotoWidth + kPanelWidth),
          scale.Px(kFrameHeight + kColumnHeight + 2 * kGrid)};
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
