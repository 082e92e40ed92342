// The sliders of the module panel. The value text is the value; the knob is its picture, placed
// where the value converts back to.

#include <algorithm>

#include "modules/frm_modules.h"
#include "modules/slider_scale.h"
#include "platform/events.h"
#include "shell/lenient_number.h"

namespace tarnwell {

std::optional<int> frmModules::Value(int index) const {
  return ParseLenientInt16(sliders[index].text);
}

void SetSliderValue(frmModules& panel, int index, int value) {
  const SliderInfo& info = kSliders[index];
  value = std::clamp(value, info.lowest, info.highest);
  Slider& slider = panel.sliders[index];
  slider.position = PositionOfValue(info.scale, value);
  slider.text = std::to_string(value);
  panel.slider_note = std::to_string(index) + "," + std::to_string(slider.position);
}

int CalcSlidVal(frmModules& panel, int index, int position) {
  position = std::clamp(position, 0, kKnobLast);
  SetSliderValue(panel, index, ValueAtPosition(kSliders[index].scale, position));
  return panel.sliders[index].position;
}

// Walking the knob pixel by pixel until the value differs, and then holding on to one unit where a
// pixel is worth more, always ends at the neighbouring value with its own knob position. So the
// press goes there directly.
void StepSlider(frmModules& panel, int index, int direction, PendingEvents& events) {
  if (panel.arrow_busy) return;
  panel.arrow_busy = true;
  const Slider& slider = panel.sliders[index];
  const int value =
      panel.Value(index).value_or(ValueAtPosition(kSliders[index].scale, slider.position));
  const int next = std::clamp(value + direction, kSliders[index].lowest, kSliders[index].highest);
  if (next != value) SetSliderValue(panel, index, next);
  // The knob is seen at its new place while the arrow is held down.
  events.Run();
  panel.arrow_busy = false;
}

}  // namespace tarnwell
