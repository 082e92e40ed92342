#include "ui/zoom_window.h"

#include <array>
#include <oleacc.h>
#include <optional>
#include <windowsx.h>

#include "ui/wide_text.h"

namespace tarnwell {
namespace {

constexpr int kWidth = 100 * kGrid;
constexpr int kHeight = 80 * kGrid;
constexpr int kBarHeight = 6 * kGrid;
constexpr int kSwatchSide = 4 * kGrid;
constexpr int kWheelSteps = 3;
constexpr int kCrossStep = 1;  // pixels of the photo; with the shift key the larger one
constexpr int kLargeCrossStep = 16;
constexpr int kCrossArm = 12;
constexpr int kCrossGap = 4;  // around the pixel that is picked

std::optional<ArrowKey> ArrowOf(WPARAM key) {
  switch (key) {
    case VK_LEFT:
      return ArrowKey::kLeft;
    case VK_RIGHT:
      return ArrowKey::kRight;
    case VK_UP:
      return ArrowKey::kUp;
    case VK_DOWN:
      return ArrowKey::kDown;
    default:
      return std::nullopt;
  }
}

std::optional<MouseButton> ButtonOf(UINT message) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
      return MouseButton::kLeft;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
      return MouseButton::kRight;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
      return MouseButton::kMiddle;
    default:
      return std::nullopt;
  }
}

}  // namespace

ZoomWindow::ZoomWindow(HWND owner, Models models)
    : models_(models),
      container_(*this),
      instruction_(look_, Ground::kPage, Face::kBody),
      lblColor_(look_) {
  MakeTop(kDialogClass, L"Zoom", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, owner, kWidth, kHeight);
  container_.Create(handle());
  instruction_.Create(handle(), L"");
  lblColor_.Create(handle(), L"Color under the pointer");
  LayOut(Client());
}

void ZoomWindow::Open() {
  if (!models_.zoom.visible) return;
  LayOut(Client());
  instruction_.SetText(Wide(models_.zoom.instruction));
  instruction_.SetTip(instruction_.Text());
  if (look_.show_focus) ShowZoomCross(models_.zoom);
  Changed();
  if (!IsWindowVisible(handle())) ShowCentred();
  if (IsIconic(handle())) ShowWindow(handle(), SW_RESTORE);
  SetForegroundWindow(handle());
  SetFocus(container_.handle());
}

void ZoomWindow::Changed() {
  lblColor_.Show(models_.zoom.lblColor_visible);
  lblColor_.SetColour(models_.zoom.lblColor);
  container_.Invalidate();
  if (!models_.zoom.visible) Hide(/*picked=*/true);
}

void ZoomWindow::Hide(bool picked) {
  Show(false);
  if (const HWND owner = GetWindow(handle(), GW_OWNER)) SetActiveWindow(owner);
  closed(picked);
}

void ZoomWindow::OnDismiss() {
  CloseZoom(models_.zoom, models_.skin_tones);
  Hide(/*picked=*/false);
}

void ZoomWindow::LayOut(const Box& client) {
  if (!lblColor_.handle()) return;
  const int bar = Px(kBarHeight);
  const int margin = Px(2 * kGrid);
  const int side = Px(kSwatchSide);
  lblColor_.Place({client.width - margin - side, (bar - side) / 2, side, side});
  instruction_.Place({margin, 0, client.width - 3 * margin - side, bar});
  const Box photo = {0, bar, client.width, std::max(0, client.height - bar)};
  container_.Place(photo);
  ResizeZoom(models_.zoom, photo.width, photo.height);
  Invalidate();
  container_.Invalidate();
}

// `delta` in the system's unit, positive to the right or towards the hand. A fine wheel tells parts
// of a step, which add up.
void ZoomWindow::Wheel(bool across, int delta) {
  int& rest = across ? wheel_across_ : wheel_down_;
  rest += delta * kWheelSteps;
  const ArrowKey back = across ? ArrowKey::kLeft : ArrowKey::kUp;
  const ArrowKey on = across ? ArrowKey::kRight : ArrowKey::kDown;
  for (; rest <= -WHEEL_DELTA; rest += WHEEL_DELTA) ZoomKeyDown(models_.zoom, back);
  for (; rest >= WHEEL_DELTA; rest -= WHEEL_DELTA) ZoomKeyDown(models_.zoom, on);
  Changed();
}

