#pragma once

#include <array>
#include <string>
#include <string_view>

#include "modules/frm_modules.h"
#include "shell/tip.h"

namespace tarnwell {

struct MainWindow;

// Empty for a number that is no tip.
std::string_view TipText(int tip);

// What the user wants to see of the tips.
struct Tips {
  bool never_show = false;                  // the tips setting: no tip is offered any more
  std::array<bool, kTipCount> hidden = {};  // "do not show this tip again", tip 1 first
  // Offered since the program started. A tip comes once in a run, or the one about the preview
  // would come with every preview.
  std::array<bool, kTipCount> offered = {};
};

// The "do not show again" mark of one tip.
void HideTip(Tips& tips, int tip, bool hide);

// Clears every mark and the setting.
void RestoreAllTips(Tips& tips);

// The tip before or behind `tip` (`step` -1 or +1), for leafing in the tips window; round the ends.
int NeighbourTip(int tip, int step);

// Setting and marks as the two texts of the settings file: "1" or "0"; the hidden tips' numbers
// with blanks between. What cannot be read, and a number that is no tip, is left out.
std::string TipsSettingText(const Tips& tips);
std::string HiddenTipsText(const Tips& tips);
void ReadTips(Tips& tips, std::string_view setting, std::string_view hidden);

// Shows the tip, unless the user does not want it or has had it in this run.
void OfferTip(MainWindow& window, int tip);

// After a click on a module's box: what closing it means.
void OfferModuleTip(MainWindow& window, int module);

// After the zoom window has opened.
void OfferZoomTip(MainWindow& window, ZoomMode mode);

// Lets the window's flows offer their tips. `window` must outlive its form's use.
void ConnectTips(MainWindow& window);

}  // namespace tarnwell
