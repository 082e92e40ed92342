#include "ui/preview_control.h"

#include <cwchar>
#include <oleacc.h>
#include <windowsx.h>

#include "imaging/thumbnail.h"
#include "shell/preview_follow.h"

namespace tarnwell {
namespace {

// The container comes with its shadow on a grey; the shadow falls on the theme's ground instead.
Picture Tinted(const PixelView& container, Colour ground) {
  const auto tinted = TryMakePixels(container.width, container.height);
  if (!tinted) return nullptr;
  const MutablePixelView target = tinted->mutable_view();
  for (std::size_t i = 0; i < target.byte_count(); i += kBytesPerPixel) {
    const auto shade = [&](int channel, int colour) {
      const int level = std::min<int>(container.data[i + channel], kContainerGrey);
      target.data[i + channel] = static_cast<std::uint8_t>(colour * level / kContainerGrey);
    };
    shade(kBlue, ground.blue);
    shade(kGreen, ground.green);
    shade(kRed, ground.red);
  }
  return tinted;
}

std::wstring FactorText(const PreviewZoom& zoom) {
  wchar_t text[16] = {};
  std::swprintf(text, 16, L"%.1f\x00D7", zoom.factor);
  return text;
}

constexpr int kArrowStep = 4 * kGrid;

Colour MatColour(const Theme& theme) { return theme.dark ? Hex(0x2B3034) : Hex(0xE6EAEC); }

}  // namespace

void PreviewControl::Create(HWND parent) {
  Control::Create(parent, L"Preview of the photo", ROLE_SYSTEM_GRAPHIC, true);
}

void PreviewControl::Update() {
  // Another photo is seen whole at first.
  if (zoomed_.lock() != surfaces_.picOriginal.picture) SetZoom({});
  zoomed_ = surfaces_.picOriginal.picture;
  SetTip(surfaces_.picThumb.picture
             ? L"Hold to see the photo before its correction, turn the wheel to look closer"
             : L"");
  Invalidate();
}

void PreviewControl::ShowOriginal(bool original) {
  if (original_ == original) return;
  original_ = original;
  Invalidate();
}

void PreviewControl::OnClick() {
  if (!surfaces_.picThumb.picture) open_wanted();
}

const Picture& PreviewControl::Shown() {
  // Before and after are seen equally sharp.
  if (zoom_.enlarged() && !OnlyThumbnailCorrected(surfaces_)) {
    return original_ ? surfaces_.picOriginal.picture : surfaces_.picSource.picture;
  }
  if (original_) return OriginalThumbnail();
  return zoom_.enlarged() ? surfaces_.picSource.picture : surfaces_.picThumb.picture;
}

Box PreviewControl::WholeBox(const Box& client) {
  const Picture& shown = Shown();
  if (!shown) return {};
  const PixelView view = shown->view();
  const PictureSize size = ThumbnailSizeFor(view.width, view.height);
  const double stretch = static_cast<double>(client.width) / kThumbnailSide;
  return Centred(client, static_cast<int>(size.width * stretch + 0.5),
                 static_cast<int>(size.height * stretch + 0.5));
}

// Until single pixels of the photo are seen.
double PreviewControl::MostFactor(const Box& client) {
  const Picture& photo = surfaces_.picSource.picture;
  const int width = std::max(1, WholeBox(client).width);
  return std::max(8.0, photo ? 3.0 * photo->width() / width : 0.0);
}

void PreviewControl::SetZoom(const PreviewZoom& zoom) {
  zoom_ = zoom;
  SetAccessibleValue(zoom_.enlarged() ? FactorText(zoom_) : L"");
  Invalidate();
}

void PreviewControl::Turn(double notches, int x, int y) {
  const Box client = Client();
  if (!surfaces_.picThumb.picture) return;
  SetZoom(Turned(zoom_, client, WholeBox(client), notches, x, y, MostFactor(client)));
}

void PreviewControl::Pull(int dx, int dy) {
  SetZoom(Pulled(zoom_, Client(), WholeBox(Client()), dx, dy));
}

bool PreviewControl::OnKey(WPARAM key) {
  const int step = look().Px(kArrowStep);
  const Box client = Client();
  const int middle = client.width / 2;
  switch (key) {
    case VK_ADD:
    case VK_OEM_PLUS:
      Turn(1, middle, middle);
      return true;
    case VK_SUBTRACT:
    case VK_OEM_MINUS:
      Turn(-1, middle, middle);
      return true;
    case VK_LEFT:
    case VK_RIGHT:
      Pull(key == VK_LEFT ? step : -step, 0);
      return true;
    case VK_UP:
    case VK_DOWN:
      Pull(0, key == VK_UP ? step : -step);
      return true;
    default:
      return false;
  }
}

bool PreviewControl::HandleWheel(UINT message, WPARAM w, LPARAM l) {
  const double notches = static_cast<double>(GET_WHEEL_DELTA_WPARAM(w)) / WHEEL_DELTA;
  if (message == WM_MOUSEHWHEEL) {
    Pull(static_cast<int>(-notches * look().Px(kArrowStep)), 0);
    return true;
  }
  if (message != WM_MOUSEWHEEL) return false;
  POINT point = {GET_X_LPARAM(l), GET_Y_LPARAM(l)};
  ScreenToClient(handle(), &point);
  Turn(notches, point.x, point.y);
  return true;
}

bool PreviewControl::HandlePull(UINT message, LPARAM l) {
  const POINT point = {GET_X_LPARAM(l), GET_Y_LPARAM(l)};
  switch (message) {
    case WM_RBUTTONDOWN:
      pulling_ = zoom_.enlarged();
      pulled_from_ = point;
      if (pulling_) SetCapture(handle());
      return true;
    case WM_MOUSEMOVE:
      if (!pulling_) return false;
      Pull(point.x - pulled_from_.x, point.y - pulled_from_.y);
      pulled_from_ = point;
      return true;
    case WM_RBUTTONUP:
      if (pulling_) ReleaseCapture();
      return true;
    case WM_CAPTURECHANGED:
      pulling_ = false;
      return false;
    default:
      return false;
  }
}

LRESULT PreviewControl::Handle(UINT message, WPARAM w, LPARAM l) {
  if ((message == WM_KEYDOWN || message == WM_KEYUP) && w == VK_SPACE) {
    ShowOriginal(message == WM_KEYDOWN);
  }
  if (message == WM_CAPTURECHANGED || message == WM_KILLFOCUS) ShowOriginal(false);
  if (HandleWheel(message, w, l) || HandlePull(message, l)) return 0;
  return Control::Handle(message, w, l);
}

const Picture& PreviewControl::TintedContainer() {
  const Picture& container = surfaces_.picTContainer.picture;
  const Colour ground = MatColour(look().theme);
  if (container != container_ || ground != tint_) {
    container_ = container;
    tint_ = ground;
    tinted_ = container ? Tinted(container->view(), ground) : nullptr;
  }
  return tinted_;
}

const Picture& PreviewControl::OriginalThumbnail() {
  if (thumbnail_of_ != surfaces_.picOriginal.picture) {
    thumbnail_of_ = surfaces_.picOriginal.picture;
    thumbnail_ = thumbnail_of_ ? ThumbnailOf(thumbnail_of_->view()) : nullptr;
  }
  return thumbnail_;
}

void PreviewControl::PaintEmpty(Painter& painter, const Box& client) {
  const Theme& theme = look().theme;
  painter.Round(client, look().Px(kGrid), hovered() ? theme.hover : theme.card);
  painter.Outline(client, look().Px(kGrid), look().scale.Exact(1), theme.border);
  const int side = look().Px(6 * kGrid);
  const Box icon =
      Centred({client.x, client.y, client.width, client.height - look().Px(9 * kGrid)}, side, side);
  painter.Icon(icon, Glyph::kPhoto, theme.accent);
  const int line = look().Px(3 * kGrid);
  painter.Text({client.x, icon.bottom() + look().Px(kGrid), client.width, line},
               L"Open a photo, or drop one here", Face::kStrong, theme.text, DT_CENTER);
  painter.Text({client.x, icon.bottom() + look().Px(kGrid) + line, client.width, line},
               L"BMP, GIF or JPEG", Face::kCaption, theme.quiet, DT_CENTER);
  if (ShowsFocus()) painter.Focus(client, look().Px(kGrid));
}

void PreviewControl::PaintBadge(Painter& painter, const Box& client, const std::wstring& text,
                                bool at_top) {
  const int width = TextSize(look(), Face::kCaption, text).cx + look().Px(2 * kGrid);
  const int height = look().Px(3 * kGrid);
  const int margin = look().Px(kGrid);
  const Box badge = {client.x + margin,
                     at_top ? client.y + margin : client.bottom() - margin - height, width, height};
  painter.Round(badge, badge.height / 2.0, Hex(0x101416), 0.78);
  painter.Text(badge, text, Face::kCaption, Hex(0xFFFFFF), DT_CENTER);
}

void PreviewControl::Paint(Painter& painter, const Box& client) {
  if (!surfaces_.picThumb.picture) return PaintEmpty(painter, client);
  painter.Fill(client, MatColour(look().theme));
  // The shadow lies around the photo that is seen whole.
  if (TintedContainer() && !zoom_.enlarged()) painter.Image(client, TintedContainer()->view());
  if (const Picture& shown = Shown()) {
    const Box box = EnlargedBox(zoom_, client, WholeBox(client));
    painter.Image(box, shown->view());
    painter.Convert(box, colours_.For(handle(), metadata_));
  }
  if (original_) PaintBadge(painter, client, L"Before", /*at_top=*/true);
  if (zoom_.enlarged()) {
    PaintBadge(painter, client, FactorText(zoom_), /*at_top=*/false);
  }
  if (ShowsFocus()) painter.Focus(client, 0);
}

}  // namespace tarnwell
