#include "shell/tips.h"

#include <algorithm>
#include <string>

#include "modules/module_table.h"
#include "shell/form1.h"
#include "shell/lenient_number.h"
#include "shell/main_view.h"
#include "shell/main_window.h"

namespace tarnwell {
namespace {

constexpr std::array<std::string_view, kTipCount> kTexts = {
    "Welcome! Open a photo, and a correction is worked out for it. Press Preview to see the "
    "correction on the small picture, change it in the module panel until you like it, then press "
    "Adjust to correct the full photo and Save to keep it. Your original photo is never changed.",
    "Minimizing a module will turn that function off, while expanding it will switch it on. For "
    "example if you do not want to adjust brightness, simply click the box to the upper right of "
    "the Adjust Brightness module so that it is unchecked.",
    "The small picture is a preview. Corrections are tried on it first, because that is fast, and "
    "it follows at once what you change in the module panel. Hold it to see the photo as it was; "
    "turn the mouse wheel to look closer. When you like what you see, press Adjust to correct the "
    "full photo. Saving asks for that too, so you cannot forget it.",
    "If you close the Smart Photo Correction module, it will turn off intelligent photo "
    "correction. Make sure you keep the module open if you want to take advantage of smart photo "
    "correction.",
    "Maximizing the module panel maximizes the module view to allow you to see as much as "
    "possible.",
    "No dead pixel information could be found for current camera and resolution. You can see Help "
    "(press F1) for more information on setting up dead pixel correction for this camera and mode.",
    "To set the white balance, click on something in the photo that should be white or grey. Hold "
    "the left button to see the color below the pointer, and let go to take it. Drag with the "
    "right button to move the photo. By keyboard, Shift and the arrow keys move a cross, and the "
    "space bar takes the color below it.",
    "To get a skin color, hold the left button on the photo. The color below the pointer is shown "
    "at once, and is taken when you let go. Drag with the right button to move the photo. By "
    "keyboard, Shift and the arrow keys move a cross, and the space bar takes the color below it.",
};

bool IsTip(int tip) { return tip >= 1 && tip <= kTipCount; }

}  // namespace

std::string_view TipText(int tip) { return IsTip(tip) ? kTexts[tip - 1] : std::string_view(); }

void HideTip(Tips& tips, int tip, bool hide) {
  if (IsTip(tip)) tips.hidden[tip - 1] = hide;
}

void RestoreAllTips(Tips& tips) { tips = {}; }

int NeighbourTip(int tip, int step) { return (tip - 1 + step + kTipCount) % kTipCount + 1; }

std::string TipsSettingText(const Tips& tips) { return tips.never_show ? "1" : "0"; }

std::string HiddenTipsText(const Tips& tips) {
  std::string text;
  for (int tip = 1; tip <= kTipCount; ++tip) {
    if (!tips.hidden[tip - 1]) continue;
    if (!text.empty()) text += ' ';
    text += std::to_string(tip);
  }
  return text;
}

void ReadTips(Tips& tips, std::string_view setting, std::string_view hidden) {
  tips.never_show = setting == "1";
  tips.hidden = {};
  while (!hidden.empty()) {
    const std::size_t end = std::min(hidden.find(' '), hidden.size());
    if (const auto tip = ParseLenientInt16(hidden.substr(0, end))) HideTip(tips, *tip, true);
    hidden.remove_prefix(std::min(end + 1, hidden.size()));
  }
}

void OfferTip(MainWindow& window, int tip) {
  Tips& tips = window.tips;
  // Nobody reads them beside the automated mode.
  if (window.pass_running) return;
  if (!IsTip(tip) || tips.never_show || tips.hidden[tip - 1] || tips.offered[tip - 1]) return;
  // Nobody has a tip that is being read taken away; this one comes the next time.
  if (window.view.IsTipsWindowShown()) return;
  tips.offered[tip - 1] = true;
  window.view.ShowTipsWindow(tip, /*asked_for=*/false);
}

void OfferModuleTip(MainWindow& window, int module) {
  if (window.form.modules.IsOpen(module)) return;
  OfferTip(window, module == kSmartPhotoCorrection ? kSmartCorrectionTip : kModuleSwitchTip);
}

void OfferZoomTip(MainWindow& window, ZoomMode mode) {
  if (mode == ZoomMode::kPickWhite) OfferTip(window, kPickWhiteTip);
  if (mode == ZoomMode::kPickSkin) OfferTip(window, kPickSkinTip);
}

void ConnectTips(MainWindow& window) {
  window.form.buffer.OfferPreviewTip = [&window] { OfferTip(window, kPreviewTip); };
  window.form.ShowTips = [&window](Tip tip) { OfferTip(window, tip); };
}

}  // namespace tarnwell
