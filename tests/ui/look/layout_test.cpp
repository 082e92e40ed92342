#include <algorithm>
#include <gtest/gtest.h>

#include "ui/look/main_layout.h"
#include "ui/look/panel_layout.h"
#include "ui/look/preview_zoom.h"
#include "ui/look/scale.h"

namespace tarnwell {
namespace {

bool Meet(const Box& a, const Box& b) { return !Intersection(a, b).empty(); }

TEST(MainLayout, PartsKeepApartAndInsideAtEverySizeAndScale) {
  for (const int percent : {100, 125, 150, 200, 300}) {
    const Scale scale = ForcedScale(std::to_string(percent), {});
    const ClientSize least = LeastClientSize(scale);
    const ClientSize start = StartClientSize(scale);
    const ClientSize small_screen = {least.width * 2 / 3, least.height * 4 / 5};
    for (const ClientSize& size : {least, start, ClientSize{start.width * 2, start.height},
                                   ClientSize{start.width, 9000}, small_screen}) {
      SCOPED_TRACE(testing::Message() << percent << "% " << size.width << " x " << size.height);
      const MainLayout layout = LayOutMain(size.width, size.height, scale);
      std::vector<Box> parts = {layout.menus,   layout.tools, layout.title, layout.preview,
                                layout.actions, layout.panel, layout.status};
      if (layout.histogram_visible) parts.push_back(layout.histogram);
      const Box client = {0, 0, size.width, size.height};
      for (std::size_t i = 0; i < parts.size(); ++i) {
        EXPECT_EQ(Intersection(parts[i], client), parts[i]) << i;
        for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(Meet(parts[i], parts[j])) << i << j;
      }
      if (size.width < least.width) continue;
      const bool low = size.height == least.height;
      EXPECT_EQ(layout.preview.width, scale.Px(low ? 200 : 320));
      EXPECT_EQ(layout.preview.height, layout.preview.width);
    }
  }
}

frmModules PanelWith(bool open) {
  frmModules panel = FirstStartPanel();
  panel.open.fill(open ? 1 : 0);
  return panel;
}

TEST(PanelLayout, EverySettingHasExactlyOneRowInItsModule) {
  std::array<int, kSliderCount> sliders = {};
  std::array<int, kCheckCount> checks = {};
  for (int module = 0; module < kModuleCount; ++module) {
    EXPECT_FALSE(RowsOf(module).empty()) << module;
    for (const PanelRow& row : RowsOf(module)) {
      if (row.kind == RowKind::kSlider) {
        ++sliders[row.index];
        EXPECT_EQ(kSliders[row.index].module, module);
      }
      if (row.kind == RowKind::kCheck) {
        ++checks[row.index];
        EXPECT_EQ(kChecks[row.index].module, module);
      }
    }
  }
  EXPECT_EQ(std::ranges::count(sliders, 1), kSliderCount);
  EXPECT_EQ(std::ranges::count(checks, 1), kCheckCount);
  EXPECT_TRUE(RowsOf(-1).empty());
  EXPECT_TRUE(RowsOf(kModuleCount).empty());
}

TEST(PanelLayout, ModulesStackByIndexAndRowsLieInside) {
  frmModules panel = PanelWith(true);
  panel.open[4] = 0;
  panel.open[5] = 2;  // anything but 1 is closed
  const PanelLayout layout = StackFunctions(panel, 400, {96});
  int bottom = 0;
  for (int module = 0; module < kModuleCount; ++module) {
    const ModulePlace& place = layout.modules[module];
    EXPECT_GE(place.card.y, bottom) << module;
    bottom = place.card.bottom();
    int row_bottom = place.header.bottom();
    for (const Box& row : place.rows) {
      EXPECT_GE(row.y, row_bottom) << module;
      EXPECT_EQ(Intersection(row, place.card), row) << module;
      row_bottom = row.bottom();
    }
    EXPECT_EQ(place.rows.empty(), module == 4 || module == 5) << module;
  }
  EXPECT_GE(layout.height, bottom);
}

TEST(PanelLayout, Scrolling) {
  EXPECT_EQ(LastScroll(1000, 300), 700);
  EXPECT_EQ(LastScroll(200, 300), 0);
  EXPECT_EQ(ClampScroll(-5, 1000, 300), 0);
  EXPECT_EQ(ClampScroll(800, 1000, 300), 700);
  EXPECT_EQ(ClampScroll(50, 200, 300), 0);

  EXPECT_EQ(ScrollToShow(100, 150, 200, 300), 100) << "in view already";
  EXPECT_EQ(ScrollToShow(100, 50, 90, 300), 50) << "above";
  EXPECT_EQ(ScrollToShow(100, 450, 500, 300), 200) << "below";
  EXPECT_EQ(ScrollToShow(0, 100, 900, 300), 100) << "taller than the view";
}

// A landscape photo in a square of 320: all of it is 320 x 160 in the middle.
TEST(PreviewZoom, WhatIsBelowThePointerStaysUntilAnEdgeStopsIt) {
  const Box client = {0, 0, 320, 320};
  const Box whole = {0, 80, 320, 160};
  const auto at = [&](const PreviewZoom& zoom) { return EnlargedBox(zoom, client, whole); };
  EXPECT_EQ(at({}), whole);

  // 1.25 x 1.25 = 1.5625; the point 240 lies at three quarters of the width.
  const PreviewZoom closer = Turned({}, client, whole, 2, 240, 160, 8);
  EXPECT_EQ(at(closer), (Box{-135, 35, 500, 250})) << "240 = -135 + 0.75 x 500";
  EXPECT_EQ(at(Turned({}, client, whole, 2, 0, 160, 8)).x, 0) << "the left edge stays";
  EXPECT_EQ(at(Turned({}, client, whole, 99, 160, 160, 8)).width, 8 * 320);
  EXPECT_EQ(at(Turned(closer, client, whole, -2, 10, 10, 8)), whole);
  EXPECT_EQ(at(Turned(closer, client, whole, -50, 10, 10, 8)), whole);
  EXPECT_FALSE(Turned({}, client, {}, 5, 10, 10, 8).enlarged()) << "no photo";

  EXPECT_EQ(at(Pulled(closer, client, whole, 30, 0)), (Box{-105, 35, 500, 250}));
  EXPECT_EQ(at(Pulled(closer, client, whole, 999, 50)), (Box{0, 35, 500, 250}));
  EXPECT_EQ(at(Pulled(closer, client, whole, -999, 0)), (Box{-180, 35, 500, 250}));
  EXPECT_EQ(at(Pulled({}, client, whole, 30, 30)), whole);
}

TEST(PanelLayout, KnobPositionsComeBackFromTheScreen) {
  for (const int width : {182, 200, 243, 364, 700}) {
    EXPECT_EQ(KnobX(0, 20, width), 20);
    EXPECT_EQ(KnobX(182, 20, width), 20 + width);
    for (int position = 0; position <= 182; ++position) {
      EXPECT_EQ(PositionAtX(KnobX(position, 20, width), 20, width), position) << width;
    }
  }
  EXPECT_EQ(PositionAtX(-1000, 20, 200), 0);
  EXPECT_EQ(PositionAtX(5000, 20, 200), 182);
  EXPECT_EQ(PositionAtX(5, 20, 0), 0);
}

TEST(Scale, IsForcedByAPercentageOnly) {
  const std::pair<const char*, int> rows[] = {{"100", 96}, {"150", 144}, {"400", 384},  {"", 120},
                                              {"99", 120}, {"401", 120}, {"150%", 120}, {"x", 120}};
  for (const auto& [text, dpi] : rows) EXPECT_EQ(ForcedScale(text, {120}).dpi, dpi) << text;
  EXPECT_EQ(Scale{144}.Px(1), 2) << "1.5";
  EXPECT_EQ(Scale{144}.Px(-1), -2) << "away from zero";
  EXPECT_EQ(Scale{120}.Px(1), 1) << "1.25";
}

}  // namespace
}  // namespace tarnwell
