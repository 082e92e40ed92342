#pragma once

#include <optional>
#include <string>

#include "imaging/pixel_array.h"
#include "modules/frm_modules.h"

namespace tarnwell {

class PendingEvents;
struct frmSkinTones;

enum class MouseButton { kLeft, kRight, kMiddle };
enum class ArrowKey { kLeft, kRight, kUp, kDown };

// A position in pixels, counted from the container's left top corner.
struct ZoomPoint {
  int x = 0;
  int y = 0;
};

// The zoom window's model: a photo at full size in a container that may be smaller than it.
struct frmZoom {
  enum class Action { kNone, kPicking, kDragging };

  bool visible = false;
  ZoomMode mode = ZoomMode::kViewOnly;
  Picture photo;
  int container_width = 0;
  int container_height = 0;
  int left = 0;  // of the photo in the container; above 0 only where the photo is the smaller one
  int top = 0;
  bool moved = false;  // by the user; until then the photo's middle stays in the container's

  Action action = Action::kNone;   // the pointer has another shape while dragging
  ZoomPoint grab;                  // while dragging: the point of the photo below the pointer
  std::optional<ZoomPoint> cross;  // what the keyboard picks; shown while there is one

  std::string instruction;
  Rgb lblColor;
  bool lblColor_visible = true;
};

// Opens the window on the middle of `photo`. Without a photo it stays closed.
// Picking a skin colour leaves instruction and swatch as they were.
void OpenZoom(frmZoom& zoom, ZoomMode mode, Picture photo);

// Shows `photo` in the open window in place of another one. False, with nothing changed, when it is
// of another size: the place that is in view means nothing there.
bool ShowInZoom(frmZoom& zoom, const Picture& photo);

// The container has a new size; a photo that the user moved gives way only as far as its edges
// must.
void ResizeZoom(frmZoom& zoom, int container_width, int container_height);

// Left picks where picking is on; every other button drags the photo.
void ZoomMouseDown(frmZoom& zoom, MouseButton button, ZoomPoint point);
void ZoomMouseMove(frmZoom& zoom, ZoomPoint point);

// Ends dragging or picking. A picked white colour goes to the panel, a picked skin colour to the
// fields of the skin tone manager, which is shown again; the window then closes.
void ZoomMouseUp(frmZoom& zoom, MouseButton button, ZoomPoint point, frmModules& panel,
                 frmSkinTones& skin_tones, PendingEvents& events);

// Another window has taken the pointer while a button was down: ends dragging or picking, with
// nothing picked.
void LeaveZoomPhoto(frmZoom& zoom);

// Moves the view by a fixed step.
void ZoomKeyDown(frmZoom& zoom, ArrowKey key);

// Where picking is on: shows the crosshair, in the middle of what is seen of the photo. The swatch
// follows it, and the pointer's first press hides it.
void ShowZoomCross(frmZoom& zoom);

// Moves the crosshair by `step` pixels of the photo; the photo moves along where it would leave the
// view.
void MoveZoomCross(frmZoom& zoom, ArrowKey key, int step);

// Picks below the crosshair as letting go of the left button does. Where none is shown yet, shows
// it.
void PickAtZoomCross(frmZoom& zoom, frmModules& panel, frmSkinTones& skin_tones,
                     PendingEvents& events);

// The user closes the window. A skin tone manager that waits for a colour is shown again,
// unchanged.
void CloseZoom(frmZoom& zoom, frmSkinTones& skin_tones);

}  // namespace tarnwell
