#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "modules/module_table.h"
#include "modules/skin_tone_list.h"

namespace tarnwell {

class PendingEvents;
struct Module1;
struct Platform;

inline constexpr int kKnobLast = 182;
inline constexpr int kKnobCentre = 91;

struct Rgb {
  int red = 0;  // 0 to 255 each
  int green = 0;
  int blue = 0;
  bool operator==(const Rgb&) const = default;
};

struct Slider {
  int position = 0;  // knob, 0 to 182; the stored state
  std::string text;  // the value as shown, and as the correction reads it
};

// Last column and row of the hue picker's field.
inline constexpr int kHueFieldLast = 105;

// The hue picker: a round field of 106 x 106 pixels.
struct HuePicker {
  int marker_x = 53;
  int marker_y = 53;
  // Factors of red, green and blue; 0 changes nothing.
  std::array<float, 3> factors = {0, 0, 0};
  // Swatch 0 is the photo's mean colour, swatch 1 that colour after the factors.
  std::array<Rgb, 2> lblHue = {Rgb{192, 192, 192}, Rgb{192, 192, 192}};
};

enum class WhiteBalanceMode : int { kModeDefault = 0, kPickedPixel = 1, kCustomFile = 2 };

// What the zoom window is opened for.
enum class ZoomMode : int { kViewOnly = 0, kPickWhite = 1, kPickSkin = 3 };

// The module panel as a model: what is switched on, and with which values. It knows no window.
struct frmModules {
  std::array<std::int16_t, kModuleCount> open = {};  // 1 = open = on, anything else is closed
  std::array<Slider, kSliderCount> sliders;
  std::array<std::string, kCheckCount> checks;  // "1" or "0"
  std::string slider_note;                      // `Label2`: slider index, comma, snapped position

  std::string camera = "Default";  // `lblList` 0
  std::string mode = "Default";    // `lblList` 1

  WhiteBalanceMode white_balance_mode = WhiteBalanceMode::kModeDefault;
  Rgb lblWhiteClr = {192, 192, 192};
  bool white_swatch_visible = false;
  std::optional<Rgb>
      picked_white;               // nothing while no pixel has been picked (`lblModeSet` 0 is "~")
  std::string custom_white_file;  // full path; empty while none is chosen (`lblModeSet` 1)

  HuePicker hue;
  SkinTones skin_tones;
  int rotation = 0;  // 0 to 4

  // By SaveSwitch: saved files have the photo's own JPEG quality where that is known; they do not
  // tell where the photo was taken.
  std::array<bool, kSaveSwitchCount> save_switches = {};

  bool arrow_busy = false;

  // Opens the zoom window on the photo in the main window and refreshes the tips; set by the host.
  std::function<void(ZoomMode)> ShowZoom = [](ZoomMode) {};

  bool IsOpen(int module) const { return open[module] == 1; }
  bool IsChecked(int check) const { return checks[check] == "1"; }

  // The value text of slider `index` as a whole number, read leniently (blanks around it, a
  // fraction rounded half to even). Nothing when it is no number or does not fit 16 bits.
  std::optional<int> Value(int index) const;
};

// A panel as at first start: default flags, sliders, checks.
frmModules FirstStartPanel();

// Converts knob position `position` of slider `index` to its value, shows the value, moves the knob
// to the snapped position and returns that.
int CalcSlidVal(frmModules& panel, int index, int position);

// Sets slider `index` to `value` (in its range): the text is the value, the knob its position.
void SetSliderValue(frmModules& panel, int index, int value);

// An arrow press: moves the value by one unit in `direction` (-1 or +1); nothing at the end of the
// range.
void StepSlider(frmModules& panel, int index, int direction, PendingEvents& events);

// Places the hue marker (clamped to the field) and recomputes the factors and swatch 1.
void MoveHueMarker(HuePicker& hue, int x, int y);

// Flips a check option.
void PicCheck_Click(frmModules& panel, int index);

// Toggles a module: opening switches it on, closing off.
void PicExpand_Click(frmModules& panel, int index, PendingEvents& events);

// Resets one module to its defaults, after a question unless app.confirm_reset is off. True when
// the user agreed and the module has defaults; whoever keeps the proposed file names rebuilds them
// after kSavePhotoAs.
bool PicDefault_Click(Module1& app, Platform& platform, frmModules& panel, int index);

}  // namespace tarnwell