LRESULT ZoomWindow::Handle(UINT message, WPARAM w, LPARAM l) {
  const int delta = GET_WHEEL_DELTA_WPARAM(w);
  switch (message) {
    case WM_MOUSEWHEEL:
      // Turned away from the hand it moves up.
      Wheel((GET_KEYSTATE_WPARAM(w) & MK_SHIFT) != 0, -delta);
      return 0;
    case WM_MOUSEHWHEEL:
      Wheel(/*across=*/true, delta);
      return 0;
  }
  return FrameWindow::Handle(message, w, l);
}

ZoomWindow::Container::Container(ZoomWindow& window)
    : Control(window.look_, Ground::kPage), window_(window) {}

void ZoomWindow::Container::Create(HWND parent) {
  Control::Create(parent, L"Photo at full size", ROLE_SYSTEM_GRAPHIC, true);
}

void ZoomWindow::Container::Paint(Painter& painter, const Box&) {
  const frmZoom& zoom = window_.models_.zoom;
  if (!zoom.photo) return;
  painter.Copy(zoom.left, zoom.top, zoom.photo->view());
  painter.Convert({zoom.left, zoom.top, zoom.photo->width(), zoom.photo->height()},
                  window_.colours_.For(handle(), window_.models_.metadata));
  if (zoom.cross) PaintCross(painter, *zoom.cross);
}

// Light on dark, so that it is seen on every photo.
void ZoomWindow::Container::PaintCross(Painter& painter, ZoomPoint at) {
  const double x = at.x + 0.5;
  const double y = at.y + 0.5;
  const double from = look().scale.Exact(kCrossGap);
  const double to = look().scale.Exact(kCrossArm);
  const std::array<Line, 4> arms = {
      Line{{x - to, y}, {x - from, y}}, Line{{x + from, y}, {x + to, y}},
      Line{{x, y - to}, {x, y - from}}, Line{{x, y + from}, {x, y + to}}};
  painter.Lines(arms, look().scale.Exact(4), {0, 0, 0});
  painter.Lines(arms, look().scale.Exact(2), {255, 255, 255});
}

void ZoomWindow::Container::OnClick() {
  const Models& models = window_.models_;
  PickAtZoomCross(models.zoom, models.panel, models.skin_tones, models.events);
  window_.Changed();
}

bool ZoomWindow::Container::OnKey(WPARAM key) {
  const std::optional<ArrowKey> arrow = ArrowOf(key);
  if (!arrow) return false;
  frmZoom& zoom = window_.models_.zoom;
  if (GetKeyState(VK_SHIFT) < 0) {
    MoveZoomCross(zoom, *arrow, kLargeCrossStep);
  } else if (GetKeyState(VK_CONTROL) < 0) {
    MoveZoomCross(zoom, *arrow, kCrossStep);
  } else {
    ZoomKeyDown(zoom, *arrow);
  }
  window_.Changed();
  return true;
}

bool ZoomWindow::Container::HandleButton(UINT message, ZoomPoint point) {
  const std::optional<MouseButton> button = ButtonOf(message);
  if (!button) return false;
  const Models& models = window_.models_;
  const bool down =
      message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN;
  if (down) {
    SetFocus(handle());
    SetCapture(handle());
    ZoomMouseDown(models.zoom, *button, point);
  } else {
    ZoomMouseUp(models.zoom, *button, point, models.panel, models.skin_tones, models.events);
    ReleaseCapture();
  }
  window_.Changed();
  return true;
}

LRESULT ZoomWindow::Container::Handle(UINT message, WPARAM w, LPARAM l) {
  const ZoomPoint point = {GET_X_LPARAM(l), GET_Y_LPARAM(l)};
  if (HandleButton(message, point)) return 0;
  if (message == WM_MOUSEMOVE && window_.models_.zoom.action != frmZoom::Action::kNone) {
    ZoomMouseMove(window_.models_.zoom, point);
    window_.Changed();
    return 0;
  }
  if (message == WM_CAPTURECHANGED) {
    LeaveZoomPhoto(window_.models_.zoom);
    return 0;
  }
  if (message == WM_SETCURSOR) {
    const bool picks = window_.models_.zoom.mode != ZoomMode::kViewOnly &&
                       window_.models_.zoom.action != frmZoom::Action::kDragging;
    SetCursor(LoadCursorW(nullptr, picks ? IDC_CROSS : IDC_SIZEALL));
    return TRUE;
  }
  return Control::Handle(message, w, l);
}

}  // namespace tarnwell
