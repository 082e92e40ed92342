#pragma once

#include <array>
#include <vector>

#include "modules/frm_modules.h"
#include "ui/look/box.h"
#include "ui/look/scale.h"

namespace tarnwell {

// What stands in a row of a module.
enum class RowKind {
  kSlider,         // name, value, track with arrows; `index` is the slider
  kCheck,          // `index` is the check option
  kProfileList,    // camera (0) or mode (1) with its New button
  kWhiteModes,     // the three white balance modes and the swatch
  kWhiteCommands,  // Open and Save of the white balance
  kSkinTone,       // the chosen skin tone and the manager
  kDeadPixels,     // the commands that add and assess test shots
  kHue,            // the hue field and its two swatches
  kRotation,       // the five turns
  kOutputName,     // the proposed names
  kSaveSwitch,     // `index` is the switch
};

struct PanelRow {
  RowKind kind;
  int index = 0;
};

// The rows of module `module`, top to bottom.
std::vector<PanelRow> RowsOf(int module);

// One module in the panel. Positions count from the top of the content that scrolls.
struct ModulePlace {
  Box card;
  Box header;
  std::vector<Box> rows;  // like RowsOf(module); none while it is closed
};

struct PanelLayout {
  std::array<ModulePlace, kModuleCount> modules;
  int height = 0;  // of the whole content
};

// Stacks the modules in a panel of `width` pixels. A closed module keeps its title bar of 32.
PanelLayout StackFunctions(const frmModules& panel, int width, Scale scale);

// How far a view of `view_height` may be scrolled in content of `content_height`, and `offset` kept
// within that.
int LastScroll(int content_height, int view_height);
int ClampScroll(int offset, int content_height, int view_height);

// The least move of a scroll offset that brings the rows from `top` to `bottom` into view; the top
// wins where they do not fit.
int ScrollToShow(int offset, int top, int bottom, int view_height);

// The x of a knob position (0 to 182) on a track from `left`, `width` wide, and back, the nearest
// position (clamped).
int KnobX(int position, int left, int width);
int PositionAtX(int x, int left, int width);

}  // namespace tarnwell
