#include <cmath>
#include <gtest/gtest.h>

#include "modules/frm_modules.h"
#include "modules/slider_scale.h"
#include "tests/support/recording_events.h"

namespace tarnwell {
namespace {

TEST(SlidersTest, AKnobPositionBecomesAValueAndSnapsToThatValuesPlace) {
  struct Row {
    int slider;
    int position;
    const char* text;
    int snapped;
  };
  const Row rows[] = {
      {0, 0, "0", 0},
      {0, 1, "0", 0},
      {0, 2, "1", 2},
      {2, 91, "50", 90},
      {0, 181, "100", 181},
      {0, 182, "100", 181},
      {6, 145, "80", 145},
      {7, 73, "40", 72},
      {8, 55, "30", 54},
      {3, 0, "-100", 0},
      {3, 1, "-99", 1},
      {3, 90, "-2", 89},
      {3, 91, "0", 91},
      {3, 92, "1", 92},
      {3, 182, "100", 182},
      {11, 109, "19", 108},
      {10, 0, "1", 0},
      {10, 55, "3", 40},
      {10, 40, "2", 20},
      {10, 182, "10", 182},
      {12, 0, "-180", 0},
      {12, 91, "0", 91},
      {12, 92, "1", 92},
      {12, 90, "-2", 90},
      {12, 182, "180", 182},
      // A position from a file may lie outside the track.
      {6, -5, "0", 0},
      {6, 30000, "100", 181},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << "slider " << row.slider << " at " << row.position);
    frmModules panel;
    EXPECT_EQ(CalcSlidVal(panel, row.slider, row.position), row.snapped);
    EXPECT_EQ(panel.sliders[row.slider].text, row.text);
    EXPECT_EQ(panel.sliders[row.slider].position, row.snapped);
    EXPECT_EQ(panel.slider_note, std::to_string(row.slider) + "," + std::to_string(row.snapped));
  }
}

// The knob is coarser than the value: converting a settled knob again would lose a unit.
TEST(SlidersTest, TheTextHoldsTheValueWhereTheSnappedKnobWouldGiveAnother) {
  frmModules panel = FirstStartPanel();
  EXPECT_EQ(panel.sliders[10].position, 40);
  EXPECT_EQ(panel.Value(10), 3);
  EXPECT_EQ(ValueAtPosition(SliderScale::kOneToTen, 40), 2);
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

// Where a unit is at least a pixel wide, a press ends where dragging the knob pixel by pixel until
// the value changes would end.
TEST(SlidersTest, APressEndsWhereDraggingToTheNextValueEnds) {
  RecordingEvents events;
  for (int slider : {0, 10}) {
    for (int value = kSliders[slider].lowest; value <= kSliders[slider].highest; ++value) {
      for (int direction : {-1, 1}) {
        SCOPED_TRACE(testing::Message() << slider << " at " << value << " by " << direction);
        frmModules dragged = FirstStartPanel();
        SetSliderValue(dragged, slider, value);
        frmModules pressed = dragged;
        for (int knob = dragged.sliders[slider].position + direction;
             knob >= 0 && knob <= kKnobLast && dragged.Value(slider) == value; knob += direction) {
          CalcSlidVal(dragged, slider, knob);
        }
        StepSlider(pressed, slider, direction, events);
        EXPECT_EQ(pressed.sliders[slider].text, dragged.sliders[slider].text);
        EXPECT_EQ(pressed.sliders[slider].position, dragged.sliders[slider].position);
      }
    }
  }
}

TEST(SlidersTest, APressCountsFromTheShownValue) {
  RecordingEvents events;
  struct Row {
    const char* text;
    int direction;
    const char* after;
  };
  // Slider 0 with its knob at 91, as a preset may leave it.
  const Row rows[] = {
      {"20", 1, "21"},     {"20", -1, "19"},   {"19.6", 1, "21"}, {"", 1, "51"},
      {"words", -1, "49"}, {"150", -1, "100"}, {"-7", 1, "0"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    frmModules panel = FirstStartPanel();
    panel.sliders[0] = {91, row.text};
    StepSlider(panel, 0, row.direction, events);
    EXPECT_EQ(panel.sliders[0].text, row.after);
  }
}

TEST(SlidersTest, APressDuringAPressIsIgnored) {
  frmModules panel = FirstStartPanel();
  RecordingEvents events;
  events.on_run = [&](int) { StepSlider(panel, 3, 1, events); };
  StepSlider(panel, 3, 1, events);
  EXPECT_EQ(panel.Value(3), 1);
  events.on_run = nullptr;
  StepSlider(panel, 3, 1, events);
  EXPECT_EQ(panel.Value(3), 2);
}

}  // namespace
}  // namespace tarnwell
