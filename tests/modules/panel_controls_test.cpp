#include <cmath>
#include <gtest/gtest.h>

#include "modules/frm_modules.h"
#include "modules/slider_scale.h"
#include "tests/support/fakes.h"

namespace tarnwell {
namespace {

TEST(ModulePanelTest, ClosingSwitchesOffAndKeepsTheSettings) {
  frmModules panel = FirstStartPanel();
  RecordingEvents events;
  PicExpand_Click(panel, kAdjustBrightness, events);
  SetSliderValue(panel, 3, 40);
  PicExpand_Click(panel, kAdjustBrightness, events);
  EXPECT_FALSE(panel.IsOpen(kAdjustBrightness));
  EXPECT_EQ(panel.Value(3), 40);
  PicExpand_Click(panel, kAdjustBrightness, events);
  EXPECT_TRUE(panel.IsOpen(kAdjustBrightness));
}

// A click that waited may itself open the module: it is heard first.
TEST(ModulePanelTest, PendingClicksComeBeforeTheToggle) {
  frmModules panel = FirstStartPanel();
  RecordingEvents events;
  events.on_run = [&](int) { panel.open[4] = 1; };
  PicExpand_Click(panel, 4, events);
  EXPECT_FALSE(panel.IsOpen(4));
}

TEST(HuePickerTest, DirectionChoosesTheHueAndDistanceItsStrength) {
  const float h = static_cast<float>(std::sqrt(3.0) / 4);  // 0.5 x cos 30 degrees
  struct Row {
    const char* name;
    int x, y;
    float red, green, blue;
  };
  const Row rows[] = {
      {"left edge", 0, 53, -0.5f, 0.25f, 0.25f},
      {"top edge", 53, 0, 0, h, -h},
      {"almost the right edge", 105, 53, 26.0f / 53, -13.0f / 53, -13.0f / 53},
      {"corner, full strength", 0, 0, -0.35355339f, 0.48296291f, -0.12940952f},
      {"outside to the left", -900, 53, -0.5f, 0.25f, 0.25f},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    HuePicker hue;
    MoveHueMarker(hue, row.x, row.y);
    EXPECT_NEAR(hue.factors[0], row.red, 1e-7);
    EXPECT_NEAR(hue.factors[1], row.green, 1e-7);
    EXPECT_NEAR(hue.factors[2], row.blue, 1e-7);
  }
}

TEST(SlidersTest, AKnobPositionBecomesAValueAndSnapsToThatValuesPlace) {
  struct Row {
    int slider;
    int position;
    const char* text;
    int snapped;
  };
  const Row rows[] = {{0, 1, "0", 0},       {0, 2, "1", 2},        {2, 91, "50", 90},
                      {0, 182, "100", 181}, {6, 145, "80", 145},   {3, 0, "-100", 0},
                      {3, 1, "-99", 1},     {3, 90, "-2", 89},     {3, 91, "0", 91},
                      {3, 92, "1", 92},     {11, 109, "19", 108},  {10, 0, "1", 0},
                      {10, 55, "3", 40},    {10, 182, "10", 182},  {12, 0, "-180", 0},
                      {12, 91, "0", 91},    {12, 90, "-2", 90},    {12, 182, "180", 182},
                      {6, -5, "0", 0},      {6, 30000, "100", 181}};  // as a file may have it
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << "slider " << row.slider << " at " << row.position);
    frmModules panel;
    EXPECT_EQ(CalcSlidVal(panel, row.slider, row.position), row.snapped);
    EXPECT_EQ(panel.sliders[row.slider].text, row.text);
    EXPECT_EQ(panel.sliders[row.slider].position, row.snapped);
    EXPECT_EQ(panel.slider_note, std::to_string(row.slider) + "," + std::to_string(row.snapped));
  }
}

TEST(SlidersTest, EveryValueIsReachedFromBothSidesInSingleUnits) {
  RecordingEvents events;
  for (int slider = 0; slider < kSliderCount; ++slider) {
    SCOPED_TRACE(kSliders[slider].name);
    const int lowest = kSliders[slider].lowest;
    const int highest = kSliders[slider].highest;
    frmModules panel = FirstStartPanel();
    SetSliderValue(panel, slider, lowest);
    for (int value = lowest; value < highest; ++value) {
      StepSlider(panel, slider, 1, events);
      ASSERT_EQ(panel.Value(slider), value + 1);
      StepSlider(panel, slider, -1, events);
      ASSERT_EQ(panel.Value(slider), value);
      StepSlider(panel, slider, 1, events);
    }
    EXPECT_GE(panel.sliders[slider].position, 181);
    StepSlider(panel, slider, 1, events);
    EXPECT_EQ(panel.Value(slider), highest);
    for (int value = highest; value > lowest; --value) StepSlider(panel, slider, -1, events);
    StepSlider(panel, slider, -1, events);
    EXPECT_EQ(panel.Value(slider), lowest);
    EXPECT_EQ(panel.sliders[slider].position, 0);
  }
}

}  // namespace
}  // namespace tarnwell
