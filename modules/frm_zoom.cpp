#include "modules/frm_zoom.h"

#include <algorithm>
#include <utility>

#include "modules/frm_skin_tones.h"
#include "modules/white_balance.h"
#include "platform/events.h"

namespace tarnwell {
namespace {

constexpr int kArrowStep = 32;

int Middle(int photo, int container) { return (container - photo) / 2; }

// `wanted` as offset of a photo of this size, so that no gap opens at either edge. A photo that is
// smaller than the container stays in its middle.
int ClampOffset(int wanted, int photo, int container) {
  if (photo < container) return Middle(photo, container);
  return std::clamp(wanted, container - photo, 0);
}

void MoveTo(frmZoom& zoom, int left, int top) {
  if (!zoom.photo) return;
  zoom.left = ClampOffset(left, zoom.photo->width(), zoom.container_width);
  zoom.top = ClampOffset(top, zoom.photo->height(), zoom.container_height);
}

void MoveByHand(frmZoom& zoom, int left, int top) {
  zoom.moved = true;
  MoveTo(zoom, left, top);
}

// The swatch follows the pixel below the pointer; beside the photo it keeps its colour.
void FollowColour(frmZoom& zoom, ZoomPoint point) {
  const PixelView pixels = zoom.photo->view();
  const int x = point.x - zoom.left;
  const int y = point.y - zoom.top;
  if (!pixels.Contains(x, y)) return;
  const std::uint8_t* pixel = pixels.at(x, y);
  zoom.lblColor = {pixel[kRed], pixel[kGreen], pixel[kBlue]};
}

// The places along one axis where a photo at `offset` is seen in the container.
int InSight(int place, int offset, int photo, int container) {
  const int first = std::max(offset, 0);
  return std::clamp(place, first, std::max(first, std::min(offset + photo, container) - 1));
}

// The crosshair stays where it is in the window while the photo moves below it.
void KeepCrossInSight(frmZoom& zoom) {
  if (!zoom.cross || !zoom.photo) return;
  zoom.cross = {InSight(zoom.cross->x, zoom.left, zoom.photo->width(), zoom.container_width),
                InSight(zoom.cross->y, zoom.top, zoom.photo->height(), zoom.container_height)};
  FollowColour(zoom, *zoom.cross);
}

// One step in the direction of an arrow key, -1, 0 or 1 along each axis.
ZoomPoint DirectionOf(ArrowKey key) {
  switch (key) {
    case ArrowKey::kLeft:
      return {-1, 0};
    case ArrowKey::kRight:
      return {1, 0};
    case ArrowKey::kUp:
      return {0, -1};
    case ArrowKey::kDown:
      return {0, 1};
  }
  return {};
}

void Hide(frmZoom& zoom) {
  zoom.action = frmZoom::Action::kNone;
  zoom.cross = std::nullopt;
  zoom.visible = false;
  zoom.photo = nullptr;
}

// Takes the colour at `point` and closes the window.
void Pick(frmZoom& zoom, ZoomPoint point, frmModules& panel, frmSkinTones& skin_tones,
          PendingEvents& events) {
  if (zoom.mode == ZoomMode::kPickWhite) {
    SetPickedWhite(panel, GetWhiteClr(zoom.photo->view(), point.x - zoom.left, point.y - zoom.top));
    events.Run();
  } else {
    FollowColour(zoom, point);
    TakeColorFromPhoto(skin_tones, zoom.lblColor);
  }
  CloseZoom(zoom, skin_tones);
}

}  // namespace

void OpenZoom(frmZoom& zoom, ZoomMode mode, Picture photo) {
  if (!photo || photo->view().empty()) return;
  zoom.mode = mode;
  zoom.photo = std::move(photo);
  zoom.moved = false;
  zoom.action = frmZoom::Action::kNone;
  zoom.cross = std::nullopt;
  if (mode == ZoomMode::kViewOnly) {
    zoom.instruction = "Use keyboard arrows or click photo and drag to move.";
    zoom.lblColor_visible = false;
  } else if (mode == ZoomMode::kPickWhite) {
    zoom.instruction =
        "Left-click to select white pixel. Use keyboard arrows or right-click photo and drag to "
        "move.";
    zoom.lblColor_visible = true;
  }
  zoom.visible = true;
  ResizeZoom(zoom, zoom.container_width, zoom.container_height);
}

bool ShowInZoom(frmZoom& zoom, const Picture& photo) {
  if (zoom.photo == photo) return true;
  if (!zoom.photo || !photo || zoom.photo->width() != photo->width() ||
      zoom.photo->height() != photo->height()) {
    return false;
  }
  zoom.photo = photo;
  return true;
}

void ResizeZoom(frmZoom& zoom, int container_width, int container_height) {
  zoom.container_width = container_width;
  zoom.container_height = container_height;
  if (!zoom.photo) return;
  if (!zoom.moved) {
    zoom.left = Middle(zoom.photo->width(), container_width);
    zoom.top = Middle(zoom.photo->height(), container_height);
  }
  MoveTo(zoom, zoom.left, zoom.top);
  KeepCrossInSight(zoom);
}

void ZoomMouseDown(frmZoom& zoom, MouseButton button, ZoomPoint point) {
  if (!zoom.photo) return;
  zoom.cross = std::nullopt;
  if (button != MouseButton::kLeft || zoom.mode == ZoomMode::kViewOnly) {
    zoom.action = frmZoom::Action::kDragging;
    zoom.grab = {point.x - zoom.left, point.y - zoom.top};
    return;
  }
  zoom.action = frmZoom::Action::kPicking;
  // It may be hidden since the photo was last only viewed.
  zoom.lblColor_visible = true;
  FollowColour(zoom, point);
}

void ZoomMouseMove(frmZoom& zoom, ZoomPoint point) {
  if (zoom.action == frmZoom::Action::kPicking) FollowColour(zoom, point);
  if (zoom.action == frmZoom::Action::kDragging) {
    MoveByHand(zoom, point.x - zoom.grab.x, point.y - zoom.grab.y);
  }
}

void ZoomMouseUp(frmZoom& zoom, MouseButton button, ZoomPoint point, frmModules& panel,
                 frmSkinTones& skin_tones, PendingEvents& events) {
  if (zoom.action != frmZoom::Action::kPicking) {
    zoom.action = frmZoom::Action::kNone;
    return;
  }
  if (button != MouseButton::kLeft) return;
  zoom.action = frmZoom::Action::kNone;
  Pick(zoom, point, panel, skin_tones, events);
}

void LeaveZoomPhoto(frmZoom& zoom) { zoom.action = frmZoom::Action::kNone; }

void ZoomKeyDown(frmZoom& zoom, ArrowKey key) {
  const ZoomPoint direction = DirectionOf(key);
  MoveByHand(zoom, zoom.left - kArrowStep * direction.x, zoom.top - kArrowStep * direction.y);
  KeepCrossInSight(zoom);
}

void ShowZoomCross(frmZoom& zoom) {
  if (!zoom.photo || zoom.mode == ZoomMode::kViewOnly) return;
  const int right = std::min(zoom.left + zoom.photo->width(), zoom.container_width);
  const int bottom = std::min(zoom.top + zoom.photo->height(), zoom.container_height);
  zoom.cross = {(std::max(zoom.left, 0) + right) / 2, (std::max(zoom.top, 0) + bottom) / 2};
  zoom.lblColor_visible = true;
  KeepCrossInSight(zoom);
}

void MoveZoomCross(frmZoom& zoom, ArrowKey key, int step) {
  if (!zoom.cross) ShowZoomCross(zoom);
  if (!zoom.cross) return;
  const ZoomPoint direction = DirectionOf(key);
  const int x =
      std::clamp(zoom.cross->x - zoom.left + step * direction.x, 0, zoom.photo->width() - 1);
  const int y =
      std::clamp(zoom.cross->y - zoom.top + step * direction.y, 0, zoom.photo->height() - 1);
  MoveByHand(zoom, std::clamp(zoom.left, -x, std::max(-x, zoom.container_width - 1 - x)),
             std::clamp(zoom.top, -y, std::max(-y, zoom.container_height - 1 - y)));
  zoom.cross = {zoom.left + x, zoom.top + y};
  KeepCrossInSight(zoom);
}

void PickAtZoomCross(frmZoom& zoom, frmModules& panel, frmSkinTones& skin_tones,
                     PendingEvents& events) {
  if (!zoom.cross) return ShowZoomCross(zoom);
  zoom.action = frmZoom::Action::kNone;
  Pick(zoom, *zoom.cross, panel, skin_tones, events);
}

void CloseZoom(frmZoom& zoom, frmSkinTones& skin_tones) {
  StopAwaitingColour(skin_tones);
  Hide(zoom);
}

}  // namespace tarnwell
