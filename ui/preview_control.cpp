#include "ui/preview_control.h"

#include <oleacc.h>

#include "imaging/thumbnail.h"

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

Colour MatColour(const Theme& theme) { return theme.dark ? Hex(0x2B3034) : Hex(0xE6EAEC); }

}  // namespace

void PreviewControl::Create(HWND parent) {
  Control::Create(parent, L"Preview of the photo", ROLE_SYSTEM_GRAPHIC, true);
}

void PreviewControl::Update() { Invalidate(); }

void PreviewControl::ShowOriginal(bool original) {
  if (original_ == original) return;
  original_ = original;
  Invalidate();
}

void PreviewControl::OnClick() {
  if (!surfaces_.picThumb.picture) open_wanted();
}

LRESULT PreviewControl::Handle(UINT message, WPARAM w, LPARAM l) {
  if ((message == WM_KEYDOWN || message == WM_KEYUP) && w == VK_SPACE) {
    ShowOriginal(message == WM_KEYDOWN);
  }
  if (message == WM_CAPTURECHANGED || message == WM_KILLFOCUS) ShowOriginal(false);
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

void PreviewControl::PaintBadge(Painter& painter, const Box& client) {
  const std::wstring text = L"Before";
  const int width = TextSize(look(), Face::kCaption, text).cx + look().Px(2 * kGrid);
  const Box badge = {client.x + look().Px(kGrid), client.y + look().Px(kGrid), width,
                     look().Px(3 * kGrid)};
  painter.Round(badge, badge.height / 2.0, Hex(0x101416), 0.78);
  painter.Text(badge, text, Face::kCaption, Hex(0xFFFFFF), DT_CENTER);
}

void PreviewControl::Paint(Painter& painter, const Box& client) {
  if (!surfaces_.picThumb.picture) return PaintEmpty(painter, client);
  const double stretch = static_cast<double>(client.width) / kThumbnailSide;
  painter.Fill(client, MatColour(look().theme));
  if (TintedContainer()) painter.Image(client, TintedContainer()->view());
  const PictureSurface& thumb = surfaces_.picThumb;
  const Picture& shown = original_ ? OriginalThumbnail() : thumb.picture;
  if (shown) {
    const PixelView view = shown->view();
    const Box whole = Centred(client, static_cast<int>(view.width * stretch + 0.5),
                              static_cast<int>(view.height * stretch + 0.5));
    painter.Image(whole, view);
    painter.Convert(whole, colours_.For(handle(), metadata_));
  }
  if (original_) PaintBadge(painter, client);
  if (ShowsFocus()) painter.Focus(client, 0);
}

}  // namespace tarnwell
