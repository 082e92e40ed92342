#include "modules/frm_zoom.h"

#include <algorithm>
#include <utility>

#include "modules/frm_skin_tones.h"
#include "modules/white_balance.h"
#include "platform/events.h"

namespace tarnwell {
namespace {

constexpr int kArrowStep = 32;

// `wanted` as offset of a photo of this size, so that no gap opens at either edge. A photo that
// fits into the container stays where it is.
int ClampOffset(int wanted, int current, int photo, int container) {
  if (photo < container) return current;
  return std::clamp(wanted, container - photo, 0);
}

void MoveTo(frmZoom& zoom, int left, int top) {
  if (!zoom.photo) return;
  zoom.left = ClampOffset(left, zoom.left, zoom.photo->width(), zoom.container_width);
  zoom.top = ClampOffset(top, zoom.top, zoom.photo->height(), zoom.container_height);
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

void Hide(frmZoom& zoom) {
  zoom.action = frmZoom::Action::kNone;
  zoom.visible = false;
  zoom.photo = nullptr;
}

}  // namespace

void OpenZoom(frmZoom& zoom, ZoomMode mode, Picture photo) {
  if (!photo || photo->view().empty()) return;
  zoom.mode = mode;
  zoom.photo = std::move(photo);
  zoom.left = 0;
  zoom.top = 0;
  zoom.action = frmZoom::Action::kNone;
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
  // A photo that fits now goes back to the corner; it could not be moved there by hand.
  if (zoom.photo->width() < container_width) zoom.left = 0;
  if (zoom.photo->height() < container_height) zoom.top = 0;
  MoveTo(zoom, zoom.left, zoom.top);
}

void ZoomMouseDown(frmZoom& zoom, MouseButton button, ZoomPoint point) {
  if (!zoom.photo) return;
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
    MoveTo(zoom, point.x - zoom.grab.x, point.y - zoom.grab.y);
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
  if (zoom.mode == ZoomMode::kPickWhite) {
    SetPickedWhite(panel, GetWhiteClr(zoom.photo->view(), point.x - zoom.left, point.y - zoom.top));
    events.Run();
  } else {
    FollowColour(zoom, point);
    TakeColorFromPhoto(skin_tones, zoom.lblColor);
  }
  Hide(zoom);
}

void ZoomKeyDown(frmZoom& zoom, ArrowKey key) {
  const int dx = key == ArrowKey::kLeft ? kArrowStep : key == ArrowKey::kRight ? -kArrowStep : 0;
  const int dy = key == ArrowKey::kUp ? kArrowStep : key == ArrowKey::kDown ? -kArrowStep : 0;
  MoveTo(zoom, zoom.left + dx, zoom.top + dy);
}

void CloseZoom(frmZoom& zoom, frmSkinTones& skin_tones) {
  if (zoom.visible && zoom.mode == ZoomMode::kPickSkin) skin_tones.visible = true;
  Hide(zoom);
}

}  // namespace tarnwell
