#include "modules/frm_modules.h"

#include "platform/events.h"

namespace tarnwell {

frmModules FirstStartPanel() {
  frmModules panel;
  for (int module = 0; module < kModuleCount; ++module) {
    panel.open[module] = kModules[module].open_at_first_start ? 1 : 0;
  }
  for (int check = 0; check < kCheckCount; ++check) {
    panel.checks[check] = kChecks[check].default_checked ? "1" : "0";
  }
  for (int slider = 0; slider < kSliderCount; ++slider) {
    CalcSlidVal(panel, slider, kSliders[slider].default_position);
  }
  return panel;
}

void PicCheck_Click(frmModules& panel, int index) {
  panel.checks[index] = panel.IsChecked(index) ? "0" : "1";
}

void PicExpand_Click(frmModules& panel, int index, PendingEvents& events) {
  events.Run();
  panel.open[index] = panel.IsOpen(index) ? 0 : 1;
}

}  // namespace tarnwell
