#include "ui/look/main_layout.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

bool Meet(const Box& a, const Box& b) { return !Intersection(a, b).empty(); }

TEST(MainLayout, PartsKeepApartAndInsideAtEverySizeAndScale) {
  for (const int percent : {100, 125, 150, 200, 300}) {
    const Scale scale = ForcedScale(std::to_string(percent), {});
    const ClientSize least = LeastClientSize(scale);
    const ClientSize start = StartClientSize(scale);
    for (const ClientSize& size :
         {least, start, ClientSize{start.width * 2, start.height}, ClientSize{start.width, 9000}}) {
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
      EXPECT_EQ(layout.preview.width, scale.Px(320));
      EXPECT_EQ(layout.preview.height, scale.Px(320));
    }
  }
}

TEST(MainLayout, OnlyALowWindowHidesTheHistogram) {
  const Scale scale = {96};
  const ClientSize start = StartClientSize(scale);
  const ClientSize least = LeastClientSize(scale);
  EXPECT_TRUE(LayOutMain(start.width, start.height, scale).histogram_visible);
  EXPECT_FALSE(LayOutMain(least.width, least.height, scale).histogram_visible);
}

TEST(MainLayout, AWindowBelowTheLeastSizeGivesNoNegativeBoxes) {
  for (const ClientSize& size : {ClientSize{0, 0}, ClientSize{10, 10}, ClientSize{200, 90}}) {
    const MainLayout layout = LayOutMain(size.width, size.height, {96});
    EXPECT_GE(layout.panel.width, 0);
    EXPECT_GE(layout.panel.height, 0);
    EXPECT_GE(layout.preview.x, 0);
  }
}

TEST(MainLayout, ARowOfButtons) {
  const std::vector<Box> boxes = LayOutRow({10, 20, 500, 30}, {40, 0, 60}, 4, {96});
  ASSERT_EQ(boxes.size(), 3u);
  EXPECT_EQ(boxes[0], (Box{10, 20, 40, 30}));
  EXPECT_TRUE(boxes[1].empty());
  EXPECT_EQ(boxes[2], (Box{10 + 40 + 4 + 8, 20, 60, 30}));
}

}  // namespace
}  // namespace tarnwell
